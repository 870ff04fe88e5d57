/// The command line of `kvocaeio`, the sample host: it uses the library through its public headers
/// only, as any host would.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>

#include "info.h"
#include "platform.h"
#include <kvocaeio/export.h>

namespace {

constexpr int kFailed = 1;
constexpr int kWrongCommandLine = 2;

std::string versionText() {
    return "kvocaeio " + std::to_string(KVOCAEIO_VERSION_MAJOR) + "." +
           std::to_string(KVOCAEIO_VERSION_MINOR) + "." + std::to_string(KVOCAEIO_VERSION_PATCH);
}

int run(int argc, char** argv) {
    CLI::App app("Opens the files of other engineering tools and says what they hold.", "kvocaeio");
    app.set_version_flag("--version", versionText());
    app.allow_windows_style_options(false);  // a path may begin with a slash
    app.require_subcommand(1);
    app.footer(
        "Reports go to standard output, messages to standard error.\n"
        "Exit code: 0 all files were read, 1 a file failed, 2 the command line is wrong.");

    kvocaeio::host::InfoOptions options;
    CLI::App* info = app.add_subcommand("info", "Says what each FILE holds.");
    info->add_option("FILE", options.files, "Files to read: Abaqus input decks.")->required();
    info->add_flag("--json", options.json, "Write one JSON document, for programs.");
    info->add_flag("--verbose", options.verbose,
                   "Show the library's progress lines, on standard error; else they are hidden.");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kWrongCommandLine;
    }
    return kvocaeio::host::runInfo(options) ? 0 : kFailed;
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
