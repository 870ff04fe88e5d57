/// The model of one chip package: bodies, wires, and the tables and paths behind them.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "package/cell_list.h"
#include "package/chunked_list.h"
#include "package/component_list.h"
#include "package/id_table.h"
#include "package/tool_paths.h"

namespace kvocaeio::package {

/// Where the lines of a report are in its file; known only where somebody listens to the reading.
struct ReportPlaces {
    /// Rows from `row` on, up to the next run, stand on lines from `line` on, one each.
    struct Run {
        std::size_t row;
        std::size_t line;
    };
    std::size_t file = 0;  ///< of `text::Findings`
    std::size_t header = 0;
    std::size_t job = 0;
    std::vector<Run> rows;
};

/// A report of the extraction tool. The first cell of each line is its tag, so that the first real
/// column has the index 1.
struct Report {
    CellList headerCells;  ///< names of the columns
    CellList jobCells;     ///< facts about the design
    CellList dataCells;    ///< row after row, as many cells each as the header has
    ReportPlaces places;
};

inline constexpr std::size_t kSymbolReport = 0;
inline constexpr std::size_t kLayerReport = 1;
inline constexpr std::size_t kDieStackReport = 2;
using ReportTables = std::array<Report, 3>;

/// What the geometry blocks of a 3DI file refer to.
struct BlockTables {
    IdTable<unsigned> colorTable;  ///< packed colours
    IdTable<std::string> objectNames;
    IdTable<std::string> layerNames;
};

struct WireTables {
    /// A list that is absent and an empty one are two states: a list comes into being when an
    /// import first needs it.
    std::optional<ChunkedList<std::string>> wireProfileNames;
    int wireCount = 0;                 ///< counts on from import to import
    int wireProfileMax = 0;            ///< highest profile number that any wire names
    ChunkedList<double> wirePoints;    ///< x, y, z per point, wire after wire
    ChunkedList<int> wireFirstPoint;   ///< per wire, in points
    ChunkedList<int> wireProfile;      ///< per wire, counted from 1
    ChunkedList<double> wireDiameter;  ///< per wire
    ChunkedList<int> wireColorId;      ///< per wire: an id of `colorTable`
};

/// Lists that are absent and empty ones are two states here, too.
struct Model : BlockTables, WireTables {
    double unitScale = 1.0;         ///< the file's length unit in millimetres
    std::string profileNameBuffer;  ///< keeps the name that the host was given last
    ToolPaths<std::string> paths;
    ToolPaths<std::wstring> pathsW;
    std::optional<ReportTables> reportTables;
    std::optional<ComponentList> components;
};

}  // namespace kvocaeio::package
