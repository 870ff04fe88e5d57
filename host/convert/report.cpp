/// The report as text and as JSON.
#include "convert/report.h"

#include <nlohmann/json.hpp>

#include "clean_name.h"
#include "counted.h"
#include "file_report.h"
#include "version_text.h"

namespace kvocaeio::host {

namespace {

constexpr int kJsonVersion = 1;

void add(Json& findings, const char* level, const Note& note) {
    findings.push_back(
        {{"level", level}, {"code", note.code}, {"count", note.number}, {"text", note.text}});
}

std::string lines(const char* kind, const std::vector<Note>& notes) {
    std::string text;
    for (const Note& note : notes)
        text += std::string("  ") + kind + ": " + cleanName(note.text) + '\n';
    return text;
}

}  // namespace

std::string conversionText(const SolidMesh& mesh, const ConvertOptions& options) {
    return cleanName(options.target) + ": " + counted(mesh.nodes.size(), "nodes") + ", " +
           counted(mesh.elements.size(), "elements") + " in " +
           counted(mesh.sections.size(), "sections") + '\n' + lines("left out", mesh.losses) +
           lines("note", mesh.remarks);
}

std::string conversionJson(const SolidMesh* mesh, const ConvertOptions& options,
                           const std::optional<Note>& failure) {
    Json findings = Json::array();
    if (failure)
        add(findings, "error", *failure);
    Json size;
    if (mesh != nullptr) {
        for (const Note& loss : mesh->losses)
            add(findings, "warning", loss);
        for (const Note& remark : mesh->remarks)
            add(findings, "note", remark);
        size = {{"nodes", mesh->nodes.size()},
                {"elements", mesh->elements.size()},
                {"sections", mesh->sections.size()}};
    }
    const bool lost = mesh != nullptr && !mesh->losses.empty();
    const Json report = {{"version", kJsonVersion},
                         {"library", libraryVersion()},
                         {"source", options.source},
                         {"target", options.target},
                         {"status", failure ? "failed"
                                    : lost  ? "warnings"
                                            : "ok"},
                         {"written", size},
                         {"findings", std::move(findings)}};
    // Names may be of any encoding; bytes that are no UTF-8 become replacement characters.
    return report.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace kvocaeio::host
