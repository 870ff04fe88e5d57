/// The walks over the tables of the C interface, in the words of those of the readers.
#include <algorithm>
#include <array>
#include <cstring>
#include <gtest/gtest.h>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "c/opened.h"
#include "report/walked.h"
#include "support/captured_output.h"

namespace kvocaeio::test {

namespace {

namespace fs = std::filesystem;

kvocaeio_section sectionAt(kvocaeio_model* model, int table, std::size_t index) {
    kvocaeio_section section{};
    section.struct_size = sizeof section;
    EXPECT_EQ(kvocaeio_get_section(model, table, index, &section), KVOCAEIO_OK);
    return section;
}

std::size_t sectionCount(kvocaeio_model* model, int table) {
    std::size_t count = 0;
    EXPECT_EQ(kvocaeio_get_section_count(model, table, &count), KVOCAEIO_OK);
    return count;
}

// The connectivity, whose two forms must agree.
const int* connectivityAt(kvocaeio_model* model, int table, std::size_t index, bool asRows) {
    const kvocaeio_nodes nodes = tableOf(model, kvocaeio_get_nodes);
    const kvocaeio_section section = sectionAt(model, table, index);
    std::array<const int*, 2> forms{};
    for (const int numbering : {KVOCAEIO_OIDS, KVOCAEIO_ROWS})
        EXPECT_EQ(kvocaeio_get_connectivity(model, table, index, numbering,
                                            &forms[static_cast<std::size_t>(numbering)]),
                  KVOCAEIO_OK);
    const auto& [oids, rows] = forms;
    bool isKnown = true;
    bool agree = true;
    for (std::size_t i = 0; i < section.count * section.nodes_per_element; ++i) {
        isKnown = isKnown && rows[i] >= -1 && rows[i] < static_cast<int>(nodes.count);
        if (isKnown && rows[i] >= 0 && nodes.coordinates != nullptr)
            agree = agree && nodes.oids[rows[i]] == oids[i];
    }
    EXPECT_TRUE(isKnown && agree);
    return asRows ? rows : oids;
}

void putSections(kvocaeio_model* model, int table, Writer& out) {
    for (std::size_t i = 0; i < sectionCount(model, table); ++i) {
        const kvocaeio_section section = sectionAt(model, table, i);
        const bool isRaw = table == KVOCAEIO_SECTIONS;
        out.line(std::string_view(section.name).substr(0, 79), section.geometry,
                 section.nodes_per_element, section.count);
        const auto count = static_cast<int>(section.count);
        out.row(connectivityAt(model, table, i, !isRaw),
                count * static_cast<int>(section.nodes_per_element));
        if (isRaw)
            out.row(section.oids, count);
    }
}

void putDeck(kvocaeio_model* model, Writer& out) {
    const kvocaeio_nodes nodes = tableOf(model, kvocaeio_get_nodes);
    out.line(true);
    for (std::size_t i = 0; i < nodes.count; ++i) {
        const double* const place = nodes.coordinates + 3 * i;
        out.line(nodes.oids[i], place[0], place[1], place[2]);
    }
    putSections(model, KVOCAEIO_SECTIONS, out);
    const kvocaeio_shell_sections shells = tableOf(model, kvocaeio_get_shell_sections);
    for (std::size_t i = 0; i < shells.count; ++i)
        out.line(std::string_view(shells.names[i]).substr(0, 79), shells.thicknesses[i]);
    if (const kvocaeio_status status = kvocaeio_normalise(model, nullptr); status != KVOCAEIO_OK) {
        EXPECT_EQ(status, KVOCAEIO_NOT_NORMALISED);
        return out.line("vector<T> too long");
    }
    putSections(model, KVOCAEIO_NORMALISED_SOLIDS, out);
    putSections(model, KVOCAEIO_NORMALISED_SHELLS, out);
}

// The mesh is in the rows that are used, each with its OID.
void expectMeshOf(kvocaeio_model* model, const kvocaeio_nastran_tables& tables) {
    const kvocaeio_nodes nodes = tableOf(model, kvocaeio_get_nodes);
    bool same = true;
    for (std::size_t i = 0; i < nodes.count; ++i)
        same =
            same && std::memcmp(nodes.float_coordinates + 3 * i,
                                tables.nodes + 4 * (nodes.oids[i] - 1) + 1, 3 * sizeof(float)) == 0;
    std::size_t elements = 0;
    for (std::size_t s = 0; s < sectionCount(model, KVOCAEIO_SECTIONS); ++s) {
        const kvocaeio_section section = sectionAt(model, KVOCAEIO_SECTIONS, s);
        const int* const oids = connectivityAt(model, KVOCAEIO_SECTIONS, s, false);
        const int* const rows = connectivityAt(model, KVOCAEIO_SECTIONS, s, true);
        const std::size_t width = section.nodes_per_element;
        elements += section.count;
        for (std::size_t i = 0; i < section.count * width; ++i) {
            const int* const row = tables.elements + 9 * (section.oids[i / width] - 1);
            same = same && oids[i] == row[1 + i % width] &&
                   (rows[i] < 0 || nodes.oids[rows[i]] == oids[i]);
        }
    }
    for (std::size_t i = 0; i < tables.element_rows; ++i)
        elements -= tables.elements[9 * i] != 0 ? 1U : 0U;
    EXPECT_TRUE(same && elements == 0);
}

void putBulkData(kvocaeio_model* model, Writer& out) {
    const kvocaeio_nastran_tables tables = tableOf(model, kvocaeio_get_nastran_tables);
    out.line(true, tables.material_count);
    const auto seen = [](std::size_t rows) { return std::min<std::size_t>(rows, kRowsSeen); };
    for (std::size_t i = 0; i < seen(tables.node_rows); ++i)
        if (tables.nodes[4 * i] != 0.0F)
            out.row(tables.nodes + 4 * i, 4);
    for (std::size_t i = 0; i < seen(tables.element_rows); ++i)
        if (tables.elements[9 * i] != 0)
            out.row(tables.elements + 9 * i, 9);
    for (std::size_t i = 0; i < seen(tables.section_rows); ++i)
        if (const int* const row = tables.sections + 3 * i; row[0] != 0 || row[1] != 0)
            out.row(row, 3);
    if (tables.node_rows < kRowsSeen && tables.element_rows < kRowsSeen)
        expectMeshOf(model, tables);
}

void putLists(kvocaeio_model* model, Writer& out) {
    const kvocaeio_patran_values values = tableOf(model, kvocaeio_get_patran_values);
    out.line(true);
    for (std::size_t i = 0; i < values.node_count; ++i)
        out.row(values.nodes + 3 * i, 3);
    for (std::size_t i = 0; i < values.element_count; ++i) {
        std::array<int, 5> numbers{};
        std::copy_n(values.corners + 4 * i, 4, numbers.begin());
        numbers[4] = values.types[i];
        out.row(numbers.data(), 5);
        out.row(values.values + 3 * i, 3);
    }
}

// The class counts as the summary does, and has rows of zeros beyond what the file fills.
void putArrays(kvocaeio_model* model, Writer& out) {
    const kvocaeio_nodes nodes = tableOf(model, kvocaeio_get_nodes);
    const kvocaeio_patran_tables tables = tableOf(model, kvocaeio_get_patran_tables);
    out.line(true);
    std::unordered_map<int, int> rowOf;
    const std::array<float, 3> nowhere{};
    for (int i = 0; i < std::min(tables.summary_nodes, kRowsSeen); ++i) {
        const bool isThere = static_cast<std::size_t>(i) < nodes.count;
        out.row(isThere ? nodes.float_coordinates + 3 * i : nowhere.data(), 3);
        if (isThere)
            rowOf[nodes.oids[i]] = i;
    }
    const std::array<int, 8> none{};
    for (int i = 0; i < std::min(tables.summary_elements, kRowsSeen); ++i) {
        const bool isThere = static_cast<std::size_t>(i) < tables.count;
        std::array<int, 8> rows{};
        std::transform(isThere ? tables.nodes + 8 * i : none.data(),
                       isThere ? tables.nodes + 8 * i + 8 : none.data() + 8, rows.begin(),
                       [&](int oid) { return rowOf.contains(oid) && oid >= 0 ? rowOf[oid] : 0; });
        out.line(isThere ? tables.shapes[i] : 0, isThere ? tables.property_ids[i] : 0);
        out.row(rows.data(), 8);
    }
}

void putBodies(kvocaeio_model* model, Writer& out) {
    const kvocaeio_bodies bodies = tableOf(model, kvocaeio_get_bodies);
    out.line(true);
    for (std::size_t i = 0; i < bodies.count; ++i) {
        out.line(bodies.names[i], bodies.types[i] == KVOCAEIO_BODY_BALL ? 1 : 0, bodies.colors[i]);
        std::array<double, 8> places{};
        std::copy_n(bodies.centers + 3 * i, 3, places.begin());
        std::copy_n(bodies.sizes + 3 * i, 3, places.begin() + 3);
        out.row(places.data(), 8);
    }
}

void putPackage(kvocaeio_model* model, Writer& out) {
    putBodies(model, out);
    const kvocaeio_wires wires = tableOf(model, kvocaeio_get_wires);
    for (std::size_t wire = 0; wire < wires.count; ++wire) {
        const double* const first = wires.points + 3 * wires.first_points[wire];
        const double* const end = wires.points + 3 * wires.first_points[wire + 1];
        std::vector<double> segments;
        for (const double* point = first; end - point > 3; point += 3)
            segments.insert(segments.end(), point, point + 6);
        for (const std::vector<double>& points : {segments, std::vector<double>(first, end)}) {
            out.line(true, wires.profiles[wire], wires.diameters[wire]);
            out.row(points.data(), static_cast<int>(points.size()));
        }
    }
}

struct Form {
    std::int32_t format;
    void (*put)(kvocaeio_model*, Writer&);
};

Form formOf(const fs::path& path, bool isNeutralList) {
    const std::string extension = path.extension().string();
    if (fs::is_directory(path))
        return {KVOCAEIO_FORMAT_CADENCE, putBodies};
    if (extension == ".inp")
        return {KVOCAEIO_FORMAT_ABAQUS, putDeck};
    if (extension == ".3di")
        return {KVOCAEIO_FORMAT_3DI, putPackage};
    if (extension == ".pat")
        return {KVOCAEIO_FORMAT_PATRAN, isNeutralList ? putLists : putArrays};
    return {KVOCAEIO_FORMAT_NASTRAN, putBulkData};
}

}  // namespace

Walked walkedByC(const fs::path& path, bool isNeutralList, bool isReported) {
    const Form form = formOf(path, isNeutralList);
    const ReportHandle report = makeReport();
    kvocaeio_options options = defaultOptions();
    options.format = form.format;
    options.property_values = 1;
    options.report = isReported ? report.get() : nullptr;
    CapturedOutput printed;
    Walked walked;
    Writer out;
    const std::u8string utf8 = path.u8string();
    const Opened opened({utf8.begin(), utf8.end()}, options);
    walked.imported = opened.status == KVOCAEIO_OK;
    EXPECT_EQ(opened.get() != nullptr, walked.imported);
    if (walked.imported)
        form.put(opened.get(), out);
    else
        EXPECT_TRUE(opened.status == KVOCAEIO_NOT_READ && *kvocaeio_error_text() != '\0')
            << opened.status;
    walked.tables = out.text();
    walked.printed = printed.text();
    return walked;
}

}  // namespace kvocaeio::test
