/// What a model holds of its file: one class for each family of formats, over the import of its
/// island.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "c/failure.h"
#include "c/mesh_tables.h"
#include "c/progress.h"
#include "report/import_report.h"
#include "text/file.h"

namespace kvocaeio::c_interface {

/// A file to be read, and who listens.
struct Request {
    kvocaeio_options options{};
    std::filesystem::path path;
    bool isTidied = false;  ///< whether that is a tidied deck, with lines of its own
    std::string name;       ///< as the host has given it
    report::ImportReport* report = nullptr;  ///< null where none is wanted
    Progress* progress = nullptr;            ///< null where nobody follows the import

    text::Listener listener() const {
        return {report == nullptr ? nullptr : &report->findings,
                progress == nullptr ? nullptr : &progress->watch, true};
    }
};

/// Tables are null where models of the format have none. They throw `std::bad_alloc` where they are
/// made first.
class Content {
  public:
    Content() = default;
    virtual ~Content() = default;
    Content(const Content&) = delete;
    Content& operator=(const Content&) = delete;

    /// Reads the file. To be called once.
    virtual kvocaeio_status read(const Request& request) = 0;

    virtual MeshTables* mesh() { return nullptr; }
    virtual const kvocaeio_shell_sections* shellSections() { return nullptr; }
    virtual const kvocaeio_nastran_tables* nastranTables() { return nullptr; }
    virtual const kvocaeio_patran_tables* patranTables() { return nullptr; }
    virtual const kvocaeio_patran_values* patranValues() { return nullptr; }
    virtual const kvocaeio_bodies* bodies() { return nullptr; }
    virtual const kvocaeio_wires* wires() { return nullptr; }

    virtual kvocaeio_status normalise(report::ImportReport*) {
        return fail(KVOCAEIO_NO_SUCH_TABLE, "only Abaqus decks can be normalised");
    }
    virtual bool isNormalised() const { return false; }
};

/// Without content; null for a format that is none. Throws `std::bad_alloc`.
std::unique_ptr<Content> makeContent(std::int32_t format);
std::unique_ptr<Content> makeAbaqusContent();
std::unique_ptr<Content> makeNastranContent();
std::unique_ptr<Content> makePatranContent();
std::unique_ptr<Content> make3diContent();
std::unique_ptr<Content> makeCadenceContent();

/// Takes the path that a host gives. Fails for null and for a text that is no path.
kvocaeio_status takePath(const char* path, Request& request);

/// Sets the format of the options to that of the content.
kvocaeio_status recogniseFile(Request& request);

/// Opens the file to be read. Where that fails, `status` is set, and the reason is kept.
text::File openRequested(const Request& request, kvocaeio_status& status);

/// Tells the host that follows the import how much there is to read from here on.
void expectPasses(const Request& request, std::uint64_t passes);

/// Keeps why an import has failed: that the host has stopped it, else the last error that the
/// report has, else `text`. Returns the status, which is `otherwise` unless it was stopped.
kvocaeio_status failImport(const Request& request, kvocaeio_status otherwise,
                           std::string_view text);

/// Runs `audit(report)` where a report is wanted.
template <class Audit>
void auditFor(const Request& request, const Audit& audit) {
    if (request.report != nullptr)
        report::runAudit(*request.report, audit);
}

}  // namespace kvocaeio::c_interface
