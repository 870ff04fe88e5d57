/// Imports that a host listens to: the same tables as without, an end wherever it wants one, and
/// what is found on the way.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "patran/findings.h"
#include "patran/import.h"
#include "patran/neutral_file.h"
#include "patran/neutral_generator.h"
#include "support/captured_output.h"
#include "support/failing_reads.h"
#include "support/files.h"
#include "text/file.h"

#if defined(__linux__)
#include <unistd.h>
#endif

namespace kvocaeio::test {
namespace {

using patran::Finding;
using patran::kFindingKinds;
using testing::ElementsAre;
using text::Findings;
using text::Listener;
using text::Watch;

// File work is several times as slow under Wine, and so is everything under a sanitizer.
#if defined(_WIN32) || !defined(NDEBUG)
constexpr std::uint64_t kCases = 300;
#else
constexpr std::uint64_t kCases = 1500;
#endif

// Counts may be huge, files are small.
constexpr std::size_t kRowsSeen = 200;

/// The properties that are seen, by id.
template <class Value>
std::vector<Value> valuesOf(const patran::PropertyList<Value>& list) {
    std::vector<Value> values;
    for (std::size_t id = 0; id < std::min(list.size(), kRowsSeen); ++id)
        values.push_back(list.at(static_cast<int>(id)));
    return values;
}

/// All bytes of the rows that are seen, the spare one included.
template <class Value>
std::string bytesOf(const text::ZeroedArray<Value>& array, int count, std::size_t width) {
    if (array == nullptr)
        return "none";
    const std::size_t rows = std::min(text::asSize(count), kRowsSeen) + 1;
    std::string bytes(rows * width * sizeof(Value), '\0');
    std::memcpy(bytes.data(), array.get(), bytes.size());
    return bytes;
}

/// Bit for bit: numbers may be NaN.
template <class Value>
bool isSame(const std::vector<Value>& a, const std::vector<Value>& b) {
    return a.size() == b.size() &&
           (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(Value)) == 0);
}

template <class Value>
bool isSame(const patran::PropertyList<Value>& a, const patran::PropertyList<Value>& b) {
    return a.size() == b.size() && isSame(valuesOf(a), valuesOf(b));
}

bool isSame(const patran::ListMesh& a, const patran::ListMesh& b) {
    return isSame(a.nodes, b.nodes) && isSame(a.elements, b.elements) &&
           isSame(a.elementPropertyIds, b.elementPropertyIds) &&
           isSame(a.elementShapes, b.elementShapes) && isSame(a.propertyTypes, b.propertyTypes) &&
           isSame(a.propertyValueA, b.propertyValueA) &&
           isSame(a.propertyValueB, b.propertyValueB) &&
           isSame(a.propertyValueC, b.propertyValueC) && a.nodeCount == b.nodeCount &&
           a.elementCount == b.elementCount && a.propertyCount == b.propertyCount;
}

bool isSame(const patran::FlatMesh& a, const patran::FlatMesh& b) {
    const auto bytes = [](const patran::FlatMesh& mesh) {
        return std::array{bytesOf(mesh.vertices, mesh.nodeCount, 3),
                          bytesOf(mesh.elementNodes, mesh.elementCount, 8),
                          bytesOf(mesh.elementTypes, mesh.elementCount, 1),
                          bytesOf(mesh.elementProperties, mesh.elementCount, 1)};
    };
    return a.nodeCount == b.nodeCount && a.elementCount == b.elementCount &&
           a.propertyCount == b.propertyCount && bytes(a) == bytes(b);
}

/// Both readers' inner sides, one import after the other.
struct Readers {
    bool import(const std::string& path, const Listener& listener) {
        const text::File file = text::openFile(path.c_str(), "rb");
        const bool lists = importLists(file.get(), listener, listMesh);
        flatMesh = patran::FlatMesh();
        const bool flat = importFlat(path.c_str(), listener, nodeIds, flatMesh);
        return lists && flat;
    }

    patran::ListMesh listMesh;
    patran::IdMap nodeIds;
    patran::FlatMesh flatMesh;
};

bool isSame(const Readers& a, const Readers& b) {
    bool same = isSame(a.listMesh, b.listMesh) && isSame(a.flatMesh, b.flatMesh);
    for (int id = -1; id < static_cast<int>(kRowsSeen); ++id)
        same = same && a.nodeIds.holds(id) == b.nodeIds.holds(id) &&
               a.nodeIds.at(id) == b.nodeIds.at(id);
    return same;
}

/// A host that lets an import go on as often as it is told to.
struct Host {
    explicit Host(long blocks) : left(blocks) { watch.host = this; }

