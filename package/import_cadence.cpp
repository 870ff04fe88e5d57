/// The import of a Cadence design: the extraction tool's command files and runs, then its reports.
#include <array>
#include <cstdio>
#include <initializer_list>
#include <string>

#include "package/model.h"
#include "text/file.h"
#include "text/platform.h"

namespace kvocaeio {

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

// Extracts the reports of a design, with one form of the paths. False where no design is given or
// `writeCommandFiles` gives false.
template <class String, class WriteCommandFiles>
bool extract(const ToolPaths<String>& paths, const typename String::value_type* designPath,
             const WriteCommandFiles& writeCommandFiles) {
    using Char = typename String::value_type;
    if (designPath == nullptr)
        return false;
    for (std::size_t i = 0; i < paths.commandFiles.size(); ++i) {
        text::deleteFile(paths.commandFiles[i].c_str());
        text::deleteFile(paths.dataFiles[i].c_str());
    }
    if (!writeCommandFiles())
        return false;
    const String design = designPath;
    runTool({paths.exe, design, paths.commandFiles[0], paths.dataFiles[0], paths.dataFiles[1]});
    constexpr std::array<Char, 4> kStackedDesign{'.', 's', 'i', 'p'};
    if (design.find(kStackedDesign.data(), 0, kStackedDesign.size()) != String::npos)
        runTool({paths.exe, design, paths.commandFiles[2], paths.dataFiles[2]});
    return true;
}

bool writeText(const std::string& path, const char* text) {
    const text::File file = text::openFile(path.c_str(), "w");
    if (file != nullptr)
        std::fputs(text, file.get());
    return file != nullptr;
}

}  // namespace

bool CKVOCadenceReaderImp::ImportCadenceFile(InputFile& design) {
    const auto writeCommandFiles = [this] { return WriteCommandFiles(); };
    if (!paths.exe.empty()) {
        if (!extract(paths, design.narrowPath, writeCommandFiles))
            return false;
    } else if (!pathsW.exe.empty()) {
        if (!extract(pathsW, design.widePath, writeCommandFiles))
            return false;
    }
    // The tool leaves its reports where its commands were, not where the data files' paths point.
    const auto report = [this](std::size_t i) {
        return pathsW.commandFiles[i].empty() ? InputFile(paths.commandFiles[i].c_str())
                                              : InputFile(pathsW.commandFiles[i].c_str());
    };
    InputFile symbols = report(0);
    InputFile layers = report(1);
    InputFile dieStack = report(2);
    return ReadReportFiles(symbols, layers, dieStack) && ReadReportUnits() && ReadReports();
}

bool CKVOCadenceReaderImp::WriteCommandFiles() {
    return writeText(paths.commandFiles[0], kGeometryAndLayerViews) &&
           writeText(paths.commandFiles[2], kDieStackView);
}

}  // namespace kvocaeio
