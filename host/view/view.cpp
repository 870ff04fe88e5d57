/// The road from a file to a page and a picture.
#include "view/view.h"

#include <algorithm>
#include <charconv>
#include <iostream>
#include <new>
#include <nlohmann/json.hpp>
#include <optional>

#include "clean_name.h"
#include "counted.h"
#include "file_system.h"
#include "formats.h"
#include "info/page.h"
#include "input_file.h"
#include "json_values.h"
#include "mesh/load.h"
#include "progress_line.h"
#include "replacement_file.h"
#include "tidy/tidied_deck.h"
#include "version_text.h"
#include "view/page.h"
#include "view/page_data.h"
#include "view/picture.h"

namespace kvocaeio::host {

namespace {

/// What a page shows, for the report.
struct Shown {
    Json sizes;
    std::string text;
    ImportFindings imported;
    std::vector<Note> losses;
    std::vector<Note> remarks;
};

struct ViewFailure {
    std::string file;
    std::string what;
    std::string_view code;
};

Json startOf(const ViewOptions& options) {
    Json start = {{"view", options.view}};
    const auto add = [&start](const char* name, const std::string& value) {
        if (!value.empty())
            start[name] = value;
    };
    add("finding", options.finding);
    add("cut", options.cut);
    add("theme", options.theme);
    if (options.stretch != 1.0)
        start["stretch"] = options.stretch;
    if (options.parallel)
        start["projection"] = "parallel";
    if (options.edges)
        start["edges"] = "all";
    return start;
}

/// The last part of a path.
std::string titleOf(const std::string& source) {
    return source == kStandardInput ? "standard input" : source.substr(folderLength(source));
}

/// Which finding is to be marked must be there.
void requireFinding(const ViewOptions& options, const ImportFindings& imported) {
    if (!options.finding.empty() && imported.countOf(options.finding) == 0)
        throw FileError("has no finding " + cleanName(options.finding), "no-such-finding");
}

/// Writes the page as often as it is wanted: for itself, and for a browser that draws it.
template <class WritePage>
void writeFiles(const ViewOptions& options, const WritePage& writePage) {
    std::optional<ReplacementFile> page;
    if (!options.page.empty()) {
        page.emplace(options.page);
        const ProgressLine line("writing");
        writePage(page->path());
    }
    if (!options.picture.empty())
        drawPicture(writePage, options.picture,
                    {options.browser, options.size, options.toolTimeout});
    if (page)
        page->finish();
}

Shown showMesh(Mesh mesh, const PageHead& head, const ViewOptions& options) {
    requireFinding(options, mesh.imported);
    PageSize size;
    writeFiles(options, [&](const std::string& path) { size = writePage(mesh, head, path); });
    return {{{"nodes", mesh.nodes()},
             {"elements", mesh.elements()},
             {"faces", size.faces},
             {"markedFindings", size.marked}},
            counted(mesh.nodes(), "nodes") + ", " + counted(mesh.elements(), "elements") + ", " +
                counted(size.faces, "faces at the surface"),
            std::move(mesh.imported),
            std::move(mesh.losses),
            std::move(mesh.remarks)};
}

Shown showPackage(PackageScene scene, const PageHead& head, const ViewOptions& options) {
    requireFinding(options, scene.imported);
    writeFiles(options, [&](const std::string& path) { writePage(scene, head, path); });
    return {{{"bodies", scene.bodies.size()}, {"wires", scene.wires.size()}},
            counted(scene.bodies.size(), "bodies") + ", " + counted(scene.wires.size(), "wires"),
            std::move(scene.imported),
            std::move(scene.losses),
            std::move(scene.remarks)};
}

Shown show(const InputFile& source, const ViewOptions& options) {
    const Format& format = findFormatToTidy(source.path(), !options.asIs);
    const PageHead head{titleOf(options.source), std::string(format.name), startOf(options)};
    // What is wrong with the file is on the page, and no reason not to look at it.
    const LoadOptions load{options.normalised, true, options.asIs, options.verbose, true};
    return format.takeScene != nullptr
               ? showPackage(loadScene(source, options.source, format, load), head, options)
               : showMesh(loadMesh(source, options.source, format, load), head, options);
}

void refuseSameFile(const InputFile& source, const std::string& target) {
    if (!target.empty() && source.identity() && source.identity() == identityOf(target))
        throw FileError("cannot be written: it is the file that is read", "same-file");
}

std::optional<ViewFailure> attempt(const ViewOptions& options, std::optional<Shown>& shown) {
    try {
        if (viewPage().empty())
            throw FileError(
                "cannot be shown: this program was built without the page, which takes npm",
                "no-page");
        const InputFile source(options.source);
        refuseSameFile(source, options.page);
        refuseSameFile(source, options.picture);
        shown = show(source, options);
    } catch (const FileError& error) {
        return ViewFailure{shownName(options.source), error.what(), error.code};
    } catch (const std::bad_alloc&) {
        return ViewFailure{shownName(options.source), "there is not enough memory for it",
                           "out-of-memory"};
    }
    return std::nullopt;
}

std::string textOf(const Shown& shown, const ViewOptions& options) {
    std::string text;
    for (const std::string& target : {options.page, options.picture})
        if (!target.empty())
            text += cleanName(target) + ": " + shown.text + '\n';
    for (const Note& note : shown.losses)
        text += "  left out: " + cleanName(note.text) + '\n';
    for (const Note& note : shown.remarks)
        text += "  note: " + cleanName(note.text) + '\n';
    return text + closingLine(shown.imported.tally(), 1, !options.asIs, styleOfOutput());
}

std::string jsonOf(const std::optional<Shown>& shown, const ViewOptions& options,
                   const std::optional<ViewFailure>& failure) {
    std::vector<Finding> findings;
    if (failure)
        findings.push_back({Finding::Level::kError, failure->code, 1, failure->what});
    if (shown) {
        for (const Note& note : shown->losses)
            findings.push_back({Finding::Level::kWarning, note.code, note.number, note.text});
        for (const Note& note : shown->remarks)
            findings.push_back({Finding::Level::kNote, note.code, note.number, note.text});
    }
    const auto nameOrNull = [](const std::string& name) {
        return name.empty() ? Json() : Json(name);
    };
    const Json report = {{"version", kJsonVersion},
                         {"library", libraryVersion()},
                         {"source", options.source},
                         {"page", nameOrNull(options.page)},
                         {"picture", nameOrNull(options.picture)},
                         {"status", statusOf(findings)},
                         {"shown", shown ? shown->sizes : Json()},
                         {"findings", asJson(findings)},
                         {"import", shown ? asJson(shown->imported) : Json()}};
    // Names may be of any encoding; bytes that are no UTF-8 become replacement characters.
    return report.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

/// The number that `text` is as a whole; -1 where it is none.
double numberIn(std::string_view text) {
    double number = -1.0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && rest == end ? number : -1.0;
}

}  // namespace

std::string faultOfCut(const std::string& cut) {
    const bool isAxis = !cut.empty() && std::string_view("xyz").find(cut[0]) != cut.npos;
    const double place = cut.size() == 1 ? 0.5 : numberIn(std::string_view(cut).substr(2));
    if (isAxis && (cut.size() == 1 || cut[1] == ':') && place >= 0.0 && place <= 1.0)
        return "";
    return "must be x, y or z, with a place from 0 to 1 after a colon: z:0.25";
}

std::string faultOfSize(const std::string& size) {
    const std::size_t at = std::min(size.find('x'), size.size());
    const auto isSide = [](std::string_view text) {
        const double side = text.find_first_not_of("0123456789") == text.npos ? numberIn(text) : 0;
        return side >= 64 && side <= 8192;
    };
    if (at < size.size() && isSide(std::string_view(size).substr(0, at)) &&
        isSide(std::string_view(size).substr(at + 1)))
        return "";
    return "must be two numbers from 64 to 8192: 1200x800";
}

bool runView(const ViewOptions& options) {
    std::optional<Shown> shown;
    const std::optional<ViewFailure> failure = attempt(options, shown);
    if (failure)
        std::cerr << "kvocaeio: " << failure->file << ": " << failure->what << '\n';
    if (options.json)
        std::cout << jsonOf(shown, options, failure);
    else if (shown && !options.quiet)
        std::cout << textOf(*shown, options);
    if (!std::cout.flush())
        throw std::runtime_error("the report cannot be written to standard output");
    return !failure;
}

}  // namespace kvocaeio::host
