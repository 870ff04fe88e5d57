/// The object behind the exported reader.
#pragma once

#include <cstddef>
#include <string_view>

#include "package/die_stack_report.h"
#include "package/geometry_section.h"
#include "package/import_3di.h"
#include "package/import_cadence.h"
#include "package/layer_report.h"
#include "package/length_units.h"
#include "package/model.h"
#include "package/report_tables.h"
#include "package/symbol_report.h"
#include "package/table_section.h"
#include "package/wire_sections.h"

namespace kvocaeio::package {

/// The model, and the imports and their steps as operations on it: each forwards to the function
/// that does the work, with the parts of the model that this reads and writes.
class CKVOCadenceReaderImp : public Model {
  public:
    bool Import3DI(InputFile& file, const text::Listener& listener = {}) {
        return import3di(file, *this, listener);
    }
    bool ReadUnits(InputFile& file) { return readUnits(file, {}, unitScale); }
    bool ReadColorTable(InputFile& file) { return readColorTable(file, {}, colorTable); }
    /// `word`: "OBJECT" or "LAYER"; false for any other.
    bool ReadNameTable(InputFile& file, std::string_view word) {
        return (word == "OBJECT" && readNameTable(file, {}, word, objectNames)) ||
               (word == "LAYER" && readNameTable(file, {}, word, layerNames));
    }
    bool ReadGeometries(InputFile& file) {
        return readGeometries(file, {}, *this, unitScale, components);
    }
    bool ReadWireModels(InputFile& file) {
        return wireProfileNames && readWireModels(file, {}, *wireProfileNames);
    }
    bool ReadWires(InputFile& file) { return readWires(file, {}, unitScale, *this); }
    /// In `layerNames` (`table` 1) or `objectNames` (any other).
    int FindTableEntry(int table, std::string_view key) const {
        return findEntry(table == 1 ? layerNames : objectNames, key);
    }

    bool ImportCadenceFile(InputFile& design, const text::Listener& listener = {}) {
        return importCadence(design, *this, listener);
    }
    bool WriteCommandFiles() { return writeCommandFiles(paths); }
    bool ReadReportFiles(InputFile& file0, InputFile& file1, InputFile& file2) {
        return readReportFiles(file0, file1, file2, {}, reportTables);
    }
    /// The operations on reports are false, or -1, while there are none.
    bool ReadReportFile(InputFile& file, std::size_t index) {
        return reportTables && readReport(file, {}, (*reportTables)[index]);
    }
    bool ReadReportUnits() {
        return reportTables && readReportUnits((*reportTables)[kSymbolReport], {}, unitScale);
    }
    int FindColumn(std::size_t index, const char* name) const {
        return reportTables && name != nullptr ? findColumn((*reportTables)[index], name) : -1;
    }
    bool ReadReports() {
        return reportTables && readReports(*reportTables, {}, unitScale, components);
    }
    /// Those on bodies are false while there is no list of them, too.
    bool ReadSymbolReport() {
        return components && reportTables &&
               readSymbolReport((*reportTables)[kSymbolReport], {}, unitScale, *components);
    }
    bool ReadDieStackReport() {
        return components && reportTables &&
               readDieStackReport((*reportTables)[kDieStackReport], {}, unitScale, *components);
    }
    bool ReadLayerReport() {
        return components && reportTables &&
               readLayerReport((*reportTables)[kLayerReport], {}, *components);
    }
};

}  // namespace kvocaeio::package
