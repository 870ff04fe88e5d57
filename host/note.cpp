/// Notes of what is left out, in words.
#include "note.h"

#include "counted.h"

namespace kvocaeio::host {

void leaveOut(std::vector<Note>& losses, std::string_view code, std::size_t number,
              std::string_view things, std::string_view rest) {
    if (number != 0)
        losses.push_back({std::string(code), number, counted(number, things) + std::string(rest)});
}

void leaveOut(std::vector<Note>& losses, const KindCounts& kinds) {
    for (const auto& [name, number] : kinds)
        leaveOut(losses, kindCode(name), number, name);
}

}  // namespace kvocaeio::host
