/// Paths, command files and deletions of an import, and what one import leaves for the next.
#include <fstream>
#include <gtest/gtest.h>

#include "package/cadence_reports.h"

namespace kvocaeio::test {
namespace {

#if defined(_WIN32)
constexpr const char* kSeparator = "\\";
constexpr const char* kLineEnd = "\r\n";
#else
constexpr const char* kSeparator = "/";
constexpr const char* kLineEnd = "\n";
#endif

const char* const kFiles[] = {"CmdFile1.txt",     "CmdFile2.txt",     "CmdFile3.txt",
                              "CadenceData1.txt", "CadenceData2.txt", "CadenceData3.txt"};

/// The lines with the line ends that text mode gives them.
std::string linesOf(const std::vector<std::string>& lines) {
    std::string content;
    for (const std::string& line : lines)
        content += line + kLineEnd;
    return content;
}

const std::string kCommands1 = linesOf({"GEOMETRY",
                                        "REFDES",
                                        "SYM_NAME",
                                        "SYM_BOX_X1",
                                        "SYM_BOX_Y1",
                                        "SYM_BOX_X2",
                                        "SYM_BOX_Y2",
                                        "GRAPHIC_DATA_NAME",
                                        "GRAPHIC_DATA_1",
                                        "GRAPHIC_DATA_2",
                                        "GRAPHIC_DATA_3",
                                        "GRAPHIC_DATA_4",
                                        "END",
                                        "",
                                        "LAYER",
                                        "LAYER_SORT",
                                        "LAYER_SUBCLASS",
                                        "LAYER_TYPE",
                                        "LAYER_MATERIAL",
                                        "LAYER_THICKNESS",
                                        "END"});
const std::string kCommands3 = linesOf({"DIE_STACK_DEF"});

const std::string kMcmSymbols = symbols("a.mcm", kSubstrateRow);
const std::string kMcmLayers = layers("a.mcm");
const std::string kMcmOutcome = "true\n" + kFlatSubstrate;

/// Two folders, full of old files, and a tool that cannot be started.
class CadenceDriver : public testing::Test {
  protected:
    CadenceDriver() {
        for (const char* name : kFiles) {
            one.write(name, "old");
            two.write(name, "old");
        }
    }

    static std::wstring wide(const std::string& path) {
        return std::filesystem::path(path).wstring();
    }
    std::string importNarrow(const char* design = "a.sip") {
        return outcomeOf(reader, [&] { return reader.ImportCadenceFile(design); });
    }
    std::string importWide(const wchar_t* design = L"a.sip") {
        return outcomeOf(reader, [&] { return reader.ImportCadenceFile(design); });
    }
    /// The six files as letters: - absent, o old, c the commands that belong there, x anything
    /// else.
    static std::string state(const TempFolder& folder) {
        std::string out;
        for (const std::string name : kFiles) {
            const std::filesystem::path path = folder.path() / name;
            const std::string content =
                std::filesystem::is_regular_file(path) ? readBytes(path) : std::string();
            const bool commands = (name == "CmdFile1.txt" && content == kCommands1) ||
                                  (name == "CmdFile3.txt" && content == kCommands3);
            out += !std::filesystem::exists(path) ? '-'
                   : content == "old"             ? 'o'
                   : commands                     ? 'c'
                                                  : 'x';
        }
        return out;
    }
    static void layReports(const TempFolder& folder) {
        folder.write("CmdFile1.txt", kMcmSymbols);
        folder.write("CmdFile2.txt", kMcmLayers);
    }

