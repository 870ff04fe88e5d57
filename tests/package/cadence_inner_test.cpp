/// The stages of a Cadence import one by one: tables, columns, units, and what each asks for.
#include <gtest/gtest.h>
#include <initializer_list>
#include <stdexcept>
#include <vector>

#include "package/cadence_reports.h"
#include "package/reader_imp.h"

namespace kvocaeio::test {
namespace {

using package::CellList;
using package::CKVOCadenceReaderImp;
using package::ComponentRecord;
using package::ComponentType;
using package::InputFile;
using package::Report;
using Cells = std::vector<std::string>;

Cells cellsOf(const CellList& list) {
    Cells cells;
    for (std::size_t c = 0; c < list.size(); ++c)
        cells.emplace_back(list.at(c));
    return cells;
}

/// A model with tables, and reports to read into them.
class CadenceStages : public testing::Test {
  protected:
    CadenceStages() { makeTables(); }

    void makeTables() { model.reportTables.emplace(); }
    bool read(std::size_t index, const std::string& report) {
        const std::string path = folder.write("report.txt", report);
        InputFile file(path.c_str());
        const bool result = model.ReadReportFile(file, index);
        EXPECT_EQ(file.stream, nullptr) << "the file is closed, however it ends";
        return result;
    }
    Report& report(std::size_t index) { return (*model.reportTables)[index]; }
    Cells header(std::size_t index) { return cellsOf(report(index).headerCells); }
    Cells jobs(std::size_t index) { return cellsOf(report(index).jobCells); }
    Cells data(std::size_t index) { return cellsOf(report(index).dataCells); }
    bool bodiesAreThere() {
        model.components.emplace();
        return true;
    }

    template <class Stage>
    static std::string thrownBy(const Stage& stage) {
        try {
            stage();
        } catch (const std::out_of_range& error) {
            return error.what();
        }
        return "nothing";
    }

