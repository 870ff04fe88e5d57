/// Surfaces and loads, item by item.
#include "tidy/abaqus/faces.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <tuple>
#include <utility>

#include "tidy/abaqus/outside.h"

namespace kvocaeio::tidy::abaqus {

namespace {

/// A face of an element of a frame.
struct MemberFace {
    Member element;
    int face;
    // NOLINTNEXTLINE(modernize-use-nullptr): what the compiler makes of it is not ours
    auto operator<=>(const MemberFace&) const = default;
};

/// A surface by the frame that it is defined in.
struct SurfaceName {
    int instance;
    std::string name;
    // NOLINTNEXTLINE(modernize-use-nullptr): what the compiler makes of it is not ours
    auto operator<=>(const SurfaceName&) const = default;
};

std::size_t keepUnique(std::vector<Member>& members) {
    std::ranges::sort(members);
    members.erase(std::unique(members.begin(), members.end()), members.end());
    return members.size();
}

class Planner {
  public:
    Planner(const Model& model, const Frames& frames, DeckLines& lines)
        : model_(model), frames_(frames), lines_(lines) {}

    PlannedFaces plan();

  private:
    bool hasFace(const Member& element, int face) const;
    Members elementsOf(const Frame& frame, const Target& target, Place place);
    FoundSet find(const Frame& frame, const Target& target) const;
    bool isListedWhole(const FoundSet& found) const;
    void tellSet(const FoundSet& found, const std::string& name, bool hasUnknown);
    void tellRepeated();
    bool hasLoneSection() const;
    void tellGenerated();
    void planSurface(const Frame& frame, const Surface& surface);
    void planItem(const Frame& frame, const SurfaceItem& item, PlannedSurface& planned);
    bool isNamedFirst(const Frame& frame, const SurfaceItem& item);
    void separateRepeated(PlannedSurface& planned, Place place);
    void planOutside(const Frame& frame, const SurfaceItem& item, PlannedSurface& planned);
    void combine(const Surface& surface, const Frame& frame, PlannedSurface& planned);
    Members elementsOfLine(const PlannedSurface::Line& line) const;
    std::vector<MemberFace> facesOfPlanned(const PlannedSurface& planned) const;
    void planLoad(const Load& load);
    void planSurfaceLoad(const Load& load);
    bool spend(std::size_t count, Place place);

