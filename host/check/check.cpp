/// The walk of `kvocaeio check` over its files.
#include "check/check.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <new>

#include "check/output.h"
#include "file_list.h"
#include "formats.h"
#include "input_file.h"
#include "package/design.h"
#include "tidy/tidied_deck.h"
#include <kvocaeio/report.h>

namespace kvocaeio::host {

namespace {

constexpr int kCannotBeRead = 3;

std::unique_ptr<CheckOutput> outputFor(const CheckOptions& options) {
    if (options.json)
        return jsonOutput();
    if (options.jsonLines)
        return jsonLinesOutput();
    return options.sarif ? sarifOutput() : textOutput(options.brief);
}

Level levelOf(const std::string& name) {
    for (const Level level : {Level::kWarning, Level::kError})
        if (nameOf(level) == name)
            return level;
    return Level::kNote;
}

class CheckRun {
  public:
    explicit CheckRun(const CheckOptions& options)
        : output_(outputFor(options)),
          leastLevel_(levelOf(options.minSeverity)),
          tidies_(options.tidy),
          progress_(options.verbose ? PrintTarget::kStandardError : PrintTarget::kNowhere) {}

    void addPath(const std::string& path) {
        FileList list;
        CheckedFile checked{path, {}, {}, {}};
        if (!attempt(checked, [&] { list = filesOf(path, false); }))
            show(checked);
        totals_.passedOver += list.passedOver;
        for (const std::string& file : list.files)
            addFile(file);
    }

    void addReports(const std::string& folder) {
        CheckedFile checked{folder, kCadenceFormat.code, {}, {}};
        attempt(checked, [&] { checked.import = checkDesignReports(folder, progress_, report_); });
        show(checked);
    }

    int finish() {
        output_->finish(totals_);
        if (totals_.failed != 0)
            return kCannotBeRead;
        if (totals_.tally.of(Level::kError) != 0)
            return 2;
        return totals_.tally.of(Level::kWarning) != 0 ? 1 : 0;
    }

  private:
    void addFile(const std::string& path) {
        CheckedFile checked{path, {}, {}, {}};
        attempt(checked, [&] {
            const InputFile file(path);
            // What a byte order mark hides is a finding of the import.
            const Format& format = findFormat(file.path(), MarkRule::kAccept);
            checked.format = format.code;
            TidiedDeck deck(file.path(), checked.name);
            if (tidies_)
                deck.tidy(format);
            if (deck.failed()) {
                checked.import = deck.findings();
                return;
            }
            checked.import = format.check(deck.path(), progress_, report_);
            deck.giveBack(checked.import);
        });
        show(checked);
    }

    /// Runs a step for a file; false, with a finding, where something stops it.
    template <class Step>
    bool attempt(CheckedFile& checked, const Step& step) {
        try {
            step();
            return true;
        } catch (const FileError& error) {
            const bool isOfSystem = error.code == "cannot-be-read";
            checked.import.add(Level::kError,
                               "file." + std::string(isOfSystem ? "cannot-open" : error.code),
                               error.what(), checked.name);
        } catch (const std::bad_alloc&) {
            checked.import = {};
            checked.import.add(Level::kError, "file.out-of-memory",
                               "there is not enough memory to read it", checked.name);
        }
        checked.import.failed = true;
        return false;
    }

    void show(CheckedFile& checked) {
        ImportFindings& import = checked.import;
        if (import.failed && import.firstError() == nullptr)
            import.add(Level::kError, "file.not-imported", "the import failed", checked.name);
        checked.tally = import.tally();
        ++totals_.files;
        totals_.failed += import.failed ? 1u : 0u;
        totals_.tally.add(checked.tally);
        for (const auto& [name, count] : import.counts)
            totals_.countOf(name) += count;
        std::erase_if(import.findings, [&](const ImportFinding& finding) {
            const bool isHidden = finding.level < leastLevel_;
            if (isHidden)
                totals_.hidden.add(finding.level);
            return isHidden;
        });
        import.sort();
        output_->add(checked);
    }

    std::unique_ptr<CheckOutput> output_;
    Level leastLevel_;
    bool tidies_;
    PrintTarget progress_;
    CKVOImportReport report_;
    CheckTotals totals_;
};

}  // namespace

int runCheck(const CheckOptions& options) {
    try {
        CheckRun run(options);
        for (const std::string& path : options.files)
            run.addPath(path);
        if (!options.reportsFolder.empty())
            run.addReports(options.reportsFolder);
        return run.finish();
    } catch (const std::exception& error) {
        std::cerr << "kvocaeio: " << error.what() << '\n';
        return kCannotBeRead;
    }
}

}  // namespace kvocaeio::host
