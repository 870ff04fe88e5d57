/// What the pages of `kvocaeio info` look like, and which files it walks.
#include <gmock/gmock.h>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

using nlohmann::json;
using testing::Contains;
using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

const std::string kLongSet =
    "ASSEMBLY_OF_ALL_PARTS_OF_THE_LEFT_HOUSING_WITHOUT_ITS_INSERTS_AND_PINS";

std::string deckOf(const std::string& set) {
    return "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n"
           "*ELEMENT, TYPE=C3D4, ELSET=" +
           set + "\n1, 1, 2, 3, 4\n*ELEMENT, TYPE=MASS\n2, 1\n";
}

TEST(InfoPage, FitsEightyColumns) {
    const TempFolder folder;
    const Outcome outcome = runHost({"info", folder.write("a.inp", deckOf(kLongSet))});
    EXPECT_THAT(linesOf(outcome.output),
                Contains("     0  ASSEMBLY_OF_A...RTS_AND_PINS  1 tetrahedron               4  "
                         "solid 0"));
    for (const char* file : {"housing.inp", "bracket.pat", "stack.3di"}) {
        const std::vector<std::string> lines = linesOf(runHost({"info", sampleDeck(file)}).output);
        for (std::size_t i = 1; i < lines.size(); ++i)  // the first is the path, whole
            EXPECT_LE(lines[i].size(), 80u) << lines[i];
    }
}

TEST(InfoPage, AlignsNamesOfWideCharacters) {
    const TempFolder folder;
    const Outcome outcome = runHost(
        {"info", folder.write("a.inp", deckOf("\u5916\u58f3") + "*ELEMENT, TYPE=C3D4, "
                                                                "ELSET=BODY\n1, 1, 2, 3, 4\n")});
    EXPECT_THAT(outcome.output, HasSubstr("     0  \u5916\u58f3       1 tetrahedron"));
    EXPECT_THAT(outcome.output, HasSubstr("     2  BODY       1 tetrahedron"));
}

TEST(InfoPage, CountsWarningsAndFilesAtItsEnd) {
    const TempFolder folder;
    const std::string deck = folder.write("a.inp", deckOf("BODY"));
    EXPECT_EQ(ownLinesOf(runHost({"info", deck}).output).back(), "1 warning");
    EXPECT_EQ(ownLinesOf(runHost({"info", deck, deck, folder.file("gone.inp")}).output).back(),
              "3 files, 1 failed, 2 warnings");
    const std::string good = folder.write("good.inp",
                                          "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n"
                                          "*ELEMENT, TYPE=S3, ELSET=A\n1, 1, 2, 3\n");
    EXPECT_THAT(runHost({"info", good}).output, EndsWith("\n\nno warnings\n"));
}

TEST(InfoPage, EndsWithWhatTheLibraryReports) {
    const TempFolder folder;
    const std::string deck =
        folder.write("cut.inp", "*NODE\n1, 0, 0, 0\n*SURFACE, TYPE=NODE\nA,\n");
    EXPECT_THAT(runHost({"info", deck}).output,
                ContainsRegex("\n\nimport: 1 error.* in 1 file; kvocaeio check lists them\n$"));
    const json import = jsonReport(deck).at("import");
    EXPECT_EQ(import.at("errors"), 1);
    EXPECT_EQ(import.at("findings").at(0).at("line"), 3);
}

TEST(InfoPage, WalksFolders) {
    const TempFolder folder;
    folder.makeFolder("parts");
    folder.write("parts/b.inp", deckOf("B"));
    folder.write("a.inp", deckOf("A"));
    folder.write("deck.txt", "*NODE\n1, 0, 0, 0\n");  // known by its content
    folder.write("letter.txt", "Dear reader,\n");
    folder.write("results.dat", "1.0 2.0\n");  // not only Nastran decks end like that
    const json document = json::parse(runHost({"info", "--json", folder.path().string()}).output);
    std::vector<std::string> names;
    for (const json& file : document.at("files"))
        names.push_back(std::filesystem::relative(file.at("file").get<std::string>(), folder.path())
                            .generic_string());
    EXPECT_EQ(names, (std::vector<std::string>{"a.inp", "deck.txt", "parts/b.inp"}));
    EXPECT_EQ(document.at("passedOver"), 2);
    EXPECT_EQ(ownLinesOf(runHost({"info", folder.path().string()}).output).back(),
              "3 files, 2 warnings; passed over: 2 files of no known format");
}

