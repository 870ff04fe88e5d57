/// The tables that a model hands out.
#include <span>

#include "c/model.h"
#include "c/report.h"
#include "c/versioned.h"

using namespace kvocaeio;
using namespace kvocaeio::c_interface;

namespace {

kvocaeio_status failOfModel() {
    return fail(KVOCAEIO_BAD_ARGUMENT, "no model is given");
}

kvocaeio_status failOfTable(const char* text) {
    return fail(KVOCAEIO_NO_SUCH_TABLE, text);
}

// Hands out one of the tables that a content may have.
template <class Table>
kvocaeio_status handTable(kvocaeio_model* model, const Table* (Content::*table)(), Table* to) {
    if (model == nullptr)
        return failOfModel();
    return guarded([&] {
        const Table* const from = (*model->content.*table)();
        return from == nullptr ? failOfTable("the model has no such table") : hand(*from, to);
    });
}

// Calls `use(mesh)` with the mesh of a model.
template <class Use>
kvocaeio_status withMesh(kvocaeio_model* model, const Use& use) {
    if (model == nullptr)
        return failOfModel();
    return guarded([&] {
        MeshTables* const mesh = model->content->mesh();
        return mesh == nullptr ? failOfTable("a package has no nodes and sections") : use(*mesh);
    });
}

// Calls `use(mesh, sections)` with one of its tables of sections.
template <class Use>
kvocaeio_status withSections(kvocaeio_model* model, std::int32_t table, const Use& use) {
    return withMesh(model, [&](MeshTables& mesh) {
        const auto row = static_cast<std::size_t>(table);
        return row < mesh.sections.size()
                   ? use(mesh, mesh.sections[row])
                   : fail(KVOCAEIO_BAD_ARGUMENT, "there is no table of sections of that number");
    });
}

// Calls `use(mesh, section)` with one of its sections.
template <class Use>
kvocaeio_status withSection(kvocaeio_model* model, std::int32_t table, std::size_t index,
                            const Use& use) {
    return withSections(model, table, [&](MeshTables& mesh, std::vector<SectionTable>& sections) {
        return index < sections.size()
                   ? use(mesh, sections[index])
                   : fail(KVOCAEIO_BAD_ARGUMENT, "there is no section of that index");
    });
}

const tidy::OriginMap& mapOf(const tidy::Origins& origins, std::int32_t things) {
    return things == KVOCAEIO_NODES      ? origins.nodes
           : things == KVOCAEIO_ELEMENTS ? origins.elements
                                         : origins.properties;
}

OriginTable makeOriginTable(const tidy::Origins& origins, const tidy::OriginMap& map) {
    OriginTable table;
    for (std::vector<int>* const list : {&table.oids, &table.originalOids, &table.sources})
        list->reserve(map.count());
    tidy::OriginMap::Cursor cursor;
    for (tidy::Origin origin; map.next(cursor, origin);) {
        table.oids.push_back(origin.id);
        table.originalOids.push_back(origin.originalId);
        table.sources.push_back(static_cast<int>(origin.source));
    }
    for (const tidy::Source& source : origins.sources) {
        table.parts.push_back(source.part.c_str());
        table.files.push_back(source.file.c_str());
    }
    return table;
}

}  // namespace

std::int32_t kvocaeio_model_format(const kvocaeio_model* model) {
    return model == nullptr ? KVOCAEIO_FORMAT_UNKNOWN : model->format;
}

std::int32_t kvocaeio_model_is_tidied(const kvocaeio_model* model) {
    return model != nullptr && model->isTidied;
}

std::int32_t kvocaeio_model_is_normalised(const kvocaeio_model* model) {
    return model != nullptr && model->content->isNormalised();
}

kvocaeio_status kvocaeio_normalise(kvocaeio_model* model, kvocaeio_report* report) {
    if (model == nullptr)
        return failOfModel();
    return guarded(
        [&] { return model->content->normalise(report == nullptr ? nullptr : &report->content); });
}