    long left;
    long asked = 0;
    Watch watch{[](void* host, std::size_t) {
                    auto& self = *static_cast<Host*>(host);
                    ++self.asked;
                    return self.left-- > 0;
                },
                nullptr, false};
};

constexpr long kForEver = 1'000'000'000;

std::vector<std::filesystem::path> neutralFiles() {
    std::vector<std::filesystem::path> files;
    for (const char* folder : {"tests/fuzz/corpus/patran", "examples/data"})
        for (const auto& entry :
             std::filesystem::directory_iterator(std::filesystem::path(KVOCAEIO_SOURCES) / folder))
            if (entry.path().extension() == ".pat")
                files.push_back(entry.path());
    return files;
}

class PatranListener : public testing::Test {
  protected:
    /// Imports files one after the other, with somebody listening and without.
    void expectSame(const std::vector<std::string>& paths) {
        Readers listened;
        Readers plain;
        for (const std::string& path : paths) {
            Findings findings;
            Host host(kForEver);
            CapturedOutput listenedOutput;
            const bool listenedResult = listened.import(path, {&findings, &host.watch});
            const std::string listenedPrint = listenedOutput.text();
            CapturedOutput plainOutput;
            EXPECT_EQ(plain.import(path, {}), listenedResult);
            EXPECT_EQ(plainOutput.text(), listenedPrint);
            EXPECT_TRUE(isSame(listened, plain)) << path;
            EXPECT_GE(host.asked, 4);
            for (std::size_t kind = 0; kind < kFindingKinds.size(); ++kind)
                seen[kind] += findings.countOf(kFindingKinds[kind]);
        }
    }

