/// Readers in several threads at once, and what one import leaves to the sorts after it.
#include <array>
#include <cstddef>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include "support/captured_output.h"
#include "support/files.h"
#include <kvocaeio/abaqus.h>

namespace kvocaeio::test {
namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 250;  // of each thread

// A deck of that many tetrahedra, with a set, a surface and a load.
std::string deckOf(int elements) {
    std::string deck =
        "*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 0., 1., 0.\n4, 0., 0., 1.\n"
        "*ELEMENT, TYPE=C3D4, ELSET=BODY\n";
    for (int oid = 1; oid <= elements; ++oid)
        deck += std::to_string(oid) + ", 1, 2, 3, 4\n";
    return deck +
           "*ELSET, ELSET=ALL\n1\n*SURFACE, TYPE=ELEMENT, NAME=TOP\nALL, S1\n"
           "*DLOAD\n1, P2, 1.5\n";
}

// What is wrong with one import and sort of a deck of that many elements; empty when nothing is.
std::string faultOfRound(const std::string& path, int elements) {
    CKVOAbaqusReader reader;
    if (!reader.ImportInpFile(path.c_str()))
        return "not imported";
    reader.SortData();
    if (reader.GetNodeNum() != 4 || reader.GetElemSecNum() != 1)
        return "wrong raw tables";
    CKVOAbaqusReader::ElemSecData section{};
    if (!reader.GetElemSolidSecBeginR() || !reader.GetElemSolidSecNextR(&section))
        return "no section of solids";
    if (section.elemNum != elements || section.nodes[4 * elements - 1] != 3)
        return "wrong section of solids";
    if (reader.GetElemShellSecNumR() != 2)
        return "wrong sections of faces";
    return "";
}

TEST(AbaqusThreads, ReadersAreIndependent) {
    const TempFolder folder;
    std::array<std::string, kThreads> decks;
    for (int i = 0; i < kThreads; ++i) {
        const std::string name = "deck" + std::to_string(i);
        folder.makeFolder(name);
        if (i % 2 == 0)
            folder.makeFolder(name + "/debug");
        decks[static_cast<std::size_t>(i)] = folder.write(name + "/deck.inp", deckOf(10 + i));
    }
    std::array<std::string, kThreads> faults;
    {
        const CapturedOutput quiet;
        std::vector<std::thread> threads;
        for (int i = 0; i < kThreads; ++i)
            threads.emplace_back([&, i] {
                const auto at = static_cast<std::size_t>(i);
                for (int round = 0; round < kRounds && faults[at].empty(); ++round)
                    faults[at] = faultOfRound(decks[at], 10 + i);
            });
        for (std::thread& thread : threads)
            thread.join();
    }
    for (const std::string& fault : faults)
        EXPECT_EQ(fault, "");
    // Each import has dumped into the folder beside its own deck. A sort logs into the folder that
    // the latest import found, which is that of a deck with a debug folder, whichever it was.
    for (int i = 0; i < kThreads; ++i) {
        const auto debug = folder.path() / ("deck" + std::to_string(i)) / "debug";
        EXPECT_EQ(std::filesystem::exists(debug / "InputAbaqus.log"), i % 2 == 0) << i;
        const std::string elements = "Element Num = " + std::to_string(10 + i) + " , Total";
        const bool isDumped =
            readText(debug / "InputAbaqus.log").find(elements) != std::string::npos;
        EXPECT_EQ(isDumped, i % 2 == 0) << i;
    }
}

class LatestImport : public testing::Test {
  protected:
    LatestImport() {
        for (const char* name : {"first", "first/debug", "second", "second/debug", "plain"})
            folder_.makeFolder(name);
        for (const char* name : {"first", "second", "plain"})
            folder_.write(std::string(name) + "/deck.inp", deckOf(1));
    }

    bool importDeck(CKVOAbaqusReader& reader, const std::string& name) {
        return reader.ImportInpFile(folder_.file(name + "/deck.inp").c_str());
    }
    // Where a sort has logged to, as the names of the folders.
    std::string logged() {
        std::string names;
        for (const char* name : {"first", "second", "plain"})
            if (std::filesystem::remove(folder_.path() / name / "debug" / "SortData.log"))
                names += name;
        return names;
    }

    TempFolder folder_;
    CapturedOutput quiet_;
};

TEST_F(LatestImport, DecidesWhereEveryReaderLogsTo) {
    CKVOAbaqusReader one, two;
    ASSERT_TRUE(importDeck(one, "first"));
    one.SortData();
    EXPECT_EQ(logged(), "first");
    ASSERT_TRUE(importDeck(two, "second"));
    one.SortData();
    EXPECT_EQ(logged(), "second");
    CKVOAbaqusReader three;
    ASSERT_TRUE(importDeck(three, "plain"));
    two.SortData();
    EXPECT_EQ(logged(), "");
}

TEST_F(LatestImport, CountsAlsoWhereTheDeckCannotBeOpened) {
    CKVOAbaqusReader one, two;
    ASSERT_TRUE(importDeck(one, "first"));
    EXPECT_FALSE(two.ImportInpFile(folder_.file("second/missing.inp").c_str()));
    one.SortData();
    EXPECT_EQ(logged(), "second");
    EXPECT_FALSE(two.ImportInpFile(nullptr));
    one.SortData();
    EXPECT_EQ(logged(), "second");
}

TEST_F(LatestImport, MayHaveRunInAnotherThread) {
    CKVOAbaqusReader here, there;
    ASSERT_TRUE(importDeck(here, "first"));
    std::thread([&] { importDeck(there, "second"); }).join();
    here.SortData();
    EXPECT_EQ(logged(), "second");
    ASSERT_TRUE(importDeck(here, "first"));
    std::thread([&] { there.SortData(); }).join();
    EXPECT_EQ(logged(), "first");
}

}  // namespace
}  // namespace kvocaeio::test
