/// The search for words, in lines and in blocks of a file.
#include "package/words.h"

#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "package/lines.h"
#include "support/files.h"

namespace kvocaeio::test {
namespace {

using package::Word;
using package::WordList;

// The lines that hold the word; every third of them is followed by one that is taken whatever it
// holds. `skip` takes the next line with the word, past all without it.
template <class Skip>
std::vector<std::string> linesTaken(const std::string& path, const Skip& skip) {
    std::vector<std::string> taken;
    package::InputFile file(path.c_str());
    EXPECT_TRUE(package::passOver(file, {}, [&](text::PassLines& lines) {
        while (skip(lines)) {
            taken.emplace_back(lines.line());
            if (taken.size() % 3 == 0 && lines.next())
                taken.emplace_back(lines.line());
        }
    }));
    return taken;
}

// Pieces of the word, line ends of both kinds, NULs and runs whose lengths lie around those of a
// line's bound, a block of the reader and a stride of the search.
std::string randomLines(std::mt19937& random) {
    const auto below = [&random](unsigned end) { return random() % end; };
    std::string bytes;
    while (bytes.size() < 600'000) {
        switch (below(8)) {
            case 0:
                bytes += "Wire";
                break;
            case 1:
                bytes += "wi";
                break;
            case 2:
                bytes += "RE";
                break;
            case 3:
                bytes += below(2) == 0 ? "\n" : "\r\n";
                break;
            case 4:
                bytes.append(1018 + below(10), ' ');
                break;
            case 5:
                bytes.append(below(80), 'w');
                break;
            case 6:
                bytes.append(below(8) == 0 ? 1 : 0, '\0');
                break;
            default:
                bytes.append(below(2000) == 0 ? 262'140 + below(9) : below(90), '.');
                break;
        }
    }
    return bytes;
}

TEST(PackageWords, SkipTheLinesWithoutThemInBlocks) {
    const TempFolder folder;
    const Word wire("WIRE");
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const std::string path = folder.write("package.3di", randomLines(random));
        const auto taken =
            linesTaken(path, [&](text::PassLines& lines) { return lines.nextWith(wire); });
        ASSERT_GT(taken.size(), 100u);
        ASSERT_EQ(taken, linesTaken(path, [&](text::PassLines& lines) {
                      while (lines.next())
                          if (wire.isHeldBy(lines.line()))
                              return true;
                      return false;
                  }));
    }
}

TEST(PackageWords, AreFoundAnywhereAndInAnyCase) {
    static constexpr auto kWords = std::to_array<std::string_view>(
        {"GEOMETRIES", "NAME", "OBJECT", "LAYER", "COLOR", "EXTR", "BARL", "2DPG", "####", "GEOM"});
    static constexpr WordList kList(kWords);
    EXPECT_EQ(kList.firstHeldBy("xnAmEx OBJECT"), 1u);
    EXPECT_EQ(kList.firstHeldBy("GEOM GEOMETRIES"), 0u);
    EXPECT_EQ(kList.firstHeldBy("12dpg 4\n"), 7u);
    EXPECT_EQ(kList.firstHeldBy(std::string(32, '1') + "2dpg"), 7u);
    EXPECT_EQ(kList.firstHeldBy(std::string(64, '1') + "2dpg"), 7u);
    EXPECT_EQ(kList.firstHeldBy("GEO METRIES ### NAM"), 10u);
    EXPECT_EQ(kList.firstHeldBy(""), 10u);
}

TEST(PackageWords, AreMatchedByTheirFrontParts) {
    EXPECT_TRUE(Word("COLOR").isMatchedBy("c"));
    EXPECT_TRUE(Word("COLOR").isMatchedBy("Color"));
    EXPECT_FALSE(Word("COLOR").isMatchedBy("COLORS"));
    EXPECT_FALSE(Word("COLOR").isMatchedBy("OLOR"));
}

}  // namespace
}  // namespace kvocaeio::test
