/// Findings in the Static Analysis Results Interchange Format, version 2.1.0.
#include <algorithm>
#include <nlohmann/json.hpp>
#include <vector>

#include "check/more.h"
#include "check/output.h"
#include "check/uri.h"
#include "standard_output.h"
#include "version_text.h"

namespace kvocaeio::host {

namespace {

Json locationOf(const ImportFinding& finding, const ImportFinding::Place& place) {
    Json physical = {{"artifactLocation", {{"uri", uriOf(finding.file, kIsWindows)}}}};
    if (place.line != 0)
        physical["region"] = {{"startLine", place.line}};
    if (place.line != 0 && place.column != 0)
        physical["region"]["startColumn"] = place.column;
    return {{"physicalLocation", std::move(physical)}};
}

/// The rules come last in the document: they are known when all results are written.
class SarifOutput final : public CheckOutput {
  public:
    SarifOutput() {
        writeOut(
            "{\"version\":\"2.1.0\",\"$schema\":\"https://json.schemastore.org/sarif-2.1.0.json\","
            "\"runs\":[{\"results\":[");
    }

    void add(const CheckedFile& file) override {
        std::string lines;
        for (const ImportFinding& finding : file.import.findings) {
            lines += (isFirst_ ? "\n" : ",\n") + dump(resultOf(finding));
            isFirst_ = false;
        }
        writeOut(lines);
    }

    void finish(const CheckTotals& totals) override {
        Json rules = Json::array();
        for (const Rule& rule : rules_)
            rules.push_back(asJson(rule));
        const Json tool = {
            {"driver",
             {{"name", "kvocaeio"}, {"version", libraryVersion()}, {"rules", std::move(rules)}}}};
        const Json invocations = {{{"executionSuccessful", totals.failed == 0}}};
        writeOut("\n],\"tool\":" + dump(tool) + ",\"invocations\":" + dump(invocations) +
                 ",\"columnKind\":\"utf16CodeUnits\"}]}\n");
    }

  private:
    struct Rule {
        std::string code;
        std::string advice;
        Level level;
    };

    static std::string dump(const Json& json) {
        return json.dump(-1, ' ', false, Json::error_handler_t::replace);
    }

    static Json asJson(const Rule& rule) {
        // "nastran.exponent-torn" in words
        const std::size_t point = std::min(rule.code.find('.'), rule.code.size() - 1);
        std::string words = rule.code.substr(point + 1) + " (" + rule.code.substr(0, point) + ")";
        std::ranges::replace(words, '-', ' ');
        Json json = {{"id", rule.code}, {"shortDescription", {{"text", words}}}};
        if (!rule.advice.empty())
            json["help"] = {{"text", rule.advice}};
        json["defaultConfiguration"] = {{"level", nameOf(rule.level)}};
        return json;
    }

    std::size_t ruleOf(const ImportFinding& finding) {
        const auto rule = std::ranges::find(rules_, finding.code, &Rule::code);
        const auto index = static_cast<std::size_t>(rule - rules_.begin());
        if (rule == rules_.end())
            rules_.push_back({finding.code, finding.advice, finding.level});
        return index;
    }

    Json resultOf(const ImportFinding& finding) {
        Json result = {{"ruleId", finding.code},
                       {"ruleIndex", ruleOf(finding)},
                       {"level", nameOf(finding.level)},
                       {"message", {{"text", finding.text + moreOf(finding)}}},
                       {"locations", {locationOf(finding, finding.places.front())}},
                       {"occurrenceCount", finding.count}};
        for (std::size_t i = 1; i < finding.places.size(); ++i)
            if (finding.places[i].line != 0)
                result["relatedLocations"].push_back(locationOf(finding, finding.places[i]));
        return result;
    }

    std::vector<Rule> rules_;
    bool isFirst_ = true;
};

}  // namespace

std::unique_ptr<CheckOutput> sarifOutput() {
    return std::make_unique<SarifOutput>();
}

}  // namespace kvocaeio::host
