/// Imports that somebody listens to leave the same model as those that nobody does; one that is
/// stopped, at whichever block, fails and leaves a model that can be used again.
#include <bit>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "package/audit.h"
#include "package/cadence_generator.h"
#include "package/cadence_reports.h"
#include "package/findings.h"
#include "package/import_3di.h"
#include "package/import_cadence.h"
#include "package/imported_package.h"
#include "package/package_generator.h"
#include "report/import_report.h"
#include "support/failing_reads.h"
#include "support/files.h"
#include <kvocaeio/package.h>
#include <kvocaeio/report.h>

namespace kvocaeio::test {
namespace {

using package::InputFile;
using package::Model;

constexpr std::uint64_t kFirstSeed = 20241121;
// File work is several times as slow under Wine, and so is everything under a sanitizer.
#if defined(_WIN32) || !defined(NDEBUG)
constexpr std::uint64_t kFiles = 300;
constexpr std::uint64_t kStoppedFiles = 2;
#else
constexpr std::uint64_t kFiles = 3000;
constexpr std::uint64_t kStoppedFiles = 10;
#endif

void put(std::string& out, double value) {
    // Any two that are no numbers are the same.
    out += value != value ? " nan" : " " + std::to_string(std::bit_cast<std::uint64_t>(value));
}
void put(std::string& out, std::integral auto value) {
    out += " " + std::to_string(value);
}
void put(std::string& out, const std::string& value) {
    out += " '" + value + "'";
}

template <class T>
void put(std::string& out, const package::ChunkedList<T>& list) {
    for (std::size_t i = 0; i < list.size(); ++i)
        put(out, list[i]);
    out += "\n";
}

template <class T>
void put(std::string& out, const package::IdTable<T>& table) {
    put(out, table.size());
    for (const auto& [id, entry] : table.rows()) {
        put(out, id);
        put(out, entry);
    }
    out += "\n";
}

void put(std::string& out, const package::CellList& list) {
    for (std::size_t i = 0; i < list.size(); ++i)
        put(out, std::string(list[i]));
    out += "\n";
}

/// All that an import fills, but for the two counts that go on from import to import.
std::string tablesOf(const Model& model) {
    std::string out;
    put(out, model.unitScale);
    put(out, model.colorTable);
    put(out, model.objectNames);
    put(out, model.layerNames);
    put(out, model.wirePoints);
    put(out, model.wireFirstPoint);
    put(out, model.wireProfile);
    put(out, model.wireDiameter);
    put(out, model.wireColorId);
    if (model.wireProfileNames)
        put(out, *model.wireProfileNames);
    if (model.components)
        for (std::size_t i = 0; i < model.components->size(); ++i) {
            const package::ComponentShape& shape = model.components->shape(i);
            put(out, std::string(model.components->name(i)));
            put(out, static_cast<int>(shape.type));
            put(out, shape.color);
            for (std::size_t axis = 0; axis < 3; ++axis) {
                put(out, shape.center[axis]);
                put(out, shape.size[axis]);
            }
        }
    if (model.reportTables)
        for (const package::Report& report : *model.reportTables) {
            put(out, report.headerCells);
            put(out, report.jobCells);
            put(out, report.dataCells);
        }
    return out;
}

/// What every import must leave, however it ends.
void expectSound(const Model& model) {
    const std::size_t stored = model.wireFirstPoint.size();
    EXPECT_EQ(model.wireProfile.size(), stored);
    EXPECT_EQ(model.wireDiameter.size(), stored);
    EXPECT_EQ(model.wireColorId.size(), stored);
    EXPECT_LE(stored, static_cast<std::size_t>(model.wireCount));
    EXPECT_EQ(model.wirePoints.size() % 3, 0U);
    const int last = stored == 0 ? 0 : model.wireFirstPoint[stored - 1];
    EXPECT_LE(static_cast<std::size_t>(last), model.wirePoints.size() / 3);
}

/// A host that stops at the block of this number, counted over all passes.
struct Host {
    explicit Host(std::size_t lastBlock = static_cast<std::size_t>(-1)) : last(lastBlock) {
        watch.host = this;
        watch.goesOn = [](void* host, std::size_t) {
            auto* const self = static_cast<Host*>(host);
            return self->asked++ < self->last;
        };
    }
    std::size_t last;
    std::size_t asked = 0;
    text::Watch watch;
};

class PackageListener : public testing::Test {
  protected:
    static std::string import3di(const std::string& path, Model& model,
                                 const text::Listener& listener) {
        InputFile file(path.c_str());
        return outcomeOf([&] { return package::import3di(file, model, listener); });
    }
    static std::string importReports(Model& model, const text::Listener& listener) {
        InputFile design("unused");
        return outcomeOf([&] { return package::importCadence(design, model, listener); });
    }