    TempFolder one, two;
    const std::string pathOne = one.path().string(), pathTwo = two.path().string();
    const std::string noTool = one.file("no-such-tool");
    CKVOCadenceReader reader;
};

TEST_F(CadenceDriver, WithoutToolNothingIsDeletedOrWritten) {
    reader.SetTempFilePath(pathOne.c_str());
    EXPECT_EQ(importNarrow(), "false\n");
    EXPECT_EQ(importWide(), "false\n");
    EXPECT_EQ(state(one), "oooooo");
    std::filesystem::remove(one.path() / "CmdFile1.txt");
    EXPECT_EQ(importNarrow(), "false\n");
    EXPECT_EQ(state(one), "-ooooo");
}

TEST_F(CadenceDriver, WithoutToolAndFolderNothingIsFound) {
    EXPECT_EQ(importNarrow(), "false\n");
    EXPECT_EQ(importWide(), "false\n");
    EXPECT_EQ(importNarrow(nullptr), "false\n");
    EXPECT_EQ(reader.GetComponentCount(), 0);
}

TEST_F(CadenceDriver, TheReportsAreTheCommandFilesAndNotTheDataFiles) {
    reader.SetTempFilePath(pathOne.c_str());
    one.write("CadenceData1.txt", kMcmSymbols);
    one.write("CadenceData2.txt", kMcmLayers);
    EXPECT_EQ(importNarrow(), "false\n");
    layReports(one);
    EXPECT_EQ(importNarrow(), kMcmOutcome);
}

TEST_F(CadenceDriver, AFolderMayEndInASeparator) {
    layReports(one);
    reader.SetTempFilePath((pathOne + kSeparator).c_str());
    EXPECT_EQ(importNarrow(), kMcmOutcome);
    reader.SetTempFilePath(wide(pathOne + kSeparator + kSeparator).c_str());
    EXPECT_EQ(importNarrow(), kMcmOutcome);
}

TEST_F(CadenceDriver, AFolderIsUsedAsItStands) {
    layReports(one);
    for (const std::string& path : {pathOne + " ", " " + pathOne, "\"" + pathOne + "\""}) {
        reader.SetTempFilePath(path.c_str());
        EXPECT_EQ(importNarrow(), "false\n") << path;
    }
    reader.SetTempFilePath(pathOne.c_str());
    EXPECT_EQ(importNarrow(), kMcmOutcome);
}

TEST_F(CadenceDriver, TheWideFolderIsTakenWhereItIsSet) {
    layReports(one);
    reader.SetTempFilePath(wide(pathOne).c_str());
    EXPECT_EQ(importNarrow(), kMcmOutcome) << "whatever the form of the import";
    EXPECT_EQ(importWide(), kMcmOutcome);
    reader.SetTempFilePath(pathTwo.c_str());
    EXPECT_EQ(importNarrow(), kMcmOutcome);
    reader.SetTempFilePath(wide(pathTwo).c_str());
    EXPECT_EQ(importNarrow(), "false\n" + kFlatSubstrate);
    reader.SetTempFilePath(pathOne.c_str());
    EXPECT_EQ(importNarrow(), "false\n" + kFlatSubstrate);
}

TEST_F(CadenceDriver, AWideFolderMayHaveAnyName) {
    const std::filesystem::path folder =
        one.path() / std::filesystem::path(u8"Geh\u00E4use \u4E2D");
    std::filesystem::create_directory(folder);
    std::ofstream(folder / "CmdFile1.txt") << kMcmSymbols;
    std::ofstream(folder / "CmdFile2.txt") << kMcmLayers;
    reader.SetTempFilePath((wide(pathOne) + L"/Geh\u00E4use \u4E2D").c_str());
    EXPECT_EQ(importWide(), kMcmOutcome);
}

TEST_F(CadenceDriver, AnEmptyOrNullFolderIsTheRoot) {
    layReports(one);
    reader.SetTempFilePath(pathOne.c_str());
    EXPECT_EQ(importNarrow(), kMcmOutcome);
    for (const wchar_t* path : {static_cast<const wchar_t*>(nullptr), L""}) {
        reader.SetTempFilePath(path);  // the files' wide paths are set then, and are taken
        EXPECT_EQ(importNarrow(), "false\n" + kFlatSubstrate);
        reader.SetTempFilePath(wide(pathOne).c_str());
        EXPECT_EQ(importNarrow(), kMcmOutcome);
    }
    CKVOCadenceReader other;
    other.SetTempFilePath(pathOne.c_str());
    other.SetTempFilePath(static_cast<const char*>(nullptr));
    EXPECT_FALSE(other.ImportCadenceFile("a.mcm"));
    EXPECT_EQ(other.GetComponentCount(), 0);
}

TEST_F(CadenceDriver, CommandFilesAreWrittenByteForByte) {
    reader.SetExeFilePath(noTool.c_str());
    reader.SetTempFilePath(pathOne.c_str());
    EXPECT_EQ(importNarrow(), "false\n");
    EXPECT_EQ(readBytes(one.path() / "CmdFile1.txt"), kCommands1);
    EXPECT_EQ(readBytes(one.path() / "CmdFile3.txt"), kCommands3);
    EXPECT_EQ(state(one), "c-c---");
    for (const char* design : {"a.mcm", "a.brd", ""}) {
        EXPECT_EQ(importNarrow(design), "false\n");
        EXPECT_EQ(state(one), "c-c---") << "for each kind of design";
    }
}

TEST_F(CadenceDriver, CommandFilesReadAsReportsHaveNoUnit) {
    reader.SetExeFilePath(noTool.c_str());
    reader.SetTempFilePath(pathOne.c_str());
    reader.SetTempFilePath(wide(pathTwo).c_str());
    two.write("CmdFile1.txt", kCommands1);
    two.write("CmdFile2.txt", kCommands1);
    EXPECT_EQ(importNarrow(), "false\n");
    two.write("CmdFile1.txt", kCommands1 + job("a.brd"));
    EXPECT_EQ(importNarrow(), "true\n");
}

TEST_F(CadenceDriver, ANarrowToolGoesByTheNarrowPaths) {
    reader.SetExeFilePath(noTool.c_str());
    reader.SetExeFilePath(wide(noTool).c_str());
    reader.SetTempFilePath(pathOne.c_str());
    reader.SetTempFilePath(wide(pathTwo).c_str());
    layReports(two);
    EXPECT_EQ(importNarrow(), kMcmOutcome) << "read are the old reports of the wide folder";
    EXPECT_EQ(state(one), "c-c---");
    EXPECT_EQ(state(two), "xxoooo");
}

TEST_F(CadenceDriver, AWideToolDeletesByTheWidePathsAndWritesByTheNarrow) {
    reader.SetExeFilePath(wide(noTool).c_str());
    reader.SetTempFilePath(pathOne.c_str());
    reader.SetTempFilePath(wide(pathTwo).c_str());
    EXPECT_EQ(importWide(), "false\n");
    EXPECT_EQ(state(one), "cocooo");
    EXPECT_EQ(state(two), "------");
}

TEST_F(CadenceDriver, AWideToolWithoutNarrowFolderEndsBehindTheDeletion) {
    reader.SetExeFilePath(wide(noTool).c_str());
    reader.SetTempFilePath(wide(pathTwo).c_str());
    EXPECT_EQ(importWide(), "false\n");
    EXPECT_EQ(state(two), "------");
}

TEST_F(CadenceDriver, ANarrowToolWithoutNarrowFolderWritesNothing) {
    reader.SetExeFilePath(noTool.c_str());
    reader.SetTempFilePath(wide(pathTwo).c_str());
    layReports(two);
    EXPECT_EQ(importNarrow(), "false\n") << "though the wide folder has reports";
    EXPECT_EQ(state(two), "xxoooo");
}

TEST_F(CadenceDriver, AnEmptyToolIsNoTool) {
    layReports(one);
    reader.SetTempFilePath(pathOne.c_str());
    reader.SetExeFilePath(noTool.c_str());
    reader.SetExeFilePath("");
    reader.SetExeFilePath(L"");
    EXPECT_EQ(importNarrow(), kMcmOutcome);
    EXPECT_EQ(state(one), "xxoooo");
}

TEST_F(CadenceDriver, TheCommandFilesAreOpenedOneAfterTheOther) {
    reader.SetExeFilePath(noTool.c_str());
    reader.SetTempFilePath(pathOne.c_str());
    std::filesystem::remove(one.path() / "CmdFile3.txt");
    one.makeFolder("CmdFile3.txt");
    EXPECT_EQ(importNarrow(), "false\n");
    EXPECT_EQ(state(one), "c-x---") << "the first one stays, deleted is before";
    std::filesystem::remove(one.path() / "CmdFile1.txt");
    std::filesystem::remove(one.path() / "CmdFile3.txt");
    one.makeFolder("CmdFile1.txt");
    EXPECT_EQ(importNarrow(), "false\n");
    EXPECT_EQ(state(one), "x-----") << "without the first there is no third";
}

TEST_F(CadenceDriver, CleanMemoryForgetsTheFolders) {
    layReports(one);
    reader.SetTempFilePath(pathOne.c_str());
    reader.SetTempFilePath(wide(pathOne).c_str());
    ASSERT_EQ(importNarrow(), kMcmOutcome);
    reader.CleanMemory();
    EXPECT_EQ(importNarrow(), "false\n");
    reader.SetTempFilePath(pathOne.c_str());
    EXPECT_EQ(importNarrow(), kMcmOutcome);
}

TEST_F(CadenceDriver, PathsAreCopied) {
    layReports(one);
    std::string path = pathOne;
    reader.SetTempFilePath(path.c_str());
    path.assign(path.size(), 'x');
    EXPECT_EQ(importNarrow(), kMcmOutcome);
    EXPECT_EQ(importNarrow(), kMcmOutcome) << "an import changes no path";
}

TEST(CadenceSecondImport, BodiesStayUntilTheSymbolsAreUsed) {
    const std::string first = symbols("a.mcm", kSubstrateRow + kDieRow);
    const std::string bodies = kFlatSubstrate + kFlatDie;
    const auto second = [&](const std::optional<std::string>& report1,
                            const std::optional<std::string>& report2) {
        ReportFolder reports;
        EXPECT_EQ(reports.import(first, kMcmLayers), "true\n" + bodies);
        return reports.import(report1, report2);
    };
    EXPECT_EQ(second({}, kMcmLayers), "false\n" + bodies);
    EXPECT_EQ(second(first, {}), "false\n" + bodies);
    EXPECT_EQ(second(first + "X!\n", kMcmLayers), "false\n" + bodies);
    EXPECT_EQ(second(first, kMcmLayers + "X!\n"), "false\n" + bodies);
    EXPECT_EQ(second(first + "J!\n", kMcmLayers), "false\n" + bodies) << "14 cells";
    EXPECT_EQ(second("", kMcmLayers), "false\n" + bodies) << "the old tables are gone";
    EXPECT_EQ(second(job("a.brd"), ""), "true\n");
    EXPECT_EQ(second(job(""), ""), "false\n") << "here they go";
    EXPECT_EQ(second(job("a.cad"), ""), "false\n");
    EXPECT_EQ(second(job("a.mcm"), kMcmLayers), "false\n");
    EXPECT_EQ(second(symbols("a.mcm", kDieRow), ""),
              "throws invalid vector<T> subscript\n" + kFlatDie);
}

TEST(CadenceSecondImport, NothingOfTheOldTablesIsUsed) {
    ReportFolder reports;
    const std::string first = symbols("a.sip", kSubstrateRow);
    const std::string third = stack("S!SPACER!s!0!0!2!2!1!2!\n");
    const std::string bodies = kFlatSubstrate + "s at 1 1 1.5, 2 x 2 x 1\n";
    EXPECT_EQ(reports.import(first, layers("a.sip"), third), "true\n" + bodies);
    EXPECT_EQ(reports.import(first, layers("a.sip"), third), "true\n" + bodies);
    EXPECT_EQ(reports.import(first, layers("a.sip")), "false\n" + kFlatSubstrate);
    EXPECT_EQ(reports.import(first, kLayerHeader, third),
              "throws invalid vector<T> subscript\n" + bodies);
    EXPECT_EQ(reports.import(first, layers("a.sip"), third), "true\n" + bodies);
}

/// A 3DI file with one body and one wire; colour 0, so that it is listed like a Cadence body.
std::string file3di(const std::string& unit) {
    return "3DI " + unit +
           "\nTABLE COLOR\n1 0 0 0 0\nTABLE OBJECT\n1 SYMBOL\n3 WIREBOND\nTABLE LAYER\n1 OUTLINE\n"
           "2 TOP\nTABLE END\nWIRE_MODELS\nWIRE_MODEL 1\nAU25 0.025 1 GOLD\nGEOMETRIES\nGEOM\n"
           "OBJECT 3\nLAYER 2\nCOLOR 1\nWIRE_MODEL 1\nWIRE 0.025 1\n3DPL 3\n"
           "0 0 0.3 1 1 0.5 2 2 0.1\n####\nGEOM\nNAME DIE1\nOBJECT 1\nLAYER 2\nCOLOR 1\n"
           "EXTR 0 0.1 0.3\n2DPG 4\n0 0 2 0 2 2 0 2\n####\n";
}

class After3di : public testing::Test {
  protected:
    std::string import3di(const std::string& unit) {
        const std::string path = reports.folder.write("package.3di", file3di(unit));
        return outcomeOf(reports.reader,
                         [&] { return reports.reader.Import3DIFile(path.c_str()); });
    }

