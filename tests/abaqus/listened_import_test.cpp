/// An import that is listened to, followed and stopped, beside one that is not.
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "abaqus/audit.h"
#include "abaqus/deck_generator.h"
#include "abaqus/findings.h"
#include "abaqus/import.h"
#include "abaqus/normalise.h"
#include "abaqus/normalise_generator.h"
#include "fuzz/long_numbers.h"
#include "support/captured_output.h"
#include "support/failing_reads.h"
#include "support/files.h"

namespace kvocaeio::test {
namespace {

using abaqus::AbaqusModel;

// File work is several times as slow under Wine.
#if defined(_WIN32)
constexpr unsigned kDecks = 100;
#else
constexpr unsigned kDecks = 1000;
#endif

template <class Values>
void putAll(std::ostream& out, const Values& values) {
    for (const auto& value : values)
        out << value << ' ';
    out << '\n';
}

void putSections(std::ostream& out, const std::vector<abaqus::ElemSection>& sections) {
    for (const abaqus::ElemSection& section : sections) {
        out << section.elset << '|' << section.type << '|' << section.nodesPerElem << '|'
            << static_cast<int>(section.geometryType) << '\n';
        putAll(out, section.ids);
        putAll(out, section.nodes);
    }
}

// All tables of a model as text.
std::string tablesOf(const AbaqusModel& model) {
    std::ostringstream out;
    out << std::hexfloat;
    putAll(out, model.nodeBlock.ids);
    putAll(out, model.nodeBlock.coords);
    putSections(out, model.elemSections);
    for (const abaqus::ShellSection& section : model.shellSections)
        out << section.material << '|' << section.elset << '|' << section.thickness << '\n';
    for (const abaqus::SurfaceSection& surface : model.surfaces) {
        out << surface.type << '|' << surface.name << '\n';
        putAll(out, surface.items);
        putAll(out, surface.faces);
    }
    for (const abaqus::DloadSection& load : model.dloads) {
        putAll(out, load.elemIDs);
        putAll(out, load.faceIdx);
        putAll(out, load.values);
    }
    for (const abaqus::ElsetSection& set : model.elsets) {
        out << set.name << '|' << set.parameter << '|' << set.genStart << '|' << set.genEnd << '|'
            << set.genStep << '\n';
        putAll(out, set.members);
    }
    out << model.maxNodeOid << ' ' << model.maxElemOid << '\n';
    for (const int oid : model.nodeBlock.ids)
        out << model.nodeOidMap.find(oid) << ' ';
    for (const abaqus::ElemSection& section : model.elemSections)
        for (const int oid : section.ids) {
            const abaqus::ElemLocation location = model.elemOidMap.find(oid);
            out << location.section << ':' << location.row << ' ';
        }
    putSections(out, model.solidSections);
    putSections(out, model.shellElemSections);
    for (const auto& [name, value] : model.elsetIndexMap)
        out << name << '=' << value << '\n';
    for (const abaqus::ElemList& list : model.elsetElems)
        for (const abaqus::IdRun& run : list)
            out << run.first << ".." << run.last << '/' << run.step << ' ';
    putAll(out, model.dloadFaces);
    putAll(out, model.surfaceFaces);
    return out.str();
}

/// Who follows an import: counts how often it is asked, and says no at one of these times.
struct Follower {
    static bool answer(void* host, std::size_t) {
        auto& follower = *static_cast<Follower*>(host);
        return follower.asked++ != follower.stopsAt;
    }
    text::Watch watch() { return {answer, this, false}; }

    std::size_t stopsAt = SIZE_MAX;
    std::size_t asked = 0;
};

class ListenedImport : public testing::Test {
  protected:
    ListenedImport() { folder_.makeFolder("debug"); }

    /// Everything that the import and the sort of a deck leave, as text. The audits go over the
    /// tables where there is a report.
    std::string outcome(std::string_view deck, report::ImportReport* report, text::Watch* watch) {
        const text::Listener listener{report != nullptr ? &report->findings : nullptr, watch};
        const std::string path = write(deck);
        AbaqusModel model;
        CapturedOutput output;
        std::string out = importDeck(model, path.c_str(), listener) ? "imported\n" : "failed\n";
        if (report != nullptr)
            auditImport(model, *report);
        // A generated set may name more elements than a test should hold: its rows are real memory.
        try {
            if (!hasLongNumber(deck, 4))
                SortData(model, listener);
        } catch (const std::length_error& error) {
            out += error.what();
        }
        if (report != nullptr)
            auditNormalised(model, *report);
        for (const char* log : {"debug/InputAbaqus.log", "debug/SortData.log"}) {
            out += readText(folder_.path() / log);
            std::filesystem::remove(folder_.path() / log);
        }
        return out + tablesOf(model) + output.text();
    }

    void expectSame(std::string_view deck) {
        const auto report = std::make_unique<report::ImportReport>();
        Follower follower;
        text::Watch watch = follower.watch();
        ASSERT_EQ(outcome(deck, report.get(), &watch), outcome(deck, nullptr, nullptr));
        EXPECT_GE(follower.asked, 2u);
        for (std::size_t row = 0; row < abaqus::kFindingNum; ++row)
            noted_[row] += report->findings.countOf(abaqus::kFindingKinds[row]);
    }

    /// A new file: some file systems wait for the disk when an old one is cut and written again.
    std::string write(std::string_view deck) {
        std::filesystem::remove(folder_.path() / "deck.inp");
        return folder_.write("deck.inp", deck);
    }