    const Model& model_;
    const Frames& frames_;
    DeckLines& lines_;
    PlannedFaces out_;
    OutsideFaces outside_;
    std::map<SurfaceName, std::size_t> surfaceRows_;
    std::map<std::string_view, std::size_t> surfacesOfName_;  // their count
    std::size_t spent_ = 0;
    std::set<const IdSet*> told_;
    std::set<std::tuple<int, const IdSet*, int>> named_;  // of the present surface, with the face
};

// A few lines can name a large set many times.
bool Planner::spend(std::size_t count, Place place) {
    const bool wasWithin = spent_ <= Frames::kMostRows;
    spent_ += count;
    if (spent_ <= Frames::kMostRows)
        return true;
    if (wasWithin)
        lines_.noteAt(Finding::kTooMuch, place, {}, "faces of surfaces and loads");
    return false;
}

bool Planner::hasFace(const Member& element, int face) const {
    const Scope& scope = *frames_.of(element.instance).scope;
    const std::uint32_t place = scope.elements.find(element.id);
    return place != IdIndex::kNone &&
           static_cast<std::size_t>(face) <= readFaceCount(scope.blockOf(place).type.shape);
}

FoundSet Planner::find(const Frame& frame, const Target& target) const {
    const Frame& from = target.instance == kOwnScope ? frame : frames_.of(target.instance);
    return findSet(model_, *from.scope, from.instance, target.name, SetKind::kElements);
}

// The elements that a line names. None, and told, where there are none.
Members Planner::elementsOf(const Frame& frame, const Target& target, Place place) {
    Members members;
    if (target.name.empty()) {
        const int instance = target.instance == kOwnScope ? frame.instance : target.instance;
        if (frames_.of(instance).scope->elements.find(target.id) != IdIndex::kNone)
            members.list.push_back({instance, target.id});
        else
            lines_.changeAt(Finding::kSetMissing, place, std::to_string(target.id));
        return members;
    }
    const FoundSet found = find(frame, target);
    if (found.set == nullptr) {
        lines_.noteAt(Finding::kSetMissing, place, target.name, target.name);
        return members;
    }
    members = membersOf(model_, found, SetKind::kElements);
    if (!spend(members.cost, place))
        members.list.clear();
    return members;
}

// Whether the blocks of a set name all its elements.
bool Planner::isListedWhole(const FoundSet& found) const {
    IdSet listed = *found.set;
    std::erase_if(listed.runs, &IdRun::isOfBlock);
    if (!listed.isListed || listed.runs.size() == found.set->runs.size())
        return listed.isListed;
    FoundSet reduced = found;
    reduced.set = &listed;
    return membersOf(model_, reduced, SetKind::kElements).list.size() ==
           membersOf(model_, found, SetKind::kElements).list.size();
}

// What of a set the reader would take in another way, were a surface to name it.
void Planner::tellSet(const FoundSet& found, const std::string& name, bool hasUnknown) {
    const IdSet& set = *found.set;
    if (!told_.insert(&set).second)
        return;
    if (!isListedWhole(found))
        lines_.changeAt(Finding::kSetOfBlock, set.place, name, name);
    if (set.isInternal)
        lines_.changeAt(Finding::kSetInternal, set.place, name, name);
    if (!set.names.empty())
        lines_.changeAt(Finding::kSetNested, set.place, name, name);
    if (hasUnknown)
        lines_.changeAt(Finding::kSetMembers, set.place, name, name);
}

void Planner::planOutside(const Frame& frame, const SurfaceItem& item, PlannedSurface& planned) {
    lines_.changeAt(Finding::kSurfaceOutside, item.place, planned.name, planned.name);
    const Members members = elementsOf(frame, item.target, item.place);
    bool isMissing = false;
    for (const Member& member : members.list) {
        const std::vector<ElementFace>& faces = outside_.of(*frames_.of(member.instance).scope);
        auto face = std::ranges::lower_bound(faces, ElementFace{member.id, 0});
        isMissing = isMissing || !hasFace(member, 1);
        for (; face != faces.end() && face->id == member.id; ++face)
            if (hasFace(member, face->face))
                planned.elements[static_cast<std::size_t>(face->face) - 1].push_back(member);
    }
    if (isMissing)
        lines_.noteAt(Finding::kFaceMissing, item.place, item.target.name, planned.name);
}

void Planner::planItem(const Frame& frame, const SurfaceItem& item, PlannedSurface& planned) {
    if (item.face == 0)
        return planOutside(frame, item, planned);
    const Members members = elementsOf(frame, item.target, item.place);
    std::vector<Member>& own = planned.elements[static_cast<std::size_t>(item.face) - 1];
    const std::size_t before = own.size();
    std::ranges::copy_if(members.list, std::back_inserter(own),
                         [&](const Member& member) { return hasFace(member, item.face); });
    const std::size_t kept = own.size() - before;
    if (kept < members.list.size())
        lines_.changeAt(Finding::kFaceMissing, item.place, item.target.name, planned.name);
    if (item.target.name.empty() || kept < members.list.size()) {
        if (kept > 0)
            lines_.changeAt(Finding::kSurfaceItem, item.place, planned.name, planned.name);
        return;
    }
    own.resize(before);
    if (kept == 0)
        return;
    const FoundSet found = find(frame, item.target);
    const std::string name(found.name);
    tellSet(found, name, members.hasUnknown);
    planned.lines.push_back({found.instance, name, item.face});
    if (!found.set->isListed)
        out_.sets.emplace(found.instance, name);
}

Members Planner::elementsOfLine(const PlannedSurface::Line& line) const {
    const Frame& frame = frames_.of(line.instance);
    return membersOf(model_,
                     findSet(model_, *frame.scope, frame.instance, line.set, SetKind::kElements),
                     SetKind::kElements);
}

std::vector<MemberFace> Planner::facesOfPlanned(const PlannedSurface& planned) const {
    std::vector<MemberFace> faces;
    for (std::size_t i = 0; i < kMostFaces; ++i)
        for (const Member& member : planned.elements[i])
            faces.push_back({member, static_cast<int>(i) + 1});
    for (const PlannedSurface::Line& line : planned.lines)
        for (const Member& member : elementsOfLine(line).list)
            faces.push_back({member, line.face});
    std::ranges::sort(faces);
    faces.erase(std::unique(faces.begin(), faces.end()), faces.end());
    return faces;
}

// Operands are surfaces of faces, or combined ones that are defined before.
void Planner::combine(const Surface& surface, const Frame& frame, PlannedSurface& planned) {
    std::vector<MemberFace> result;
    bool isFirst = true;
    for (const SetName& operand : surface.operands) {
        const auto row = surfaceRows_.find({frame.instance, operand.name});
        if (row == surfaceRows_.end()) {
            lines_.noteAt(Finding::kSurfaceMissing, surface.place, operand.name, operand.name);
            continue;
        }
        std::vector<MemberFace> faces = facesOfPlanned(out_.surfaces[row->second]);
        if (!spend(faces.size() + result.size(), surface.place))
            return;
        std::vector<MemberFace> next;
        if (std::exchange(isFirst, false))
            next = std::move(faces);
        else if (surface.combination == Combination::kUnion)
            std::ranges::set_union(result, faces, std::back_inserter(next));
        else if (surface.combination == Combination::kIntersection)
            std::ranges::set_intersection(result, faces, std::back_inserter(next));
        else
            std::ranges::set_difference(result, faces, std::back_inserter(next));
        result = std::move(next);
    }
    for (const MemberFace& face : result)
        planned.elements[static_cast<std::size_t>(face.face) - 1].push_back(face.element);
}

bool Planner::isNamedFirst(const Frame& frame, const SurfaceItem& item) {
    if (item.target.name.empty())
        return true;
    const FoundSet found = find(frame, item.target);
    return found.set == nullptr || named_.insert({found.instance, found.set, item.face}).second;
}

// Faces that several lines name are faces of a surface once, and the reader would repeat them.
void Planner::separateRepeated(PlannedSurface& planned, Place place) {
    std::array<std::size_t, kMostFaces> sources{};
    for (std::size_t i = 0; i < kMostFaces; ++i)
        sources[i] = planned.elements[i].empty() ? 0 : 1;
    for (const PlannedSurface::Line& line : planned.lines)
        ++sources[static_cast<std::size_t>(line.face) - 1];
    for (std::size_t i = 0; i < kMostFaces; ++i) {
        if (sources[i] < 2 && planned.elements[i].size() < 2)
            continue;
        const auto isOfFace = [&](const PlannedSurface::Line& line) {
            return static_cast<std::size_t>(line.face) == i + 1;
        };
        std::vector<Member> all = planned.elements[i];
        std::size_t count = all.size();
        std::size_t unique = 0;
        for (const PlannedSurface::Line& line : planned.lines)
            if (isOfFace(line)) {
                if (all.size() > 2 * unique)  // a few lines may name a large set many times
                    unique = keepUnique(all);
                const Members members = elementsOfLine(line);
                std::ranges::copy(members.list, std::back_inserter(all));
                count += members.list.size();
            }
        if (keepUnique(all) == count || !spend(count, place))
            continue;
        lines_.changeAt(Finding::kSurfaceRepeated, place, planned.name, planned.name);
        std::erase_if(planned.lines, isOfFace);
        planned.elements[i] = std::move(all);
    }
}

void Planner::planSurface(const Frame& frame, const Surface& surface) {
    const std::string qualified =
        frame.instance == kOwnScope ? surface.name : std::string(frame.name) + "." + surface.name;
    const bool isShared = surfacesOfName_[surface.name] > 1;
    PlannedSurface planned{isShared ? qualified : surface.name, {}, {}};
    if (surface.combination != Combination::kNone)
        combine(surface, frame, planned);
    named_.clear();
    for (const SurfaceItem& item : surface.items)
        if (isNamedFirst(frame, item))
            planItem(frame, item, planned);
        else
            lines_.changeAt(Finding::kSurfaceRepeated, item.place, planned.name, planned.name);
    separateRepeated(planned, surface.place);
    surfaceRows_[{frame.instance, surface.name}] = out_.surfaces.size();
    surfaceRows_[{kOwnScope, qualified}] = out_.surfaces.size();
    if (!model_.assembly.empty())
        surfaceRows_[{kOwnScope, model_.assembly + "." + qualified}] = out_.surfaces.size();
    out_.surfaces.push_back(std::move(planned));
}

void Planner::planSurfaceLoad(const Load& load) {
    const auto row = surfaceRows_.find({kOwnScope, load.target.name});
    if (row == surfaceRows_.end())
        return lines_.noteAt(Finding::kSurfaceMissing, load.place, load.target.name,
                             load.target.name);
    const std::vector<MemberFace> faces = facesOfPlanned(out_.surfaces[row->second]);
    if (!spend(faces.size(), load.place))
        return;
    for (const MemberFace& face : faces)
        out_.loads.push_back({face.element, face.face, load.value});
    if (!faces.empty())
        lines_.changeAt(Finding::kLoadOnSurface, load.place, load.target.name, load.target.name);
    else
        lines_.noteAt(Finding::kFaceMissing, load.place, load.target.name, load.target.name);
}

void Planner::planLoad(const Load& load) {
    if (load.face == 0)
        return planSurfaceLoad(load);
    const Frame& own = frames_.all().back();
    const Members members = elementsOf(own, load.target, load.place);
    std::size_t kept = 0;
    for (const Member& member : members.list)
        if (hasFace(member, load.face)) {
            out_.loads.push_back({member, load.face, load.value});
            ++kept;
        }
    if (kept < members.list.size())
        lines_.changeAt(Finding::kFaceMissing, load.place, load.target.name, "a load");
    if (!load.target.name.empty() && kept > 0)
        lines_.changeAt(Finding::kLoadOnSet, load.place, load.target.name, load.target.name);
}

// Sets that stand in several blocks shift the others for the reader, whichever a surface names.
void Planner::tellRepeated() {
    for (const Frame& frame : frames_.all())
        for (const auto& [name, set] : frame.scope->elementSets)
            if (set.isRepeated)
                lines_.changeAt(Finding::kSetRepeated, set.place, name, name);
}

// Whether the reader has one section of solids or of shells alone, which generated sets split. It
// makes one section of all blocks of a name.
bool Planner::hasLoneSection() const {
    std::set<std::string_view> solids;
    std::set<std::string_view> shells;
    for (const Block& block : model_.scopes[0].blocks)
        (facesOf(block.type.shape).empty() ? shells : solids).insert(block.elset);
    return solids.size() == 1 || shells.size() == 1;
}

// To be asked last, since where nothing else has to be changed such sets may stay.
void Planner::tellGenerated() {
    const bool isSplit = hasLoneSection();
    if (!isSplit && !lines_.isNeeded())
        return;
    for (const Frame& frame : frames_.all())
        for (const auto& [name, set] : frame.scope->elementSets)
            if (set.isGenerated && !(set.isInternal && !lines_.isNeeded()))
                lines_.changeAt(Finding::kSetGenerated, set.place, name, name);
}

PlannedFaces Planner::plan() {
    for (const Frame& frame : frames_.all())
        for (const Surface& surface : frame.scope->surfaces)
            ++surfacesOfName_[surface.name];
    for (const bool isCombined : {false, true})
        for (const Frame& frame : frames_.all())
            for (const Surface& surface : frame.scope->surfaces)
                if ((surface.combination != Combination::kNone) == isCombined)
                    planSurface(frame, surface);
    if (!out_.surfaces.empty())
        tellRepeated();
    for (const Load& load : model_.loads)
        planLoad(load);
    tellGenerated();
    return std::move(out_);
}

}  // namespace

PlannedFaces planFaces(const Model& model, const Frames& frames, DeckLines& lines) {
    return Planner(model, frames, lines).plan();
}

}  // namespace kvocaeio::tidy::abaqus