    TempFolder folder;
    std::array<std::size_t, kFindingKinds.size()> seen{};
};

TEST_F(PatranListener, RandomFilesGiveTheSame) {
    for (std::uint64_t seed = 1; seed <= kCases; ++seed) {
        std::vector<std::string> paths;
        for (const std::string& content : NeutralGenerator(seed).files())
            paths.push_back(folder.write(std::to_string(paths.size()) + ".pat", content));
        expectSame(paths);
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
    // No file has a byte order mark.
    seen[static_cast<std::size_t>(Finding::kByteOrderMark)] = 1;
    for (std::size_t kind = 0; kind < kFindingKinds.size(); ++kind)
        EXPECT_GT(seen[kind], 0U) << kFindingKinds[kind].code;
}

TEST_F(PatranListener, SampleFilesGiveTheSame) {
    const auto files = neutralFiles();
    EXPECT_GE(files.size(), 22U);
    for (const auto& file : files)
        expectSame({file.string(), file.string()});
}

/// Nodes and bars of more than a block, 100 of both not counted.
std::string manyBlocks() {
    constexpr int kItems = 4000;
    std::string content = summary(kItems - 100, kItems - 100, 1) + property(3, 2, {2, 0.5});
    for (int id = 1; id <= kItems; ++id)
        content += node(id, id, 0, 0);
    for (int id = 1; id <= kItems; ++id)
        content += element(id, 2, 3, {id, 1});
    return content + endOfFile();
}

TEST_F(PatranListener, AHostStopsAnImportAtAnyBlock) {
    const std::string path = folder.write("large.pat", manyBlocks());
    Readers whole;
    ASSERT_TRUE(whole.import(path, {}));
    long stops = 0;
    for (bool imported = false; !imported; ++stops) {
        Findings findings;
        Host host(stops);
        Readers readers;
        CapturedOutput output;
        const text::File file = text::openFile(path.c_str(), "rb");
        imported = importLists(file.get(), {&findings, &host.watch}, readers.listMesh);
        EXPECT_EQ(host.watch.stopped, !imported);
        EXPECT_EQ(host.asked, imported ? stops : stops + 1);
        EXPECT_EQ(readers.listMesh.nodes.empty(), !imported);
        EXPECT_EQ(readers.listMesh.elements.size(), readers.listMesh.elementShapes.size());
        EXPECT_EQ(readers.listMesh.propertyTypes.size(), imported ? 4U : 0U);
        // The next one is complete.
        if (!imported) {
            ASSERT_TRUE(readers.import(path, {}));
            EXPECT_TRUE(isSame(readers, whole));
        }
        EXPECT_EQ(output.text(), "");
    }
    EXPECT_GT(stops, 8);
    const long blocks = stops;
    stops = 0;
    for (bool imported = false; !imported; ++stops) {
        Findings findings;
        Host host(stops);
        Readers readers;
        CapturedOutput output;
        imported =
            importFlat(path.c_str(), {&findings, &host.watch}, readers.nodeIds, readers.flatMesh);
        EXPECT_EQ(host.watch.stopped, !imported);
        // A pass that is stopped has not met the end of its file.
        EXPECT_EQ(output.text(), "");
        ASSERT_TRUE(readers.import(path, {}));
        EXPECT_TRUE(isSame(readers, whole));
    }
    EXPECT_EQ(stops, blocks);
}

TEST_F(PatranListener, AReadErrorIsTheEndOfTheFile) {
    // The first block ends with a node.
    std::string content = summary(3000, 0);
    const std::size_t before = (1 << 18) - 1'000 * node(1, 0, 0, 0).size();
    while (content.size() < before)
        content += lengthened("! comment", std::min<std::size_t>(before - content.size(), 70) - 1);
    for (int id = 1; id <= 3000; ++id)
        content += node(id, id, 0, 0);
    const std::string path = folder.write("large.pat", content + endOfFile());
    constexpr int kSecondOfPass2 = 5;  // packet 99 stands in the third block
    Readers readers;
    {
        FailingReads failing(kSecondOfPass2);
        const text::File file = text::openFile(path.c_str(), "rb");
        EXPECT_TRUE(importLists(file.get(), {nullptr, &failing.watch}, readers.listMesh));
    }
    EXPECT_EQ(readers.listMesh.nodeCount, 3000);
    // The last line serves as one more header, as at every end that comes without packet 99.
    EXPECT_EQ(readers.listMesh.nodes.size(), 1001U);
    CapturedOutput output;
    FailingReads failing(kSecondOfPass2);
    EXPECT_TRUE(
        importFlat(path.c_str(), {nullptr, &failing.watch}, readers.nodeIds, readers.flatMesh));
    EXPECT_EQ(output.text(), "We have reached end-of-file\n");
    EXPECT_EQ(readers.flatMesh.nodeCount, 3000);
    EXPECT_EQ(readers.nodeIds.at(1000), 999);
    EXPECT_EQ(readers.nodeIds.at(1001), 0);
}

TEST_F(PatranListener, AStoppedImportKeepsNothingOfTheOneBefore) {
    const std::string path = folder.write(
        "small.pat", summary(1, 1) + node(1, 1, 2, 3) + element(1, 2, 0, {1, 1}) + endOfFile());
    Readers readers;
    ASSERT_TRUE(readers.import(path, {}));
    ASSERT_EQ(readers.listMesh.nodes.size(), 1U);
    Host host(1);
    const text::File file = text::openFile(path.c_str(), "rb");
    EXPECT_FALSE(importLists(file.get(), {nullptr, &host.watch}, readers.listMesh));
    EXPECT_TRUE(readers.listMesh.nodes.empty());
    EXPECT_TRUE(readers.listMesh.elements.empty());
    EXPECT_EQ(readers.listMesh.nodeCount, 1);
}

TEST_F(PatranListener, TheInnerReaderOfTheBridgeReadsFromWhereTheFileStands) {
    const std::string path = folder.write(
        "small.pat", summary(2, 0) + node(8, 1, 2, 3) + node(3, 4, 5, 6) + endOfFile());
    const text::File file = text::openFile(path.c_str(), "rb");
    EXPECT_EQ(patran::CKVO_PatranIO::FindMaxNodeId(file.get()), 8);
    std::fseek(file.get(), static_cast<long>(summary(2, 0).size() + node(8, 1, 2, 3).size()),
               SEEK_SET);
    patran::CKVO_PatranIO reader;
    reader.mesh.nodeCount = 5;
    EXPECT_TRUE(reader.ReadPackets(file.get()));
    EXPECT_THAT(reader.mesh.nodes, ElementsAre(std::array{4.0F, 5.0F, 6.0F}));
}

#if defined(__linux__)
TEST_F(PatranListener, AFileThatCannotBeGoneThroughTwiceEndsTheImport) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const std::string content = summary(1, 0) + node(1, 1, 2, 3) + endOfFile();
    ASSERT_EQ(write(ends[1], content.data(), content.size()), static_cast<ssize_t>(content.size()));
    close(ends[1]);
    const text::File file(fdopen(ends[0], "rb"));
    patran::CKVO_PatranIO reader;
    reader.mesh.nodes.push_back({1, 2, 3});
    EXPECT_FALSE(reader.ReadPackets(file.get()));
    EXPECT_TRUE(reader.mesh.nodes.empty());
}
#endif

}  // namespace
}  // namespace kvocaeio::test
