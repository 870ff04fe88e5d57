/// Random extraction reports: mostly what a tool would write, with the oddities of text files.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/random.h"

namespace kvocaeio::test {

/// The three reports of one design; one that is absent has no file.
using ReportTriple = std::array<std::optional<std::string>, 3>;

class ReportGenerator {
  public:
    explicit ReportGenerator(std::uint64_t seed) : random_(seed) {}

    ReportTriple triple();

  private:
    struct Columns {
        std::vector<std::string> names;
        std::size_t extra = 0;  // cells that later header lines have added
    };

    std::string report(const std::vector<std::string>& names, const std::vector<std::string>& jobs,
                       std::size_t rowCount);
    Columns arranged(std::vector<std::string> names);
    void putHeader(const std::vector<std::string>& names);
    void putJob(const std::vector<std::string>& cells);
    void putRow(const Columns& columns);
    void putLine(std::string line);
    void putNoise();
    void damage(std::string& content);
    std::vector<std::string> jobOf(const std::string& design);

    std::string cell(std::string_view column);
    std::string refdes();
    std::string word();
    std::string number();
    std::string thickness();
    std::string unit();
    std::string design();
    std::string inAnyCase(std::string content);
    template <std::size_t N>
    std::string oneOf(const char* const (&choices)[N]) {
        return choices[random_.below(N)];
    }

    Random random_;
    std::string lineEnd_ = "\n";
    std::string text_;
    std::size_t lineStart_ = 0;  // in `text_`, of the physical line that is not ended yet
};

}  // namespace kvocaeio::test
