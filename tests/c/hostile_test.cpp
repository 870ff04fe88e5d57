/// What the fuzzers start from, opened as a file of every format.
#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "c/opened.h"

namespace kvocaeio::test {
namespace {

namespace fs = std::filesystem;

// A small file may have large OIDs: what it costs to look at all of their rows is the host's
// affair.
constexpr std::size_t kMostRows = 1'000'000;

// Reads every array to its end.
double sumOf(kvocaeio_model* model) {
    if (kvocaeio_model_format(model) == KVOCAEIO_FORMAT_NASTRAN) {
        const auto tables = tableOf(model, kvocaeio_get_nastran_tables);
        if (std::max(tables.node_rows, tables.element_rows) > kMostRows)
            return 0.0;
    }
    double sum = 0.0;
    const kvocaeio_nodes nodes = tableOf(model, kvocaeio_get_nodes);
    for (std::size_t i = 0; i < 3 * nodes.count; ++i)
        sum += nodes.oids[i / 3] + (nodes.coordinates != nullptr
                                        ? nodes.coordinates[i]
                                        : static_cast<double>(nodes.float_coordinates[i]));
    std::size_t count = 0;
    EXPECT_EQ(kvocaeio_get_section_count(model, KVOCAEIO_SECTIONS, &count), KVOCAEIO_OK);
    for (std::size_t s = 0; s < count; ++s) {
        kvocaeio_section section{};
        section.struct_size = sizeof section;
        EXPECT_EQ(kvocaeio_get_section(model, KVOCAEIO_SECTIONS, s, &section), KVOCAEIO_OK);
        const std::int32_t* rows = nullptr;
        EXPECT_EQ(kvocaeio_get_connectivity(model, KVOCAEIO_SECTIONS, s, KVOCAEIO_ROWS, &rows),
                  KVOCAEIO_OK);
        for (std::size_t i = 0; i < section.count; ++i)
            sum += section.oids[i];
        for (std::size_t i = 0; i < section.count * section.nodes_per_element; ++i) {
            EXPECT_LT(rows[i], static_cast<std::int64_t>(nodes.count));
            sum += rows[i];
        }
    }
    return sum;
}

TEST(CHostile, FilesOfTheFuzzersOpenOrSayWhyNot) {
    volatile double seen = 0.0;
    int opened = 0;
    int refused = 0;
    for (const auto& entry : fs::recursive_directory_iterator(KVOCAEIO_CORPUS)) {
        if (!entry.is_regular_file())
            continue;
        for (std::int32_t format = KVOCAEIO_FORMAT_UNKNOWN; format <= KVOCAEIO_FORMAT_CADENCE;
             ++format) {
            SCOPED_TRACE(entry.path().string() + " as " + std::to_string(format));
            kvocaeio_options options = defaultOptions();
            options.format = format;
            options.tidy = 1;
            options.property_values = 1;
            const std::u8string utf8 = entry.path().u8string();
            const Opened file({utf8.begin(), utf8.end()}, options);
            if (file.status != KVOCAEIO_OK) {
                EXPECT_STRNE(kvocaeio_error_text(), "");
                ++refused;
                continue;
            }
            ++opened;
            if (kvocaeio_model_format(file.get()) <= KVOCAEIO_FORMAT_PATRAN)
                seen = sumOf(file.get());
        }
    }
    static_cast<void>(seen);
    EXPECT_GT(opened, 100);
    EXPECT_GT(refused, 100);
}

}  // namespace
}  // namespace kvocaeio::test
