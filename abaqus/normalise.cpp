/// The order of the normalisation's stages.
#include "abaqus/normalise.h"

#include <vector>

#include "abaqus/element_sets.h"
#include "abaqus/import_state.h"
#include "abaqus/section_tables.h"
#include "abaqus/shell_faces.h"
#include "abaqus/sort_log.h"

namespace kvocaeio::abaqus {

void SortData(AbaqusModel& model, const text::Listener& listener) {
    const Clock::time_point start = Clock::now();
    if (model.nodeBlock.ids.empty() || model.elemSections.empty())
        return;
    ExpandElsets(model.elsets, model.elsetIndexMap, model.elsetElems, listener);
    std::vector<SectionSources> solids, shells;
    selectSections(model.elemSections, solids, shells, listener);
    MergeSectionsByElset(solids, listener);
    MergeSectionsByElset(shells, listener);
    makeSections(solids, model.nodeOidMap, model.solidSections);
    makeSections(shells, model.nodeOidMap, model.shellElemSections);
    SplitSectionByGeneratedSets(model.elsets, model.solidSections, model.shellElemSections,
                                listener);
    AddDloadFaces(model, model.dloadFaces, model.shellElemSections, listener);
    AddSurfaceFaces(model, model.elsetIndexMap, model.elsetElems, model.surfaceFaces,
                    model.shellElemSections, listener);
    if (const DebugFolder folder = latestDebugFolder(); folder.usable)
        WriteSortLog(model, folder);
    publishTimeSince(start);
}

}  // namespace kvocaeio::abaqus
