/// What models hand out, and what they refuse.
#include <array>
#include <cstddef>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "c/opened.h"
#include "support/files.h"

namespace kvocaeio::test {
namespace {

class TablesTest : public testing::Test {
  protected:
    TempFolder folder;
    const std::string deck =
        folder.write("deck.inp",
                     "*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 0., 1., 0.\n4, 0., 0., 1.\n"
                     "*ELEMENT, TYPE=C3D4, ELSET=BODY\n1, 1, 2, 3, 4\n*ELEMENT, TYPE=MASS\n2, 1\n");
    const Opened opened{deck};
};

TEST_F(TablesTest, FillsOnlyTheMembersThatAHostKnows) {
    kvocaeio_nodes nodes;
    std::memset(&nodes, 0x5A, sizeof nodes);
    nodes.struct_size = offsetof(kvocaeio_nodes, oids);
    ASSERT_EQ(kvocaeio_get_nodes(opened.get(), &nodes), KVOCAEIO_OK);
    EXPECT_EQ(nodes.count, 4U);
    EXPECT_EQ(nodes.struct_size, offsetof(kvocaeio_nodes, oids));
    const std::vector<unsigned char> untouched(sizeof nodes.oids, 0x5A);
    EXPECT_EQ(std::memcmp(&nodes.oids, untouched.data(), untouched.size()), 0);
}

TEST_F(TablesTest, LeaveAloneTheMembersOfALaterVersion) {
    struct {
        kvocaeio_nodes known;
        int added;
    } later{{}, 77};
    later.known.struct_size = sizeof later;
    ASSERT_EQ(kvocaeio_get_nodes(opened.get(), &later.known), KVOCAEIO_OK);
    EXPECT_EQ(later.known.count, 4U);
    EXPECT_EQ(later.added, 77);
    EXPECT_EQ(later.known.struct_size, sizeof later);
}

TEST_F(TablesTest, TakeOptionsOfAnEarlierVersion) {
    kvocaeio_options earlier = defaultOptions();
    earlier.struct_size = offsetof(kvocaeio_options, tidy);
    earlier.format = KVOCAEIO_FORMAT_NASTRAN;
    earlier.tidy = 1;  // beyond what this host knows
    EXPECT_EQ(Opened(deck, earlier).status, KVOCAEIO_NOT_READ);
}

TEST_F(TablesTest, RefuseWhatIsNotThere) {
    kvocaeio_section section{};
    EXPECT_EQ(kvocaeio_get_section(opened.get(), KVOCAEIO_SECTIONS, 0, &section),
              KVOCAEIO_BAD_ARGUMENT);  // without struct_size
    section.struct_size = sizeof section;
    EXPECT_EQ(kvocaeio_get_section(opened.get(), KVOCAEIO_SECTIONS, 2, &section),
              KVOCAEIO_BAD_ARGUMENT);
    EXPECT_EQ(kvocaeio_get_section(opened.get(), 3, 0, &section), KVOCAEIO_BAD_ARGUMENT);
    EXPECT_EQ(kvocaeio_get_section(opened.get(), -1, 0, &section), KVOCAEIO_BAD_ARGUMENT);
    EXPECT_EQ(kvocaeio_get_section(nullptr, KVOCAEIO_SECTIONS, 0, &section), KVOCAEIO_BAD_ARGUMENT);
    EXPECT_EQ(kvocaeio_get_section(opened.get(), KVOCAEIO_SECTIONS, 0, nullptr),
              KVOCAEIO_BAD_ARGUMENT);
    const std::int32_t* nodes = nullptr;
    EXPECT_EQ(kvocaeio_get_connectivity(opened.get(), KVOCAEIO_SECTIONS, 0, 2, &nodes),
              KVOCAEIO_BAD_ARGUMENT);
    kvocaeio_bodies bodies{};
    bodies.struct_size = sizeof bodies;
    EXPECT_EQ(kvocaeio_get_bodies(opened.get(), &bodies), KVOCAEIO_NO_SUCH_TABLE);
    EXPECT_STREQ(kvocaeio_error_text(), "the model has no such table");
}

TEST_F(TablesTest, HaveNoConnectivityOfElementsOfUnknownType) {
    kvocaeio_section section{};
    section.struct_size = sizeof section;
    ASSERT_EQ(kvocaeio_get_section(opened.get(), KVOCAEIO_SECTIONS, 1, &section), KVOCAEIO_OK);
    EXPECT_EQ(section.kind, KVOCAEIO_KIND_UNKNOWN);
    EXPECT_EQ(section.count, 1U);
    EXPECT_EQ(section.oids[0], 2);
    const std::int32_t* nodes = section.oids;
    ASSERT_EQ(kvocaeio_get_connectivity(opened.get(), KVOCAEIO_SECTIONS, 1, KVOCAEIO_ROWS, &nodes),
              KVOCAEIO_OK);
    EXPECT_EQ(nodes, nullptr);
}

TEST_F(TablesTest, StayWhereTheyAreWhileTheModelIsUsed) {
    const kvocaeio_nodes before = tableOf(opened.get(), kvocaeio_get_nodes);
    std::array<const std::int32_t*, 2> rows{};
    for (const std::int32_t*& each : rows) {
        ASSERT_EQ(
            kvocaeio_get_connectivity(opened.get(), KVOCAEIO_SECTIONS, 0, KVOCAEIO_ROWS, &each),
            KVOCAEIO_OK);
        ASSERT_EQ(kvocaeio_normalise(opened.get(), nullptr), KVOCAEIO_OK);
    }
    EXPECT_EQ(rows[0], rows[1]);
    EXPECT_EQ(tableOf(opened.get(), kvocaeio_get_nodes).oids, before.oids);
}

TEST_F(TablesTest, AreNormalisedCompletelyOrNotAtAll) {
    const Opened odd(folder.write("odd.inp",
                                  "*NODE\n1, 0., 0., 0.\n*ELEMENT, TYPE=C3D4, ELSET=BODY\n"
                                  "1, 1, 1, 1, 1\n*ELSET, ELSET=PART, GENERATE\n9, 3, 1\n"));
    const ReportHandle report = makeReport();
    EXPECT_EQ(kvocaeio_normalise(odd.get(), report.get()), KVOCAEIO_NOT_NORMALISED);
    EXPECT_EQ(kvocaeio_model_is_normalised(odd.get()), 0);
    std::size_t count = 1;
    EXPECT_EQ(kvocaeio_get_section_count(odd.get(), KVOCAEIO_NORMALISED_SOLIDS, &count),
              KVOCAEIO_OK);
    EXPECT_EQ(count, 0U);
    EXPECT_GT(kvocaeio_report_finding_count(report.get()), 0U);
    kvocaeio_options options = defaultOptions();
    options.normalise = 1;
    EXPECT_EQ(Opened(folder.file("odd.inp"), options).status, KVOCAEIO_NOT_NORMALISED);
}

TEST_F(TablesTest, OfAPatranFileNameItsElements) {
    const Opened file(
        folder.write("file.pat",
                     "26       0       0       1       3       2       0       0       0\n\n"
                     " 1      10       0       2       0       0       0       0       0\n"
                     "             0.0             0.0             0.0\n\n"
                     " 1      20       0       2       0       0       0       0       0\n"
                     "             1.5             0.0             0.0\n\n"
                     " 1      30       0       2       0       0       0       0       0\n"
                     "             0.0             2.0             0.0\n\n"
                     " 2       7       3       2       0       0       0       0       0\n"
                     "       3       0       4       0     0.0     0.0     0.0\n"
                     "      10      20      30\n"
                     " 2       8       2       2       0       0       0       0       0\n"
                     "       2       0       5       0     0.0     0.0     0.0\n"
                     "      30      25\n"
                     "99       0       0       1       0       0       0       0       0\n"));
    ASSERT_EQ(file.status, KVOCAEIO_OK);
    const kvocaeio_patran_tables tables = tableOf(file.get(), kvocaeio_get_patran_tables);
    ASSERT_EQ(tables.count, 2U);
    EXPECT_EQ(tables.oids[1], 8);
    EXPECT_EQ(tables.shapes[0], 3);
    EXPECT_EQ(tables.property_ids[1], 5);
    EXPECT_EQ(tables.nodes[8 + 1], 25);
    EXPECT_EQ(tables.summary_nodes, 3);
    const kvocaeio_nodes nodes = tableOf(file.get(), kvocaeio_get_nodes);
    EXPECT_EQ(nodes.oids[2], 30);
    EXPECT_EQ(nodes.float_coordinates[3], 1.5F);
    // Lines come first, then triangles. No node has the OID 25.
    kvocaeio_section section{};
    section.struct_size = sizeof section;
    const std::int32_t* rows = nullptr;
    ASSERT_EQ(kvocaeio_get_section(file.get(), KVOCAEIO_SECTIONS, 0, &section), KVOCAEIO_OK);
    EXPECT_EQ(section.geometry, KVOCAEIO_GEOMETRY_LINE);
    EXPECT_EQ(section.property_ids[0], 5);
    ASSERT_EQ(kvocaeio_get_connectivity(file.get(), KVOCAEIO_SECTIONS, 0, KVOCAEIO_ROWS, &rows),
              KVOCAEIO_OK);
    EXPECT_EQ(std::vector<int>(rows, rows + 2), (std::vector<int>{2, -1}));
    ASSERT_EQ(kvocaeio_get_connectivity(file.get(), KVOCAEIO_SECTIONS, 1, KVOCAEIO_ROWS, &rows),
              KVOCAEIO_OK);
    EXPECT_EQ(std::vector<int>(rows, rows + 3), (std::vector<int>{0, 1, 2}));
    kvocaeio_patran_values values{};
    values.struct_size = sizeof values;
    EXPECT_EQ(kvocaeio_get_patran_values(file.get(), &values), KVOCAEIO_NO_SUCH_TABLE);
}

}  // namespace
}  // namespace kvocaeio::test
