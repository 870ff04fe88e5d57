/// Decks that nobody would wish for: true or false, and nothing worse.
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include "nastran/deck.h"
#include "support/hostile_texts.h"

namespace kvocaeio::test {
namespace {

// Reads a deck within a limit of time, with all that the accessors give.
bool readsInTime(const std::string& content, int& nodes, int& sections) {
    const TimeLimit limit;
    ReadDeck deck(content);
    nodes = deck.reader.GetNodeCout();
    sections = deck.reader.GetSectionCout();
    deck.reader.GetPropertiesCout();
    return deck.result;
}

struct Nasty {
    const char* name;
    std::string content;
};

std::vector<Nasty> nastyTexts() {
    return {
        {"nothing", ""},
        {"NULs", std::string(5'000'000, '\0')},
        {"one line of blanks", std::string(5'000'000, ' ')},
        {"one line of letters", std::string(5'000'000, 'G')},
        {"one line of names", repeated("GRID", 1'000'000)},
        {"one line of merged names", repeated("CHEXA", 500'000)},
        {"commas", std::string(500'000, ',')},
        {"named commas", repeated("CHEXA" + std::string(240, ',') + "\n", 2'000)},
        {"minus signs", repeated("GRID" + std::string(245, '-') + "\n", 2'000)},
        {"dollar signs", std::string(5'000'000, '$')},
        {"line feeds", std::string(3'000'000, '\n')},
        {"carriage returns", std::string(5'000'000, '\r')},
        {"ends of file", std::string(1'000'000, '\x1A')},
        {"merged lines", repeated("CHEXA\n", 200'000)},
        {"labels", repeated("CHEXA 0 0EL0EL0EL0 0 0 0\n", 100'000)},
        {"nameless numbers", repeated("GRID\nCBAR\nPSOLID\n", 100'000)},
        {"high bytes", std::string(3'000'000, '\xFF')},
    };
}

TEST(HostileDeck, IsReadOrRefusedInTime) {
    for (const Nasty& nasty : nastyTexts()) {
        SCOPED_TRACE(nasty.name);
        int nodes = 0;
        int sections = 0;
        readsInTime(nasty.content, nodes, sections);
        // The sound cards stand in lines of their own behind it.
        const bool ends = nasty.content.find('\x1A') != std::string::npos;
        EXPECT_EQ(readsInTime(nasty.content + "\n\n" + kGrid + kTetra, nodes, sections), !ends);
        EXPECT_TRUE(readsInTime(kGrid + kTetra + nasty.content, nodes, sections));
        EXPECT_EQ(nodes, 1);
    }
}

TEST(HostileDeck, WithMillionsOfPropertyCardsBeyondTheCount) {
    int nodes = 0;
    int sections = 0;
    EXPECT_TRUE(readsInTime(kGrid + kTetra + repeated("PROD\n", 1'000'000) + "PSOLID,1\n", nodes,
                            sections));
    EXPECT_EQ(sections, 1);
}

TEST(HostileDeck, WithTheLargestPropertyOid) {
    int nodes = 0;
    int sections = 0;
    const bool result = readsInTime(kGrid + kTetra + "PSOLID  99999999 4000000\n", nodes, sections);
    // Where so much memory cannot be had, there is no deck.
    EXPECT_EQ(sections, result ? 99999999 : 0);
}

TEST(HostileDeck, ReadersInManyThreads) {
    ReadDeck expected(kGrid + kTetra + "GRID,7,,1.5\n");
    const std::string path = expected.folder.file("deck.nas");
    std::vector<std::thread> threads;
    for (int t = 0; t < 8; ++t)
        threads.emplace_back([&] {
            for (int i = 0; i < 100; ++i) {
                KVONASTRAN_Reader reader;
                if (!reader.SetFilePath(path.c_str()) || reader.GetNodeCout() != 7)
                    ADD_FAILURE() << "a deck was read in another way";
            }
        });
    for (std::thread& thread : threads)
        thread.join();
}

}  // namespace
}  // namespace kvocaeio::test
