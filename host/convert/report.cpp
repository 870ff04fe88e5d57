/// The report as text and as JSON.
#include "convert/report.h"

#include <nlohmann/json.hpp>

#include "clean_name.h"
#include "counted.h"
#include "file_report.h"

namespace kvocaeio::host {

namespace {

constexpr int kLayoutVersion = 1;

Json asJson(const std::vector<Note>& notes) {
    Json array = Json::array();
    for (const Note& note : notes) {
        array.push_back({{"code", note.code}, {"text", note.text}});
        if (note.number != 0)
            array.back()["count"] = note.number;
    }
    return array;
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
                           const std::string& failure) {
    Json report = {{"version", kLayoutVersion},
                   {"source", options.source},
                   {"target", options.target},
                   {"written", mesh != nullptr}};
    if (mesh != nullptr) {
        report["nodes"] = mesh->nodes.size();
        report["elements"] = mesh->elements.size();
        report["sections"] = mesh->sections.size();
        report["leftOut"] = asJson(mesh->losses);
        report["notes"] = asJson(mesh->remarks);
    }
    if (!failure.empty())
        report["error"] = failure;
    // Names may be of any encoding; bytes that are no UTF-8 become replacement characters.
    return report.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace kvocaeio::host
