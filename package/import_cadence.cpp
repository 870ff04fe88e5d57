/// The import of a Cadence design: the extraction tool's command files and runs, then its reports.
#include "package/import_cadence.h"

#include <cstdio>
#include <initializer_list>
#include <string_view>

#include "package/die_stack_report.h"
#include "package/layer_report.h"
#include "package/report_notes.h"
#include "package/report_tables.h"
#include "package/symbol_report.h"
#include "text/platform.h"

namespace kvocaeio::package {

namespace {

constexpr const char* kGeometryAndLayerViews =
    "GEOMETRY\nREFDES\nSYM_NAME\nSYM_BOX_X1\nSYM_BOX_Y1\nSYM_BOX_X2\nSYM_BOX_Y2\n"
    "GRAPHIC_DATA_NAME\nGRAPHIC_DATA_1\nGRAPHIC_DATA_2\nGRAPHIC_DATA_3\nGRAPHIC_DATA_4\nEND\n"
    "\n"
    "LAYER\nLAYER_SORT\nLAYER_SUBCLASS\nLAYER_TYPE\nLAYER_MATERIAL\nLAYER_THICKNESS\nEND\n";

// What the names of designs hold.
constexpr std::string_view kFlatDesign = ".mcm";
constexpr std::string_view kStackedDesign = ".sip";

constexpr const char* kDieStackView = "DIE_STACK_DEF\n";

// Runs a command line of these words. None is quoted: one with a blank in it becomes two.
template <class String>
void runTool(std::initializer_list<String> words) {
    String commandLine;
    for (const String& word : words) {
        if (!commandLine.empty())
            commandLine += static_cast<typename String::value_type>(' ');
        commandLine += word;
    }
    text::runProgram(commandLine);
}

template <class String>
bool writeFile(const String& path, const char* content, const text::Listener& listener) {
    const text::File file = text::openFile(path.c_str(), "w", listener);
    if (file != nullptr)
        std::fputs(content, file.get());
    return file != nullptr;
}

template <class String>
bool writeCommands(const ToolPaths<String>& paths, const text::Listener& listener) {
    return writeFile(paths.commandFiles[0], kGeometryAndLayerViews, listener) &&
           writeFile(paths.commandFiles[2], kDieStackView, listener);
}

// Extracts the reports of a design, with one form of the paths; the command files are written by
// `commandPaths`. False where no design is given or a command file cannot be opened.
template <class String, class CommandString>
bool extract(const ToolPaths<String>& paths, const typename String::value_type* designPath,
             const ToolPaths<CommandString>& commandPaths, const text::Listener& listener) {
    if (designPath == nullptr) {
        // The form of the tool's path decides which path of the design counts.
        listener.note(text::FileFinding::kCannotOpen, "no path of a design is given");
        return false;
    }
    for (std::size_t i = 0; i < paths.commandFiles.size(); ++i) {
        text::deleteFile(paths.commandFiles[i].c_str());
        text::deleteFile(paths.dataFiles[i].c_str());
    }
    if (!writeCommands(commandPaths, listener))
        return false;
    const String design = designPath;
    runTool({paths.exe, design, paths.commandFiles[0], paths.dataFiles[0], paths.dataFiles[1]});
    const String stacked(kStackedDesign.begin(), kStackedDesign.end());
    if (design.find(stacked) != String::npos)
        runTool({paths.exe, design, paths.commandFiles[2], paths.dataFiles[2]});
    return true;
}

// The tool leaves its reports where its commands were, not where the data files' paths point.
// `report(i)` is the file of one of them.
template <class ReportFile>
bool readExtracted(const ReportFile& report, Model& model, const text::Listener& listener) {
    InputFile symbols = report(kSymbolReport);
    InputFile layers = report(kLayerReport);
    InputFile dieStack = report(kDieStackReport);
    return readReportFiles(symbols, layers, dieStack, listener, model.reportTables) &&
           readReportUnits((*model.reportTables)[kSymbolReport], listener, model.unitScale) &&
           readReports(*model.reportTables, listener, model.unitScale, model.components);
}

}  // namespace

bool importCadence(InputFile& design, Model& model, const text::Listener& listener) {
    const ToolPaths<std::string>& paths = model.paths;
    const ToolPaths<std::wstring>& pathsW = model.pathsW;
    const bool extracted =
        !paths.exe.empty()
            ? extract(paths, design.narrowPath, paths, listener)
            : pathsW.exe.empty() || extract(pathsW, design.widePath, paths, listener);
    if (!extracted)
        return false;
    const auto report = [&](std::size_t i) {
        return pathsW.commandFiles[i].empty() ? InputFile(paths.commandFiles[i].c_str())
                                              : InputFile(pathsW.commandFiles[i].c_str());
    };
    return readExtracted(report, model, listener);
}

bool importCadence(const std::filesystem::path& design, const NativeToolPaths& paths, Model& model,
                   const text::Listener& listener) {
    const auto report = [&](std::size_t i) { return InputFile(paths.commandFiles[i].c_str()); };
    return (paths.exe.empty() || extract(paths, design.c_str(), paths, listener)) &&
           readExtracted(report, model, listener);
}

bool writeCommandFiles(const ToolPaths<std::string>& paths, const text::Listener& listener) {
    return writeCommands(paths, listener);
}

bool readReportFiles(InputFile& symbols, InputFile& layers, InputFile& dieStack,
                     const text::Listener& listener, std::optional<ReportTables>& tables) {
    ReportTables& reports = tables.emplace();
    if (!readReport(symbols, listener, reports[kSymbolReport]) ||
        !readReport(layers, listener, reports[kLayerReport]))
        return false;
    // Not every design has one, and of one that has none nothing is noted.
    const Report& job = reports[kSymbolReport];
    const bool isStacked = hasFullJobLine(job) && isDesignOf(job, kStackedDesign);
    readReport(dieStack, isStacked ? listener : listener.withoutFindings(),
               reports[kDieStackReport]);
    return !listener.hasStopped();
}

bool readReports(const ReportTables& tables, const text::Listener& listener, double unitScale,
                 std::optional<ComponentList>& components) {
    const Report& symbols = tables[kSymbolReport];
    if (!hasFullJobLine(symbols))
        return false;
    ComponentList& bodies = components.emplace();
    // The kind of design goes by the report, not by the path that was imported.
    const bool isMcm = isDesignOf(symbols, kFlatDesign);
    if (!isMcm && !isDesignOf(symbols, kStackedDesign)) {
        const bool isBoard = isDesignOf(symbols, ".brd");
        ReportNotes(symbols, listener)
            .jobCell(isBoard ? Finding::kDesignWithoutBodies : Finding::kDesignUnknown, 1);
        return isBoard;
    }
    const Report& layers = tables[kLayerReport];
    if (layers.jobCells.size() > 1 && isDesignOf(layers, kFlatDesign) != isMcm)
        ReportNotes(layers, listener).jobCell(Finding::kDesignDiffers, 1);
    return readSymbolReport(symbols, listener, unitScale, bodies) &&
           (isMcm || readDieStackReport(tables[kDieStackReport], listener, unitScale, bodies)) &&
           readLayerReport(layers, listener, bodies);
}

}  // namespace kvocaeio::package
