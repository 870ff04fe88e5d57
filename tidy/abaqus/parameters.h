/// The parameters of a deck: names for values, which its lines have between angle brackets.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace kvocaeio::tidy::abaqus {

/// Values by name, in any case of its letters.
class Parameters {
  public:
    bool isEmpty() const { return values_.empty(); }

    /// Takes a line such as "length = 2.5 * width" or "name = 'top'". Expressions have numbers,
    /// parameters, the operators + - * / ** with brackets, and the functions of one number that
    /// are usual. A line of any other form defines nothing.
    void define(std::string_view line);

    /// Puts values in the places of "<name>". False where there are none; unknown names stay.
    bool substitute(std::string_view line, std::string& substituted) const;

  private:
    std::map<std::string, std::string> values_;
};

}  // namespace kvocaeio::tidy::abaqus