    /// Imports twice into a model each, with a listener and without.
    template <class Import>
    void expectAlike(const Import& import, const std::string& what) {
        Model heard = fresh();
        Model unheard = fresh();
        for (int round = 0; round < 2; ++round) {
            report::ImportReport report;
            const text::Findings& findings = report.findings;
            Host host;
            const std::string outcome = import(heard, {&report.findings, &host.watch});
            package::auditPackage(heard, report);
            ASSERT_EQ(outcome, import(unheard, {})) << what;
            ASSERT_EQ(tablesOf(heard), tablesOf(unheard)) << what;
            ASSERT_EQ(heard.wireCount, unheard.wireCount) << what;
            ASSERT_EQ(heard.wireProfileMax, unheard.wireProfileMax) << what;
            EXPECT_FALSE(host.watch.stopped);
            for (std::size_t row = 0; row < findings.entryCount(); ++row)
                noted.insert(std::string(findings.entry(row).kind->code));
        }
    }

    /// Stops an import at each of its blocks in turn, and imports again into the same model.
    template <class Import>
    void expectToStopAtEachBlock(const Import& import, std::size_t leastBlocks) {
        Model whole = fresh();
        Host counting;
        ASSERT_EQ(import(whole, {nullptr, &counting.watch}), "true");
        ASSERT_GE(counting.asked, leastBlocks);
        for (std::size_t last = 0; last < counting.asked; ++last) {
            Model model = fresh();
            text::Findings findings;
            Host host(last);
            ASSERT_EQ(import(model, {&findings, &host.watch}), "false") << "block " << last;
            EXPECT_TRUE(host.watch.stopped);
            EXPECT_EQ(host.asked, last + 1) << "it is not asked again";
            expectSound(model);
            ASSERT_EQ(import(model, {}), "true") << "block " << last;
            ASSERT_EQ(tablesOf(model), tablesOf(whole)) << "block " << last;
        }
    }

    Model fresh() const {
        Model model;
        for (std::size_t r = 0; r < 3; ++r)
            model.paths.commandFiles[r] = folder.file("CmdFile" + std::to_string(r + 1) + ".txt");
        return model;
    }
    void lay(const ReportTriple& reports) {
        for (std::size_t r = 0; r < 3; ++r) {
            const std::string name = "CmdFile" + std::to_string(r + 1) + ".txt";
            std::filesystem::remove(folder.path() / name);
            if (reports[r])
                folder.write(name, *reports[r]);
        }
    }

    TempFolder folder;
    std::set<std::string> noted;
};

TEST_F(PackageListener, ChangesNothingIn3diFiles) {
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + kFiles; ++seed) {
        PackageGenerator generator(seed);
        const std::string path =
            folder.write("package.3di", seed % 100 == 0 ? generator.largeFile() : generator.file());
        expectAlike(
            [&](Model& model, const text::Listener& to) { return import3di(path, model, to); },
            "seed " + std::to_string(seed));
        std::filesystem::remove(path);
        if (HasFatalFailure())
            return;
    }
    EXPECT_GE(noted.size(), 50U) << "nearly all kinds but those of reports are reached";
}

TEST_F(PackageListener, ChangesNothingInReports) {
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + kFiles; ++seed) {
        lay(ReportGenerator(seed).triple());
        expectAlike([](Model& model, const text::Listener& to) { return importReports(model, to); },
                    "seed " + std::to_string(seed));
        if (HasFatalFailure())
            return;
    }
    EXPECT_GE(noted.size(), 25U) << "nearly all kinds of reports are reached";
}

