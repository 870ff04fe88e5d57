/// An observer that keeps what it is told.
#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "text/observer.h"

namespace kvocaeio::test {

struct Note {
    text::Finding finding;
    std::size_t line;
    std::string what;
    std::string why;
    bool operator==(const Note&) const = default;
};

inline void PrintTo(const Note& note, std::ostream* out) {
    *out << static_cast<int>(note.finding) << " line " << note.line << " '" << note.what << "' "
         << note.why;
}

struct Recorder {
    static constexpr bool kListens = true;
    std::vector<Note> notes;
    void note(text::Finding finding, std::size_t line, std::string_view what,
              std::string_view why) {
        notes.push_back({finding, line, std::string(what), std::string(why)});
    }
};

}  // namespace kvocaeio::test
