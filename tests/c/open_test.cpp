/// How files open: recognised, tidied, quiet, followed, stopped, or not at all.
#include <array>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include "c/opened.h"
#include "support/captured_output.h"
#include "support/files.h"

namespace kvocaeio::test {
namespace {

constexpr const char* kDeck =
    "*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 0., 1., 0.\n4, 0., 0., 1.\n"
    "*ELEMENT, TYPE=C3D4, ELSET=BODY\n1, 1, 2, 3, 4\n";

constexpr const char* kFreeDeck =
    "GRID,11,,0.,0.,0.\nGRID,12,,1.,0.,0.\nGRID,13,,0.,1.,0.\nGRID,14,,0.,0.,1.0D0\n"
    "CTETRA,21,1,11,12,13,14\nPSOLID,1,1\nENDDATA\n";

class OpenTest : public testing::Test {
  protected:
    std::int32_t formatOf(const std::string& content) {
        std::int32_t format = -1;
        kvocaeio_recognise(folder.write("file", content).c_str(), &format);
        return format;
    }

    TempFolder folder;
};

TEST_F(OpenTest, RecognisesFormatsByTheirContent) {
    EXPECT_EQ(formatOf(kDeck), KVOCAEIO_FORMAT_ABAQUS);
    EXPECT_EQ(formatOf("\n** only a comment\n"), KVOCAEIO_FORMAT_ABAQUS);
    EXPECT_EQ(formatOf("a title\n *Node , NSET=all\n"), KVOCAEIO_FORMAT_ABAQUS);
    EXPECT_EQ(formatOf(kFreeDeck), KVOCAEIO_FORMAT_NASTRAN);
    EXPECT_EQ(formatOf("$ only a comment\r\n"), KVOCAEIO_FORMAT_NASTRAN);
    EXPECT_EQ(formatOf("! made by hand\n25       0       0       1       0\n"),
              KVOCAEIO_FORMAT_PATRAN);
    EXPECT_EQ(formatOf("3DI MM\n"), KVOCAEIO_FORMAT_3DI);
    EXPECT_EQ(formatOf("\nTable Color\n"), KVOCAEIO_FORMAT_3DI);
    EXPECT_EQ(formatOf("\xEF\xBB\xBF*NODE\n"), KVOCAEIO_FORMAT_ABAQUS);
}

TEST_F(OpenTest, LeavesTheFormatAloneWhereNothingTellsIt) {
    EXPECT_EQ(formatOf("1, 2, 3\n"), -1);
    EXPECT_EQ(formatOf("def show(\n    *values,\n):\n"), -1);
    EXPECT_STREQ(kvocaeio_error_text(), "nothing in the file tells its format");
    EXPECT_EQ(formatOf(""), -1);
    EXPECT_STREQ(kvocaeio_error_text(), "the file is empty");
    EXPECT_EQ(Opened(folder.file("file")).status, KVOCAEIO_UNKNOWN_FORMAT);
    EXPECT_STREQ(kvocaeio_format_name(KVOCAEIO_FORMAT_NASTRAN), "Nastran bulk data deck");
    EXPECT_EQ(kvocaeio_format_name(6), nullptr);
    EXPECT_EQ(kvocaeio_format_name(-1), nullptr);
}

TEST_F(OpenTest, TakesAFormatThatIsGivenForTheContent) {
    kvocaeio_options options = defaultOptions();
    options.format = KVOCAEIO_FORMAT_PATRAN;
    const Opened deck(folder.write("deck.inp", kDeck), options);
    EXPECT_EQ(deck.status, KVOCAEIO_OK);
    EXPECT_EQ(kvocaeio_model_format(deck.get()), KVOCAEIO_FORMAT_PATRAN);
    options.format = 6;
    EXPECT_EQ(Opened(folder.file("deck.inp"), options).status, KVOCAEIO_BAD_ARGUMENT);
}

TEST_F(OpenTest, TakesDecksThatCannotBeWrittenTo) {
    namespace fs = std::filesystem;
    const std::string path = folder.write("deck.inp", kDeck);
    fs::permissions(path, fs::perms::owner_read, fs::perm_options::replace);
    EXPECT_EQ(Opened(path).status, KVOCAEIO_OK);
    EXPECT_EQ(readBytes(path), kDeck);
    fs::permissions(path, fs::perms::owner_all, fs::perm_options::replace);
}

TEST_F(OpenTest, PrintsNothingAndLooksForNoDebugFolder) {
    folder.makeFolder("debug");
    kvocaeio_options options = defaultOptions();
    options.normalise = 1;
    CapturedOutput printed;
    EXPECT_EQ(Opened(folder.write("deck.inp", kDeck), options).status, KVOCAEIO_OK);
    EXPECT_EQ(
        Opened(folder.write("cut.pat", "26       0       0       1       0       0\n")).status,
        KVOCAEIO_OK);
    EXPECT_EQ(printed.text(), "");
    EXPECT_TRUE(std::filesystem::is_empty(folder.path() / "debug"));
}

TEST_F(OpenTest, TakesPathsAsUtf8OnEveryPlatform) {
    const std::u8string name = u8"T\u00E4il \u6A21\u578B.inp";
    const std::filesystem::path path = folder.path() / name;
    std::filesystem::rename(folder.write("deck.inp", kDeck), path);
    const std::u8string utf8 = path.u8string();
    const std::string text(utf8.begin(), utf8.end());
    const ReportHandle report = makeReport();
    kvocaeio_options options = defaultOptions();
    options.report = report.get();
    EXPECT_EQ(Opened(text, options).status, KVOCAEIO_OK);
    std::filesystem::remove(path);
    EXPECT_EQ(Opened(text, options).status, KVOCAEIO_CANNOT_OPEN);
    kvocaeio_finding finding{};
    finding.struct_size = sizeof finding;
    ASSERT_EQ(kvocaeio_report_failure(report.get(), &finding), 1);
    EXPECT_EQ(finding.file, text);
    EXPECT_EQ(kvocaeio_error_file(), text);
}

TEST_F(OpenTest, RefusesWhatIsNoArgument) {
    kvocaeio_model* model = nullptr;
    const std::string path = folder.write("deck.inp", kDeck);
    EXPECT_EQ(kvocaeio_open(nullptr, nullptr, &model), KVOCAEIO_BAD_ARGUMENT);
    EXPECT_EQ(kvocaeio_open(path.c_str(), nullptr, nullptr), KVOCAEIO_BAD_ARGUMENT);
    kvocaeio_options options{};
    EXPECT_EQ(kvocaeio_open(path.c_str(), &options, &model), KVOCAEIO_BAD_ARGUMENT);
    EXPECT_EQ(kvocaeio_recognise(path.c_str(), nullptr), KVOCAEIO_BAD_ARGUMENT);
    kvocaeio_close(nullptr);
    kvocaeio_report_destroy(nullptr);
    EXPECT_EQ(kvocaeio_model_format(nullptr), KVOCAEIO_FORMAT_UNKNOWN);
    EXPECT_EQ(kvocaeio_report_finding_count(nullptr), 0U);
}

TEST_F(OpenTest, SaysWhyANastranDeckIsNotReadWithoutAReport) {
    const std::string path = folder.write("deck.nas", "GRID           1              0.      0.\n");
    EXPECT_EQ(Opened(path).status, KVOCAEIO_NOT_READ);
    EXPECT_STREQ(kvocaeio_error_text(),
                 "the deck has no element card with an OID above 0 that can be read");
    EXPECT_EQ(kvocaeio_error_file(), path);
}

TEST_F(OpenTest, SaysWhichLineOfADeckCannotBeTidied) {
    kvocaeio_options options = defaultOptions();
    options.tidy = 1;
    const std::string path =
        folder.write("deck.inp", std::string(kDeck) + "*INCLUDE, INPUT=missing.inp\n");
    EXPECT_EQ(Opened(path, options).status, KVOCAEIO_NOT_TIDIED);
    EXPECT_STREQ(kvocaeio_error_text(), "the included file missing.inp is not there");
    EXPECT_EQ(kvocaeio_error_line(), 8);
}

TEST_F(OpenTest, TidiesWhereItIsNeededAndLeadsBackToTheOriginal) {
    kvocaeio_options options = defaultOptions();
    options.tidy = 1;
    const ReportHandle report = makeReport();
    options.report = report.get();
    const std::string path = folder.write("deck.bdf", kFreeDeck);
    const Opened deck(path, options);
    ASSERT_EQ(deck.status, KVOCAEIO_OK) << kvocaeio_error_text();
    EXPECT_EQ(kvocaeio_model_is_tidied(deck.get()), 1);
    kvocaeio_origins nodes{};
    nodes.struct_size = sizeof nodes;
    ASSERT_EQ(kvocaeio_get_origins(deck.get(), KVOCAEIO_NODES, &nodes), KVOCAEIO_OK);
    ASSERT_EQ(nodes.count, 4U);
    EXPECT_EQ(std::vector<int>(nodes.oids, nodes.oids + 4), (std::vector<int>{11, 12, 13, 14}));
    EXPECT_EQ(nodes.original_oids[3], 14);
    ASSERT_EQ(nodes.source_count, 1U);
    EXPECT_EQ(nodes.sources[3], 0);
    EXPECT_EQ(nodes.source_files[0], path);
    EXPECT_STREQ(nodes.source_parts[0], "");
    EXPECT_EQ(kvocaeio_get_origins(deck.get(), 3, &nodes), KVOCAEIO_BAD_ARGUMENT);
    // All that is told is told of the original.
    kvocaeio_finding finding{};
    finding.struct_size = sizeof finding;
    ASSERT_GT(kvocaeio_report_finding_count(report.get()), 0U);
    for (std::size_t i = 0; i < kvocaeio_report_finding_count(report.get()); ++i) {
        ASSERT_EQ(kvocaeio_report_finding(report.get(), i, &finding), KVOCAEIO_OK);
        EXPECT_EQ(finding.file, path) << finding.text;
    }
    EXPECT_EQ(tableOf(deck.get(), kvocaeio_get_nodes).count, 4U);
}

TEST_F(OpenTest, NamesTheOriginalWhereItsTidiedDeckIsStopped) {
    kvocaeio_options options = defaultOptions();
    options.tidy = 1;
    int calls = 0;
    options.progress_user = &calls;
    options.progress = [](void* user, std::uint64_t, std::uint64_t) -> std::int32_t {
        ++*static_cast<int*>(user);
        return 0;
    };
    const std::string path = folder.write("deck.bdf", kFreeDeck);
    ASSERT_EQ(Opened(path, options).status, KVOCAEIO_OK);
    options.progress = [](void* user, std::uint64_t, std::uint64_t) -> std::int32_t {
        return --*static_cast<int*>(user) == 0 ? 1 : 0;  // in the last pass
    };
    ASSERT_EQ(Opened(path, options).status, KVOCAEIO_STOPPED);
    EXPECT_EQ(kvocaeio_error_file(), path);
}

TEST_F(OpenTest, LeavesADeckAsItIsThatNeedsNoTidying) {
    kvocaeio_options options = defaultOptions();
    options.tidy = 1;
    const Opened deck(folder.write("deck.inp", kDeck), options);
    ASSERT_EQ(deck.status, KVOCAEIO_OK);
    EXPECT_EQ(kvocaeio_model_is_tidied(deck.get()), 0);
    kvocaeio_origins nodes{};
    nodes.struct_size = sizeof nodes;
    ASSERT_EQ(kvocaeio_get_origins(deck.get(), KVOCAEIO_NODES, &nodes), KVOCAEIO_OK);
    EXPECT_EQ(nodes.count, 0U);
}

// What a host is told, and when it stops.
struct Follower {
    static std::int32_t follow(void* user, std::uint64_t done, std::uint64_t total) {
        auto& self = *static_cast<Follower*>(user);
        self.isSound = self.isSound && done >= self.last && done <= total;
        self.last = done;
        self.total = total;
        return ++self.calls == self.stopAt ? 1 : 0;
    }
    kvocaeio_options options() {
        kvocaeio_options options = defaultOptions();
        options.progress = follow;
        options.progress_user = this;
        options.property_values = 1;
        return options;
    }

