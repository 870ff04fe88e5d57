/// The command `kvocaeio convert`: solids of one format written in another.
#include "convert/convert.h"

#include <algorithm>
#include <iostream>
#include <new>
#include <optional>

#include "convert/oids.h"
#include "convert/report.h"
#include "convert/rounding.h"
#include "counted.h"
#include "formats.h"
#include "input_file.h"
#include "mesh/refusals.h"
#include "mesh_checks.h"
#include "nastran/mesh_writer.h"
#include "patran/mesh_writer.h"
#include "replacement_file.h"
#include "tidy/tidied_deck.h"

namespace kvocaeio::host {

namespace {

struct Target {
    std::string_view extension;
    const MeshWriter* writer;
};

constexpr std::array<Target, 3> kTargets = {{
    {".nas", &kNastranWriter},
    {".bdf", &kNastranWriter},
    {".pat", &kPatranWriter},
}};

const MeshWriter& writerOf(const std::string& path) {
    const std::string extension = extensionOf(path);
    for (const Target& target : kTargets)
        if (target.extension == extension)
            return *target.writer;
    throw FileError("cannot be written: its name must end in .nas, .bdf (Nastran) or .pat (Patran)",
                    "unknown-target");
}

/// Drops elements of nodes that are not there and nodes that no element has.
void compact(SolidMesh& mesh) {
    const auto nodeCount = static_cast<int>(mesh.nodes.size());
    const std::size_t lost = std::erase_if(mesh.elements, [&](const SolidMesh::Element& element) {
        return std::any_of(element.nodes.begin(), element.nodes.begin() + element.corners,
                           [&](int node) { return node < 0 || node >= nodeCount; });
    });
    leaveOut(mesh.losses, "elements-of-missing-nodes", lost, "elements",
             " of nodes that are not there");
    std::vector<int> newRows(mesh.nodes.size(), -1);
    for (const SolidMesh::Element& element : mesh.elements)
        for (int i = 0; i < element.corners; ++i)
            newRows[static_cast<std::size_t>(element.nodes[static_cast<std::size_t>(i)])] = 0;
    std::size_t used = 0;
    for (std::size_t row = 0; row < newRows.size(); ++row) {
        if (newRows[row] < 0)
            continue;
        newRows[row] = static_cast<int>(used);
        mesh.nodeOids[used] = mesh.nodeOids[row];
        mesh.nodes[used++] = mesh.nodes[row];
    }
    leaveOut(mesh.losses, "unused-nodes", mesh.nodes.size() - used, "nodes",
             " that no written element has");
    mesh.nodes.resize(used);
    mesh.nodeOids.resize(used);
    for (SolidMesh::Element& element : mesh.elements)
        for (int i = 0; i < element.corners; ++i) {
            int& node = element.nodes[static_cast<std::size_t>(i)];
            node = newRows[static_cast<std::size_t>(node)];
        }
}

void scale(SolidMesh& mesh, double factor) {
    for (auto& place : mesh.nodes)
        for (double& value : place)
            value *= factor;
}

/// Gives nodes and elements the OIDs of the original.
void restoreOids(TidiedDeck& deck, SolidMesh& mesh) {
    std::vector<int> oids;
    for (const SolidMesh::Element& element : mesh.elements)
        oids.push_back(element.oid);
    if (!oids.empty() && oids.front() == 0)  // the normalised mesh has none
        oids.clear();
    deck.restoreOids(mesh.nodeOids, oids, mesh.remarks);
    for (std::size_t row = 0; row < oids.size(); ++row)
        mesh.elements[row].oid = oids[row];
}

std::size_t countInfinitePlaces(const SolidMesh& mesh) {
    return static_cast<std::size_t>(std::ranges::count_if(
        mesh.nodes, [](const auto& place) { return !isFinitePlace(place.data()); }));
}

SolidMesh takeSolids(const InputFile& file, const ConvertOptions& options) {
    const Format& format = findFormatToTidy(file.path(), !options.asIs);
    if (format.takeSolids == nullptr)
        throw FileError("is of a format that is not converted (" + std::string(format.name) +
                            "); Abaqus decks and Patran neutral files are",
                        "not-converted");
    TidiedDeck deck(file.path(), options.source);
    if (!options.asIs)
        deck.tidy(format);
    deck.requireGood("; --as-is converts what is read of the deck as it is");
    if (!options.force)
        refuseRepeats(deck);
    SolidMesh mesh = format.takeSolids(
        deck.path(), {options.normalised, options.force,
                      options.verbose ? PrintTarget::kStandardError : PrintTarget::kNowhere});
    deck.giveBack(mesh.imported);
    compact(mesh);
    restoreOids(deck, mesh);
    deck.takeNotes(mesh.losses, mesh.remarks);
    if (mesh.elements.empty())
        throw FileError("holds no tetrahedra, wedges or hexahedra", "no-solids");
    scale(mesh, options.scale);
    refuseInfinitePlaces(countInfinitePlaces(mesh));
    return mesh;
}

void write(SolidMesh& mesh, const ConvertOptions& options) {
    const MeshWriter& writer = writerOf(options.target);
    chooseOids(mesh, writer);
    checkRounding(mesh, writer, options.unit);
    ReplacementFile file(options.target);
    if (!writer.write(mesh, file.path(), options.unit) || !file.endsWith(writer.ending))
        throw FileError("cannot be written as a whole: the disk may be full", "cannot-be-written");
    file.finish();
    writer.takeNotes(mesh);
}

/// A failure, with the file that it is of.
struct Failure {
    std::string file;
    std::string what;
    std::string_view code;
};

/// Runs a step that reads or writes `file`; what stops it.
template <class Step>
std::optional<Failure> attempt(const std::string& file, const Step& step) {
    try {
        step();
        return std::nullopt;
    } catch (const FileError& error) {
        return Failure{shownName(file), error.what(), error.code};
    } catch (const std::bad_alloc&) {
        return Failure{shownName(file), "there is not enough memory for it", "out-of-memory"};
    }
}

std::optional<Failure> convert(const ConvertOptions& options, std::optional<SolidMesh>& written) {
    SolidMesh mesh;
    std::optional<InputFile> source;
    std::optional<Failure> failure = attempt(options.target, [&] { writerOf(options.target); });
    if (!failure)
        failure = attempt(options.source, [&] { source.emplace(options.source); });
    if (!failure)
        failure = attempt(options.target, [&] {
            if (source->identity() && source->identity() == identityOf(options.target))
                throw FileError("cannot be written: it is the file that is read", "same-file");
        });
    if (!failure)
        failure = attempt(options.source, [&] { mesh = takeSolids(*source, options); });
    if (!failure)
        failure = attempt(options.source, [&] {
            if (!options.force)
                refuseErrors(mesh.imported, options.source);
        });
    if (!failure)
        failure = attempt(options.target, [&] { write(mesh, options); });
    if (!failure)
        written = std::move(mesh);
    return failure;
}

}  // namespace

bool runConvert(const ConvertOptions& options) {
    std::optional<SolidMesh> written;
    std::optional<Failure> failure = convert(options, written);
    if (!failure && options.strict && !written->losses.empty())
        failure = {shownName(options.target),
                   "is written, but without what is left out, which --strict counts as a failure",
                   "left-out"};
    if (failure)
        std::cerr << "kvocaeio: " << failure->file << ": " << failure->what << '\n';
    if (options.json)
        std::cout << conversionJson(
            written ? &*written : nullptr, options,
            failure ? std::optional<Note>({std::string(failure->code), 1, failure->what})
                    : std::nullopt);
    else if (written && !options.quiet)
        std::cout << conversionText(*written, options);
    if (!std::cout.flush())
        throw std::runtime_error("the report cannot be written to standard output");
    return !failure;
}

}  // namespace kvocaeio::host