    TempFolder folder;
    CKVOCadenceReaderImp model;
};

TEST_F(CadenceStages, CellsComeWithTheirTagsIntoTheirReportsLists) {
    EXPECT_TRUE(read(0, "A!X!y y!!\nJ!1!\nS!a!!c!rest\n\nS!!!!\nA!Z!\nJ!2!"));
    EXPECT_EQ(header(0), (Cells{"A", "X", "y y", "", "A", "Z"}));
    EXPECT_EQ(jobs(0), (Cells{"J", "1", "J", "2"}));
    EXPECT_EQ(data(0), (Cells{"S", "a", "", "c", "S", "", "", ""}));
    EXPECT_TRUE(read(2, "J!3!\n"));
    EXPECT_EQ(jobs(2), (Cells{"J", "3"}));
    EXPECT_EQ(jobs(0).size(), 4U);
    EXPECT_EQ(header(1), Cells{});
    EXPECT_EQ(header(2), Cells{});
}

TEST_F(CadenceStages, AReportThatFailsLeavesItsCells) {
    EXPECT_FALSE(read(1, "A!X!Y!\nJ!1!\nS!a!b!\nS!c!\nS!d!e!\n"));
    EXPECT_EQ(header(1), (Cells{"A", "X", "Y"}));
    EXPECT_EQ(jobs(1), (Cells{"J", "1"}));
    EXPECT_EQ(data(1), (Cells{"S", "a", "b", "S", "c"})) << "those of the bad data line, too";
    EXPECT_FALSE(read(0, "A!X!\nQ!a!\nA!Y!\n"));
    EXPECT_EQ(header(0), (Cells{"A", "X"}));
    EXPECT_EQ(data(0), Cells{}) << "nothing of a line without a kind";
}

TEST_F(CadenceStages, AReportIsAddedToWhatIsThere) {
    EXPECT_TRUE(read(0, "A!X!\nJ!1!\n"));
    EXPECT_TRUE(read(0, "S!a!\nA!Y!\nS!a!b!c!\n"));
    EXPECT_EQ(header(0), (Cells{"A", "X", "A", "Y"}));
    EXPECT_EQ(data(0), (Cells{"S", "a", "S", "a", "b", "c"}));
}

TEST_F(CadenceStages, CellsOfLongLinesAreCutWithTheirPieces) {
    const std::string x(600, 'x');
    const std::string y(419, 'y');  // fills the first piece to 1,023 characters
    EXPECT_TRUE(read(0, "J!" + x + "!" + y + "!J!z!\nJ!" + x + "!" + x));
    EXPECT_EQ(jobs(0), (Cells{"J", x, y, "J", "z", "J", x}));
    EXPECT_FALSE(read(1, "J!" + x + "!" + y.substr(1) + "!J!z!\n"));
    EXPECT_EQ(jobs(1), (Cells{"J", x, y.substr(1)})) << "the second piece has an empty tag";
}

TEST_F(CadenceStages, ReadingAsksForTheTables) {
    model.reportTables.reset();
    EXPECT_FALSE(read(0, "A!X!\n"));
    makeTables();
    EXPECT_TRUE(read(0, "A!X!\n"));
    InputFile missing(static_cast<const char*>(nullptr));
    EXPECT_FALSE(model.ReadReportFile(missing, 0));
}

TEST_F(CadenceStages, ReadingThreeReportsMakesNewTables) {
    ASSERT_TRUE(read(0, "A!old!\nJ!old!\nS!old!\n"));
    ASSERT_TRUE(read(2, "A!old!\n"));
    const std::string good = folder.write("good.txt", "A!X!\n"),
                      bad = folder.write("bad.txt", "Q!\n");
    const auto readThree = [&](const std::string& a, const std::string& b, const std::string& c) {
        InputFile file0(a.c_str()), file1(b.c_str()), file2(c.c_str());
        return model.ReadReportFiles(file0, file1, file2);
    };
    const std::string none = folder.file("none.txt");
    EXPECT_FALSE(readThree(none, good, good));
    for (std::size_t f = 0; f < 3; ++f)
        EXPECT_TRUE(header(f).empty() && jobs(f).empty() && data(f).empty()) << f;
    EXPECT_FALSE(readThree(good, bad, good));
    EXPECT_EQ(header(0), (Cells{"A", "X"}));
    EXPECT_TRUE(header(1).empty() && header(2).empty());
    EXPECT_TRUE(readThree(good, good, bad));
    EXPECT_TRUE(readThree(good, good, none));
    EXPECT_EQ(header(1), (Cells{"A", "X"}));
    EXPECT_TRUE(header(2).empty());
    EXPECT_TRUE(readThree(good, good, good));
    EXPECT_EQ(header(2), (Cells{"A", "X"}));
}

TEST_F(CadenceStages, AColumnIsFoundInAnyCaseByItsWholeName) {
    EXPECT_EQ(model.FindColumn(0, "A"), -1) << "no cells";
    ASSERT_TRUE(read(0, "A!refDes!SYM NAME!!x1!REFDES!\n"));
    ASSERT_TRUE(read(2, "A!x1!\n"));
    EXPECT_EQ(model.FindColumn(0, "REFDES"), 1);
    EXPECT_EQ(model.FindColumn(0, "refdes"), 1);
    EXPECT_EQ(model.FindColumn(0, "ref_des"), -1);
    EXPECT_EQ(model.FindColumn(0, "REFDE"), -1);
    EXPECT_EQ(model.FindColumn(0, "REFDES1"), -1);
    EXPECT_EQ(model.FindColumn(0, "Sym Name"), 2);
    EXPECT_EQ(model.FindColumn(0, ""), 3);
    EXPECT_EQ(model.FindColumn(0, "X1"), 4);
    EXPECT_EQ(model.FindColumn(2, "X1"), 1);
    EXPECT_EQ(model.FindColumn(0, "a"), 0) << "the tag stands among the names";
    EXPECT_EQ(model.FindColumn(1, "X1"), -1);
    EXPECT_EQ(model.FindColumn(0, nullptr), -1);
    model.reportTables.reset();
    EXPECT_EQ(model.FindColumn(0, "REFDES"), -1);
}

TEST_F(CadenceStages, UnitsAskForOneFullJobLine) {
    model.unitScale = 7.0;
    EXPECT_FALSE(model.ReadReportUnits());
    ASSERT_TRUE(read(1, job("a.mcm", "INCH")));
    EXPECT_FALSE(model.ReadReportUnits()) << "the first report's";
    ASSERT_TRUE(read(0, "J!1!2!3!4!5!6!7!INCH!9!10!11!\n"));
    EXPECT_FALSE(model.ReadReportUnits()) << "12 cells";
    EXPECT_EQ(model.unitScale, 7.0);
    ASSERT_TRUE(read(0, "J!\n"));
    EXPECT_TRUE(model.ReadReportUnits()) << "13 cells";
    EXPECT_EQ(model.unitScale, 25.4);
    ASSERT_TRUE(read(0, "J!\n"));
    EXPECT_FALSE(model.ReadReportUnits()) << "14 cells";
    model.reportTables.reset();
    EXPECT_FALSE(model.ReadReportUnits());
    EXPECT_EQ(model.unitScale, 25.4);
}

TEST_F(CadenceStages, UnitsAreExact) {
    for (const auto& [unit, scale] : std::initializer_list<std::pair<const char*, double>>{
             {"MM", 1.0}, {"UM", 0.001}, {"NM", 0.000001}, {"INCH", 25.4}, {"MILS", 0.001}}) {
        makeTables();
        ASSERT_TRUE(read(0, job("a.mcm", unit)));
        ASSERT_TRUE(model.ReadReportUnits());
        EXPECT_EQ(model.unitScale, scale) << unit;
    }
}

TEST_F(CadenceStages, TheDispatchAsksForTheJobAndMakesTheList) {
    EXPECT_FALSE(model.ReadReports());
    ASSERT_TRUE(read(0, "J!a.brd!2!3!4!5!6!7!8!9!10!11!\n"));
    EXPECT_FALSE(model.ReadReports()) << "12 cells";
    EXPECT_FALSE(model.components);
    ASSERT_TRUE(read(0, "J!\n"));
    EXPECT_TRUE(model.ReadReports());
    ASSERT_TRUE(model.components);
    model.components->append({});
    EXPECT_TRUE(model.ReadReports());
    EXPECT_EQ(model.components->size(), 0U);
    model.components.reset();
    makeTables();
    ASSERT_TRUE(read(0, job("")));
    EXPECT_FALSE(model.ReadReports());
    ASSERT_TRUE(model.components) << "made before the name is looked at";
    model.components.reset();
    model.reportTables.reset();
    EXPECT_FALSE(model.ReadReports());
    EXPECT_FALSE(model.components);
}

TEST_F(CadenceStages, NoStageRunsWithoutTheList) {
    ASSERT_TRUE(read(0, symbols("a.mcm", kSubstrateRow)));
    ASSERT_TRUE(read(1, layers("a.mcm")));
    ASSERT_TRUE(read(2, stack("")));
    EXPECT_FALSE(model.ReadSymbolReport());
    EXPECT_FALSE(model.ReadDieStackReport());
    EXPECT_FALSE(model.ReadLayerReport());
    makeTables();
    EXPECT_FALSE(model.ReadSymbolReport()) << "that is looked at before the job";
    EXPECT_FALSE(model.ReadLayerReport());
    EXPECT_FALSE(model.components);
}

TEST_F(CadenceStages, AJobOfOneCellThrows) {
    ASSERT_TRUE(bodiesAreThere());
    const std::string expected = "invalid vector<T> subscript";
    EXPECT_EQ(thrownBy([&] { model.ReadSymbolReport(); }), expected);
    EXPECT_EQ(thrownBy([&] { model.ReadLayerReport(); }), expected);
    ASSERT_TRUE(read(0, "J!\n" + kSymbolHeader));
    ASSERT_TRUE(read(1, "J!\n" + kLayerHeader));
    EXPECT_EQ(thrownBy([&] { model.ReadSymbolReport(); }), expected);
    EXPECT_EQ(thrownBy([&] { model.ReadLayerReport(); }), expected);
    EXPECT_EQ(thrownBy([&] { EXPECT_FALSE(model.ReadDieStackReport()); }), "nothing");
    ASSERT_TRUE(read(0, "J!\n"));
    ASSERT_TRUE(read(1, "J!\n"));
    EXPECT_TRUE(model.ReadSymbolReport());
    EXPECT_TRUE(model.ReadLayerReport());
}

TEST_F(CadenceStages, RecordsCarryTheirType) {
    ASSERT_TRUE(bodiesAreThere());
    ASSERT_TRUE(read(0, symbols("a.mcm", kSubstrateRow + kDieRow)));
    ASSERT_TRUE(read(2, stack("S!DIE!!!!!!!!\nS!INTERPOSER!!!!!!!!\nS!SPACER!!!!!!!!\n")));
    EXPECT_TRUE(model.ReadSymbolReport());
    EXPECT_TRUE(model.ReadDieStackReport());
    std::vector<int> types;
    for (std::size_t c = 0; c < model.components->size(); ++c)
        types.push_back(static_cast<int>(model.components->shape(c).type));
    EXPECT_EQ(types, (std::vector<int>{1, 2, 2, 3, 4}));
}

TEST_F(CadenceStages, OnlyMcmDiesGetAHeightFromTheLayers) {
    ASSERT_TRUE(bodiesAreThere());
    for (int type = 1; type <= 6; ++type) {
        ComponentRecord record;
        record.type = static_cast<ComponentType>(type);
        record.center[2] = 1.0;
        record.size[2] = 2.0;
        model.components->append(record);
    }
    ASSERT_TRUE(
        read(1, layers("a.mcm", layer("DIESTACK", "1000 MIL") + layer("CONDUCTOR", "2000 MIL"))));
    EXPECT_TRUE(model.ReadLayerReport());
    std::vector<double> centers, sizes;
    for (std::size_t c = 0; c < model.components->size(); ++c) {
        centers.push_back(model.components->shape(c).center[2]);
        sizes.push_back(model.components->shape(c).size[2]);
    }
    EXPECT_EQ(centers, (std::vector<double>{25.4, 63.5, 51.8, 51.8, 51.8, 51.8}));
    EXPECT_EQ(sizes, (std::vector<double>{50.8, 25.4, 2, 2, 2, 2}));
}

TEST_F(CadenceStages, EachReportsPathIsChosenByItself) {
    const std::string first = folder.write("1", symbols("a.sip", kSubstrateRow));
    const std::string second = folder.write("2", layers("a.sip"));
    const std::string third = folder.write("3", stack("S!DIE!d!0!0!2!2!1!2!\n"));
    const std::string paths[] = {first, second, third};
    for (unsigned wide = 0; wide < 8; ++wide) {
        for (std::size_t f = 0; f < 3; ++f) {
            const bool isWide = (wide >> f & 1) != 0;
            model.paths.commandFiles[f] = isWide ? folder.file("none") : paths[f];
            model.pathsW.commandFiles[f] =
                isWide ? std::filesystem::path(paths[f]).wstring() : std::wstring();
        }
        InputFile design("unused");
        EXPECT_TRUE(model.ImportCadenceFile(design)) << wide;
        EXPECT_EQ(model.components->size(), 2U) << wide;
    }
}

TEST_F(CadenceStages, CommandsAreWrittenByTheNarrowPathsOfOneAndThree) {
    EXPECT_FALSE(model.WriteCommandFiles());
    for (std::size_t f = 0; f < 3; ++f)
        model.pathsW.commandFiles[f] = (folder.path() / std::to_string(f)).wstring();
    EXPECT_FALSE(model.WriteCommandFiles());
    model.paths.commandFiles[0] = folder.file("first");
    model.paths.commandFiles[1] = folder.file("second");
    EXPECT_FALSE(model.WriteCommandFiles());
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "first"));
    model.paths.commandFiles[2] = folder.write("third", "a longer text that was there before");
    EXPECT_TRUE(model.WriteCommandFiles());
    EXPECT_EQ(readText(folder.path() / "third"), "DIE_STACK_DEF\n");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "second"));
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "0"));
}

}  // namespace
}  // namespace kvocaeio::test
