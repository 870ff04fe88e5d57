/// The import of a 3DI file: its seven passes in their order.
#include "package/import_3di.h"

#include "package/geometry_section.h"
#include "package/length_units.h"
#include "package/lines.h"
#include "package/table_section.h"
#include "package/wire_sections.h"

namespace kvocaeio::package {

bool import3di(InputFile& file, Model& model, const text::Listener& listener) {
    file.close();
    const auto empty = [](auto&... lists) { (lists.clear(), ...); };
    empty(model.wirePoints, model.wireFirstPoint, model.wireProfile,
          model.wireProfileNames.emplace(), model.wireDiameter, model.wireColorId, model.colorTable,
          model.objectNames, model.layerNames);
    return noteLines(file, listener) && readUnits(file, listener, model.unitScale) &&
           readColorTable(file, listener, model.colorTable) &&
           readNameTable(file, listener, "OBJECT", model.objectNames) &&
           readNameTable(file, listener, "LAYER", model.layerNames) &&
           readGeometries(file, listener, model, model.unitScale, model.components) &&
           readWireModels(file, listener, *model.wireProfileNames) &&
           readWires(file, listener, model.unitScale, model);
}

}  // namespace kvocaeio::package