    ReportFolder reports;
    const std::string millimetres = "true\nDIE1 at 1 1 0.2, 2 x 2 x 0.2\n";
    const std::string inches = "true\nDIE1 at 25.4 25.4 5.08, 50.8 x 50.8 x 5.08\n";
};

TEST_F(After3di, ADesignReplacesTheBodiesAndKeepsTheWires) {
    ASSERT_EQ(import3di("MM"), millimetres);
    EXPECT_EQ(reports.import({}, {}), "false\n" + millimetres.substr(5));
    EXPECT_EQ(reports.import(kMcmSymbols, kMcmLayers), kMcmOutcome);
    EXPECT_EQ(reports.reader.GetWireLineCount(), 1);
    EXPECT_EQ(reports.reader.GetWireProfileCount(), 1);
    std::vector<double> points;
    int profile = 0;
    double diameter = 0.0;
    ASSERT_TRUE(reports.reader.GetWirePolyLine(0, points, profile, diameter));
    EXPECT_EQ(points, (std::vector<double>{0, 0, 0.3, 1, 1, 0.5, 2, 2, 0.1}));
    EXPECT_EQ(reports.import(job("a.brd"), ""), "true\n");
    EXPECT_EQ(reports.reader.GetWireLineCount(), 1);
}

TEST_F(After3di, ADesignHasItsOwnUnit) {
    ASSERT_EQ(import3di("INCH"), inches);
    EXPECT_EQ(reports.import(kMcmSymbols, kMcmLayers), kMcmOutcome);
    EXPECT_EQ(import3di(""), millimetres) << "without a unit the design's stays";
}

TEST_F(After3di, AFileWithoutUnitHasTheDesignsAndReplacesItsBodies) {
    EXPECT_EQ(reports.import(symbols("a.mcm", kSubstrateRow, "INCH"), kMcmLayers),
              "true\nSUBSTRATE at 50.8 25.4 0, 101.6 x 50.8 x 0\n");
    EXPECT_EQ(import3di(""), inches);
    EXPECT_EQ(reports.import(job("a.brd", "MM") + "X!\n", ""), "false" + inches.substr(4));
    EXPECT_EQ(import3di(""), inches) << "the failure came before the unit";
    EXPECT_EQ(reports.import(job("a.cad", "MM"), ""), "false\n");
    EXPECT_EQ(import3di(""), millimetres) << "the failure came behind the unit";
}

TEST_F(After3di, ADesignAloneHasNoWires) {
    EXPECT_EQ(reports.import(kMcmSymbols, kMcmLayers), kMcmOutcome);
    EXPECT_EQ(reports.reader.GetWireLineCount(), 0);
    EXPECT_EQ(reports.reader.GetWireProfileCount(), 0);
    const char* name = nullptr;
    double diameter = 0.0;
    unsigned color = 0;
    EXPECT_FALSE(reports.reader.GetWireProfileData(1, name, diameter, color));
}

}  // namespace
}  // namespace kvocaeio::test
