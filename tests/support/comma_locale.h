/// A locale with a decimal comma, as a host may have set it.
#pragma once

#include <clocale>
#include <cstdio>
#include <string_view>

namespace kvocaeio::test {

/// In force from its construction to its destruction, if one is installed.
class CommaLocale {
  public:
    CommaLocale() {
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "German_Germany.1252", "German"})
            if (std::setlocale(LC_ALL, name) != nullptr)
                break;
        char text[8];
        std::snprintf(text, sizeof text, "%.1f", 1.5);
        found_ = std::string_view(text) == "1,5";
    }
    ~CommaLocale() { std::setlocale(LC_ALL, "C"); }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    bool found() const { return found_; }

  private:
    bool found_;
};

inline constexpr const char* kNoCommaLocale = "no locale with a decimal comma is installed";

}  // namespace kvocaeio::test
