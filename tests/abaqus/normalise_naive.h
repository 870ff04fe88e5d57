/// The normalisation once more, as plainly as its rules read: what the library's is compared with.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace kvocaeio::test {

/// What an import leaves of a deck, as far as the normalisation looks at it.
struct RawModel {
    struct Node {
        int oid;
        std::array<double, 3> coord;
    };
    struct Element {
        int oid;
        std::vector<int> nodes;
    };
    struct Block {
        std::string elset;
        std::string type;
        int geometry;
        int width;
        std::vector<Element> elements;
    };
    struct Set {
        std::string name;
        bool generated;
        std::vector<std::string> members;
        int start, end, step;
    };
    struct SurfaceLine {
        std::string item;
        std::string label;
    };
    struct LoadLine {
        int oid;
        std::string label;
    };

    std::vector<Node> nodes;
    std::vector<Block> blocks;
    std::vector<Set> sets;
    std::vector<SurfaceLine> surfaceLines;
    std::vector<LoadLine> loadLines;
};

class NaiveNormalisation {
  public:
    explicit NaiveNormalisation(const RawModel& raw);

    /// One run over what the run before left. Throws `std::length_error` where the library must.
    void sort();

    /// The log that belongs to the present state.
    std::string log() const;
    /// Row of a node OID inside the map.
    std::optional<int> nodeRow(int oid) const;
    /// Block and row of an element OID inside the map.
    std::optional<std::pair<int, int>> elementPlace(int oid) const;

    /// Sections with new node IDs; blocks again, as they have the same fields.
    std::vector<RawModel::Block> solids, shells;
    /// What the latest run printed, but for the line of the log's path.
    std::string printed;
    /// How often each thing happened, so that a test can see whether its models reach it.
    std::map<std::string, int> reached;

  private:
    using Section = RawModel::Block;
    using Face = std::array<int, 4>;

    int newId(int oid) const;
    std::optional<Face> face(int elementOid, int number) const;
    void expandSets();
    void copySections();
    void merge(std::vector<Section>& sections);
    void split();
    void addFaces(std::vector<Face>& faces, const std::string& name);
    void addLoadFaces();
    void addSurfaceFaces();
    void logRawTables(std::ostream& out) const;
    static void logSections(std::ostream& out, const std::string& word,
                            const std::vector<Section>& sections);

    const RawModel raw;
    std::map<int, int> rowOfNode;
    std::map<int, std::pair<int, int>> placeOfElement;
    int maxNode = -1;
    int maxElement = -1;
    std::map<std::string, std::size_t> setIndex;
    std::vector<std::vector<int>> setElements;
    std::vector<Face> loadFaces, surfaceFaces;
};

}  // namespace kvocaeio::test
