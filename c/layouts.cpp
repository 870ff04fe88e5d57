/// The layouts that built hosts rely on, on every platform. A member that is added goes to the end
/// of its struct; its row here changes with it, on purpose.
#include <cstddef>

#include <kvocaeio/abaqus.h>
#include <kvocaeio/kvocaeio.h>
#include <kvocaeio/report.h>
#include <kvocaeio/tidy.h>

namespace {

template <class Struct>
constexpr bool endsWith(std::size_t offsetOfLast, std::size_t offset, std::size_t size) {
    return offsetOfLast == offset && sizeof(Struct) == size;
}

static_assert(endsWith<kvocaeio_options>(offsetof(kvocaeio_options, tool_folder), 56, 64));
static_assert(endsWith<kvocaeio_nodes>(offsetof(kvocaeio_nodes, float_coordinates), 32, 40));
static_assert(endsWith<kvocaeio_section>(offsetof(kvocaeio_section, property_ids), 56, 64));
static_assert(endsWith<kvocaeio_shell_sections>(offsetof(kvocaeio_shell_sections, thicknesses), 32,
                                                40));
static_assert(endsWith<kvocaeio_nastran_tables>(offsetof(kvocaeio_nastran_tables, material_count),
                                                56, 64));
static_assert(endsWith<kvocaeio_patran_tables>(offsetof(kvocaeio_patran_tables, summary_properties),
                                               56, 64));
static_assert(endsWith<kvocaeio_patran_values>(offsetof(kvocaeio_patran_values, values), 48, 56));
static_assert(endsWith<kvocaeio_bodies>(offsetof(kvocaeio_bodies, colors), 48, 56));
static_assert(endsWith<kvocaeio_wires>(offsetof(kvocaeio_wires, profile_names), 72, 80));
static_assert(endsWith<kvocaeio_origins>(offsetof(kvocaeio_origins, deviation), 64, 72));
static_assert(endsWith<kvocaeio_finding>(offsetof(kvocaeio_finding, file), 1128, 2152));
static_assert(endsWith<kvocaeio_place>(offsetof(kvocaeio_place, file), 104, 1128));
static_assert(endsWith<kvocaeio_count>(offsetof(kvocaeio_count, name), 16, 80));
static_assert(endsWith<kvocaeio_block>(offsetof(kvocaeio_block, property), 32, 40));
static_assert(endsWith<kvocaeio_mesh>(offsetof(kvocaeio_mesh, unit), 64, 72));
static_assert(endsWith<CKVOAbaqusReader::NodeData>(offsetof(CKVOAbaqusReader::NodeData, coord), 8,
                                                   16));
static_assert(endsWith<CKVOAbaqusReader::ElemData>(offsetof(CKVOAbaqusReader::ElemData, nodes), 8,
                                                   16));
static_assert(endsWith<CKVOAbaqusReader::ElemSecData>(offsetof(CKVOAbaqusReader::ElemSecData, ids),
                                                      104, 112));
static_assert(endsWith<CKVOAbaqusReader::ShellSecData>(offsetof(CKVOAbaqusReader::ShellSecData,
                                                                thickness),
                                                       80, 88));
static_assert(endsWith<CKVODeckTidy::OriginData>(offsetof(CKVODeckTidy::OriginData, file), 88,
                                                 1112));
static_assert(endsWith<CKVOImportReport::CountData>(offsetof(CKVOImportReport::CountData, count),
                                                    64, 72));
static_assert(endsWith<CKVOImportReport::FindingData>(offsetof(CKVOImportReport::FindingData, file),
                                                      1116, 2144));
static_assert(endsWith<CKVOImportReport::PlaceData>(offsetof(CKVOImportReport::PlaceData, file), 97,
                                                    1128));

}  // namespace
