/// The model of one chip package: bodies, wires, and the tables and paths behind them.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "package/cell_list.h"
#include "package/chunked_list.h"
#include "package/component_list.h"
#include "package/id_table.h"
#include "package/input_file.h"

namespace kvocaeio {

/// The paths of the extraction tool and its files, in one form, narrow or wide.
template <class String>
struct ToolPaths {
    String exe;
    String temp;
    std::array<String, 3> commandFiles;
    std::array<String, 3> dataFiles;
};

/// The extraction tool's reports: 0 the symbols, 1 the layers, 2 the die stack. The first cell of
/// each line is its tag, so that the first real column has the index 1.
struct ReportTables {
    using Lists = std::array<CellList, 3>;  ///< by report

    std::unique_ptr<Lists> headerCells;  ///< names of the columns
    std::unique_ptr<Lists> jobCells;     ///< facts about the design
    std::unique_ptr<Lists> dataCells;    ///< row after row, as many cells each as the header has
};

/// The object behind `CKVOCadenceReader`. A list that is absent (null) and an empty one are two
/// states: a list comes into being when an import first needs it.
class CKVOCadenceReaderImp {
  public:
    /// Reads a 3DI file in seven passes. Each of them opens the file anew and gives false where
    /// that fails; the first that gives false ends the import.
    bool Import3DI(InputFile& file);
    bool ReadUnits(InputFile& file);
    bool ReadColorTable(InputFile& file);
    /// `word`: "OBJECT" or "LAYER"; false for any other.
    bool ReadNameTable(InputFile& file, std::string_view word);
    /// False, too, where a table entry is missing that it needs. Throws the error of
    /// `throwBadSubscript` for a body without a colour or name.
    bool ReadGeometries(InputFile& file);
    bool ReadWireModels(InputFile& file);
    bool ReadWires(InputFile& file);

    /// Index of the first entry equal to `key`, in any case, in `layerNames` (`table` 1) or
    /// `objectNames` (any other); -1 without one.
    int FindTableEntry(int table, std::string_view key) const;

    /// Runs the extraction tool over a design, unless no tool was set, and reads its reports.
    /// Throws as `ReadReports` does.
    bool ImportCadenceFile(InputFile& design);
    /// False where a command file cannot be opened. Its paths are the narrow ones.
    bool WriteCommandFiles();

    /// Makes new tables and fills them. False where report 0 or 1 gives false; 2 may.
    bool ReadReportFiles(InputFile& file0, InputFile& file1, InputFile& file2);
    /// Adds a file's cells to the tables of report `index`, up to a line that is none of a report.
    /// False for such a line, a file that cannot be opened, and while there are no tables.
    bool ReadReportFile(InputFile& file, int index);
    /// Sets `unitScale` by report 0. False where that has not one full job line.
    bool ReadReportUnits();
    /// Index of the first column of report `index` with that name, in any case; -1 without one.
    int FindColumn(int index, const char* name) const;

    /// Replaces the bodies by those of the reports, as the kind of design asks for. False where the
    /// kind is unknown or a report lacks a column. Throws as the readings of the reports do.
    bool ReadReports();
    /// Each of these gives false while `components` is absent and where a column is missing. Those
    /// of symbols and layers throw the error of `throwBadSubscript` where the report has no job
    /// line that names the design.
    bool ReadSymbolReport();
    bool ReadDieStackReport();
    bool ReadLayerReport();

    double unitScale = 1.0;  ///< the file's length unit in millimetres
    int wireCount = 0;
    int wireProfileMax = 0;  ///< highest profile number that any wire names
    std::unique_ptr<ChunkedList<double>> wirePoints;   ///< x, y, z per point, wire after wire
    std::unique_ptr<ChunkedList<int>> wireFirstPoint;  ///< per wire, in points
    std::unique_ptr<ChunkedList<int>> wireProfile;     ///< per wire, counted from 1
    std::unique_ptr<ChunkedList<std::string>> wireProfileNames;
    std::unique_ptr<ChunkedList<double>> wireDiameter;  ///< per wire
    std::unique_ptr<ChunkedList<int>> wireColorId;      ///< per wire: an id of `colorTable`
    std::unique_ptr<IdTable<unsigned>> colorTable;      ///< packed colours
    std::string profileNameBuffer;  ///< keeps the name that the host was given last
    ToolPaths<std::string> paths;
    ToolPaths<std::wstring> pathsW;
    ReportTables reportTables;
    std::unique_ptr<ComponentList> components;
    std::unique_ptr<IdTable<std::string>> objectNames;
    std::unique_ptr<IdTable<std::string>> layerNames;
};

}  // namespace kvocaeio