TEST_F(PackageListener, ChangesNothingInTheSamples) {
    const std::filesystem::path source = KVOCAEIO_SOURCE_FOLDER;
    std::size_t files = 0;
    for (const char* corpus : {"tests/fuzz/corpus/package", "examples/data"})
        for (const auto& entry : std::filesystem::directory_iterator(source / corpus)) {
            if (entry.path().extension() != ".3di")
                continue;
            const std::string path = entry.path().string();
            expectAlike(
                [&](Model& model, const text::Listener& to) { return import3di(path, model, to); },
                path);
            ++files;
        }
    EXPECT_GT(files, 10U);
    std::vector<ReportTriple> triples;
    for (const auto& entry :
         std::filesystem::directory_iterator(source / "tests/fuzz/corpus/cadence_reports")) {
        std::string rest = readText(entry.path());
        ReportTriple& triple = triples.emplace_back();
        for (auto& report : triple) {
            const std::size_t end = rest.find("####\n");
            report = rest.substr(0, end);
            rest.erase(0, end == std::string::npos ? end : end + 5);
        }
    }
    ReportTriple& sample = triples.emplace_back();
    for (std::size_t r = 0; r < 3; ++r)
        sample[r] = readText(source / "examples/data/reports" /
                             ("CmdFile" + std::to_string(r + 1) + ".txt"));
    EXPECT_GT(triples.size(), 15U);
    for (const ReportTriple& triple : triples) {
        lay(triple);
        expectAlike([](Model& model, const text::Listener& to) { return importReports(model, to); },
                    *triple[0]);
    }
}

// The counts of a report, each with its name.
std::string countsOf(CKVOImportReport& report) {
    std::string out;
    CKVOImportReport::CountData count;
    for (report.GetCountBegin(); report.GetCountNext(&count);)
        out +=
            std::string(out.empty() ? "" : ", ") + std::to_string(count.count) + " " + count.name;
    return out;
}

TEST(PackageReport, OfTheSamplesHasCountsAndWhatAPersonHasLookedAt) {
    const std::filesystem::path samples =
        std::filesystem::path(KVOCAEIO_SOURCE_FOLDER) / "examples/data";
    CKVOImportReport report;
    CKVOCadenceReader reader;
    ASSERT_TRUE(reader.Import3DIFile((samples / "stack.3di").string().c_str(), &report));
    // The model AU25_LOOP has the colour of the wires of AU20_LOW: wire 2 is one of those.
    CKVOImportReport::FindingData finding;
    EXPECT_EQ(report.GetFindingNum(), 1);
    ASSERT_TRUE(report.GetFindingBegin() && report.GetFindingNext(&finding));
    EXPECT_STREQ(finding.code, "package.profile-color-other");
    EXPECT_STREQ(finding.text, "the colour of wire model 2 is that of a wire of another model");
    EXPECT_EQ(finding.count, 1);
    EXPECT_EQ(countsOf(report),
              "167 bodies, 160 solder balls, 96 wires, 816 wire points, 2 wire profiles");
    CKVOCadenceReader design;
    design.SetTempFilePath((samples / "reports").string().c_str());
    ASSERT_TRUE(design.ImportCadenceFile("unused", &report));
    EXPECT_EQ(report.GetFindingNum(), 0);
    EXPECT_EQ(countsOf(report), "6 bodies, 0 solder balls");
}

TEST(PackageReport, HoldsTheReasonOfAnErrorThatIsThrown) {
    const TempFolder folder;
    const std::string path = folder.write("package.3di",
                                          "3DI MM\nTABLE COLOR\n1 1 1 1 1\nTABLE OBJECT\n1 SYMBOL\n"
                                          "TABLE LAYER\n1 OUTLINE\nTABLE END\nGEOM\nLAYER 1\n"
                                          "COLOR 7\nEXTR 0 0 1\n2DPG 1\n0 0\n");
    CKVOImportReport report;
    CKVOCadenceReader reader;
    EXPECT_THROW(reader.Import3DIFile(path.c_str(), &report), std::out_of_range);
    CKVOImportReport::FindingData failure;
    ASSERT_TRUE(report.GetFailure(&failure));
    EXPECT_STREQ(failure.code, "package.color-unknown");
    EXPECT_EQ(failure.line, 9);
    EXPECT_STREQ(failure.text,
                 "the colour table ends before the id of colour 7: the import ends here with the "
                 "out-of-range error");
}

