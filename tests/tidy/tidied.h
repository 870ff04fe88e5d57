/// Decks tidied in a folder of the test's own.
#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "support/files.h"
#include <kvocaeio/report.h>
#include <kvocaeio/tidy.h>

namespace kvocaeio::test {

/// What came of a deck.
struct Tidied {
    bool isDone = false;
    bool isNeeded = false;
    double deviation = 0.0;
    std::string text;                 ///< the new deck; empty where none was written
    std::vector<std::string> notes;   ///< codes with their subjects' sentence, in order: notes
    std::vector<std::string> others;  ///< likewise: warnings and errors, as "line:column code"
    std::string nodeOrigins;          ///< as "1<11 2<12"
    std::string elementOrigins;
    std::string propertyOrigins;
};

/// Tidies the deck `name` of `folder`, which holds the files that it includes as well.
inline Tidied tidyFile(const TempFolder& folder, std::string_view name, int format) {
    const std::string in = folder.file(name);
    const std::string out = folder.file("tidied");
    CKVODeckTidy tidy;
    CKVOImportReport report;
    Tidied result;
    result.isDone = tidy.Tidy(in.c_str(), out.c_str(), format, &report);
    result.isNeeded = tidy.IsNeeded();
    result.deviation = tidy.GetDeviation();
    result.text = readBytes(out);
    CKVOImportReport::FindingData finding;
    for (report.GetFindingBegin(); report.GetFindingNext(&finding);) {
        const std::string code = finding.code;
        if (finding.severity == CKVOImportReport::kNote)
            result.notes.push_back(code);
        else
            result.others.push_back(std::to_string(finding.line) + ":" +
                                    std::to_string(finding.column) + " " + code);
    }
    const auto add = [](std::string& to, const CKVODeckTidy::OriginData& origin) {
        to += (to.empty() ? "" : " ") + std::to_string(origin.id) + "<" +
              std::to_string(origin.originalId);
    };
    CKVODeckTidy::OriginData origin;
    for (tidy.GetNodeOriginBegin(); tidy.GetNodeOriginNext(&origin);)
        add(result.nodeOrigins, origin);
    for (tidy.GetElemOriginBegin(); tidy.GetElemOriginNext(&origin);)
        add(result.elementOrigins, origin);
    for (tidy.GetPropertyOriginBegin(); tidy.GetPropertyOriginNext(&origin);)
        add(result.propertyOrigins, origin);
    return result;
}

inline Tidied tidyText(std::string_view text, int format) {
    const TempFolder folder;
    folder.write("deck", text);
    return tidyFile(folder, "deck", format);
}

/// How many random decks of a kind are tidied. Wine takes its time for each file.
#if defined(_WIN32)
inline constexpr unsigned kRandomDecks = 100;
#else
inline constexpr unsigned kRandomDecks = 1500;
#endif

/// Whether tidying the tidy deck of `in` changes no byte of it; true as well where there is no tidy
/// deck. `tidied` counts those that there are.
inline bool staysTidy(const TempFolder& folder, const std::string& in, int format, int& tidied) {
    const std::string out = folder.file("tidied");
    const std::string again = folder.file("again");
    CKVODeckTidy tidy;
    if (!tidy.Tidy(in.c_str(), out.c_str(), format, nullptr))
        return !tidy.IsNeeded() && tidy.GetNodeOriginNum() == 0;
    ++tidied;
    CKVODeckTidy second;
    return (tidy.IsNeeded() || readBytes(out) == readBytes(in)) &&
           second.Tidy(out.c_str(), again.c_str(), format, nullptr) &&
           (format == CKVODeckTidy::kAbaqus || !second.IsNeeded()) &&
           readBytes(again) == readBytes(out) &&
           second.GetNodeOriginNum() == tidy.GetNodeOriginNum() &&
           second.GetElemOriginNum() == tidy.GetElemOriginNum() &&
           second.GetPropertyOriginNum() == tidy.GetPropertyOriginNum();
}

/// The same of each file in a folder and those below it, if its name ends with `ending`.
inline void expectAllStayTidy(const std::filesystem::path& decks, std::string_view ending,
                              int format) {
    const TempFolder folder;
    int tidied = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(decks)) {
        const std::string deck = entry.path().string();
        if (entry.is_regular_file() && deck.ends_with(ending)) {
            EXPECT_TRUE(staysTidy(folder, deck, format, tidied)) << deck;
        }
    }
    EXPECT_GT(tidied, 0);
}

}  // namespace kvocaeio::test