    TempFolder folder_;
    std::vector<std::size_t> noted_ = std::vector<std::size_t>(abaqus::kFindingNum);
};

TEST_F(ListenedImport, LeavesTheSameOfRandomDecks) {
    for (unsigned seed = 1; seed <= kDecks; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        expectSame(DeckGenerator(seed).deck());
        expectSame(randomDeck(seed).text);
        if (HasFailure())
            return;
    }
    // Of the kinds that need more luck, such as a byte order mark, there are sample files.
    const auto met = std::ranges::count_if(noted_, [](std::size_t count) { return count > 0; });
    EXPECT_GE(met, 50);
}

TEST_F(ListenedImport, LeavesTheSameOfSampleFiles) {
    std::size_t files = 0;
    std::istringstream folders(KVOCAEIO_SAMPLE_FOLDERS);
    for (std::string folder; std::getline(folders, folder, ',');)
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().extension() != ".inp")
                continue;
            SCOPED_TRACE(entry.path().filename().string());
            expectSame(readBytes(entry.path()));
            ++files;
        }
    EXPECT_GE(files, 150u);
}

/// A deck of several blocks of the file, with all kinds of sections.
std::string largeDeck() {
    std::string deck = "*NODE\n";
    for (int oid = 1; oid <= 12'000; ++oid)
        deck += std::to_string(oid) + ", 1.25, 2.5, " + std::to_string(oid) + ".\n";
    deck += "*ELEMENT, TYPE=C3D4, ELSET=A\n";
    for (int oid = 1; oid <= 12'000; ++oid)
        deck += std::to_string(oid) + ", 1, 2, 3, 4\n";
    return deck +
           "*ELSET, ELSET=B\n1, 2\n*SURFACE, TYPE=ELEMENT, NAME=S\nB, S1\n*DLOAD\n1, P1, 1.\n"
           "*SHELL SECTION, MATERIAL=M\n1.\n";
}

TEST_F(ListenedImport, CanBeStoppedAtEachBlock) {
    const std::string deck = largeDeck();
    const std::string path = write(deck);
    CapturedOutput quiet;
    AbaqusModel expected;
    Follower all;
    text::Watch watch = all.watch();
    ASSERT_TRUE(importDeck(expected, path.c_str(), {nullptr, &watch}));
    ASSERT_GE(all.asked, 6u);
    for (std::size_t stopsAt = 0; stopsAt < all.asked; ++stopsAt) {
        SCOPED_TRACE(stopsAt);
        Follower follower{stopsAt};
        text::Watch stopping = follower.watch();
        text::Findings findings;
        AbaqusModel model;
        ASSERT_FALSE(importDeck(model, path.c_str(), {&findings, &stopping}));
        EXPECT_EQ(follower.asked, stopsAt + 1);
        // What the walks and the sort go by is sound.
        EXPECT_EQ(model.nodeBlock.coords.size(), 3 * model.nodeBlock.ids.size());
        for (const abaqus::ElemSection& section : model.elemSections)
            EXPECT_EQ(section.nodes.size(),
                      section.ids.size() * static_cast<std::size_t>(section.nodesPerElem));
        EXPECT_EQ(model.nodeOidMap.size(), 0u);
        EXPECT_EQ(model.elemOidMap.size(), 0u);
        SortData(model);
        // The lists of sets, surfaces and loads grow with each import, so they start anew.
        model.elsets.clear();
        model.surfaces.clear();
        model.dloads.clear();
        ASSERT_TRUE(importDeck(model, path.c_str()));
        AbaqusModel again;
        static_cast<abaqus::RawModel&>(again) = model;
        EXPECT_TRUE(tablesOf(again) == tablesOf(expected));
    }
}

TEST_F(ListenedImport, AReadErrorIsTheEndOfTheDeck) {
    std::string deck = "*NODE, NSET=ALL\n";  // as long as the lines of nodes
    for (int oid = 100'001; oid <= 120'000; ++oid)
        deck += std::to_string(oid) + ", 1, 2, 3\n";
    deck += "*ELEMENT, TYPE=C3D4\n7, 100001, 100002, 100003, 100004\n";
    const std::string path = write(deck);
    const CapturedOutput quiet;
    AbaqusModel counted;
    FailingReads inPass1(2);
    EXPECT_TRUE(importDeck(counted, path.c_str(), {nullptr, &inPass1.watch}));
    EXPECT_EQ(counted.nodeBlock.ids, std::vector<int>(16'383));
    EXPECT_TRUE(counted.elemSections.empty());
    // The first pass asks three times, the last time at the end of the file.
    AbaqusModel stored;
    FailingReads inPass2(5);
    EXPECT_TRUE(importDeck(stored, path.c_str(), {nullptr, &inPass2.watch}));
    ASSERT_EQ(stored.nodeBlock.ids.size(), 20'000u);
    EXPECT_EQ(stored.nodeBlock.ids[16'382], 116'383);
    EXPECT_EQ(stored.nodeBlock.coords[3 * 16'382 + 2], 3.0);
    EXPECT_EQ(stored.nodeBlock.ids[16'383], 0);
    ASSERT_EQ(stored.elemSections.size(), 1u);
    EXPECT_EQ(stored.elemSections[0].ids, std::vector<int>{0});
}

TEST_F(ListenedImport, IsNotBegunWhereTheHostHasStoppedBefore) {
    const std::string path = write("*NODE\n1, 1., 2., 3.\n");
    CapturedOutput quiet;
    AbaqusModel model;
    ASSERT_TRUE(importDeck(model, path.c_str()));
    Follower follower;
    text::Watch watch = follower.watch();
    watch.stopped = true;
    EXPECT_FALSE(importDeck(model, path.c_str(), {nullptr, &watch}));
    EXPECT_EQ(follower.asked, 0u);
    EXPECT_EQ(model.nodeBlock.ids, std::vector<int>{1});
}

}  // namespace
}  // namespace kvocaeio::test
