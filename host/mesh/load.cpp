/// The road of a mesh from its file: tidied, read, and refused where it is not that of the file.
#include "mesh/load.h"

#include "mesh/refusals.h"
#include "mesh_checks.h"
#include "package/design.h"
#include "tidy/tidied_deck.h"

namespace kvocaeio::host {

namespace {

MeshRequest requestOf(const LoadOptions& options) {
    return {options.normalised, options.force,
            options.verbose ? PrintTarget::kStandardError : PrintTarget::kNowhere,
            options.findsAll};
}

void restoreOids(TidiedDeck& deck, Mesh& mesh) {
    if (!deck.isTidied())
        return;
    std::vector<int> oids;
    for (const MeshSection& section : mesh.sections)
        oids.insert(oids.end(), section.oids.begin(), section.oids.end());
    deck.restoreOids(mesh.nodeOids, oids, mesh.remarks);
    auto from = oids.cbegin();
    for (MeshSection& section : mesh.sections)
        for (int& oid : section.oids)
            oid = *from++;
}

std::size_t countInfinitePlaces(const Mesh& mesh) {
    std::size_t number = 0;
    for (std::size_t node = 0; node < mesh.nodes(); ++node)
        if (!isFinitePlace(mesh.places.data() + 3 * node))
            ++number;
    return number;
}

}  // namespace

Mesh loadMesh(const InputFile& file, const std::string& name, const Format& format,
              const LoadOptions& options) {
    if (format.takeMesh == nullptr)
        throw FileError("is of a format that holds no mesh (" + std::string(format.name) + ")",
                        "not-converted");
    TidiedDeck deck(file.path(), name);
    if (!options.asIs)
        deck.tidy(format);
    deck.requireGood("; --as-is takes what is read of the deck as it is");
    if (!options.force)
        refuseRepeats(deck);
    Mesh mesh = format.takeMesh(deck.path(), requestOf(options));
    deck.giveBack(mesh.imported);
    restoreOids(deck, mesh);
    deck.takeNotes(mesh.losses, mesh.remarks);
    if (mesh.sections.empty())
        throw FileError("holds no elements", "no-elements");
    refuseInfinitePlaces(countInfinitePlaces(mesh));
    if (!options.force)
        refuseErrors(mesh.imported, name);
    return mesh;
}

PackageScene loadScene(const InputFile& file, const std::string& name, const Format& format,
                       const LoadOptions& options) {
    if (format.takeScene == nullptr)
        throw FileError("is of a format that holds no package (" + std::string(format.name) + ")",
                        "not-converted");
    PackageScene scene = format.takeScene(file.path(), requestOf(options));
    scene.imported.rename(file.path(), name);
    if (!options.force)
        refuseErrors(scene.imported, name);
    return scene;
}

PackageScene loadReports(const std::string& folder, const LoadOptions& options) {
    PackageScene scene = takeDesignReports(folder, requestOf(options));
    if (!options.force)
        refuseErrors(scene.imported, folder);
    return scene;
}

}  // namespace kvocaeio::host
