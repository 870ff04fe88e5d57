/// The temporary deck, and what of its reading is told.
#include "tidy/tidied_deck.h"

#include <algorithm>
#include <array>
#include <utility>

#include "file_report.h"
#include "file_system.h"
#include "formats.h"
#include "solid_mesh.h"
#include "tidy/original_oids.h"

namespace kvocaeio::host {

namespace {

constexpr std::string_view kNotWritten = "tidy.output-failed";

/// Findings of imports that say what tidy has said with a place in the original.
constexpr std::array<std::pair<std::string_view, std::string_view>, 2> kToldByTidy = {{
    {"abaqus.set-shadows-block", "tidy.abaqus-set-of-block"},
    {"nastran.shell-empty", "tidy.nastran-shell"},
}};

bool isTold(const ImportFinding& finding, const ImportFindings& byTidy) {
    const ImportFinding::Place& first = finding.places.front();
    // How the tidy deck is written is no matter of the user's.
    if (finding.level == Level::kNote && first.line != 0)
        return true;
    return std::ranges::any_of(kToldByTidy, [&](const auto& codes) {
        return codes.first == finding.code &&
               std::ranges::find(byTidy.findings, codes.second, &ImportFinding::code) !=
                   byTidy.findings.end();
    });
}

}  // namespace

const Format& findFormatToTidy(const std::string& path, bool isToBeTidied) {
    const Format& format = findFormat(path, isToBeTidied ? MarkRule::kAccept : MarkRule::kRefuse);
    if (isToBeTidied && format.tidyFormat == CKVODeckTidy::kRecognise)
        return findFormat(path);
    return format;
}

void TidiedDeck::tidy(const Format& format) {
    if (format.tidyFormat == CKVODeckTidy::kRecognise)
        return;
    write(format.tidyFormat);
    if (run_.failureCode == kNotWritten) {  // which matters only where the deck needs it
        TidyRun look = runTidy(tidy_, path_, name_, "", format.tidyFormat);
        if (look.good && tidy_.IsNeeded())
            throw FileError("cannot be tidied in a temporary file: " + run_.failure,
                            "cannot-be-written");
        run_ = std::move(look);
    }
    if (run_.good && tidy_.IsNeeded()) {
        path_ = file_->path();
        return;
    }
    file_.reset();
    folder_.reset();
    if (run_.good)
        run_.findings = {};  // the import of the original tells the same
}

void TidiedDeck::write(int format) {
    try {
        // In a folder of its own, so that nobody else may read what is written there.
        folder_ = std::make_unique<TemporaryPath>(TemporaryPath::Kind::kFolder, temporaryFolder());
        file_ = std::make_unique<TemporaryPath>(folder_->path() + "/deck");
        run_ = runTidy(tidy_, path_, name_, file_->path(), format);
    } catch (const FileError& error) {
        run_ = {false, {}, std::string(kNotWritten), error.what()};
    }
}

void TidiedDeck::requireGood(const std::string& advice) const {
    if (failed())
        throw FileError("cannot be tidied: " + run_.failure + advice, "not-tidied");
}

std::string TidiedDeck::remark() const {
    const std::string findings = asText(run_.findings.tally());
    return "tidied before it was read" +
           (findings.empty() ? "" : ": " + findings + "; kvocaeio check --tidy lists them");
}

void TidiedDeck::giveBack(ImportFindings& import) {
    if (!isTidied()) {
        import.rename(path_, name_);
        return;
    }
    std::erase_if(import.findings,
                  [&](const ImportFinding& finding) { return isTold(finding, run_.findings); });
    if (!import.findings.empty()) {
        const OriginalOids oids(tidy_);
        for (ImportFinding& finding : import.findings) {
            finding.file = name_;
            finding.text = oids.translated(finding.text);
            for (auto& [line, column, text] : finding.places) {
                line = 0;
                column = 0;
                text = oids.translated(text);
            }
        }
    }
    import.findings.insert(import.findings.begin(), run_.findings.findings.begin(),
                           run_.findings.findings.end());
}

void TidiedDeck::restoreNumbers(FileReport& report) {
    if (isTidied())
        report.restoreNumbers(OriginalOids(tidy_));
}

void TidiedDeck::restoreOids(SolidMesh& mesh) {
    if (!isTidied())
        return;
    const OriginalOids originals(tidy_);
    const auto remark = [&](const std::string& things, std::size_t number) {
        mesh.remarks.push_back({things + "-of-several-parts", number,
                                things + " are numbered anew: parts of the source number theirs "
                                         "alike"});
    };
    if (!originals.restoreNodes(mesh.nodeOids))
        remark("nodes", mesh.nodeOids.size());
    std::vector<int> oids;
    for (const SolidMesh::Element& element : mesh.elements)
        oids.push_back(element.oid);
    if (oids.empty() || oids.front() == 0)  // the normalised mesh has none
        return;
    if (!originals.restoreElements(oids))
        remark("elements", oids.size());
    for (std::size_t row = 0; row < oids.size(); ++row)
        mesh.elements[row].oid = oids[row];
}

}  // namespace kvocaeio::host
