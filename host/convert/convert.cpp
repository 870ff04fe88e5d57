/// The command `kvocaeio convert`: the mesh or package of one format written in another.
#include "convert/convert.h"

#include <algorithm>
#include <iostream>
#include <new>
#include <optional>
#include <variant>

#include "convert/report.h"
#include "convert/solids.h"
#include "convert/targets.h"
#include "formats.h"
#include "input_file.h"
#include "mesh/load.h"
#include "mesh/refusals.h"
#include "mesh_checks.h"
#include "progress_line.h"
#include "replacement_file.h"
#include "tidy/tidied_deck.h"

namespace kvocaeio::host {

namespace {

/// What goes from the source to the target.
using Content = std::variant<SolidMesh, Mesh, PackageScene>;

void scale(Mesh& mesh, double factor) {
    for (double& value : mesh.places)
        value *= factor;
    std::size_t infinite = 0;
    for (std::size_t node = 0; node < mesh.nodes(); ++node)
        if (!isFinitePlace(mesh.place(static_cast<int>(node))))
            ++infinite;
    refuseInfinitePlaces(infinite);
    for (MeshSection& section : mesh.sections)
        section.thickness *= factor;
}

/// Sets the unit and scales.
Mesh finished(Mesh mesh, const ConvertOptions& options) {
    mesh.lengthUnit = options.unit;
    if (options.scale != 1.0)
        scale(mesh, options.scale);
    return mesh;
}

PackageScene finished(PackageScene scene, const ConvertOptions& options) {
    if (options.scale != 1.0)
        scale(scene, options.scale);
    if (!options.unit.empty())
        scene.lengthUnit = options.unit;
    return scene;
}

/// There is no `source` where that is a folder of reports.
Content take(const std::optional<InputFile>& source, const ConvertOptions& options) {
    const Target& target = targetOf(options.target);
    const LoadOptions load = {options.normalised, options.force, options.asIs, options.verbose};
    if (!source)
        return finished(loadReports(options.source, load), options);
    const InputFile& file = *source;
    if (isWrittenByLibrary(target, options))
        return takeSolids(file, options);
    const Format& format = findFormatToTidy(file.path(), !options.asIs);
    if (format.takeScene != nullptr && target.writeScene == nullptr)
        throw FileError("is a package, which is not written as " + std::string(target.extension) +
                            " but as " + sceneTargets(),
                        "not-converted");
    if (format.takeScene != nullptr)
        return finished(loadScene(file, options.source, format, load), options);
    if (target.writeMesh == nullptr)
        throw FileError("is a mesh, which is not written as " + std::string(target.extension) +
                            " but as " + meshTargets(),
                        "not-converted");
    return finished(loadMesh(file, options.source, format, load), options);
}

void write(Content& content, const ConvertOptions& options) {
    const Target& target = targetOf(options.target);
    if (auto* const solids = std::get_if<SolidMesh>(&content))
        return writeSolids(*solids, *target.solids, options);
    ReplacementFile file(options.target);
    const ProgressLine line("writing");
    if (auto* const mesh = std::get_if<Mesh>(&content))
        target.writeMesh(*mesh, file.path(), options);
    else
        target.writeScene(std::get<PackageScene>(content), file.path(), options);
    file.finish();
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

std::optional<Failure> convert(const ConvertOptions& options, std::optional<Conversion>& written) {
    Content content;
    std::optional<InputFile> source;
    std::optional<Failure> failure = attempt(options.target, [&] { checkTarget(options); });
    if (!failure)
        failure = attempt(options.source, [&] {
            const bool areReports = kindOf(options.source) == FileKind::kFolder &&
                                    targetOf(options.target).writeScene != nullptr;
            if (!areReports)
                source.emplace(options.source);
        });
    if (!failure)
        failure = attempt(options.target, [&] {
            if (source && source->identity() && source->identity() == identityOf(options.target))
                throw FileError("cannot be written: it is the file that is read", "same-file");
        });
    if (!failure)
        failure = attempt(options.source, [&] { content = take(source, options); });
    if (!failure)
        failure = attempt(options.target, [&] { write(content, options); });
    if (!failure)
        written = std::visit([](auto& taken) { return conversionOf(std::move(taken)); }, content);
    return failure;
}

}  // namespace

bool runConvert(const ConvertOptions& options) {
    std::optional<Conversion> written;
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
