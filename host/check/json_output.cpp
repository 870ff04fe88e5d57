/// Findings for programs, written while files are checked.
#include <nlohmann/json.hpp>

#include "check/output.h"
#include "json_values.h"
#include "standard_output.h"
#include "version_text.h"

namespace kvocaeio::host {

namespace {

/// Texts may be of any encoding: bytes that are no UTF-8 become replacement characters.
std::string dump(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// A document with a file in each line.
class JsonOutput final : public CheckOutput {
  public:
    JsonOutput() {
        const Json head = {{"version", kJsonVersion}, {"library", libraryVersion()}};
        std::string open = dump(head);
        open.pop_back();
        writeOut(open + ",\"files\":[");
    }

    void add(const CheckedFile& file) override {
        Json json = {{"file", file.name},
                     {"format", file.format.empty() ? Json() : Json(file.format)},
                     {"failed", file.import.failed}};
        json.update(asJson(file.tally));
        Json& counts = json["read"] = Json::object();
        for (const auto& [name, count] : file.import.counts)
            counts[name] = count;
        json["findings"] = asJson(file.import)["findings"];
        writeOut((isFirst_ ? "\n" : ",\n") + dump(json));
        isFirst_ = false;
    }

    void finish(const CheckTotals& totals) override {
        Json tail = asJson(totals.tally);
        tail["failed"] = totals.failed;
        tail["passedOver"] = totals.passedOver;
        writeOut("\n]," + dump(tail).substr(1) + "\n");
    }

  private:
    bool isFirst_ = true;
};

class JsonLinesOutput final : public CheckOutput {
  public:
    void add(const CheckedFile& file) override {
        std::string lines;
        for (const ImportFinding& finding : file.import.findings) {
            Json json = asJson(finding);
            json.erase("advice");
            json.erase("places");
            lines += dump(json) + '\n';
        }
        writeOut(lines);
    }

    void finish(const CheckTotals&) override {}
};

}  // namespace

std::unique_ptr<CheckOutput> jsonOutput() {
    return std::make_unique<JsonOutput>();
}

std::unique_ptr<CheckOutput> jsonLinesOutput() {
    return std::make_unique<JsonLinesOutput>();
}

}  // namespace kvocaeio::host
