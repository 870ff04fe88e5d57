/// The report as text and as JSON.
#include "convert/report.h"

#include <nlohmann/json.hpp>
#include <set>

#include "clean_name.h"
#include "counted.h"
#include "info/page.h"
#include "json_values.h"
#include "version_text.h"

namespace kvocaeio::host {

namespace {

void add(std::vector<Finding>& findings, Finding::Level level, const std::vector<Note>& notes) {
    for (const Note& note : notes)
        findings.push_back({level, note.code, note.number, note.text});
}

std::string lines(const char* kind, const std::vector<Note>& notes) {
    std::string text;
    for (const Note& note : notes)
        text += std::string("  ") + kind + ": " + cleanName(note.text) + '\n';
    return text;
}

}  // namespace

Conversion conversionOf(SolidMesh&& mesh) {
    return {{{"nodes", mesh.nodes.size()},
             {"elements", mesh.elements.size()},
             {"sections", mesh.sections.size()}},
            std::move(mesh.losses),
            std::move(mesh.remarks),
            std::move(mesh.imported)};
}

Conversion conversionOf(Mesh&& mesh) {
    std::set<std::size_t> sources;
    for (const MeshSection& section : mesh.sections)
        sources.insert(section.source);
    return {{{"nodes", mesh.nodes()}, {"elements", mesh.elements()}, {"sections", sources.size()}},
            std::move(mesh.losses),
            std::move(mesh.remarks),
            std::move(mesh.imported)};
}

Conversion conversionOf(PackageScene&& scene) {
    return {{{"bodies", scene.bodies.size()}, {"wires", scene.wires.size()}},
            std::move(scene.losses),
            std::move(scene.remarks),
            std::move(scene.imported)};
}

std::string conversionText(const Conversion& written, const ConvertOptions& options) {
    std::string text = cleanName(options.target) + ": ";
    for (std::size_t i = 0; i < written.sizes.size(); ++i)
        text += (i == 0   ? ""
                 : i == 1 ? ", "
                          : " in ") +
                counted(written.sizes[i].second, written.sizes[i].first);
    return text + '\n' + lines("left out", written.losses) + lines("note", written.remarks) +
           closingLine(written.imported.tally(), 1, !options.asIs, styleOfOutput());
}

std::string conversionJson(const Conversion* written, const ConvertOptions& options,
                           const std::optional<Note>& failure) {
    std::vector<Finding> findings;
    if (failure)
        findings.push_back({Finding::Level::kError, failure->code, failure->number, failure->text});
    Json size;
    Json import;
    if (written != nullptr) {
        add(findings, Finding::Level::kWarning, written->losses);
        add(findings, Finding::Level::kNote, written->remarks);
        for (const auto& [name, number] : written->sizes)
            size[name] = number;
        import = asJson(written->imported);
    }
    const Json report = {{"version", kJsonVersion},      {"library", libraryVersion()},
                         {"source", options.source},     {"target", options.target},
                         {"status", statusOf(findings)}, {"written", size},
                         {"findings", asJson(findings)}, {"import", import}};
    // Names may be of any encoding; bytes that are no UTF-8 become replacement characters.
    return report.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace kvocaeio::host
