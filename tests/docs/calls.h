/// Calls of a writer, as a rule lists them: `AddElement(7, 1, {1, 2, 3, 4})`.
#pragma once

#include <regex>
#include <string>
#include <vector>

namespace kvocaeio::test {

struct Call {
    explicit Call(const std::string& line) {
        name = line.substr(0, line.find('('));
        static const std::regex argument("\"([^\"]*)\"|-?[0-9][0-9.e+-]*");
        for (std::sregex_iterator
                 it(line.begin() + static_cast<std::ptrdiff_t>(name.size()), line.end(), argument),
             end;
             it != end; ++it) {
            if ((*it)[1].matched)
                text = (*it)[1];
            else
                numbers.push_back(std::stod(it->str()));
        }
    }
    int integer(std::size_t at) const { return static_cast<int>(numbers.at(at)); }
    /// The integers of a list that starts at argument `at` and ends the call.
    std::vector<int> list(std::size_t at) const {
        std::vector<int> integers;
        for (; at < numbers.size(); ++at)
            integers.push_back(integer(at));
        return integers;
    }

    std::string name;
    std::string text;
    std::vector<double> numbers;
};

}  // namespace kvocaeio::test
