/// The order of the normalisation's stages.
#include "abaqus/normalise.h"

#include <vector>

#include "abaqus/element_sets.h"
#include "abaqus/import_state.h"
#include "abaqus/section_tables.h"
#include "abaqus/shell_faces.h"
#include "abaqus/sort_log.h"

namespace kvocaeio {

void SortData(AbaqusModel& model) {
    startClock();
    if (model.nodeBlock.ids.empty() || model.elemSections.empty())
        return;
    ExpandElsets(model.elsets, model.elsetIndexMap, model.elsetElems);
    std::vector<SectionSources> solids, shells;
    selectSections(model.elemSections, solids, shells);
    MergeSectionsByElset(solids);
    MergeSectionsByElset(shells);
    makeSections(solids, model.nodeOidMap, model.solidSections);
    makeSections(shells, model.nodeOidMap, model.shellElemSections);
    SplitSectionByGeneratedSets(model.elsets, model.solidSections, model.shellElemSections);
    AddDloadFaces(model, model.dloadFaces, model.shellElemSections);
    AddSurfaceFaces(model, model.elsetIndexMap, model.elsetElems, model.surfaceFaces,
                    model.shellElemSections);
    if (importState().debug)
        WriteSortLog(model);
    stopClock();
}

}  // namespace kvocaeio
