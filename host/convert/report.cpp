/// The report as text and as JSON.
#include "convert/report.h"

#include <nlohmann/json.hpp>

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

std::string conversionText(const Conversion& conversion, const ConvertOptions& options) {
    std::string sizes;
    for (const auto& [things, number] : conversion.written)
        sizes += (sizes.empty()          ? ": "
                  : things == "sections" ? " in "
                                         : ", ") +
                 counted(number, things);
    return cleanName(options.target) + sizes + '\n' + lines("left out", conversion.losses) +
           lines("note", conversion.remarks) +
           closingLine(conversion.imported.tally(), 1, !options.asIs, styleOfOutput());
}

std::string conversionJson(const Conversion* conversion, const ConvertOptions& options,
                           const std::optional<Note>& failure) {
    std::vector<Finding> findings;
    if (failure)
        findings.push_back({Finding::Level::kError, failure->code, failure->number, failure->text});
    Json sizes;
    Json import;
    if (conversion != nullptr) {
        add(findings, Finding::Level::kWarning, conversion->losses);
        add(findings, Finding::Level::kNote, conversion->remarks);
        for (const auto& [things, number] : conversion->written)
            sizes[std::string(things)] = number;
        import = asJson(conversion->imported);
    }
    const Json report = {{"version", kJsonVersion},      {"library", libraryVersion()},
                         {"source", options.source},     {"target", options.target},
                         {"status", statusOf(findings)}, {"written", sizes},
                         {"findings", asJson(findings)}, {"import", import}};
    // Names may be of any encoding; bytes that are no UTF-8 become replacement characters.
    return report.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace kvocaeio::host
