/// What is kept of an Abaqus deck between its reading and the writing of the tidy one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tidy/abaqus/element_types.h"
#include "tidy/abaqus/geometry.h"
#include "tidy/abaqus/id_index.h"
#include "tidy/growing_array.h"

namespace kvocaeio::tidy::abaqus {

/// A field in a line of one of the files, or a whole line.
struct Place {
    std::uint32_t file = 0;
    std::uint32_t line = 0;
    std::uint32_t column = 0;
};

/// The file of each row of a table, as rows from which on it is another.
struct FileRows {
    struct Change {
        std::size_t row;
        std::uint32_t file;
    };
    std::vector<Change> changes;

    void add(std::size_t row, std::uint32_t file) {
        if (changes.empty() || changes.back().file != file)
            changes.push_back({row, file});
    }
};

struct NodeTable {
    GrowingArray<int> ids;
    GrowingArray<Point> points;
    IdIndex rows;
    FileRows files;
};

/// The elements of one `*ELEMENT` block, or of what is generated from one.
struct Block {
    ElementType type;
    std::string typeName;  ///< as it will be written
    std::string elset;     ///< as it is looked up
    std::uint32_t first;   ///< the place of its first element among those of its scope
    GrowingArray<int> ids;
    GrowingArray<int> nodes;  ///< `type.written` of each
};

/// Numbers at equal distances.
struct IdRun {
    int instance;  ///< a row of `Model::instances`, or `kOwnScope`
    int first;
    int last;
    int step;
    bool isOfBlock = false;  ///< by an `*ELEMENT` block, not by one of the set
};
constexpr int kOwnScope = -1;

/// The name of a set, as it is looked up from a scope, or from an instance if one is given.
struct SetName {
    int instance;
    std::string name;
};

struct IdSet {
    std::vector<IdRun> runs;
    std::vector<SetName> names;  ///< of sets in it
    bool isListed = false;       ///< whether an `*ELSET` block names it
    bool isRepeated = false;     ///< whether several do
    bool isInternal = false;
    bool isGenerated = false;
    bool isUnsorted = false;  ///< its ids count in the order of the deck
    Place place;

    void add(int instance, int id, bool isOfBlock = false) {
        if (!runs.empty()) {
            IdRun& run = runs.back();
            const std::int64_t distance = std::int64_t{id} - run.last;
            const bool isSingle = run.first == run.last;
            if (run.instance == instance && run.isOfBlock == isOfBlock && distance > 0 &&
                (distance == run.step || (isSingle && std::in_range<int>(distance)))) {
                run.step = static_cast<int>(distance);
                run.last = id;
                return;
            }
        }
        runs.push_back({instance, id, id, 1, isOfBlock});
    }
};

/// What a line of a surface or load names: an element if the name is empty.
struct Target {
    int instance = kOwnScope;
    int id = 0;
    std::string name;
};

struct SurfaceItem {
    Target target;
    int face = 0;  ///< 0: all that are on the outside
    Place place;
};

enum class Combination : unsigned char { kNone, kUnion, kIntersection, kDifference };

struct Surface {
    std::string name;
    Place place;
    std::vector<SurfaceItem> items;
    Combination combination = Combination::kNone;
    std::vector<SetName> operands;  ///< surfaces that it is combined of
};

struct Load {
    Target target;
    int face = 0;  ///< 0: the target is a surface
    double value = 0.0;
    Place place;
};

struct ShellSection {
    std::string elset;
    std::string material;
    double thickness = 0.0;
    Place place;
};

/// A name space: the deck's own, a part, or an instance with a mesh of its own.
struct Scope {
    std::string name;
    Place definedAt;
    bool isCopied = false;  ///< whether an instance has a copy, with more in it
    NodeTable nodes;
    std::vector<Block> blocks;
    IdIndex elements;  ///< to the place among all elements of the scope
    FileRows elementFiles;
    std::map<std::string, IdSet> nodeSets;
    std::map<std::string, IdSet> elementSets;
    std::vector<Surface> surfaces;
    std::vector<ShellSection> shellSections;

    /// The block of an element, as a row of `blocks`, and its row there.
    struct ElementRow {
        std::size_t block;
        std::size_t row;
    };
    ElementRow elementAt(std::uint32_t place) const;
    const Block& blockOf(std::uint32_t place) const { return blocks[elementAt(place).block]; }
};

struct Instance {
    std::string name;
    Place definedAt;
    std::size_t scope;  ///< a row of `Model::scopes`
    Placement placement;
};

struct Model {
    std::vector<Scope> scopes{1};  ///< the first is the deck's own, with its assembly
    std::vector<Instance> instances;
    std::map<std::string, int> instanceRows;
    std::string assembly;
    std::vector<Load> loads;

    const Scope& scopeOf(int instance) const {
        return instance == kOwnScope ? scopes[0]
                                     : scopes[instances[static_cast<std::size_t>(instance)].scope];
    }
};

}  // namespace kvocaeio::tidy::abaqus
