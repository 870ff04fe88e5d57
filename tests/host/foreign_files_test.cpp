/// Files that are not what their names say: `kvocaeio info` names them as what they are.
#include <gmock/gmock.h>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

using namespace std::string_view_literals;
using nlohmann::json;
using testing::ElementsAre;
using testing::IsEmpty;

/// The error of a file of this name that fails without a report: its code and its words.
std::string refusalOf(const std::string& name, std::string_view bytes) {
    const TempFolder folder;
    const Outcome outcome = runHost({"info", "--json", folder.write(name, bytes)});
    EXPECT_EQ(outcome.exitCode, 1);
    const json report = json::parse(outcome.output).at("files")[0];
    EXPECT_FALSE(report.contains("mesh"));
    EXPECT_EQ(report.at("findings").size(), 1u);
    const json& finding = report.at("findings")[0];
    return finding.at("code").get<std::string>() + ": " + finding.at("text").get<std::string>();
}

TEST(ForeignFiles, CompressedOnes) {
    EXPECT_EQ(refusalOf("part.pat", "\x1f\x8b\x08\0\0\0\0\0\0\x03"sv),
              "compressed: is compressed by gzip: unpack it first");
    EXPECT_EQ(refusalOf("part.inp", "BZh91AY&SY"),
              "compressed: is compressed by bzip2: unpack it first");
    EXPECT_EQ(refusalOf("part.bdf",
                        "\xfd"
                        "7zXZ\0\0\4"sv),
              "compressed: is compressed by xz: unpack it first");
    EXPECT_EQ(refusalOf("part.inp", "\x28\xb5\x2f\xfd\x24"),
              "compressed: is compressed by zstd: unpack it first");
    EXPECT_EQ(refusalOf("part.3di", "PK\3\4\x14"), "compressed: is a zip archive: unpack it first");
}

TEST(ForeignFiles, TextInOtherEncodings) {
    EXPECT_EQ(refusalOf("part.inp", "\xff\xfe*\0N\0O\0D\0E\0\n\0"sv),
              "utf-16: is text in UTF-16: save it as UTF-8");
    EXPECT_EQ(refusalOf("part.pat",
                        "\xfe\xff\0"
                        "2\0"
                        "6\0 \0 "sv),
              "utf-16: is text in UTF-16: save it as UTF-8");
    EXPECT_EQ(refusalOf("part.inp", "*\0N\0O\0D\0E\0\n\0001\0"sv),
              "utf-16: is text in UTF-16: save it as UTF-8");
    EXPECT_EQ(refusalOf("part.inp", "\xff\xfe\0\0*\0\0\0"sv),
              "utf-32: is text in UTF-32: save it as UTF-8");
}

TEST(ForeignFiles, LinesThatEndWithACarriageReturnAlone) {
    EXPECT_EQ(refusalOf("part.inp", "*NODE\r1, 0, 0, 0\r"),
              "cr-line-ends: has lines that end with a carriage return alone: save it with line "
              "feeds, or with both");
}

TEST(ForeignFiles, AByteOrderMarkBeforeTheFirstKeyword) {
    EXPECT_EQ(refusalOf("part.inp", "\xef\xbb\xbf*NODE\n1, 0, 0, 0\n"),
              "byte-order-mark: begins with a byte order mark, which hides its first line from "
              "the readers: save it as UTF-8 without the mark");
    const TempFolder folder;
    const json report =
        jsonReport(folder.write("part.inp", "\xef\xbb\xbf** made by hand\n*NODE\n1, 0, 0, 0\n"));
    EXPECT_EQ(report.at("status"), "ok");
    EXPECT_EQ(report.at("mesh").at("nodes"), 1);
}

TEST(ForeignFiles, DocumentsAndBinaryFiles) {
    EXPECT_EQ(refusalOf("part.pat", "\r\n<!DOCTYPE html>\n<html></html>\n"),
              "other-document: is an HTML or XML document");
    EXPECT_EQ(refusalOf("part.nas", "%PDF-1.4\n"), "other-document: is a PDF document");
    EXPECT_EQ(refusalOf("part.pat", "\x03\x9c\n\xa7\x11\x05 25\n"),
              "binary: is a binary file, not a text");
}

TEST(ForeignFiles, TextInWhichNothingIsRead) {
    EXPECT_EQ(refusalOf("part.pat", "Dear reader,\nno mesh.\n"),
              "nothing-read: holds no nodes and no elements of a Patran neutral file");
    EXPECT_EQ(
        refusalOf("part.nas", "no mesh.\n"),
        "nothing-read: cannot be read: the deck has no GRID card with an OID above 0 that can be "
        "read");
    EXPECT_EQ(refusalOf("part.inp", "no mesh.\n"),
              "nothing-read: holds no nodes, no elements and no shell sections of an Abaqus deck");
}

TEST(ForeignFiles, APackageWithoutTablesSaysSo) {
    const TempFolder folder;
    const json report = jsonReport(folder.write("part.3di", "no package.\n"));
    EXPECT_EQ(report.at("status"), "failed");
    EXPECT_EQ(report.at("findings")[0].at("code"), "no-symbol-or-outline");
}

TEST(ForeignFiles, ADesignMayLookLikeAnything) {
    EXPECT_EQ(refusalOf("board.mcm", "PK\3\4"),
              "needs-tool: is a design that needs an extraction tool: give --tool and --temp");
}

#if !defined(_WIN32)

TEST(OutOfMemory, IsAReasonOfItsOwn) {
    const TempFolder folder;
    // Rows for so many OIDs do not fit into the address space that the shell allows.
    const std::string deck = folder.write("large.bdf",
                                          "GRID    99999999              0.      0.      0.\n"
                                          "CROD           1       1       1       1\n");
    const Outcome outcome =
        runShell("ulimit -v 1000000; " + quote(KVOCAEIO_PROGRAM) + " info --json " + quote(deck));
    if (outcome.output.empty())
        GTEST_SKIP() << "the program itself does not run in so little memory";
    EXPECT_EQ(outcome.exitCode, 1);
    const json finding = json::parse(outcome.output).at("files")[0].at("findings")[0];
    EXPECT_EQ(finding.at("code"), "out-of-memory");
    EXPECT_EQ(finding.at("text"),
              "cannot be read: there is not enough memory for its rows, one for each OID up to "
              "the largest");
}

#endif

}  // namespace
}  // namespace kvocaeio::test
