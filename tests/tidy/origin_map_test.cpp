#include "tidy/origin_map.h"

#include <gtest/gtest.h>
#include <string>

#include "support/files.h"
#include "tidy/output_file.h"

namespace {

using kvocaeio::tidy::Origin;
using kvocaeio::tidy::OriginMap;
using kvocaeio::tidy::Origins;

std::string walked(const OriginMap& map) {
    std::string out;
    OriginMap::Cursor cursor;
    for (Origin origin; map.next(cursor, origin);)
        out += std::to_string(origin.id) + "<" + std::to_string(origin.originalId) + "@" +
               std::to_string(origin.source) + " ";
    return out;
}

TEST(TidyOriginMap, WalksWhatWasAddedInThatOrder) {
    OriginMap map;
    for (const Origin& origin : {Origin{1, 11, 0}, {2, 12, 0}, {3, 13, 1}, {9, 14, 1}, {8, 13, 1}})
        map.add(origin);
    EXPECT_EQ(map.count(), 5U);
    EXPECT_EQ(walked(map), "1<11@0 2<12@0 3<13@1 9<14@1 8<13@1 ");
    EXPECT_EQ(walked(OriginMap()), "");
}

TEST(TidyOriginMap, ATableHasOneLineForEach) {
    const kvocaeio::test::TempFolder folder;
    Origins origins;
    origins.nodes.add({1, 7, origins.sourceOf("LID\t1", "deck.inp")});
    origins.elements.add({2, 8, origins.sourceOf("", "mesh.inp")});
    origins.properties.add({3, 9, origins.sourceOf("", "mesh.inp")});
    EXPECT_EQ(origins.sources.size(), 2U);
    kvocaeio::tidy::OutputFile out;
    ASSERT_TRUE(out.open(folder.file("map")));
    writeOrigins(origins, out);
    ASSERT_TRUE(out.finish());
    EXPECT_EQ(kvocaeio::test::readBytes(folder.file("map")),
              "kind\tid\toriginal id\tpart\tfile\n"
              "node\t1\t7\tLID.1\tdeck.inp\n"
              "element\t2\t8\t\tmesh.inp\n"
              "property\t3\t9\t\tmesh.inp\n");
}

}  // namespace
