/// The import of a Cadence design: the extraction tool's command files and runs, then its reports.
#include "package/import_cadence.h"

#include <cstdio>
#include <initializer_list>

#include "package/die_stack_report.h"
#include "package/layer_report.h"
#include "package/report_tables.h"
#include "package/symbol_report.h"
#include "text/file.h"
#include "text/platform.h"

namespace kvocaeio::package {

namespace {

constexpr const char* kGeometryAndLayerViews =
    "GEOMETRY\nREFDES\nSYM_NAME\nSYM_BOX_X1\nSYM_BOX_Y1\nSYM_BOX_X2\nSYM_BOX_Y2\n"
    "GRAPHIC_DATA_NAME\nGRAPHIC_DATA_1\nGRAPHIC_DATA_2\nGRAPHIC_DATA_3\nGRAPHIC_DATA_4\nEND\n"
    "\n"
    "LAYER\nLAYER_SORT\nLAYER_SUBCLASS\nLAYER_TYPE\nLAYER_MATERIAL\nLAYER_THICKNESS\nEND\n";

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

// Extracts the reports of a design, with one form of the paths; the command files are written by
// the narrow ones. False where no design is given or a command file cannot be opened.
template <class String>
bool extract(const ToolPaths<String>& paths, const typename String::value_type* designPath,
             const ToolPaths<std::string>& narrowPaths) {
    using Char = typename String::value_type;
    if (designPath == nullptr)
        return false;
    for (std::size_t i = 0; i < paths.commandFiles.size(); ++i) {
        text::deleteFile(paths.commandFiles[i].c_str());
        text::deleteFile(paths.dataFiles[i].c_str());
    }
    if (!writeCommandFiles(narrowPaths))
        return false;
    const String design = designPath;
    runTool({paths.exe, design, paths.commandFiles[0], paths.dataFiles[0], paths.dataFiles[1]});
    constexpr std::array<Char, 4> kStackedDesign{'.', 's', 'i', 'p'};
    if (design.find(kStackedDesign.data(), 0, kStackedDesign.size()) != String::npos)
        runTool({paths.exe, design, paths.commandFiles[2], paths.dataFiles[2]});
    return true;
}

bool writeFile(const std::string& path, const char* content) {
    const text::File file = text::openFile(path.c_str(), "w");
    if (file != nullptr)
        std::fputs(content, file.get());
    return file != nullptr;
}

}  // namespace

bool importCadence(InputFile& design, Model& model, const text::Listener& listener) {
    const ToolPaths<std::string>& paths = model.paths;
    const ToolPaths<std::wstring>& pathsW = model.pathsW;
    const bool extracted = !paths.exe.empty()
                               ? extract(paths, design.narrowPath, paths)
                               : pathsW.exe.empty() || extract(pathsW, design.widePath, paths);
    if (!extracted)
        return false;
    // The tool leaves its reports where its commands were, not where the data files' paths point.
    const auto report = [&](std::size_t i) {
        return pathsW.commandFiles[i].empty() ? InputFile(paths.commandFiles[i].c_str())
                                              : InputFile(pathsW.commandFiles[i].c_str());
    };
    InputFile symbols = report(kSymbolReport);
    InputFile layers = report(kLayerReport);
    InputFile dieStack = report(kDieStackReport);
    return readReportFiles(symbols, layers, dieStack, listener, model.reportTables) &&
           readReportUnits((*model.reportTables)[kSymbolReport], listener, model.unitScale) &&
           readReports(*model.reportTables, model.unitScale, model.components);
}

bool writeCommandFiles(const ToolPaths<std::string>& paths) {
    return writeFile(paths.commandFiles[0], kGeometryAndLayerViews) &&
           writeFile(paths.commandFiles[2], kDieStackView);
}

bool readReportFiles(InputFile& symbols, InputFile& layers, InputFile& dieStack,
                     const text::Listener& listener, std::optional<ReportTables>& tables) {
    ReportTables& reports = tables.emplace();
    if (!readReport(symbols, listener, reports[kSymbolReport]) ||
        !readReport(layers, listener, reports[kLayerReport]))
        return false;
    readReport(dieStack, listener, reports[kDieStackReport]);  // not every design has one
    return !listener.hasStopped();
}

bool readReports(const ReportTables& tables, double unitScale,
                 std::optional<ComponentList>& components) {
    const Report& symbols = tables[kSymbolReport];
    if (!hasFullJobLine(symbols))
        return false;
    ComponentList& bodies = components.emplace();
    // The kind of design goes by the report, not by the path that was imported.
    const bool isMcm = isDesignOf(symbols, ".mcm");
    if (!isMcm && !isDesignOf(symbols, ".sip"))
        return isDesignOf(symbols, ".brd");
    return readSymbolReport(symbols, unitScale, bodies) &&
           (isMcm || readDieStackReport(tables[kDieStackReport], unitScale, bodies)) &&
           readLayerReport(tables[kLayerReport], bodies);
}

}  // namespace kvocaeio::package
