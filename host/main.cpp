/// The command line of `kvocaeio`, the sample host: it uses the library through its public headers
/// only, as any host would.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>

#include "convert/convert.h"
#include "info/info.h"
#include "manual/command.h"
#include "platform.h"
#include <kvocaeio/export.h>

namespace {

constexpr int kFailed = 1;
constexpr int kWrongCommandLine = 2;

std::string versionText() {
    return "kvocaeio " + std::to_string(KVOCAEIO_VERSION_MAJOR) + "." +
           std::to_string(KVOCAEIO_VERSION_MINOR) + "." + std::to_string(KVOCAEIO_VERSION_PATCH);
}

using kvocaeio::host::ConvertOptions;
using kvocaeio::host::InfoOptions;

void addInfo(CLI::App& app, InfoOptions& options) {
    CLI::App* info = app.add_subcommand("info", "Says what each FILE holds.");
    info->add_option("FILE", options.files,
                     "Files to read: Abaqus input decks, Nastran decks, Patran neutral files, 3DI "
                     "packages; with --tool Cadence designs.");
    info->add_flag("--json", options.json, "Write one JSON document, for programs.");
    info->add_flag("--verbose", options.verbose,
                   "Show the library's progress lines, on standard error; else they are hidden.");
    CLI::Option* tool = info->add_option("--tool", options.tool,
                                         "Extraction tool that opens each FILE, a Cadence design.");
    CLI::Option* folder = info->add_option(
        "--temp", options.toolFolder,
        "Folder for the tool's command files and reports, which replace older ones.");
    tool->needs(folder);
    folder->needs(tool);
    info->add_option("--reports", options.reportsFolder,
                     "Folder with the reports that a tool has left of a Cadence design.");
    info->callback([&options] {
        if (options.files.empty() && options.reportsFolder.empty())
            throw CLI::RequiredError("FILE");
    });
}

CLI::App* addConvert(CLI::App& app, ConvertOptions& options) {
    CLI::App* convert = app.add_subcommand("convert", "Writes the solids of IN as OUT.");
    convert->add_option("IN", options.source, "An Abaqus input deck or a Patran neutral file.")
        ->required();
    convert
        ->add_option("OUT", options.target,
                     "A Nastran deck (.nas, .bdf) or a Patran neutral file (.pat).")
        ->required();
    convert
        ->add_option("--unit", options.unit,
                     "Length unit that the header of a Nastran deck names: m, mm, cm or inch.")
        ->capture_default_str();
    convert->add_flag("--verbose", options.verbose,
                      "Show the library's progress lines, on standard error.");
    return convert;
}

int run(int argc, char** argv) {
    CLI::App app("Opens the files of other engineering tools and says what they hold.", "kvocaeio");
    app.set_version_flag("--version", versionText());
    app.allow_windows_style_options(false);  // a path may begin with a slash
    app.require_subcommand(1);
    app.footer(
        "Reports go to standard output, messages to standard error.\n"
        "Exit code: 0 all files were read or written, 1 a file failed, 2 the command line is "
        "wrong.");
    InfoOptions infoOptions;
    addInfo(app, infoOptions);
    ConvertOptions convertOptions;
    const CLI::App* convert = addConvert(app, convertOptions);
    kvocaeio::host::addManual(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kWrongCommandLine;
    }
    if (convert->parsed()) {
        kvocaeio::host::runConvert(convertOptions);
        return 0;
    }
    return kvocaeio::host::runInfo(infoOptions) ? 0 : kFailed;
}

}  // namespace

int main(int argc, char** argv) {
    kvocaeio::host::holdStandardStreams();
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "kvocaeio: " << error.what() << '\n';
        return kFailed;
    }
}
