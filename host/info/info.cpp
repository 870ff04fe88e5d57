/// The command `kvocaeio info`: one report per file, as text or as JSON.
#include "info/info.h"

#include <iostream>
#include <memory>
#include <new>
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>

#include "file_list.h"
#include "formats.h"
#include "info/page.h"
#include "input_file.h"
#include "json_values.h"
#include "package/design.h"
#include "standard_output.h"
#include "tidy/tidied_deck.h"
#include "version_text.h"

namespace kvocaeio::host {

namespace {

/// What one report is to be made of.
struct Job {
    std::string path;
    enum class Kind { kFile, kDesign, kReports } kind;
};

struct Outcome {
    const Format* format = nullptr;  ///< null where it is not known
    std::unique_ptr<FileReport> report;
    std::vector<Finding> findings;
};

void read(const Job& job, const InfoOptions& options, Outcome& outcome) {
    const PrintTarget progress =
        options.verbose ? PrintTarget::kStandardError : PrintTarget::kNowhere;
    if (job.kind == Job::Kind::kFile) {
        const InputFile file(job.path);
        outcome.format = &findFormatToTidy(file.path(), options.tidy);
        TidiedDeck deck(file.path(), job.path);
        if (options.tidy)
            deck.tidy(*outcome.format);
        deck.requireGood();
        outcome.report = outcome.format->read(deck.path(), progress);
        deck.giveBack(outcome.report->imported);
        deck.restoreNumbers(*outcome.report);
        outcome.report->find(Finding::Level::kNote, "tidied", deck.isTidied() ? 1 : 0,
                             deck.remark());
        return;
    }
    outcome.format = &kCadenceFormat;
    outcome.report =
        job.kind == Job::Kind::kReports
            ? readDesignReports(job.path, progress)
            : readDesign(job.path, {options.tool, options.toolFolder, options.toolTimeout},
                         progress);
}

Outcome outcomeOf(const Job& job, const InfoOptions& options) {
    Outcome outcome;
    try {
        read(job, options, outcome);
        outcome.findings = outcome.report->findings;
    } catch (const std::bad_alloc&) {
        outcome.findings = {
            {Finding::Level::kError, "out-of-memory", 1, "there is not enough memory to read it"}};
    } catch (const FileError& error) {
        outcome.findings = {{Finding::Level::kError, error.code, 1, error.what()}};
    }
    return outcome;
}

class InfoRun {
  public:
    explicit InfoRun(const InfoOptions& options) : options_(options), style_(styleOfOutput()) {
        totals_.isTidied = options.tidy;
    }

    bool run() {
        for (const std::string& path : options_.files)
            addPath(path);
        if (!options_.reportsFolder.empty())
            add({options_.reportsFolder, Job::Kind::kReports});
        finish();
        return totals_.failed == 0;
    }

  private:
    void addPath(const std::string& path) {
        const bool designs = !options_.tool.empty();
        FileList list;
        try {
            list = filesOf(path, designs);
        } catch (const FileError& error) {
            Outcome outcome;
            outcome.findings = {{Finding::Level::kError, error.code, 1, error.what()}};
            show(path, outcome);
            return;
        }
        totals_.passedOver += list.passedOver;
        for (const std::string& file : list.files)
            add({file, designs ? Job::Kind::kDesign : Job::Kind::kFile});
    }

    void add(const Job& job) { show(job.path, outcomeOf(job, options_)); }

    void show(const std::string& path, const Outcome& outcome) {
        totals_.add(outcome.findings);
        if (outcome.report) {
            ++totals_.importedFiles;
            totals_.imported.add(outcome.report->imported.tally());
        }
        for (const Finding& finding : outcome.findings)
            if (finding.level == Finding::Level::kError)
                std::cerr << "kvocaeio: " << shownName(path) << ": " << finding.text << '\n';
        if (options_.json || options_.jsonLines) {
            addJson(path, outcome);
        } else if (outcome.report) {
            std::ostringstream out;
            out << shownName(path) << "\n  " << outcome.format->name << '\n';
            outcome.report->print(out, style_);
            printFindings(out, outcome.findings, style_);
            out << '\n';
            writeOut(out.str());
            hasPrinted_ = true;
        }
    }

    void addJson(const std::string& path, const Outcome& outcome) {
        Json json = options_.jsonLines ? head() : Json::object();
        json["file"] = path;
        json["format"] = outcome.format != nullptr ? Json(outcome.format->code) : Json();
        json["status"] = statusOf(outcome.findings);
        json["findings"] = asJson(outcome.findings);
        if (outcome.report) {
            outcome.report->addTo(json);
            for (const auto& [step, seconds] : outcome.report->seconds())
                json["seconds"][std::string(step)] = seconds;
            json["import"] = asJson(outcome.report->imported);
        }
        if (options_.jsonLines)
            writeJson(json, -1);
        else
            reports_.push_back(std::move(json));
    }

    static Json head() { return {{"version", kJsonVersion}, {"library", libraryVersion()}}; }

    void finish() {
        if (options_.json) {
            Json document = head();
            document["files"] = std::move(reports_);
            document["passedOver"] = totals_.passedOver;
            writeJson(document, 2);
        } else if (hasPrinted_) {
            std::ostringstream out;
            printTotals(out, totals_, style_);
            writeOut(out.str());
        }
    }

    /// Names in a file may be of any encoding: bytes that are no UTF-8 become replacement
    /// characters.
    static void writeJson(const Json& json, int indent) {
        writeOut(json.dump(indent, ' ', false, Json::error_handler_t::replace) + "\n");
    }

    const InfoOptions& options_;
    PageStyle style_;
    Totals totals_;
    Json reports_ = Json::array();
    bool hasPrinted_ = false;
};

}  // namespace

bool runInfo(const InfoOptions& options) {
    return InfoRun(options).run();
}

}  // namespace kvocaeio::host
