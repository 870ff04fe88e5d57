/// Tables that fit the terminal.
#include "text_table.h"

#include <gtest/gtest.h>
#include <sstream>

namespace kvocaeio::test {
namespace {

std::string printed(const host::TextTable& table, std::size_t width) {
    std::ostringstream out;
    table.print(out, width);
    return out.str();
}

host::TextTable sample() {
    host::TextTable table("rnwl");
    table.add({"deck", "set", "content", "last"});
    table.add({"0", "ASSEMBLY_HOUSING_LEFT", "4 wedges, 44 tetrahedra", "x"});
    table.add({"11", "\u5916\u58f3", "", "x"});
    return table;
}

TEST(TextTable, AlignsColumnsByTheirWidthOnTheTerminal) {
    EXPECT_EQ(printed(sample(), 80),
              "  deck  set                    content                  last\n"
              "     0  ASSEMBLY_HOUSING_LEFT  4 wedges, 44 tetrahedra  x\n"
              "    11  \u5916\u58f3                                            x\n");
}

TEST(TextTable, CutsNamesAndWrapsWordsToFit) {
    EXPECT_EQ(printed(sample(), 44),
              "  deck  set             content        last\n"
              "     0  ASSEMB..._LEFT  4 wedges,      x\n"
              "                        44 tetrahedra\n"
              "    11  \u5916\u58f3                           x\n");
}

TEST(TextTable, LeavesNamesTwelveColumnsHoweverNarrowThePage) {
    EXPECT_EQ(printed(sample(), 10),
              "  deck  set           content        last\n"
              "     0  ASSEM...LEFT  4 wedges,      x\n"
              "                      44 tetrahedra\n"
              "    11  \u5916\u58f3                         x\n");
}

}  // namespace
}  // namespace kvocaeio::test
