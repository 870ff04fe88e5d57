/// Random meshes: the writer and a plain version with `fprintf`'s formats must write the same.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "support/files.h"
#include <kvocaeio/patran.h>

namespace kvocaeio::test {
namespace {

// File work is several times as slow under Wine, and so is everything under a sanitizer.
#if defined(_WIN32) || !defined(NDEBUG)
constexpr int kMeshes = 300;
#else
constexpr int kMeshes = 3000;
#endif
constexpr std::uint64_t kFirstMeshSeed = 20241103;

struct Element {
    int nodes[8] = {};
    int shape = 0;
};

/// The writer's model with checked indexes, and its file.
struct NaiveWriter {
    int nodeCount = 0, elemCount = 0;
    std::vector<std::vector<double>> nodes;
    std::vector<Element> elements;

    void addNode(int index, double x, double y, double z) {
        if (index >= 0 && static_cast<std::size_t>(index) < nodes.size())
            nodes[static_cast<std::size_t>(index)] = {x, y, z};
    }
    void addElement(int index, int count, const int* ids) {
        if (index < 0 || static_cast<std::size_t>(index) >= elements.size())
            return;
        Element& element = elements[static_cast<std::size_t>(index)];
        for (int k = 0; k < count && k < 8; ++k)
            element.nodes[k] = ids[k];
        element.shape = count == 4 ? 5 : count == 6 ? 7 : count == 8 ? 8 : element.shape;
    }

