/// The places of a folded finding, in words.
#include "check/more.h"

#include <algorithm>
#include <span>
#include <vector>

namespace kvocaeio::host {

namespace {

constexpr std::size_t kShownPlaces = 3;

std::string firstOf(std::span<const std::string> words) {
    std::string list;
    for (const std::string& word : words.first(std::min(words.size(), kShownPlaces)))
        list += (list.empty() ? "" : ", ") + word;
    return list;
}

}  // namespace

std::string moreOf(const ImportFinding& finding) {
    if (finding.count <= 1)
        return "";
    const auto others = std::span(finding.places).subspan(1);
    const bool isAll = static_cast<std::size_t>(finding.count) == finding.places.size();
    std::string words = " (and " + std::to_string(finding.count - 1) + " more";
    std::vector<std::string> lines;
    std::vector<std::string> texts;
    for (const auto& [line, column, text] : others) {
        const std::string number = std::to_string(line);
        if (line != 0 && line != finding.places.front().line &&
            (lines.empty() || lines.back() != number))
            lines.push_back(number);
        if (line == 0 && !text.empty())
            texts.push_back(text);
    }
    if (!lines.empty())
        words += std::string(isAll && lines.size() <= kShownPlaces ? ", at " : ", next at ") +
                 (lines.size() == 1 ? "line " : "lines ") + firstOf(lines);
    else if (!texts.empty())
        words += ": " + firstOf(texts) + (isAll && texts.size() <= kShownPlaces ? "" : ", ...");
    else if (isAll && finding.places.front().line != 0)
        words += " in this line";
    return words + ")";
}

}  // namespace kvocaeio::host