TEST(InfoPage, SaysThatLogsWereWrittenIntoAFolderDebug) {
    const TempFolder folder;
    folder.makeFolder("debug");
    const std::string deck = folder.write("a.inp", deckOf("A"));
    const json finding = jsonReport(deck).at("findings").back();
    EXPECT_EQ(finding.at("code"), "debug-logs");
    EXPECT_EQ(finding.at("count"), 2);
    for (const json& path : finding.at("paths"))
        EXPECT_NE(readBytes(path.get<std::string>()), "") << path;
    const std::string output = runHost({"info", deck}).output;
    EXPECT_THAT(output, HasSubstr("  note     logs written, since there is a folder \"debug\":"));
    EXPECT_THAT(output, HasSubstr("debug/InputAbaqus.log"));
    EXPECT_THAT(output, HasSubstr("debug/SortData.log"));
    EXPECT_THAT(output, HasSubstr("bytes)"));
    EXPECT_THAT(runHost({"info", sampleDeck("hinge.inp")}).output, Not(HasSubstr("logs written")));
}

TEST(InfoPage, OpensFilesOfAnyName) {
    const TempFolder folder;
    const auto toUtf8 = [](const std::filesystem::path& path) {
        const std::u8string text = path.u8string();
        return std::string(text.begin(), text.end());
    };
    const std::filesystem::path parts = folder.path() / fromUtf8("\u96f6\u4ef6");
    std::filesystem::create_directory(parts);
    const auto copy = [&](const std::string& sample, const std::string& name) {
        std::filesystem::copy_file(sampleDeck(sample), parts / fromUtf8(name));
        return toUtf8(parts / fromUtf8(name));
    };
    const std::vector<std::string> files = {
        copy("hinge.inp", "\u5916\u58f3.inp"), copy("bracket.bdf", "\u0412\u0430\u043b.bdf"),
        copy("bracket.pat", "Geh\u00e4use \u5b50.pat"), copy("stack.3di", "\u5c01\u88c5.3di")};
    for (const std::string& file : files) {
        const Outcome outcome = runHost({"info", file});
        EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
        EXPECT_EQ(linesOf(outcome.output)[0], file);
    }
    const json document = json::parse(runHost({"info", "--json", toUtf8(parts)}).output);
    EXPECT_EQ(document.at("files").size(), 4u);
    EXPECT_EQ(document.at("files")[3].at("file"), files[3]);
    const std::string target = toUtf8(parts / fromUtf8("\u65b0.nas"));
    EXPECT_EQ(runHost({"convert", files[0], target}).errors, "");
    EXPECT_TRUE(std::filesystem::exists(fromUtf8(target)));
}

#if !defined(_WIN32)

TEST(InfoPage, NamesOfFilesDoNotSteerTheTerminal) {
    const TempFolder folder;
    const std::string name =
        "a\x1b[2J\nb\xc2\x9b"
        "c.inp";
    const Outcome good = runHost({"info", folder.write(name, deckOf("A"))});
    EXPECT_EQ(good.exitCode, 0);
    EXPECT_THAT(linesOf(good.output)[0], EndsWith("/a?[2J?b?c.inp"));
    const Outcome bad = runHost({"info", folder.file("gone\x1b[2J\x9b")});
    EXPECT_THAT(bad.errors, EndsWith("/gone?[2J?: cannot be read: No such file or directory\n"));
    EXPECT_THAT(runHost({"info", "--js\x1b[2J"}).errors, HasSubstr("--js?[2J"));
    EXPECT_EQ(runHost({"in\x1b[2Jfo"}).errors.substr(0, 42),
              "kvocaeio: unknown command 'in?[2Jfo'; the ");
}

/// The output of `info` on a terminal of so many columns.
std::string onTerminal(const std::string& file, int columns, const std::string& environment = "") {
    const std::string command = "stty cols " + std::to_string(columns) + "; " + environment +
                                " TERM=xterm " + KVOCAEIO_PROGRAM + " info " + file;
    return runShell("script -qec '" + command + "' /dev/null").output;
}

TEST(InfoPage, IsAsWideAsTheTerminalAndColoured) {
    const TempFolder folder;
    const std::string deck = folder.write("a.inp", deckOf(kLongSet));
    const std::string wide = onTerminal(deck, 140);
    if (wide.empty())
        GTEST_SKIP() << "there is no script(1) here";
    EXPECT_THAT(wide, HasSubstr(kLongSet));
    EXPECT_THAT(wide, HasSubstr("  \x1b[1;33mwarning\x1b[0m  left out: 1 element of unknown type"));
    EXPECT_THAT(wide, HasSubstr("\x1b[1;33m1 warning\x1b[0m"));
    EXPECT_THAT(onTerminal(deck, 80), Not(HasSubstr(kLongSet)));
    EXPECT_THAT(onTerminal(deck, 140, "NO_COLOR=1"), Not(HasSubstr("\x1b[")));
    EXPECT_THAT(runShell("COLUMNS=140 " + quote(KVOCAEIO_PROGRAM) + " info " + quote(deck)).output,
                HasSubstr(kLongSet));
}

#endif

}  // namespace
}  // namespace kvocaeio::test
