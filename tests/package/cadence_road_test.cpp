/// Cadence designs from the host's call to its bodies, through the stand-in for the extraction
/// tool.
#include "package/tool_road.h"

namespace kvocaeio::test {
namespace {

using CadenceRoad = ToolRoad;

TEST_F(CadenceRoad, AnMcmDesignTakesOneRun) {
    setPaths();
    prepareRun1("/cad/board.mcm");
    EXPECT_TRUE(reader.ImportCadenceFile("/cad/board.mcm"));
    EXPECT_EQ(record(), run1("/cad/board.mcm"));
    EXPECT_EQ(bodiesOf(reader), kMcmBodies);
    EXPECT_EQ(reader.GetWireLineCount(), 0);
    EXPECT_EQ(readText(inFolder("CmdFile3.txt")), kCommandsOfRun2);
}

TEST_F(CadenceRoad, ASipDesignTakesTwoRunsOneAfterTheOther) {
    setPaths();
    prepareRun1("/cad/stack.sip");
    prepareRun2();
    folder.write("slow.txt", "");
    EXPECT_TRUE(reader.ImportCadenceFile("/cad/stack.sip"));
    EXPECT_EQ(record(), run1("/cad/stack.sip") + run2("/cad/stack.sip"));
    EXPECT_EQ(bodiesOf(reader), kSipBodies);
}

TEST_F(CadenceRoad, ABrdDesignTakesOneRunAndHasNoBodies) {
    setPaths();
    prepareRun1("/cad/board.brd");
    EXPECT_TRUE(reader.ImportCadenceFile("/cad/board.brd"));
    EXPECT_EQ(record(), run1("/cad/board.brd"));
    EXPECT_EQ(reader.GetComponentCount(), 0);
}

TEST_F(CadenceRoad, TheSecondRunGoesByThePathAndTheBodiesByTheReport) {
    setPaths();
    prepareRun1("board.mcm");
    EXPECT_TRUE(reader.ImportCadenceFile("a.sip.old"));
    EXPECT_EQ(record(), run1("a.sip.old") + run2("a.sip.old"));
    EXPECT_EQ(bodiesOf(reader), kMcmBodies);
    prepareRun1("stack.sip");
    EXPECT_FALSE(reader.ImportCadenceFile("stack.SIP"));  // no die stack report
    EXPECT_EQ(record(), run1("a.sip.old") + run2("a.sip.old") + run1("stack.SIP"));
    EXPECT_EQ(bodiesOf(reader), "SUBSTRATE at 0 0 0, 4 x 2 x 0\n");
}

TEST_F(CadenceRoad, ADesignCalledNothingButItsEndingTakesTwoRuns) {
    setPaths();
    prepareRun1("stack.sip");
    prepareRun2();
    EXPECT_TRUE(reader.ImportCadenceFile(".sip"));
    EXPECT_EQ(record(), run1(".sip") + run2(".sip"));
    EXPECT_FALSE(reader.ImportCadenceFile("sip"));
    EXPECT_EQ(record(), run1(".sip") + run2(".sip") + run1("sip"));
}

TEST_F(CadenceRoad, WideASipDesignTakesTwoRuns) {
    setWidePaths();
    prepareRun1("stack.sip");
    prepareRun2();
    EXPECT_TRUE(reader.ImportCadenceFile(L"/cad/geh\u00E4use_\u4E2D.sip"));
    const std::string design = "/cad/geh\xC3\xA4use_\xE4\xB8\xAD.sip";
    EXPECT_EQ(record(), run1(design) + run2(design));
    EXPECT_EQ(bodiesOf(reader), kSipBodies);
}

TEST_F(CadenceRoad, WideAnMcmDesignTakesOneRun) {
    setWidePaths();
    prepareRun1("board.mcm");
    EXPECT_TRUE(reader.ImportCadenceFile(L"board.mcm"));
    EXPECT_EQ(record(), run1("board.mcm"));
    EXPECT_EQ(bodiesOf(reader), kMcmBodies);
}

#if !defined(_WIN32)
TEST_F(CadenceRoad, WideATextWithoutUtf8FormStartsNothing) {
    setWidePaths();
    prepareRun1("board.mcm");
    const wchar_t design[] = {static_cast<wchar_t>(0xD800), L'.', L'm', L'c', L'm', 0};
    EXPECT_FALSE(reader.ImportCadenceFile(design));
    EXPECT_EQ(record(), "");
}
#endif

TEST_F(CadenceRoad, WideWithoutTheNarrowFolderNothingRuns) {
    reader.SetExeFilePath(std::filesystem::path(tool).wstring().c_str());
    reader.SetTempFilePath(std::filesystem::path(temp).wstring().c_str());
    prepareRun1("board.mcm");
    EXPECT_FALSE(reader.ImportCadenceFile(L"board.mcm"));
    EXPECT_EQ(record(), "");
    EXPECT_FALSE(exists("CmdFile1.txt"));
}

TEST_F(CadenceRoad, TheReportsAreThoseOfTheWideFolderWhereItIsSet) {
    setPaths();
    folder.makeFolder("wide");
    reader.SetTempFilePath((folder.path() / "wide").wstring().c_str());
    folder.write("wide/CmdFile1.txt", symbolReport("board.brd"));
    folder.write("wide/CmdFile2.txt", "");
    prepareRun1("board.mcm");
    EXPECT_TRUE(reader.ImportCadenceFile("board.mcm"));
    EXPECT_EQ(record(), run1("board.mcm"));
    EXPECT_EQ(bodiesOf(reader), "");
}

TEST_F(CadenceRoad, TheFormIsThatOfTheTool) {
    setWidePaths();
    setPaths();
    prepareRun1("board.mcm");
    EXPECT_FALSE(reader.ImportCadenceFile(L"board.mcm")) << "the narrow tool comes first";
    reader.SetExeFilePath("");
    EXPECT_FALSE(reader.ImportCadenceFile("board.mcm"));
    EXPECT_EQ(record(), "");
    EXPECT_TRUE(reader.ImportCadenceFile(L"board.mcm"));
    EXPECT_EQ(record(), run1("board.mcm"));
}

TEST_F(CadenceRoad, ANullDesignRunsNothing) {
    setPaths();
    prepareRun1("board.mcm");
    EXPECT_FALSE(reader.ImportCadenceFile(static_cast<const char*>(nullptr)));
    EXPECT_FALSE(reader.ImportCadenceFile(static_cast<const wchar_t*>(nullptr)));
    reader.SetExeFilePath("");
    setWidePaths();
    EXPECT_FALSE(reader.ImportCadenceFile(static_cast<const wchar_t*>(nullptr)));
    EXPECT_EQ(record(), "");
}

TEST_F(CadenceRoad, ANullDesignLeavesReportsUnread) {
    folder.write("CmdFile1.txt", symbolReport("board.mcm"));
    folder.write("CmdFile2.txt", layerReport("board.mcm"));
    folder.write("CadenceData1.txt", "kept");
    setPaths();
    EXPECT_FALSE(reader.ImportCadenceFile(static_cast<const char*>(nullptr)));
    reader.SetExeFilePath("");
    setWidePaths();
    EXPECT_FALSE(reader.ImportCadenceFile(static_cast<const wchar_t*>(nullptr)));
    EXPECT_EQ(record(), "");
    EXPECT_EQ(reader.GetComponentCount(), 0);
    EXPECT_EQ(readText(inFolder("CmdFile1.txt")), symbolReport("board.mcm"));
    EXPECT_EQ(readText(inFolder("CmdFile2.txt")), layerReport("board.mcm"));
    EXPECT_EQ(readText(inFolder("CadenceData1.txt")), "kept");
    reader.SetExeFilePath(static_cast<const wchar_t*>(nullptr));
    EXPECT_TRUE(reader.ImportCadenceFile(static_cast<const char*>(nullptr)));
    EXPECT_EQ(bodiesOf(reader), kMcmBodies) << "without a tool the same reports are read";
}

TEST_F(CadenceRoad, WithoutAToolReportsThatLieThereAreRead) {
    reader.SetTempFilePath(temp.c_str());
    folder.write("CmdFile1.txt", symbolReport("stack.sip"));
    folder.write("CmdFile2.txt", layerReport("stack.sip"));
    folder.write("CmdFile3.txt", dieStackReport());
    folder.write("CadenceData1.txt", "kept");
    EXPECT_TRUE(reader.ImportCadenceFile("any.mcm"));
    EXPECT_EQ(bodiesOf(reader), kSipBodies);
    EXPECT_TRUE(reader.ImportCadenceFile(static_cast<const char*>(nullptr)));
    EXPECT_TRUE(reader.ImportCadenceFile(static_cast<const wchar_t*>(nullptr)));
    EXPECT_EQ(bodiesOf(reader), kSipBodies);
    EXPECT_EQ(readText(inFolder("CmdFile3.txt")), dieStackReport());
    EXPECT_EQ(readText(inFolder("CadenceData1.txt")), "kept");
}

TEST_F(CadenceRoad, ANullToolIsNone) {
    setPaths();
    reader.SetExeFilePath(static_cast<const char*>(nullptr));
    reader.SetExeFilePath(static_cast<const wchar_t*>(nullptr));
    folder.write("CmdFile1.txt", symbolReport("board.mcm"));
    folder.write("CmdFile2.txt", layerReport("board.mcm"));
    EXPECT_TRUE(reader.ImportCadenceFile("board.mcm"));
    EXPECT_EQ(record(), "");
    EXPECT_EQ(bodiesOf(reader), kMcmBodies);
}

TEST_F(CadenceRoad, WhatAnEarlierImportLeftIsDeletedFirst) {
    setPaths();
    for (const char* name : {"CmdFile1.txt", "CmdFile2.txt", "CmdFile3.txt", "CadenceData1.txt",
                             "CadenceData2.txt", "CadenceData3.txt", "CmdFile4.txt"})
        folder.write(name, symbolReport("board.mcm"));
    EXPECT_FALSE(reader.ImportCadenceFile("board.mcm"));  // the tool does nothing
    EXPECT_EQ(record(), run1("board.mcm"));
    EXPECT_EQ(readText(inFolder("CmdFile1.txt")), kCommandsOfRun1);
    EXPECT_FALSE(exists("CmdFile2.txt"));
    EXPECT_EQ(readText(inFolder("CmdFile3.txt")), kCommandsOfRun2);
    EXPECT_FALSE(exists("CadenceData1.txt") || exists("CadenceData2.txt") ||
                 exists("CadenceData3.txt"));
    EXPECT_TRUE(exists("CmdFile4.txt"));
}

TEST_F(CadenceRoad, WideWhatAnEarlierImportLeftIsDeletedFirst) {
    setWidePaths();
    for (const char* name : {"CmdFile2.txt", "CadenceData3.txt"})
        folder.write(name, layerReport("board.mcm"));
    EXPECT_FALSE(reader.ImportCadenceFile(L"board.mcm"));
    EXPECT_FALSE(exists("CmdFile2.txt") || exists("CadenceData3.txt"));
}

TEST_F(CadenceRoad, AFolderThatHasTheNameOfAReportStays) {
    setPaths();
    folder.makeFolder("CmdFile2.txt");
    folder.makeFolder("CadenceData1.txt");
    reader.ImportCadenceFile("board.mcm");
    EXPECT_TRUE(exists("CmdFile2.txt") && exists("CadenceData1.txt"));
}

TEST_F(CadenceRoad, CommandFilesThatCannotBeWrittenEndTheImport) {
    setPaths();
    prepareRun1("board.mcm");
    folder.makeFolder("CmdFile3.txt");
    EXPECT_FALSE(reader.ImportCadenceFile("board.mcm"));
    EXPECT_EQ(readText(inFolder("CmdFile1.txt")), kCommandsOfRun1) << "the first file stays";
    reader.SetTempFilePath(folder.file("absent").c_str());
    EXPECT_FALSE(reader.ImportCadenceFile("board.mcm"));
    EXPECT_EQ(record(), "");
}

TEST_F(CadenceRoad, AMissingToolShowsInTheReports) {
    setPaths();
    reader.SetExeFilePath(folder.file("missing").c_str());
    EXPECT_FALSE(reader.ImportCadenceFile("board.mcm"));
    EXPECT_EQ(readText(inFolder("CmdFile1.txt")), kCommandsOfRun1);
    EXPECT_EQ(reader.GetComponentCount(), 0);
    reader.SetExeFilePath(temp.c_str());  // a folder
    EXPECT_FALSE(reader.ImportCadenceFile("board.mcm"));
    reader.SetExeFilePath(" ");
    EXPECT_FALSE(reader.ImportCadenceFile(" "));
}

TEST_F(CadenceRoad, AToolThatDoesNothing) {
    setPaths();
    EXPECT_FALSE(reader.ImportCadenceFile("stack.sip"));
    EXPECT_EQ(record(), run1("stack.sip") + run2("stack.sip"));
    EXPECT_EQ(readText(inFolder("CmdFile1.txt")), kCommandsOfRun1);
    EXPECT_EQ(bodiesOf(reader), "");
}

TEST_F(CadenceRoad, AToolThatFailsHalfWay) {
    setPaths();
    prepare("CmdFile1.run", "CmdFile1.txt", symbolReport("stack.sip"));
    EXPECT_FALSE(reader.ImportCadenceFile("stack.sip"));
    EXPECT_EQ(record(), run1("stack.sip") + run2("stack.sip"));
    EXPECT_EQ(bodiesOf(reader), "");
    prepareRun1("stack.sip");
    EXPECT_FALSE(reader.ImportCadenceFile("stack.sip"));  // the second run leaves its commands
    EXPECT_EQ(bodiesOf(reader), "SUBSTRATE at 0 0 0, 4 x 2 x 0\n");
}

TEST_F(CadenceRoad, ABlankInTheFolderBreaksTheCommandLine) {
    folder.makeFolder("my files");
    reader.SetExeFilePath(tool.c_str());
    reader.SetTempFilePath(folder.file("my files").c_str());
    EXPECT_FALSE(reader.ImportCadenceFile("board.mcm"));
    const std::string files = std::string("files") + kSeparator;
    const std::string my = inFolder("my");
    EXPECT_EQ(record(), run({tool, "board.mcm", my, files + "CmdFile1.txt", my,
                             files + "CadenceData1.txt", my, files + "CadenceData2.txt"},
                            ""));
    EXPECT_EQ(readText(folder.path() / "my files" / "CmdFile1.txt"), kCommandsOfRun1);
}

TEST_F(CadenceRoad, BlanksInTheDesignSplitItAndQuotesDoNotHelp) {
    setPaths();
    EXPECT_FALSE(reader.ImportCadenceFile(("  \"a   " + inFolder("b.mcm\" ")).c_str()));
    EXPECT_EQ(record(), run({tool, "\"a", inFolder("b.mcm\""), inFolder("CmdFile1.txt"),
                             inFolder("CadenceData1.txt"), inFolder("CadenceData2.txt")},
                            ""));
}

TEST_F(CadenceRoad, AFolderTextIsUsedAsItStands) {
    reader.SetExeFilePath(tool.c_str());
    reader.SetTempFilePath((temp + kSeparator).c_str());
    prepareRun1("board.mcm");
    EXPECT_TRUE(reader.ImportCadenceFile("board.mcm"));
    const std::string doubled = temp + kSeparator + kSeparator;
    EXPECT_EQ(record(), run({tool, "board.mcm", doubled + "CmdFile1.txt",
                             doubled + "CadenceData1.txt", doubled + "CadenceData2.txt"},
                            kCommandsOfRun1));
}

TEST_F(CadenceRoad, ACommandLineMayBeLong) {
    setPaths();
    prepareRun1("board.mcm");
    const std::string design = std::string(9000, 'x') + ".mcm";
    EXPECT_TRUE(reader.ImportCadenceFile(design.c_str()));
    EXPECT_EQ(record(), run1(design));
}

TEST_F(CadenceRoad, WideACommandLineMayBeLong) {
    setWidePaths();
    prepareRun1("board.mcm");
    const std::string design = std::string(9000, 'x') + ".mcm";
    EXPECT_TRUE(reader.ImportCadenceFile(std::wstring(design.begin(), design.end()).c_str()));
    EXPECT_EQ(record(), run1(design));
}

TEST_F(CadenceRoad, ACommandLineTooLongForTheSystemRunsNothing) {
    setPaths();
    prepareRun1("board.mcm");
    EXPECT_FALSE(reader.ImportCadenceFile((std::string(9'000'000, 'x') + ".mcm").c_str()));
    EXPECT_EQ(record(), "");
}

TEST_F(CadenceRoad, ASecondImportReplacesTheBodies) {
    setPaths();
    prepareRun1("stack.sip");
    prepareRun2();
    ASSERT_TRUE(reader.ImportCadenceFile("stack.sip"));
    EXPECT_EQ(bodiesOf(reader), kSipBodies);
    prepareRun1("board.mcm");
    ASSERT_TRUE(reader.ImportCadenceFile("board.mcm"));
    EXPECT_EQ(bodiesOf(reader), kMcmBodies);
    std::filesystem::remove(folder.path() / "CmdFile1.run/CmdFile2.txt");
    EXPECT_FALSE(reader.ImportCadenceFile("board.mcm"));
    EXPECT_EQ(bodiesOf(reader), kMcmBodies) << "the reports come before the bodies";
}

TEST_F(CadenceRoad, CleanMemoryForgetsTheTool) {
    setPaths();
    prepareRun1("board.mcm");
    ASSERT_TRUE(reader.ImportCadenceFile("board.mcm"));
    reader.CleanMemory();
    EXPECT_FALSE(reader.ImportCadenceFile("board.mcm"));
    EXPECT_EQ(record(), run1("board.mcm"));
    EXPECT_EQ(reader.GetComponentCount(), 0);
}

}  // namespace
}  // namespace kvocaeio::test