TEST(PackageReport, SaysWhichTableIsMissing) {
    const TempFolder folder;
    const std::string path = folder.write("package.3di", "3DI MM\nTABLE OBJECT\n1 SYMBOL\n");
    CKVOImportReport report;
    CKVOCadenceReader reader;
    EXPECT_FALSE(reader.Import3DIFile(path.c_str(), &report));
    CKVOImportReport::FindingData failure;
    ASSERT_TRUE(report.GetFailure(&failure));
    EXPECT_STREQ(failure.code, "package.outline-missing");
    EXPECT_FALSE(reader.Import3DIFile(folder.file("none.3di").c_str(), &report));
    ASSERT_TRUE(report.GetFailure(&failure));
    EXPECT_STREQ(failure.code, "file.cannot-open");
    EXPECT_EQ(failure.file, folder.file("none.3di"));
}

TEST_F(PackageListener, StopsA3diImportAtAnyBlock) {
    std::uint64_t seed = kFirstSeed;
    for (std::uint64_t files = 0; files < kStoppedFiles; ++seed) {
        const std::string sections = PackageGenerator(seed).largeFile();
        const std::string path =
            folder.write("package.3di", sections + sections + sections + sections);
        Model model;
        Host counting;
        if (import3di(path, model, {nullptr, &counting.watch}) == "true" && counting.asked >= 20) {
            ++files;
            expectToStopAtEachBlock(
                [&](Model& to, const text::Listener& listener) {
                    return import3di(path, to, listener);
                },
                14);
        }
        std::filesystem::remove(path);
        if (HasFatalFailure())
            return;
    }
}

TEST_F(PackageListener, AReadErrorIsTheEndOfAPass) {
    const std::string body = "GEOM\nNAME A\nOBJECT 1\nLAYER 2\nCOLOR 1\n####\n";
    const std::string path =
        folder.write("package.3di",
                     "3DI MM\nTABLE COLOR\n1 255 0 0 0\nTABLE OBJECT\n1 SYMBOL\n"
                     "TABLE LAYER\n1 OUTLINE\n2 TOP\n" +
                         body + std::string(300'000, '\n') + body);
    Model whole;
    EXPECT_EQ(import3di(path, whole, {}), "true");
    ASSERT_TRUE(whole.components);
    EXPECT_EQ(whole.components->size(), 2U);
    // The first blocks of the passes: 1 unit, 2 colours, 5 objects, 8 layers, 9 bodies.
    const auto failAt = [&path](int block, Model& model) {
        FailingReads failing(block);
        return import3di(path, model, {nullptr, &failing.watch});
    };
    Model withoutObjects;
    EXPECT_EQ(failAt(5, withoutObjects), "false");
    EXPECT_EQ(withoutObjects.objectNames.size(), 1U);
    Model withoutBody;
    EXPECT_EQ(failAt(10, withoutBody), "true");
    ASSERT_TRUE(withoutBody.components);
    EXPECT_EQ(withoutBody.components->size(), 1U);
}

TEST_F(PackageListener, StopsAnImportOfReportsAtAnyBlock) {
    std::string rows, thicknesses, members;
    for (int row = 0; row < 12000; ++row) {
        const std::string number = std::to_string(row);
        rows += "S!U" + number + "!NAME!1!2!3!4!TEXT!5!6!7!8!\n";
        thicknesses += layer("PLANE", number + " MIL");
        members += "S!SPACER!GAP" + number + "!0!0!1!1!0!0.5!\n";
    }
    lay({symbols("a.sip", rows + kSubstrateRow), layers("a.sip", thicknesses), stack(members)});
    expectToStopAtEachBlock(
        [](Model& model, const text::Listener& listener) { return importReports(model, listener); },
        9);
}

}  // namespace
}  // namespace kvocaeio::test
