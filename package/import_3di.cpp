/// The import of a 3DI file: its seven passes in their order.
#include <string_view>

#include "package/geometry_pass.h"
#include "package/model.h"
#include "package/pass_lines.h"
#include "package/table_pass.h"
#include "package/units_pass.h"
#include "package/wire_passes.h"

namespace kvocaeio {

namespace {

constexpr int kObjectTable = 0;
constexpr int kLayerTable = 1;

// One pass: opens the file, hands its lines to `read`, closes the file. False where it cannot be
// opened.
template <class Read>
bool passOver(InputFile& file, const Read& read) {
    if (!file.open())
        return false;
    text::NoObserver observer;
    PassLines lines(file.stream.get(), observer);
    read(lines);
    file.close();
    return true;
}

}  // namespace

bool CKVOCadenceReaderImp::Import3DI(InputFile& file) {
    file.close();
    makeEmpty(wirePoints);
    makeEmpty(wireFirstPoint);
    makeEmpty(wireProfile);
    makeEmpty(wireProfileNames);
    makeEmpty(wireDiameter);
    makeEmpty(wireColorId);
    makeEmpty(colorTable);
    makeEmpty(objectNames);
    makeEmpty(layerNames);
    return ReadUnits(file) && ReadColorTable(file) && ReadNameTable(file, "OBJECT") &&
           ReadNameTable(file, "LAYER") && ReadGeometries(file) && ReadWireModels(file) &&
           ReadWires(file);
}

bool CKVOCadenceReaderImp::ReadUnits(InputFile& file) {
    return passOver(file, [&](auto& lines) { readUnits(lines, unitScale); });
}

bool CKVOCadenceReaderImp::ReadColorTable(InputFile& file) {
    return passOver(file, [&](auto& lines) { readTable(lines, Word("COLOR"), *colorTable); });
}

bool CKVOCadenceReaderImp::ReadNameTable(InputFile& file, std::string_view word) {
    if (word != "OBJECT" && word != "LAYER")
        return false;
    IdTable<std::string>& table = word == "OBJECT" ? *objectNames : *layerNames;
    return passOver(file, [&](auto& lines) { readTable(lines, Word(word), table); });
}

bool CKVOCadenceReaderImp::ReadGeometries(InputFile& file) {
    bool tablesComplete = false;
    const bool opened = passOver(file, [&](auto& lines) {
        makeEmpty(components);
        const BodyKinds kinds{
            FindTableEntry(kObjectTable, "SYMBOL"),
            FindTableEntry(kObjectTable, "BALL"),
            FindTableEntry(kLayerTable, "OUTLINE"),
            FindTableEntry(kLayerTable, "PACKAGE CAP"),
        };
        tablesComplete = kinds.symbol != -1 && kinds.outline != -1;
        if (tablesComplete)
            GeometryPass(lines, kinds, *this, *components).run();
    });
    return opened && tablesComplete;
}

bool CKVOCadenceReaderImp::ReadWireModels(InputFile& file) {
    return passOver(file, [&](auto& lines) { readWireModels(lines, *wireProfileNames); });
}

bool CKVOCadenceReaderImp::ReadWires(InputFile& file) {
    return passOver(file, [&](auto& lines) { WirePass(lines, *this).run(); });
}

int CKVOCadenceReaderImp::FindTableEntry(int table, std::string_view key) const {
    if (objectNames == nullptr || layerNames == nullptr)
        return -1;
    std::string upperKey;
    text::foldToUpper(key, upperKey);
    for (const auto& [id, entry] : (table == kLayerTable ? layerNames : objectNames)->rows())
        if (equalsInAnyCase(entry, upperKey))
            return id;
    return -1;
}

}  // namespace kvocaeio
