/// A temporary folder with the stand-in tool in it, prepared reports, and what the tool records.
#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "package/cadence_design.h"
#include "support/files.h"

namespace kvocaeio::test {

inline constexpr const char* kCommandsOfRun1 =
    "GEOMETRY\nREFDES\nSYM_NAME\nSYM_BOX_X1\nSYM_BOX_Y1\nSYM_BOX_X2\nSYM_BOX_Y2\n"
    "GRAPHIC_DATA_NAME\nGRAPHIC_DATA_1\nGRAPHIC_DATA_2\nGRAPHIC_DATA_3\nGRAPHIC_DATA_4\nEND\n\n"
    "LAYER\nLAYER_SORT\nLAYER_SUBCLASS\nLAYER_TYPE\nLAYER_MATERIAL\nLAYER_THICKNESS\nEND\n";
inline constexpr const char* kCommandsOfRun2 = "DIE_STACK_DEF\n";

#if defined(_WIN32)
inline constexpr const char* kSeparator = "\\";
inline constexpr const char* kToolName = "extract.exe";
#else
inline constexpr const char* kSeparator = "/";
inline constexpr const char* kToolName = "extract";
#endif

/// The tool is copied into the folder, as no path on its command line may have a blank.
class ToolRoad : public testing::Test {
  protected:
    ToolRoad() { std::filesystem::copy_file(KVOCAEIO_EXTRACTION_TOOL, tool); }

    /// Sets the narrow paths.
    void setPaths() {
        reader.SetExeFilePath(tool.c_str());
        reader.SetTempFilePath(temp.c_str());
    }
    /// Sets the wide tool, and the folder in both forms.
    void setWidePaths() {
        reader.SetExeFilePath(std::filesystem::path(tool).wstring().c_str());
        reader.SetTempFilePath(temp.c_str());
        reader.SetTempFilePath(std::filesystem::path(temp).wstring().c_str());
    }

    /// Lays down what the first and the second run are to leave.
    void prepareRun1(const std::string& design) {
        prepare("CmdFile1.run", "CmdFile1.txt", symbolReport(design));
        prepare("CmdFile1.run", "CmdFile2.txt", layerReport(design));
    }
    void prepareRun2() { prepare("CmdFile3.run", "CmdFile3.txt", dieStackReport()); }
    void prepare(const std::string& run, const std::string& name, const std::string& report) {
        folder.makeFolder(run);
        folder.write(run + "/" + name, report);
    }

    std::string inFolder(const std::string& name) const { return temp + kSeparator + name; }
    bool exists(const std::string& name) const {
        return std::filesystem::exists(folder.path() / name);
    }

    /// What the tool has recorded of all its runs.
    std::string record() const { return readText(folder.path() / "record.txt"); }

    /// What it must record of one run from this process.
    std::string run(const std::vector<std::string>& words, const std::string& commands,
                    const std::string& mark = "") const {
        const std::u8string where = std::filesystem::current_path().u8string();
        std::string content =
            "run in " + std::string(where.begin(), where.end()) + "\nmark " + mark;
        for (const std::string& word : words)
            content += "\nword " + word;
        return content + '\n' + commands + "end\n";
    }
    std::string run1(const std::string& design) const {
        return run({tool, design, inFolder("CmdFile1.txt"), inFolder("CadenceData1.txt"),
                    inFolder("CadenceData2.txt")},
                   kCommandsOfRun1);
    }
    std::string run2(const std::string& design) const {
        return run({tool, design, inFolder("CmdFile3.txt"), inFolder("CadenceData3.txt")},
                   kCommandsOfRun2);
    }

    TempFolder folder;
    std::string temp = folder.path().string();
    std::string tool = folder.file(kToolName);
    CKVOCadenceReader reader;
};

}  // namespace kvocaeio::test
