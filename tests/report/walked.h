/// What the walks over a file write down, so that two ways to read it can be compared.
#pragma once

#include <filesystem>
#include <map>
#include <sstream>
#include <string>

namespace kvocaeio::test {

// A small file may number its nodes so high that it takes long to look at all rows.
inline constexpr int kRowsSeen = 100'000;

// What one import of a file has left.
struct Walked {
    bool imported = false;
    std::string tables;                       // all that the walks return
    std::string rest;                         // what the C interface has in another form
    std::string printed;                      // on standard output
    std::map<std::string, long long> counts;  // what a host counts while it walks
};

class Writer {
  public:
    Writer() { out_ << std::hexfloat; }

    template <class... Values>
    void line(const Values&... values) {
        ((out_ << values << ' '), ...) << '\n';
    }
    template <class Value>
    void row(const Value* values, int count) {
        for (int i = 0; i < count; ++i)
            out_ << values[i] << ' ';
        out_ << '\n';
    }
    std::string text() const { return out_.str(); }

  private:
    std::ostringstream out_;
};

/// The same file read through the C interface, written down as the walks of the readers are;
/// `isNeutralList`: of the two readers of neutral files, that of lists. Without `rest` and counts.
Walked walkedByC(const std::filesystem::path& path, bool isNeutralList, bool isReported);

}  // namespace kvocaeio::test
