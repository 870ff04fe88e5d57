/// The command `kvocaeio convert`: the mesh or package of a file written in another format.
#include "convert/convert.h"

#include <iostream>
#include <new>
#include <optional>

#include "convert/report.h"
#include "convert/solids.h"
#include "convert/targets.h"
#include "formats.h"
#include "input_file.h"
#include "mesh/load.h"
#include "mesh/refusals.h"
#include "mesh_checks.h"
#include "replacement_file.h"

namespace kvocaeio::host {

namespace {

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

void scale(PackageScene& scene, double factor) {
    const auto apply = [&](auto& lengths) {
        for (double& length : lengths)
            length *= factor;
    };
    for (PackageBody& body : scene.bodies) {
        apply(body.center);
        apply(body.size);
    }
    for (PackageWire& wire : scene.wires) {
        wire.diameter *= factor;
        apply(wire.path);
    }
}

/// Takes content from the source and puts it into the target.
template <class Take, class Put>
std::optional<Failure> carry(const ConvertOptions& options, std::optional<Conversion>& written,
                             const Take& take, const Put& put) {
    decltype(take()) content;
    std::optional<Failure> failure = attempt(options.source, [&] { content = take(); });
    if (!failure)
        failure = attempt(options.target, [&] {
            ReplacementFile file(options.target);
            put(content, file);
            file.finish();
        });
    if (!failure)
        written = conversionOf(std::move(content));
    return failure;
}

/// The same for content that a writer of the host's own puts into the target.
template <class Take, class Write>
std::optional<Failure> carryScaled(const ConvertOptions& options,
                                   std::optional<Conversion>& written, const Take& take,
                                   const Write& write) {
    return carry(
        options, written,
        [&] {
            auto content = take();
            scale(content, options.scale);
            return content;
        },
        [&](auto& content, const ReplacementFile& file) { write(content, file.path(), options); });
}

std::optional<Failure> convert(const InputFile& source, const Format& format, const Target& target,
                               const ConvertOptions& options, std::optional<Conversion>& written) {
    const LoadOptions load = {options.normalised, options.force, options.asIs, options.verbose};
    if (format.takeScene != nullptr) {
        if (target.writeScene == nullptr)
            return Failure{shownName(options.source),
                           "is a package, which can be written as " + sceneTargets(),
                           "not-converted"};
        return carryScaled(
            options, written, [&] { return loadScene(source, options.source, format, load); },
            target.writeScene);
    }
    if (target.solids != nullptr && !options.wideNastran)
        return carry(
            options, written, [&] { return takeSolids(source, format, options); },
            [&](SolidMesh& mesh, const ReplacementFile& file) {
                writeSolids(mesh, *target.solids, file, options.unit);
            });
    if (target.writeMesh == nullptr)
        return Failure{shownName(options.source),
                       "is a mesh, which can be written as " + meshTargets(), "not-converted"};
    return carryScaled(
        options, written, [&] { return loadMesh(source, options.source, format, load); },
        target.writeMesh);
}

std::optional<Failure> convert(const ConvertOptions& options, std::optional<Conversion>& written) {
    const Target* target = nullptr;
    const Format* format = nullptr;
    std::optional<InputFile> source;
    std::optional<Failure> failure = attempt(options.target, [&] { target = &targetOf(options); });
    if (!failure)
        failure = attempt(options.source, [&] { source.emplace(options.source); });
    if (!failure)
        failure = attempt(options.target, [&] {
            if (source->identity() && source->identity() == identityOf(options.target))
                throw FileError("cannot be written: it is the file that is read", "same-file");
        });
    if (!failure)
        failure = attempt(options.source,
                          [&] { format = &findFormatToTidy(source->path(), !options.asIs); });
    return failure ? failure : convert(*source, *format, *target, options, written);
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
