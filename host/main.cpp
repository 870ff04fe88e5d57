/// The command line of `kvocaeio`, the sample host: it uses the library through its public headers
/// only, as any host would.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "check/check.h"
#include "clean_name.h"
#include "convert/convert.h"
#include "info/info.h"
#include "manual/command.h"
#include "platform.h"
#include "tidy/tidy.h"
#include "tool_run.h"
#include "version_text.h"
#include "view/view.h"

namespace {

constexpr int kFailed = 1;
constexpr int kWrongCommandLine = 2;
const char* const kCommandsTitle = "Commands";

using kvocaeio::host::CheckOptions;
using kvocaeio::host::ConvertOptions;
using kvocaeio::host::InfoOptions;
using kvocaeio::host::TidyOptions;
using kvocaeio::host::ViewOptions;

void addTidyFlag(CLI::App& command, bool& isWanted) {
    command.add_flag("--tidy", isWanted,
                     "Tidy Abaqus and Nastran decks, as the command tidy does, before they are "
                     "read; places are those of the originals.");
}

void addInfo(CLI::App& app, InfoOptions& options) {
    CLI::App* info =
        app.add_subcommand("info", "Says what each FILE holds.")->group(kCommandsTitle);
    info->add_option("FILE", options.files,
                     "Files to read: Abaqus input decks, Nastran decks, Patran neutral files, 3DI "
                     "packages; with --tool Cadence designs. Of a folder, all such files in it.");
    CLI::Option* json =
        info->add_flag("--json", options.json, "Write one JSON document, for programs.");
    info->add_flag("--json-lines", options.jsonLines,
                   "Write a JSON document for each file, in a line of its own.")
        ->excludes(json);
    info->add_flag("--verbose", options.verbose,
                   "Show the library's progress lines, on standard error; else they are hidden.");
    addTidyFlag(*info, options.tidy);
    CLI::Option* tool = info->add_option("--tool", options.tool,
                                         "Extraction tool that opens each FILE, a Cadence design.")
                            ->type_name("TOOL");
    CLI::Option* folder =
        info->add_option(
                "--temp", options.toolFolder,
                "Folder for the tool's command files and reports, which replace older ones.")
            ->type_name("FOLDER");
    info->add_option("--tool-timeout", options.toolTimeout,
                     "Seconds after which the tool is ended with all that it has started.")
        ->type_name("SECONDS")
        ->check(CLI::PositiveNumber)
        ->needs(tool)
        ->capture_default_str();
    tool->needs(folder);
    folder->needs(tool);
    info->add_option("--reports", options.reportsFolder,
                     "Folder with the reports that a tool has left of a Cadence design.")
        ->type_name("FOLDER");
    info->callback([&options] {
        if (options.files.empty() && options.reportsFolder.empty())
            throw CLI::RequiredError("FILE");
    });
}

CLI::App* addCheck(CLI::App& app, CheckOptions& options) {
    CLI::App* check =
        app.add_subcommand("check", "Says what of each FILE is lost or changed when it is read.");
    check->add_option("FILE", options.files,
                      "Files to read: Abaqus input decks, Nastran decks, Patran neutral files, 3DI "
                      "packages. Of a folder, all such files in it.");
    CLI::Option* json =
        check->add_flag("--json", options.json, "Write one JSON document, for programs.");
    CLI::Option* jsonLines =
        check
            ->add_flag("--json-lines", options.jsonLines,
                       "Write a JSON object for each finding, in a line of its own.")
            ->excludes(json);
    check->add_flag("--sarif", options.sarif, "Write one SARIF 2.1.0 document, for programs.")
        ->excludes(json)
        ->excludes(jsonLines);
    check
        ->add_option("--min-severity", options.minSeverity,
                     "List the findings of this severity and above; the exit code does not change.")
        ->check(CLI::IsMember({"note", "warning", "error"}))
        ->capture_default_str();
    addTidyFlag(*check, options.tidy);
    check->add_flag("--brief", options.brief, "Leave out what to do about the findings.");
    check->add_flag("--verbose", options.verbose,
                    "Show the library's progress lines, on standard error; else they are hidden.");
    check->add_option("--reports", options.reportsFolder,
                      "Folder with the reports that a tool has left of a Cadence design.");
    check->footer(
        "A line for each finding: FILE:LINE:COLUMN: SEVERITY: TEXT [CODE]\n"
        "Exit code: 0 no findings, or notes alone; 1 warnings; 2 errors, or a wrong command line; "
        "3 a file could not be read.");
    check->callback([&options] {
        if (options.files.empty() && options.reportsFolder.empty())
            throw CLI::RequiredError("FILE");
    });
    return check;
}

CLI::App* addConvert(CLI::App& app, ConvertOptions& options) {
    CLI::App* convert =
        app.add_subcommand("convert", "Writes the mesh or the package of IN as OUT.")
            ->group(kCommandsTitle);
    convert
        ->add_option(
            "IN", options.source,
            "An Abaqus input deck, a Nastran deck, a Patran neutral file or a 3DI package; - is "
            "standard input. Of a Cadence design the folder with the reports that a tool has left.")
        ->required();
    convert
        ->add_option(
            "OUT", options.target,
            "The file to write, of the kind that its name ends with: an Abaqus deck (.inp), a "
            "Nastran deck (.nas, .bdf), a Patran neutral file (.pat), a VTK file (.vtu, of a "
            "package .vtp) or a binary glTF file (.glb).")
        ->required();
    convert
        ->add_option("--unit", options.unit,
                     "Length unit that the file names; coordinates stay as they are.")
        ->check(CLI::IsMember(kvocaeio::host::kLengthUnits))
        ->default_str(kvocaeio::host::kUsualLengthUnit);
    convert
        ->add_option_function<std::string>(
            "--nastran",
            [&options](const std::string& form) { options.wideNastran = form == "wide"; },
            "Form of a Nastran deck: plain, as the library writes solids, or wide, all elements "
            "in fixed fields, coordinates in fields of sixteen columns.")
        ->type_name("FORM")
        ->check(CLI::IsMember({"plain", "wide"}));
    convert->add_option("--scale", options.scale, "Multiply all coordinates by this number.")
        ->type_name("FACTOR")
        ->check(CLI::PositiveNumber);
    convert->add_flag("--compress", options.compress, "Compress the arrays of a VTK file.");
    convert->add_flag("--normalised", options.normalised,
                      "Take the normalised mesh of an Abaqus deck instead of the elements that it "
                      "lists.");
    convert->add_flag("--force", options.force,
                      "Write although the import has errors, or the source defines OIDs more than "
                      "once with different content.");
    convert->add_flag("--strict", options.strict,
                      "Exit code 1 when anything of the source was left out.");
    CLI::Option* asIs = convert->add_flag("--as-is", options.asIs,
                                          "Read a deck as it is, without tidying it first.");
    convert->add_flag("--tidy")
        ->description(
            "Tidy an Abaqus deck before it is read, where it needs that; so it is done "
            "unless --as-is is given.")
        ->excludes(asIs);
    CLI::Option* json =
        convert->add_flag("--json", options.json, "Report as a JSON document, for programs.");
    convert->add_flag("--quiet", options.quiet, "Write no report; failures are still told.")
        ->excludes(json);
    convert->add_flag("--verbose", options.verbose,
                      "Show the library's progress lines, on standard error.");
    return convert;
}

CLI::App* addTidy(CLI::App& app, TidyOptions& options) {
    CLI::App* tidy =
        app.add_subcommand("tidy", "Rewrites the deck IN as OUT, in a form that is read whole.")
            ->group(kCommandsTitle);
    tidy->add_option("IN", options.source,
                     "An Abaqus input deck or a Nastran deck, whatever its dialect, with the files "
                     "that it includes; - is standard input.")
        ->required();
    tidy->add_option("OUT", options.target,
                     "The new deck; a copy of IN where nothing needs to be changed.")
        ->required();
    tidy->add_flag("--report", options.report,
                   "List what was done, and what could not be done, as the command check does.");
    tidy->add_option("--map", options.mapFile,
                     "Write a table of the numbers, parts and files that nodes, elements and "
                     "properties have in the original.")
        ->type_name("FILE");
    CLI::Option* json =
        tidy->add_flag("--json", options.json, "Report as a JSON document, for programs.");
    tidy->add_flag("--quiet", options.quiet, "Write nothing of a success; failures are still told.")
        ->excludes(json);
    tidy->footer(
        "Exit code: 0 OUT is written, and everything of IN that can be read is in it; 1 that is "
        "not possible, and nothing is written; 2 the command line is wrong.");
    return tidy;
}

void addViewLook(CLI::App& view, ViewOptions& options) {
    view.add_option("--view", options.view, "Where the picture is taken from.")
        ->check(CLI::IsMember(kvocaeio::host::kViewNames))
        ->capture_default_str();
    view.add_option(
            "--finding", options.finding,
            "Fly to this finding and mark what it is about; kvocaeio check lists the codes.")
        ->type_name("CODE");
    view.add_option("--cut", options.cut,
                    "Cut across this axis, in the middle or at a place from 0 to 1: z, z:0.25.")
        ->type_name("AXIS[:PLACE]")
        ->check(CLI::Validator(kvocaeio::host::faultOfCut, "", "cut"));
    view.add_option("--stretch", options.stretch, "Draw a package higher by this factor.")
        ->type_name("FACTOR")
        ->check(CLI::Range(1.0, 50.0));
    view.add_flag("--parallel", options.parallel, "Parallel instead of perspective projection.");
    view.add_flag("--edges", options.edges, "Show the edges of all elements.");
    view.add_option("--theme", options.theme, "Colours of the page; else as the system has them.")
        ->check(CLI::IsMember({"light", "dark"}));
}

CLI::App* addView(CLI::App& app, ViewOptions& options) {
    CLI::App* view = app.add_subcommand("view", "Writes a page or a picture that shows FILE.")
                         ->group(kCommandsTitle);
    view->add_option(
            "FILE", options.source,
            "An Abaqus input deck, a Nastran deck, a Patran neutral file or a 3DI package; "
            "- is standard input.")
        ->required();
    view->add_option("-o,--output", options.page,
                     "The page: one HTML file, which any browser opens without a network.")
        ->type_name("OUT.html");
    CLI::Option* picture =
        view->add_option("--picture", options.picture,
                         "A picture of the same, drawn by an installed Chromium.")
            ->type_name("OUT.png");
    view->add_option("--size", options.size, "Size of the picture in pixels.")
        ->type_name("WIDTHxHEIGHT")
        ->check(CLI::Validator(kvocaeio::host::faultOfSize, "", "size"))
        ->needs(picture)
        ->capture_default_str();
    view->add_option("--browser", options.browser,
                     "The program that draws the picture; else KVOCAEIO_BROWSER, or one that is "
                     "found.")
        ->type_name("PROGRAM")
        ->needs(picture);
    view->add_option("--tool-timeout", options.toolTimeout,
                     "Seconds after which that program is ended.")
        ->type_name("SECONDS")
        ->check(CLI::PositiveNumber)
        ->needs(picture)
        ->capture_default_str();
    addViewLook(*view, options);
    view->add_flag("--normalised", options.normalised,
                   "Show the normalised mesh of an Abaqus deck instead of the elements that it "
                   "lists.");
    CLI::Option* asIs =
        view->add_flag("--as-is", options.asIs, "Read a deck as it is, without tidying it first.");
    view->add_flag("--tidy")
        ->description(
            "Tidy a deck before it is read, where it needs that; so it is done unless "
            "--as-is is given.")
        ->excludes(asIs);
    CLI::Option* json =
        view->add_flag("--json", options.json, "Report as a JSON document, for programs.");
    view->add_flag("--quiet", options.quiet, "Write no report; failures are still told.")
        ->excludes(json);
    view->add_flag("--verbose", options.verbose,
                   "Show the library's progress lines, on standard error.");
    view->callback([&options] {
        if (options.page.empty() && options.picture.empty())
            throw CLI::RequiredError("-o or --picture");
    });
    return view;
}

bool isCommand(CLI::App& app, const std::string& word) {
    const std::vector<CLI::App*> commands = app.get_subcommands({});
    return std::any_of(commands.begin(), commands.end(),
                       [&](const CLI::App* command) { return command->get_name() == word; });
}

std::string namesOfCommands(CLI::App& app) {
    std::string names;
    for (const CLI::App* command : app.get_subcommands({}))
        names += (names.empty() ? "" : ", ") + command->get_name();
    return names;
}

int run(int argc, char** argv) {
    CLI::App app("Opens the files of other engineering tools and says what they hold.", "kvocaeio");
    app.set_help_flag("-h,--help", "Show this help and exit.");
    app.set_version_flag("--version", kvocaeio::host::versionText(),
                         "Show the versions of the program and of the library and exit.");
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.allow_windows_style_options(false);  // a path may begin with a slash
    app.require_subcommand(1);
    app.footer(
        "Reports go to standard output, messages to standard error.\n"
        "Exit code: 0 all files were read or written, 1 a file failed, 2 the command line is "
        "wrong.");
    InfoOptions infoOptions;
    addInfo(app, infoOptions);
    CheckOptions checkOptions;
    const CLI::App* check = addCheck(app, checkOptions);
    ConvertOptions convertOptions;
    const CLI::App* convert = addConvert(app, convertOptions);
    TidyOptions tidyOptions;
    const CLI::App* tidy = addTidy(app, tidyOptions);
    ViewOptions viewOptions;
    const CLI::App* view = addView(app, viewOptions);
    kvocaeio::host::addManual(app);
    if (argc == 1 || (*argv[1] != '-' && !isCommand(app, argv[1]))) {
        const std::string word = argc == 1 ? "" : kvocaeio::host::cleanName(argv[1]);
        std::cerr << "kvocaeio: " << (argc == 1 ? "no command" : "unknown command '" + word + "'")
                  << "; the commands are " << namesOfCommands(app)
                  << "\nRun with --help for more information.\n";
        return kWrongCommandLine;
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        // The message repeats words of the command line.
        std::stringstream messages;
        const int code = app.exit(error, std::cout, messages);
        for (std::string line; std::getline(messages, line);)
            std::cerr << kvocaeio::host::cleanName(line) << '\n';
        return code == 0 ? 0 : kWrongCommandLine;
    }
    if (check->parsed())
        return kvocaeio::host::runCheck(checkOptions);
    if (convert->parsed())
        return kvocaeio::host::runConvert(convertOptions) ? 0 : kFailed;
    if (tidy->parsed())
        return kvocaeio::host::runTidyCommand(tidyOptions) ? 0 : kFailed;
    if (view->parsed())
        return kvocaeio::host::runView(viewOptions) ? 0 : kFailed;
    return kvocaeio::host::runInfo(infoOptions) ? 0 : kFailed;
}

}  // namespace

int main(int argc, char** argv) {
    if (kvocaeio::host::isLauncher(argc, argv))
        return kvocaeio::host::launchTool(argc, argv);
    kvocaeio::host::holdStandardStreams();
    const kvocaeio::host::Terminal terminal;
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "kvocaeio: " << error.what() << '\n';
        return kFailed;
    }
}
