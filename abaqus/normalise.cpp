/// The order of the normalisation's stages.
#include "abaqus/normalise.h"

#include <new>
#include <stdexcept>
#include <vector>

#include "abaqus/element_sets.h"
#include "abaqus/import_state.h"
#include "abaqus/section_tables.h"
#include "abaqus/shell_faces.h"
#include "abaqus/sort_log.h"

namespace kvocaeio::abaqus {

namespace {

// An error of the import that is known already is the cause, and says more.
void noteNothing(const text::Listener& listener) {
    if (listener.findings != nullptr && listener.findings->lastError() == nullptr)
        listener.note(Finding::kNothingToSort, {});
}

void runStages(AbaqusModel& model, const text::Listener& listener) {
    ExpandElsets(model.elsets, model.elsetIndexMap, model.elsetElems, listener);
    std::vector<SectionSources> solids, shells;
    selectSections(model.elemSections, solids, shells, listener);
    MergeSectionsByElset(solids, listener);
    MergeSectionsByElset(shells, listener);
    makeSections(solids, model.nodeOidMap, model.solidSections, listener);
    makeSections(shells, model.nodeOidMap, model.shellElemSections, listener);
    SplitSectionByGeneratedSets(model.elsets, model.solidSections, model.shellElemSections,
                                listener);
    AddDloadFaces(model, model.dloadFaces, model.shellElemSections, listener);
    AddSurfaceFaces(model, model.elsetIndexMap, model.elsetElems, model.surfaceFaces,
                    model.shellElemSections, listener);
}

}  // namespace

void SortData(AbaqusModel& model, const text::Listener& listener) {
    const Clock::time_point start = Clock::now();
    if (model.nodeBlock.ids.empty() || model.elemSections.empty())
        return noteNothing(listener);
    try {
        runStages(model, listener);
    } catch (const std::length_error&) {
        listener.note(Finding::kTooManyRows, {});
        throw;
    } catch (const std::bad_alloc&) {
        listener.note(text::FileFinding::kOutOfMemory, {});
        throw;
    }
    if (listener.isQuiet)
        return;
    if (const DebugFolder folder = latestDebugFolder(); folder.usable)
        WriteSortLog(model, folder);
    publishTimeSince(start);
}

}  // namespace kvocaeio::abaqus
