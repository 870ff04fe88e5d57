/// Meshes written as files that are there completely or not at all.
#include <algorithm>
#include <set>
#include <system_error>

#include "c/host_path.h"
#include "c/solid_mesh.h"
#include "nastran/deck_writer.h"
#include "patran/pat_writer.h"
#include "tidy/output_file.h"

namespace kvocaeio::c_interface {

namespace {

void writeNastran(const SolidMesh& mesh, text::Writer& deck) {
    nastran::writeHeader(deck, mesh.unit());
    for (std::size_t row = 0; row < mesh.nodeCount(); ++row) {
        const double* const point = mesh.point(row);
        nastran::writeGrid(deck, mesh.nodeOid(row), point[0], point[1], point[2]);
    }
    std::set<int> properties;
    for (const kvocaeio_block& block : mesh.blocks())
        properties.insert(std::max(block.property, 1));
    for (const int property : properties)
        nastran::writeSolidSection(deck, property);
    mesh.forEachElement([&](int oid, int property, std::span<const int> nodes) {
        nastran::writeElement(deck, oid, property, nodes);
    });
    nastran::writeFooter(deck);
}

void writePatran(const SolidMesh& mesh, text::Writer& file) {
    patran::PacketWriter packets(file, static_cast<int>(mesh.nodeCount()),
                                 static_cast<int>(mesh.elementCount()));
    for (std::size_t row = 0; row < mesh.nodeCount(); ++row) {
        const double* const point = mesh.point(row);
        packets.node(mesh.nodeOid(row), {point[0], point[1], point[2]});
    }
    mesh.forEachElement([&](int oid, int, std::span<const int> nodes) {
        patran::Block block{};
        std::ranges::copy(nodes, block.begin());
        packets.element(oid, patran::shapeFor(static_cast<int>(nodes.size()), 0), block);
    });
    packets.end();
}

kvocaeio_status failToWrite(const char* path, const std::error_code& error) {
    return fail(KVOCAEIO_CANNOT_WRITE, "the file cannot be written: " + error.message(), path);
}

kvocaeio_status writeMesh(const char* path, std::int32_t format, const kvocaeio_mesh* arrays) {
    SolidMesh mesh;
    if (const kvocaeio_status status = mesh.take(arrays); status != KVOCAEIO_OK)
        return status;
    try {
        tidy::OutputFile out;
        if (!out.open(pathOf(path), text::LineEnds::kOfSystem))
            return failToWrite(path, out.error());
        (format == KVOCAEIO_FORMAT_NASTRAN ? writeNastran : writePatran)(mesh, out.writer());
        return out.finish() ? KVOCAEIO_OK : failToWrite(path, out.error());
    } catch (const std::system_error& error) {  // of a path that the system cannot have
        return failToWrite(path, error.code());
    }
}

}  // namespace

}  // namespace kvocaeio::c_interface

using namespace kvocaeio::c_interface;

kvocaeio_status kvocaeio_write(const char* path, std::int32_t format, const kvocaeio_mesh* mesh) {
    if (path == nullptr)
        return fail(KVOCAEIO_BAD_ARGUMENT, "no path is given");
    if (format != KVOCAEIO_FORMAT_NASTRAN && format != KVOCAEIO_FORMAT_PATRAN)
        return fail(KVOCAEIO_BAD_ARGUMENT, "files of this format are not written");
    return guarded([&] { return writeMesh(path, format, mesh); });
}
