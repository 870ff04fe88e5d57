/// A deck at work in a writer, for the tests, and its fixed parts.
#pragma once

#include <gtest/gtest.h>
#include <string>

#include "support/files.h"
#include <kvocaeio/nastran.h>

namespace kvocaeio::test {

inline const std::string kFooter =
    "$ -----------------------------------------------------------\n"
    "$ END OF DATA\n"
    "$ -----------------------------------------------------------\n"
    "ENDDATA\n";

inline std::string headerOf(const std::string& unit, const std::string& module,
                            const std::string& density) {
    return "$ -----------------------------------------------------------\n"
           "$ Date: DATE\n"
           "$ Vorlan9Q to NE-Nastran\n"
           "$ -----------------------------------------------------------\n"
           "$ Mesh unit           = " +
           unit +
           "\n"
           "$ Elastic module unit = " +
           module +
           "\n"
           "$ Density             = " +
           density +
           "\n"
           "$ -----------------------------------------------------------\n"
           "$ STATIC SOLUTION.\n"
           "$ -----------------------------------------------------------\n"
           "SOL STATIC\n"
           "CEND\n"
           "$ -----------------------------------------------------------\n"
           "$ TITLE\n"
           "$ -----------------------------------------------------------\n"
           "TITLE =     VORLAN9Q INJECTION MOLDING MODEL\n"
           "$ -----------------------------------------------------------\n"
           "$ OUTPUT CONTROL.\n"
           "$ -----------------------------------------------------------\n"
           "DISPLACEMENT = ALL\n"
           "SPCFORCES    = ALL\n"
           "ELSTRESS     = ALL\n"
           "GPSTRESS     = ALL\n"
           "$ -----------------------------------------------------------\n"
           "$ BEGIN BULK\n"
           "$ -----------------------------------------------------------\n"
           "BEGIN BULK\n"
           "$ \n"
           "PARAM,POST,-1\n"
           "PARAM,OGEOM,NO\n"
           "PARAM,AUTOSPC,YES\n"
           "PARAM,GRDPNT,0\n"
           "CORD2R         1       0      0.      0.      0.      0.      0.      1.+VORLAN1\n"
           "+VORLAN1      1.      0.      1.\n";
}

inline const std::string kHeader = headerOf("mm", "N/mm^2", "T/mm^3");

// The text of a deck with its 18 characters of date replaced by "DATE", checked to be ones.
inline std::string withoutDate(std::string content) {
    constexpr std::size_t kLength = 18;
    const std::string prefix = "$ Date: ";
    const std::size_t start = content.find(prefix) + prefix.size();
    if (content.find(prefix) == std::string::npos || content.size() < start + kLength)
        return content;
    const std::string pattern = "dd/dd/dd  dd:dd:dd";
    for (std::size_t i = 0; i < kLength; ++i) {
        const char c = content[start + i];
        if (pattern[i] == 'd' ? c < '0' || c > '9' : c != pattern[i])
            return content;
    }
    return content.replace(start, kLength, "DATE");
}

/// A writer at work on a deck.
struct WrittenDeck {
    WrittenDeck() { EXPECT_TRUE(writer.SetFilePath(path.c_str())); }
    explicit WrittenDeck(const char* unit) { EXPECT_TRUE(writer.SetFilePath(path.c_str(), unit)); }

    std::string text() const { return withoutDate(readText(path)); }
    /// All that stands between header and footer, once the deck is ended.
    std::string cards() {
        EXPECT_TRUE(writer.EndWriting());
        const std::string all = text();
        EXPECT_TRUE(all.starts_with(kHeader) && all.ends_with(kFooter)) << all;
        return all.substr(kHeader.size(), all.size() - kHeader.size() - kFooter.size());
    }

    TempFolder folder;
    std::string path = folder.file("deck.nas");
    KVONASTRAN_Writer writer;
};

}  // namespace kvocaeio::test