    std::string file() const;
};

constexpr const char* kSound = "%2d%8d%8d%8d%8d%8d%8d%8d%8d\n";
constexpr const char* kOdd = "%2d%8d%8d%8d%8d%8d%8d%8d8%d\n";

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#endif
template <class... Values>
std::string formatted(const char* format, Values... values) {
    char text[512];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

std::string NaiveWriter::file() const {
    std::string out = formatted(kSound, 25, 0, 0, 1, 0, 0, 0, 0, 0);
    out += "**                 Created By : Vorlan9Q-Mesh R13\n";
    out += formatted(kSound, 26, 0, 0, 1, nodeCount, elemCount, 0, 1, 1);
    out += "\n";
    for (int i = 0; i < nodeCount; ++i) {
        const auto row = static_cast<std::size_t>(i);
        if (i == 0)
            out += formatted(kOdd, 1, 1, 0, 2, nodeCount, elemCount, 0, 1, 1);
        else
            out += formatted(kOdd, 1, i + 1, 0, 2, 0, 0, 0, 0, 0);
        const std::vector<double> p =
            row < nodes.size() ? nodes[row] : std::vector<double>{0, 0, 0};
        out += formatted("%16E%16E%16E\n", p[0], p[1], p[2]);
        for (int k = 0; k < 9; ++k)
            out += formatted("%8d", 0);
        out += "\n";
    }
    for (int i = 0; i < elemCount; ++i) {
        const auto row = static_cast<std::size_t>(i);
        const Element e = row < elements.size() ? elements[row] : Element();
        out += formatted(kOdd, 2, i + 1, e.shape, 2, 0, 0, 0, 0, 0);
        out += formatted("%8d%8d%8d\n", e.shape, 2, 0);
        for (const int node : e.nodes)
            out += formatted("%8d", node);
        out += "\n";
    }
    return out + formatted(kOdd, 99, 0, 0, 1, 0, 0, 0, 0, 0) + "\n";
}

class RandomMesh {
  public:
    explicit RandomMesh(std::uint64_t seed) : random_(seed) {}

    /// Drives both writers alike.
    void write(CKVO_PATWriter_Bridge& writer, NaiveWriter& naive) {
        for (int round = below(2); round >= 0; --round) {
            sizes(writer, naive);
            items(writer, naive);
        }
        if (below(4) == 0) {  // counts that leave the arrays
            writer.SetNodeCount(naive.nodeCount = below(45) - 2);
            writer.SetElemCount(naive.elemCount = below(25) - 2);
            items(writer, naive);
        }
    }

  private:
    int below(int count) { return static_cast<int>(random_() % static_cast<std::uint64_t>(count)); }

    void sizes(CKVO_PATWriter_Bridge& writer, NaiveWriter& naive) {
        naive.nodeCount = 1 + below(40);
        naive.elemCount = 1 + below(20);
        writer.SetNodeCount(naive.nodeCount);
        writer.SetElemCount(naive.elemCount);
        naive.elements.assign(static_cast<std::size_t>(naive.elemCount), {});
        EXPECT_TRUE(writer.SetElemArray());
        naive.nodes.assign(static_cast<std::size_t>(naive.nodeCount), {0, 0, 0});
        writer.SetNodeArray();
    }

    void items(CKVO_PATWriter_Bridge& writer, NaiveWriter& naive) {
        for (int k = below(50); k > 0; --k) {
            const int index = below(42) - 1;
            const double x = coordinate(), y = coordinate(), z = coordinate();
            writer.AddNode(index, x, y, z);
            naive.addNode(index, x, y, z);
        }
        for (int k = below(25); k > 0; --k) {
            const int index = below(22) - 1;
            static constexpr int kCounts[] = {4, 4, 4, 6, 6, 8, 8, 0, 1, 3, 5, 7, 9, 12, -1};
            const int count = kCounts[below(15)];
            int ids[12];
            for (int& id : ids)
                id = below(8) > 0 ? below(300) : static_cast<int>(random_());
            writer.AddElement(index, count, ids);
            naive.addElement(index, count, ids);
        }
    }

    double coordinate() {
        const int kind = below(10);
        if (kind == 0)
            return below(2) == 0 ? 0.0 : -0.0;
        if (kind <= 5)  // as meshes have them
            return (static_cast<double>(random_() % 2000001) - 1e6) / 1000.0;
        if (kind == 6)  // six digits and a half: ties
            return (below(9000000) + 1000000.5) * (below(2) == 0 ? 1.0 : -0.5);
        if (kind == 7)
            return std::ldexp(1.0, below(2098) - 1074);
        std::uint64_t bits = random_();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        return std::isfinite(value) ? value : 1e300;
    }

    std::mt19937_64 random_;
};

TEST(PatranWriterDifferential, RandomMeshesAreWrittenAlike) {
    TempFolder folder;
    std::size_t bytes = 0;
    for (int m = 0; m < kMeshes; ++m) {
        const std::uint64_t seed = kFirstMeshSeed + static_cast<std::uint64_t>(m);
        CKVO_PATWriter_Bridge writer;
        NaiveWriter naive;
        RandomMesh(seed).write(writer, naive);
        const std::string path = folder.file("mesh.pat");
        writer.SetFilePath(path.c_str());
        ASSERT_TRUE(writer.WriteFile());
        const std::string written = readText(path);
        ASSERT_EQ(written, naive.file()) << "seed " << seed;
        std::filesystem::remove(path);
        bytes += written.size();
    }
    EXPECT_GT(bytes / kMeshes, 3000U);
}

TEST(PatranWriterDifferential, ALargeMeshIsWrittenAlike) {
    TempFolder folder;
    const std::string path = folder.file("mesh.pat");
    constexpr int kNodes = 20000, kElements = 15000;
    CKVO_PATWriter_Bridge writer;
    NaiveWriter naive;
    naive.nodeCount = kNodes;
    naive.elemCount = kElements;
    naive.nodes.assign(kNodes, {0, 0, 0});
    naive.elements.assign(kElements, {});
    writer.SetFilePath(path.c_str());
    writer.SetNodeCount(kNodes);
    writer.SetNodeArray();
    writer.SetElemCount(kElements);
    ASSERT_TRUE(writer.SetElemArray());
    for (int i = 0; i < kNodes; ++i) {
        writer.AddNode(i, i / 7.0, -i, i * 1e-9);
        naive.addNode(i, i / 7.0, -i, i * 1e-9);
    }
    for (int i = 0; i < kElements; ++i) {
        int ids[8];
        for (int k = 0; k < 8; ++k)
            ids[k] = 1 + (i + k) % kNodes;
        writer.AddElement(i, 4 + 2 * (i % 3), ids);
        naive.addElement(i, 4 + 2 * (i % 3), ids);
    }
    ASSERT_TRUE(writer.WriteFile());
    EXPECT_TRUE(readText(path) == naive.file());
}

}  // namespace
}  // namespace kvocaeio::test