    int stopAt = 0;
    int calls = 0;
    bool isSound = true;
    std::uint64_t last = 0;
    std::uint64_t total = 0;
};

TEST_F(OpenTest, TellsHowFarItIsAndStopsAtEveryBlock) {
    std::string large = kDeck;
    for (int line = 0; line < 40'000; ++line)
        large += "** a comment that fills the deck\n";
    const std::string patran =
        "26       0       0       1       0       0       0       0       0\n\n"
        "99       0       0       1       0       0       0       0       0\n\n";
    const std::vector<std::string> paths = {
        folder.write("large.inp", large), folder.write("deck.bdf", kFreeDeck),
        folder.write("file.pat", patran), folder.write("file.3di", "3DI MM\nTABLE COLOR\n")};
    for (const std::string& path : paths)
        for (const std::int32_t tidy : {0, 1}) {
            Follower all;
            kvocaeio_options options = all.options();
            options.tidy = tidy;
            const kvocaeio_status whole = Opened(path, options).status;
            EXPECT_TRUE(all.isSound) << path;
            EXPECT_GT(all.calls, 1) << path;
            EXPECT_GT(all.total, 0U) << path;
            for (int block = 1; block <= all.calls; ++block) {
                Follower follower;
                follower.stopAt = block;
                options = follower.options();
                options.tidy = tidy;
                const Opened opened(path, options);
                EXPECT_EQ(opened.status, KVOCAEIO_STOPPED) << path << " at block " << block;
                EXPECT_EQ(opened.get(), nullptr);
                EXPECT_EQ(follower.calls, block);
            }
            options.progress = nullptr;
            EXPECT_EQ(Opened(path, options).status, whole) << path;
        }
}

TEST_F(OpenTest, KeepsTheReasonOfAFailureForEachThread) {
    EXPECT_EQ(Opened(folder.file("missing")).status, KVOCAEIO_CANNOT_OPEN);
    std::string other;
    std::thread([&] { other = kvocaeio_error_text(); }).join();
    EXPECT_EQ(other, "");
    EXPECT_EQ(kvocaeio_error_file(), folder.file("missing"));
    EXPECT_EQ(Opened(folder.write("deck.inp", kDeck)).status, KVOCAEIO_OK);
    EXPECT_EQ(kvocaeio_error_file(), folder.file("missing"));
}

}  // namespace
}  // namespace kvocaeio::test
