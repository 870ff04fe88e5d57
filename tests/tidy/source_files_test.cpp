#include "tidy/source_files.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/files.h"
#include "support/findings.h"

namespace {

using kvocaeio::test::describe;
using kvocaeio::test::TempFolder;
using kvocaeio::tidy::Deck;
using kvocaeio::tidy::SourceFiles;

// All lines of a deck in which "> NAME" includes a file, each with the place that it has.
struct Lines {
    std::string text;
    std::vector<std::string> findings;
    bool isIncomplete;
};

Lines linesOf(const std::string& path) {
    kvocaeio::text::Findings findings;
    const Deck deck{path, "DECK"};
    SourceFiles files(deck, {&findings, nullptr});
    Lines out{};
    if (files.open())
        while (files.next()) {
            const std::string_view line = files.line();
            if (line.starts_with("> "))
                files.include(line.substr(2));
            else
                out.text += std::to_string(files.fileRow()) + ":" +
                            std::to_string(files.lineNumber()) + " " + std::string(line) + "|";
        }
    out.findings = describe(findings);
    out.isIncomplete = files.isIncomplete();
    return out;
}

std::vector<std::string> codes(const Lines& lines) {
    std::vector<std::string> out;
    for (const std::string& finding : lines.findings)
        out.push_back(finding.substr(0, finding.find(' ')));
    return out;
}

TEST(TidySourceFiles, LinesHaveTheirPlacesAndNoEnds) {
    const TempFolder folder;
    const Lines lines = linesOf(folder.write("deck", "one\r\ntwo\n\nlast"));
    EXPECT_EQ(lines.text, "0:1 one|0:2 two|0:3 |0:4 last|");
    EXPECT_FALSE(lines.isIncomplete);
}

TEST(TidySourceFiles, AnIncludedFileStandsInThePlaceOfItsInclude) {
    const TempFolder folder;
    folder.makeFolder("parts");
    folder.write("parts/a", "a1\n> b\na3\n");
    folder.write("parts/b", "b1");
    const Lines lines = linesOf(folder.write("deck", "d1\n> parts/a\nd3\n> parts\\b\n"));
    EXPECT_EQ(lines.text, "0:1 d1|1:1 a1|2:1 b1|1:3 a3|0:3 d3|2:1 b1|");
    EXPECT_EQ(lines.findings[0], "tidy.included (parts/a) 2:1 > parts/a");
    EXPECT_FALSE(lines.isIncomplete);
}

TEST(TidySourceFiles, NamesCountInAnyCaseAndFromTheDecksFolder) {
    const TempFolder folder;
    folder.makeFolder("Parts");
    folder.write("Parts/Mesh.inc", "> below.inc\n");
    folder.write("Below.INC", "found\n");
    const Lines lines = linesOf(folder.write("deck", "> PARTS/mesh.inc\n"));
    EXPECT_EQ(lines.text, "2:1 found|");
    EXPECT_FALSE(lines.isIncomplete);
}

TEST(TidySourceFiles, WhatCannotBeIncludedIsAnError) {
    const TempFolder folder;
    folder.makeFolder("sub");
    const Lines lines = linesOf(folder.write("deck", "> none\n> sub\n> deck\nlast\n"));
    EXPECT_EQ(lines.text, "0:4 last|");
    EXPECT_TRUE(lines.isIncomplete);
    EXPECT_EQ(lines.findings, (std::vector<std::string>{"tidy.include-missing (none) 1:1 > none",
                                                        "tidy.include-no-file (sub) 2:1 > sub",
                                                        "tidy.include-cycle (deck) 3:1 > deck"}));
}

TEST(TidySourceFiles, AFileOutsideTheFolderIsReadAndTold) {
    const TempFolder folder;
    folder.makeFolder("sub");
    folder.write("outside", "o1\n");
    const Lines lines = linesOf(folder.write("sub/deck", "> ../outside\n"));
    EXPECT_EQ(lines.text, "1:1 o1|");
    EXPECT_EQ(codes(lines), (std::vector<std::string>{"tidy.included", "tidy.include-outside"}));
    EXPECT_FALSE(lines.isIncomplete);
}

TEST(TidySourceFiles, DepthIsBounded) {
    const TempFolder folder;
    for (int i = 0; i < 20; ++i)
        folder.write("f" + std::to_string(i), "> f" + std::to_string(i + 1) + "\n");
    const Lines lines = linesOf(folder.file("f0"));
    EXPECT_TRUE(lines.isIncomplete);
    EXPECT_EQ(codes(lines).back(), "tidy.include-deep");
}

TEST(TidySourceFiles, ShortFilesThatIncludeEachOtherOftenComeToAnEnd) {
    const TempFolder folder;
    for (int i = 0; i < 15; ++i) {
        const std::string next = "> f" + std::to_string(i + 1) + "\n";
        folder.write("f" + std::to_string(i), next + next + next);
    }
    folder.write("f15", "x\n");
    const Lines lines = linesOf(folder.file("f0"));
    EXPECT_TRUE(lines.isIncomplete);
    EXPECT_EQ(codes(lines).back(), "tidy.include-large");
}

TEST(TidySourceFiles, LongLinesAreJoinedUpToABound) {
    const TempFolder folder;
    const std::string longLine(300'000, 'x');
    EXPECT_EQ(linesOf(folder.write("deck", longLine + "\nend\n")).text,
              "0:1 " + longLine + "|0:2 end|");
    const Lines lines = linesOf(folder.write("deck", std::string(3'000'000, 'x') + "\nend\n"));
    EXPECT_EQ(lines.text.size(), SourceFiles::kMostLine + std::string("0:1 |0:2 end|").size());
    EXPECT_TRUE(lines.isIncomplete);
    EXPECT_EQ(codes(lines), std::vector<std::string>{"tidy.line-long"});
}

}  // namespace
