/// Lines, cells, columns and units of the extraction reports.
#include <gtest/gtest.h>
#include <utility>

#include "package/cadence_reports.h"

namespace kvocaeio::test {
namespace {

/// Whether a second report is one; the first names a .brd design, which asks nothing more of it.
bool isReport(const std::string& report2) {
    return imported(job("a.brd"), report2) == "true\n";
}

/// The bodies of an .mcm design with these symbol rows.
std::string bodiesOfRows(const std::string& rows) {
    return imported(symbols("a.mcm", rows), layers("a.mcm"));
}

/// An .mcm design whose bodies have no height.
const std::string kBoth = "true\n" + kFlatSubstrate + kFlatDie;

/// A line without its line end, made `length` long by text behind its last delimiter.
std::string padded(std::string line, std::size_t length) {
    line.erase(line.find_last_not_of('\n') + 1);
    line.resize(length, 'x');
    return line;
}

TEST(CadenceTables, EachLineThatCountsHasATagAndCells) {
    EXPECT_EQ(bodiesOfRows(kSubstrateRow + kDieRow), kBoth);
}

TEST(CadenceTables, EmptyCellsAreCells) {
    EXPECT_EQ(bodiesOfRows("S!DIE!!!!2!1!!!!!!\n"), "true\n at 1 0.5 0, 2 x 1 x 0\n");
}

TEST(CadenceTables, CellsAreTakenLiterally) {
    EXPECT_EQ(bodiesOfRows("S! BGA!B!0!0!0!0!RECTANGLE!0!0!4!2!\n"), "true\n");
    EXPECT_EQ(bodiesOfRows("S!BGA !B!0!0!0!0!RECTANGLE!0!0!4!2!\n"), "true\n");
    EXPECT_EQ(bodiesOfRows("S!\"DIE\"!Chip!0!0!2!1!!!!!!\n"), "true\n");
    EXPECT_EQ(bodiesOfRows("S!DIE!  \"Flip\\\tchip\" é, !0!0!2!1!!!!!!\n"),
              "true\n  \"Flip\\\tchip\" é,  at 1 0.5 0, 2 x 1 x 0\n");
}

TEST(CadenceTables, TextBehindTheLastDelimiterIsDropped) {
    EXPECT_EQ(imported(padded(kSymbolHeader, 300) + "\n" + padded(job("a.mcm"), 100) + "\n" +
                           padded(kSubstrateRow, 90) + "\n" + padded(kDieRow, 90),
                       layers("a.mcm") + "no line end"),
              kBoth);
}

TEST(CadenceTables, ADataLineHasAsManyCellsAsTheHeader) {
    EXPECT_TRUE(isReport("A!X!Y!\nS!1!2!\n"));
    EXPECT_FALSE(isReport("A!X!Y!\nS!1!2\n")) << "the 2 belongs to no cell";
    EXPECT_FALSE(isReport("A!X!Y!\nS!1!\n"));
    EXPECT_FALSE(isReport("A!X!Y!\nS!1!2!3!\n"));
    EXPECT_FALSE(isReport("A!X!Y!\nS!1!2!\nS!\n"));
    EXPECT_TRUE(isReport("A!\nS!\nS!\n"));
    EXPECT_EQ(bodiesOfRows(kSubstrateRow + changed(kDieRow, "9!\n", "9\n")), "false\n");
}

TEST(CadenceTables, TheHeaderComesBeforeTheData) {
    EXPECT_FALSE(isReport("S!1!2!\nA!X!Y!\n"));
    EXPECT_FALSE(isReport("S!\n"));
    EXPECT_TRUE(isReport("J!1!\nA!X!Y!\nJ!\nS!1!2!\nJ!3!4!5!\n")) << "a job line stands anywhere";
}

TEST(CadenceTables, SeveralHeaderLinesAddUp) {
    EXPECT_TRUE(isReport("A!X!\nA!Y!\nS!1!A!2!\n"));
    EXPECT_FALSE(isReport("A!X!\nA!Y!\nS!1!\n"));
    EXPECT_FALSE(isReport("A!X!\nA!Y!\nS!1!2!\n"));
    EXPECT_TRUE(isReport("A!X!\nS!1!\nA!Y!\nS!1!A!2!\n")) << "the header of that moment counts";
    std::string split = changed(kSymbolHeader, "!SYM_BOX_Y2", "!\nA!SYM_BOX_Y2");
    EXPECT_EQ(imported(split + job("a.mcm") + changed(kDieRow, "2!1!", "2!!1!"), layers("a.mcm")),
              "true\n" + kFlatDie);
}

TEST(CadenceTables, RowsAreCutByTheHeaderAsItIsInTheEnd) {
    const std::string wider = "A!2!3!4!5!6!7!8!9!10!11!12!\n";  // two rows make one
    EXPECT_EQ(bodiesOfRows(kSubstrateRow + kDieRow + wider), "true\n" + kFlatSubstrate);
    EXPECT_EQ(bodiesOfRows(kDieRow + wider), "true\n");
}

TEST(CadenceTables, SeveralJobLinesAddUp) {
    const std::string inTwo = "J!a.mcm!2!3!4!5!\nJ!7!inch!9!10!11!12!\n";  // 6 and 7 cells
    EXPECT_EQ(imported(kSymbolHeader + inTwo + kDieRow, layers("a.mcm")),
              "true\nChip at 25.4 12.7 0, 50.8 x 25.4 x 0\n");
    EXPECT_EQ(imported(job("a.brd") + "J!\n", ""), "false\n") << "14 cells";
}

TEST(CadenceTables, LinesWithoutDelimiterAreSkipped) {
    EXPECT_TRUE(isReport(""));
    EXPECT_TRUE(isReport("\n\nGEOMETRY\nREFDES\nEND\n\nS\nanything 1 2 3"));
    EXPECT_EQ(imported("# note\n\n" + kSymbolHeader + "\n" + job("a.mcm") + "S\n" + kSubstrateRow +
                           "---\n" + kDieRow + "\n",
                       layers("a.mcm")),
              kBoth);
    EXPECT_EQ(imported("GEOMETRY\nREFDES\nEND\n", layers("a.mcm")), "false\n") << "no unit";
}

TEST(CadenceTables, AnUnknownTagEndsTheImport) {
    for (const char* line : {"X!a!", "AB!a!", "!", "!a!", "!A!", "a!b!", "s!", "j!1!", "A !a!",
                             " A!a!", "AA!", "JS!1!", "1!", "-!"}) {
        EXPECT_FALSE(isReport(line)) << line;
        EXPECT_FALSE(isReport(std::string("A!X!\nJ!1!\nS!1!\n") + line + "\n")) << line;
        EXPECT_EQ(imported(job("a.brd") + line + "\n", ""), "false\n") << line;
    }
    EXPECT_TRUE(isReport("A!X!\nJ!1!\nS!!\n"));
}

TEST(CadenceTables, ALineOf1023CharactersArrivesWhole) {
    for (const std::size_t length : {1021U, 1022U, 1023U}) {
        std::string row = "S!DIE!!0!0!2!1!L!7!7!9!!";
        const std::string name(length - row.size(), 'n');
        row.insert(6, name);
        ASSERT_EQ(row.size(), length);
        EXPECT_EQ(bodiesOfRows(row + "\n" + kSubstrateRow),
                  "true\n" + name + " at 1 0.5 0, 2 x 1 x 0\n" + kFlatSubstrate)
            << length;
        EXPECT_EQ(bodiesOfRows(row), "true\n" + name + " at 1 0.5 0, 2 x 1 x 0\n") << length;
        row.insert(6, 1024 - length, 'n');
        EXPECT_EQ(bodiesOfRows(row + "\n"), "false\n") << "1024: the last delimiter is cut off";
    }
}

TEST(CadenceTables, ALongLineArrivesInPieces) {
    EXPECT_EQ(bodiesOfRows(padded(kSubstrateRow, 1024) + "\n" + padded(kDieRow, 5000) + "\n"),
              kBoth)
        << "pieces without delimiter are skipped";
    EXPECT_EQ(bodiesOfRows(padded(kSubstrateRow, 1023) + kDieRow), kBoth);
    EXPECT_EQ(bodiesOfRows(padded(kSubstrateRow, 2046) + kDieRow), kBoth);
    EXPECT_EQ(bodiesOfRows(padded(kSubstrateRow, 1022) + kDieRow), "false\n") << "\"!DIE\"";
    EXPECT_EQ(bodiesOfRows(padded(kSubstrateRow, 1024) + kDieRow), "false\n") << "\"xS!DIE\"";
    EXPECT_EQ(bodiesOfRows(padded(kSubstrateRow, 2045) + kDieRow), "false\n");
    EXPECT_TRUE(isReport("J!" + std::string(1021, 'x') + "y\n"));
    EXPECT_FALSE(isReport("J!" + std::string(1021, 'x') + "!\n"));
    EXPECT_TRUE(isReport("J!" + std::string(1021, 'x') + "J!\n"));
    EXPECT_FALSE(isReport("J!" + std::string(1021, 'x') + "X!\n"));
}

TEST(CadenceTables, ANulEndsTheLine) {
    const std::string nul(1, '\0');
    EXPECT_EQ(bodiesOfRows(changed(kSubstrateRow, "!\n", "!" + nul + "X!\n") + kDieRow), kBoth);
    EXPECT_EQ(bodiesOfRows(kSubstrateRow + nul + kDieRow), "true\n" + kFlatSubstrate);
    EXPECT_EQ(bodiesOfRows(changed(kDieRow, "Chip", "Ch" + nul + "ip")), "false\n");
    EXPECT_TRUE(isReport(nul + "X!\nJ" + nul + "!\nX" + nul + "!\n"));
}

TEST(CadenceTables, LineEndsAreThoseOfTextMode) {
    std::string crlf = symbols("a.mcm", padded(kSubstrateRow, 1022) + "\n" + kDieRow);
    for (std::size_t at = 0; (at = crlf.find('\n', at)) != std::string::npos; at += 2)
        crlf.insert(at, "\r");
    EXPECT_EQ(imported(crlf, layers("a.mcm")), kBoth);
    EXPECT_EQ(bodiesOfRows(changed(kDieRow, "Chip", "Ch\rip")),
              "true\nCh\rip at 1 0.5 0, 2 x 1 x 0\n");
    EXPECT_EQ(bodiesOfRows(changed(kDieRow, "!\n", "!\r") + kSubstrateRow), "false\n")
        << "a lone CR ends no line";
    EXPECT_EQ(bodiesOfRows(kSubstrateRow + "\x1A" + kDieRow), "true\n" + kFlatSubstrate);
    EXPECT_TRUE(isReport("A!X!\n\x1AX!\n"));
}

TEST(CadenceTables, ColumnsStandInAnyOrderAndCase) {
    EXPECT_EQ(imported("A!graphic_data_4!Graphic_Data_3!SYM_BOX_y2!REFDES!sym_box_x2!X!SYM_NAME!"
                       "Sym_Box_Y1!Graphic_Data_Name!sYM_bOX_x1!Graphic_Data_2!Graphic_Data_1!\n" +
                           job("a.mcm") +
                           "S!2!4!9!bga!9!-!B!7!RECTANGLE!7!0!0!\n"
                           "S!9!9!1!die!2!-!Chip!0!LINE!0!7!7!\n",
                       layers("a.mcm")),
              kBoth);
}

TEST(CadenceTables, TheFirstOfTwoEqualColumnsCounts) {
    EXPECT_EQ(imported(changed(kSymbolHeader, "!\n", "!Sym_Name!REFDES!\n") + job("a.mcm") +
                           changed(kDieRow, "!\n", "!Other!BGA!\n"),
                       layers("a.mcm")),
              "true\n" + kFlatDie);
}

TEST(CadenceTables, AColumnIsFoundByItsWholeName) {
    for (const char* name : {"REF_DES", "REFDES ", " REFDES", "REFDES1", "REFDE", ""})
        EXPECT_EQ(imported(changed(kSymbolHeader, "REFDES", name) + job("a.mcm") + kDieRow,
                           layers("a.mcm")),
                  "false\n")
            << name;
    EXPECT_EQ(imported(changed(kSymbolHeader, "REFDES", "refdes") + job("a.mcm") + kDieRow,
                       layers("a.mcm")),
              "true\n" + kFlatDie);
}

TEST(CadenceTables, TheUnitIsThatOfTheFirstTestThatHits) {
    const std::pair<const char*, const char*> units[] = {
        {"MM", "1"},
        {"mm", "1"},
        {"Millimeters", "1"},
        {"xMMx", "1"},
        {"UMM", "1"},
        {"UM MM", "1"},
        {"INCH mm", "1"},
        {"NM,MILLIMETERS", "1"},
        {"UM MILLIMETERS", "1"},
        {"UM", "0.001"},
        {"um", "0.001"},
        {"MICRONS", "0.001"},
        {"NM UM", "0.001"},
        {"NM microns", "0.001"},
        {"INCH UM", "0.001"},
        {"INCH MICRONS", "0.001"},
        {"NM", "1e-06"},
        {"nm", "1e-06"},
        {"NANOMETERS", "1e-06"},
        {"INCH NM", "1e-06"},
        {"inch Nanometers", "1e-06"},
        {"INCH", "25.4"},
        {"INCHS", "25.4"},
        {"inches", "25.4"},
        {"1 INCH", "25.4"},
        {"MILS", "0.001"},
        {"", "0.001"},
        {"M M", "0.001"},
        {"CM", "0.001"},
        {"INC", "0.001"},
        {"INCH N M", "25.4"},
        {"METERS", "0.001"},
        {"NANOMETER INCH", "25.4"},
        {"MILLIMETER", "0.001"},
        {"MICRON INCH", "25.4"},
    };
    for (const auto& [unit, scale] : units)
        EXPECT_EQ(imported(symbols("a.mcm", "S!DIE!Chip!0!0!1!0!!!!!!\n", unit), layers("")),
                  std::string("true\nChip at ") +
                      (std::string(scale) == "25.4"    ? "12.7"
                       : std::string(scale) == "1"     ? "0.5"
                       : std::string(scale) == "0.001" ? "0.0005"
                                                       : "5e-07") +
                      " 0 0, " + scale + " x 0 x 0\n")
            << unit;
}

TEST(CadenceTables, TheUnitIsInCellEightOfTheFirstReportAlone) {
    const std::string others = "J!a.mcm!MM!MM!MM!MM!MM!MM!inch!MM!MM!MM!MM!\n";
    EXPECT_EQ(imported(kSymbolHeader + others + kDieRow, kLayerHeader + job("a.mcm", "NM")),
              "true\nChip at 25.4 12.7 0, 50.8 x 25.4 x 0\n");
}

TEST(CadenceTables, TheJobHasThirteenCells) {
    EXPECT_EQ(imported(job("a.brd"), ""), "true\n");
    EXPECT_EQ(imported(changed(job("a.brd"), "12!\n", "12\n"), ""), "false\n") << "12 cells";
    EXPECT_EQ(imported(changed(job("a.brd"), "12!\n", "12!13!\n"), ""), "false\n") << "14 cells";
    EXPECT_EQ(imported(kSymbolHeader, ""), "false\n") << "none";
}

TEST(CadenceTables, ReportsOneAndTwoMustBeThere) {
    const std::string first = symbols("a.brd", ""), second = layers("a.brd");
    EXPECT_EQ(imported(first, second), "true\n");
    EXPECT_EQ(imported({}, second, stack("")), "false\n");
    EXPECT_EQ(imported(first, {}, stack("")), "false\n");
    EXPECT_EQ(imported(first, second + "X!\n", stack("")), "false\n");
    EXPECT_EQ(imported(first + "X!\n", second, stack("")), "false\n");
}

TEST(CadenceTables, AReportThatIsAFolderCannotBeRead) {
    ReportFolder reports;
    ASSERT_EQ(reports.import(job("a.brd"), ""), "true\n");
    std::filesystem::remove(reports.folder.path() / "CmdFile2.txt");
    reports.folder.makeFolder("CmdFile2.txt");
    EXPECT_FALSE(reports.reader.ImportCadenceFile(""));
}

TEST(CadenceTables, ABadThirdReportIsReadUpToItsBadLine) {
    const std::string first = symbols("a.sip", ""), second = layers("a.sip");
    const std::string row = "S!SPACER!Gap!0!0!1!1!0!2!\n", body = "Gap at 0.5 0.5 1, 1 x 1 x 2\n";
    for (const char* bad : {"X!\n", "S!SPACER!Short!0!\n", "!\n", "s!\n"})
        EXPECT_EQ(imported(first, second, stack(row + row + bad + row)), "true\n" + body + body)
            << bad;
    EXPECT_EQ(imported(symbols("a.mcm", kDieRow), second, "X!\n"), "true\n" + kFlatDie);
    EXPECT_EQ(imported(first, second, row + kStackHeader), "false\n") << "no header";
}

TEST(CadenceTables, TheCellsOfABadDataLineStay) {
    const std::string first = symbols("a.sip", ""), second = layers("a.sip");
    const std::string twoInOne = "S!SPACER!Gap!0!0!1!1!0!2!S!DIE!Top!0!0!3!1!0!2!left!\n";
    EXPECT_EQ(imported(first, second, stack(twoInOne)),
              "true\nGap at 0.5 0.5 1, 1 x 1 x 2\nTop at 1.5 0.5 1, 3 x 1 x 2\n");
}

}  // namespace
}  // namespace kvocaeio::test
