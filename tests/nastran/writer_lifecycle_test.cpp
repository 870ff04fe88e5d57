/// A writer's life and the header of its decks: units, date, copies, decks that cannot be made.
#include <array>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <type_traits>

#include "nastran/written_deck.h"

namespace kvocaeio::test {
namespace {

static_assert(std::has_virtual_destructor_v<KVONASTRAN_Writer>);

void expectNoDeck(KVONASTRAN_Writer& writer) {
    std::array<int, 8> nodes{1, 2, 3, 4, 5, 6, 7, 8};
    char content[] = "text\n";
    EXPECT_FALSE(writer.AddNode(1, 0, 0, 0));
    EXPECT_FALSE(writer.AddSection(1, 1));
    for (const int count : {4, 5, 6, 8})
        EXPECT_FALSE(writer.AddElement(1, 1, count, nodes.data()));
    EXPECT_FALSE(writer.WriteStringEntry(content));
    EXPECT_FALSE(writer.EndWriting());
}

// The local time as the header has it, without a zero left out anywhere.
std::string dateNow() {
    const std::time_t now = std::time(nullptr);
    const std::tm* const t = std::localtime(&now);
    char content[50];
    std::snprintf(content, sizeof content, "%02d/%02d/%02d  %02d:%02d:%02d", t->tm_mon + 1,
                  t->tm_mday, t->tm_year % 100, t->tm_hour, t->tm_min, t->tm_sec);
    return content;
}

TEST(WrittenDecks, TellTheLocalTime) {
    for (int attempt = 0; attempt < 5; ++attempt) {
        const std::string before = dateNow();
        WrittenDeck deck;
        if (before != dateNow())
            continue;
        EXPECT_NE(readText(deck.path).find("$ Date: " + before + "\n"), std::string::npos);
        return;
    }
    FAIL() << "the clock goes too fast";
}

TEST(MeshUnits, ChooseTheTextsOfTheHeader) {
    struct Case {
        const char* unit;
        const char* module;
        const char* density;
    };
    constexpr Case kCases[] = {
        {"m", "N/m^2", "T/m^3"},
        {"M", "N/m^2", "T/m^3"},
        {"mm", "N/mm^2", "T/mm^3"},
        {"MM", "N/mm^2", "T/mm^3"},
        {"cm", "N/cm^2", "T/cm^3"},
        {"CM", "N/cm^2", "T/cm^3"},
        {"inch", "lb/in^2", "T/in^3"},
        {"INCH", "lb/in^2", "T/in^3"},
        {"Mm", "N/m^2", "T/m^3"},
        {"mM", "N/m^2", "T/m^3"},
        {"cM", "N/m^2", "T/m^3"},
        {"Cm", "N/m^2", "T/m^3"},
        {"dm", "N/m^2", "T/m^3"},
        {"meter", "N/m^2", "T/m^3"},
        {"cmm", "N/cm^2", "T/cm^3"},
        {"mm or cm", "N/cm^2", "T/cm^3"},
        {"inch/mm", "lb/in^2", "T/in^3"},
        {"cm, inch", "lb/in^2", "T/in^3"},
        {"millimetre", "N/m^2", "T/m^3"},
        {"pinches", "lb/in^2", "T/in^3"},
        {"Inch", "", ""},
        {"in", "", ""},
        {"", "", ""},
        {"%s %d %n", "", ""},
    };
    for (const Case& unit : kCases)
        EXPECT_EQ(WrittenDeck(unit.unit).text(), headerOf(unit.unit, unit.module, unit.density));
}

TEST(MeshUnits, MayHaveAnyLength) {
    for (const std::size_t length : {50U, 512U, 5000U, 100000U}) {
        const std::string unit(length, 'u');
        EXPECT_EQ(WrittenDeck(unit.c_str()).text(), headerOf(unit, "", ""));
        EXPECT_EQ(WrittenDeck((unit + "mm").c_str()).text(),
                  headerOf(unit + "mm", "N/mm^2", "T/mm^3"));
    }
}

TEST(MeshUnits, AreNotKeptForTheNextDeck) {
    WrittenDeck deck("inch");
    EXPECT_TRUE(deck.writer.SetFilePath(deck.path.c_str(), "xyz"));
    EXPECT_EQ(deck.text(), headerOf("xyz", "", ""));
    EXPECT_TRUE(deck.writer.SetFilePath(deck.path.c_str()));
    EXPECT_EQ(deck.text(), kHeader);
}

TEST(WriterLifecycle, WithoutADeckNothingIsWritten) {
    KVONASTRAN_Writer writer;
    expectNoDeck(writer);
}

TEST(WriterLifecycle, FilesThatCannotBeMadeGiveFalse) {
    TempFolder folder;
    folder.makeFolder("folder");
    KVONASTRAN_Writer writer;
    EXPECT_FALSE(writer.SetFilePath(nullptr));
    EXPECT_FALSE(writer.SetFilePath(""));
    EXPECT_FALSE(writer.SetFilePath(folder.file("folder").c_str()));
    EXPECT_FALSE(writer.SetFilePath(folder.file("missing/deck.nas").c_str(), "mm"));
    EXPECT_FALSE(writer.SetFilePath(folder.file(std::string(5000, 'x')).c_str()));
    expectNoDeck(writer);
}

TEST(WriterLifecycle, AFileThatCannotBeOpenedAgainTakesNoCards) {
    TempFolder folder;
    const std::string path = folder.write("deck.nas", "old");
    // Writable, and so to be replaced, but not readable, as the second opening asks for.
    std::filesystem::permissions(path, std::filesystem::perms::owner_write);
    if (std::FILE* file = std::fopen(path.c_str(), "a+")) {
        std::fclose(file);
        GTEST_SKIP() << "permissions do not bind here";
    }
    KVONASTRAN_Writer writer;
    EXPECT_TRUE(writer.SetFilePath(path.c_str()));
    expectNoDeck(writer);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    EXPECT_EQ(withoutDate(readText(path)), kHeader);
}

TEST(WriterLifecycle, AFailedStartEndsTheDeckBefore) {
    WrittenDeck deck;
    EXPECT_TRUE(deck.writer.AddSection(1, 1));
    EXPECT_FALSE(deck.writer.SetFilePath(deck.folder.file("missing/deck.nas").c_str()));
    expectNoDeck(deck.writer);
    EXPECT_EQ(deck.text(), kHeader + "PSOLID ,      1,      1,1\n");
}

TEST(WriterLifecycle, NothingIsWrittenAfterTheEnd) {
    WrittenDeck deck;
    EXPECT_TRUE(deck.writer.EndWriting());
    expectNoDeck(deck.writer);
    EXPECT_EQ(deck.text(), kHeader + kFooter);
    EXPECT_TRUE(std::filesystem::remove(deck.path));
    // And then another deck.
    EXPECT_TRUE(deck.writer.SetFilePath(deck.path.c_str()));
    EXPECT_TRUE(deck.writer.AddSection(2, 1));
    EXPECT_EQ(deck.cards(), "PSOLID ,      2,      1,1\n");
}

TEST(WriterLifecycle, ASecondDeckClosesTheFirst) {
    WrittenDeck deck;
    EXPECT_TRUE(deck.writer.AddSection(1, 1));
    const std::string second = deck.folder.file("second.nas");
    EXPECT_TRUE(deck.writer.SetFilePath(second.c_str(), "m"));
    EXPECT_EQ(deck.text(), kHeader + "PSOLID ,      1,      1,1\n");
    EXPECT_TRUE(std::filesystem::remove(deck.path));
    EXPECT_TRUE(deck.writer.EndWriting());
    EXPECT_EQ(withoutDate(readText(second)), headerOf("m", "N/m^2", "T/m^3") + kFooter);
}

TEST(WriterLifecycle, CopiesWriteIntoOneDeck) {
    TempFolder folder;
    const std::string path = folder.file("deck.nas");
    std::optional<KVONASTRAN_Writer> first(std::in_place);
    KVONASTRAN_Writer second(*first);
    EXPECT_TRUE(first->SetFilePath(path.c_str()));
    EXPECT_TRUE(second.AddSection(1, 1));
    EXPECT_TRUE(first->AddSection(2, 1));
    first.reset();
    EXPECT_TRUE(second.AddSection(3, 1));
    KVONASTRAN_Writer third;
    third = second;
    EXPECT_TRUE(third.AddSection(4, 1));
    EXPECT_TRUE(third.EndWriting());
    expectNoDeck(second);
    EXPECT_EQ(withoutDate(readText(path)), kHeader +
                                               "PSOLID ,      1,      1,1\n"
                                               "PSOLID ,      2,      1,1\n"
                                               "PSOLID ,      3,      1,1\n"
                                               "PSOLID ,      4,      1,1\n" +
                                               kFooter);
}

TEST(WriterLifecycle, AssignmentClosesTheDeckBefore) {
    WrittenDeck deck;
    KVONASTRAN_Writer other;
    EXPECT_TRUE(deck.writer.AddSection(1, 1));
    deck.writer = other;
    EXPECT_EQ(deck.text(), kHeader + "PSOLID ,      1,      1,1\n");
    expectNoDeck(deck.writer);
    KVONASTRAN_Writer& self = deck.writer;
    deck.writer = self;
    EXPECT_TRUE(other.SetFilePath(deck.path.c_str()));
    EXPECT_EQ(deck.cards(), "");
}

TEST(WriterLifecycle, TheLastOfACopyClosesTheDeckWithoutAFooter) {
    TempFolder folder;
    const std::string path = folder.file("deck.nas");
    {
        KVONASTRAN_Writer writer;
        EXPECT_TRUE(writer.SetFilePath(path.c_str()));
        const KVONASTRAN_Writer copy(writer);
        EXPECT_TRUE(writer.AddSection(1, 1));
    }
    EXPECT_EQ(withoutDate(readText(path)), kHeader + "PSOLID ,      1,      1,1\n");
    std::error_code error;
    EXPECT_TRUE(std::filesystem::remove(path, error)) << error.message();
}

TEST(WriterLifecycle, PathsMayBeLong) {
    TempFolder folder;
    const std::string path = folder.longPath("deck.nas");
    std::FILE* const file = std::fopen(path.c_str(), "w");
    if (file == nullptr)
        GTEST_SKIP() << "no such paths here";
    std::fclose(file);
    KVONASTRAN_Writer writer;
    EXPECT_TRUE(writer.SetFilePath(path.c_str()));
    EXPECT_TRUE(writer.EndWriting());
    EXPECT_EQ(withoutDate(readText(path)), kHeader + kFooter);
}

}  // namespace
}  // namespace kvocaeio::test