kvocaeio_status kvocaeio_get_nodes(kvocaeio_model* model, kvocaeio_nodes* nodes) {
    return withMesh(model, [&](const MeshTables& mesh) { return hand(mesh.nodes, nodes); });
}

kvocaeio_status kvocaeio_get_section_count(kvocaeio_model* model, std::int32_t table,
                                           std::size_t* count) {
    if (count == nullptr)
        return fail(KVOCAEIO_BAD_ARGUMENT, "no place for the count is given");
    return withSections(model, table,
                        [&](const MeshTables&, const std::vector<SectionTable>& sections) {
                            *count = sections.size();
                            return kvocaeio_status{KVOCAEIO_OK};
                        });
}

kvocaeio_status kvocaeio_get_section(kvocaeio_model* model, std::int32_t table, std::size_t index,
                                     kvocaeio_section* section) {
    return withSection(model, table, index, [&](const MeshTables&, const SectionTable& from) {
        return hand(from.section, section);
    });
}

kvocaeio_status kvocaeio_get_connectivity(kvocaeio_model* model, std::int32_t table,
                                          std::size_t index, std::int32_t numbering,
                                          const std::int32_t** nodes) {
    if (nodes == nullptr || (numbering != KVOCAEIO_OIDS && numbering != KVOCAEIO_ROWS))
        return fail(KVOCAEIO_BAD_ARGUMENT,
                    "no place for the connectivity or no numbering is given");
    return withSection(model, table, index, [&](MeshTables& mesh, SectionTable& section) {
        *nodes = section.section.count * section.section.nodes_per_element == 0
                     ? nullptr
                     : connectivityOf(mesh, section, numbering == KVOCAEIO_ROWS);
        return kvocaeio_status{KVOCAEIO_OK};
    });
}

kvocaeio_status kvocaeio_get_shell_sections(kvocaeio_model* model,
                                            kvocaeio_shell_sections* sections) {
    return handTable(model, &Content::shellSections, sections);
}

kvocaeio_status kvocaeio_get_nastran_tables(kvocaeio_model* model,
                                            kvocaeio_nastran_tables* tables) {
    return handTable(model, &Content::nastranTables, tables);
}

kvocaeio_status kvocaeio_get_patran_tables(kvocaeio_model* model, kvocaeio_patran_tables* tables) {
    return handTable(model, &Content::patranTables, tables);
}

kvocaeio_status kvocaeio_get_patran_values(kvocaeio_model* model, kvocaeio_patran_values* values) {
    return handTable(model, &Content::patranValues, values);
}

kvocaeio_status kvocaeio_get_bodies(kvocaeio_model* model, kvocaeio_bodies* bodies) {
    return handTable(model, &Content::bodies, bodies);
}

kvocaeio_status kvocaeio_get_wires(kvocaeio_model* model, kvocaeio_wires* wires) {
    return handTable(model, &Content::wires, wires);
}

kvocaeio_status kvocaeio_get_origins(kvocaeio_model* model, std::int32_t things,
                                     kvocaeio_origins* origins) {
    if (model == nullptr)
        return failOfModel();
    const auto row = static_cast<std::size_t>(things);
    if (row >= kKindsOfThings)
        return fail(KVOCAEIO_BAD_ARGUMENT, "there are no things of that number");
    return guarded([&] {
        std::optional<OriginTable>& table = model->originTables[row];
        if (!table)
            table = makeOriginTable(model->origins, mapOf(model->origins, things));
        kvocaeio_origins to{};
        to.count = table->oids.size();
        to.oids = table->oids.data();
        to.original_oids = table->originalOids.data();
        to.sources = table->sources.data();
        to.source_count = table->parts.size();
        to.source_parts = table->parts.data();
        to.source_files = table->files.data();
        to.deviation = model->deviation;
        return hand(to, origins);
    });
}
