/// The blocks of the tidy deck, frame by frame.
#include "tidy/abaqus/deck_writer.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tidy/abaqus/line_writer.h"
#include "tidy/abaqus/set_names.h"
#include "tidy/abaqus/sets.h"
#include "tidy/abaqus/statement.h"

namespace kvocaeio::tidy::abaqus {

namespace {

class DeckWriter {
  public:
    DeckWriter(const Model& model, const Frames& frames, DeckLines& lines, OutputFile& out)
        : model_(model), frames_(frames), lines_(lines), names_(frames, lines), out_(out) {}

    void write(const PlannedFaces& faces);

  private:
    void writeNodes();
    void writeBlock(const Frame& frame, const Block& block);
    void writeSet(const std::string& name, const std::vector<Member>& members);
    void writeSets(const PlannedFaces& faces);
    void writeShellSections();
    void writeSurface(const PlannedSurface& surface);
    void writeLoads(const PlannedFaces& faces);
    int newId(const Member& element) const {
        return static_cast<int>(element.id + frames_.of(element.instance).elementShift);
    }

    const Model& model_;
    const Frames& frames_;
    DeckLines& lines_;
    SetNames names_;
    OutputFile& out_;
    std::size_t cost_ = 0;  // of sets
};

void DeckWriter::writeNodes() {
    out_.text("*NODE\n");
    LineWriter line(out_);
    for (const Frame& frame : frames_.all()) {
        const NodeTable& nodes = frame.scope->nodes;
        for (std::size_t row = 0; row < nodes.ids.size(); ++row) {
            line.integer(nodes.ids[row] + frame.nodeShift);
            for (const double coordinate : frame.placement(nodes.points[row]))
                line.real(coordinate);
            line.finish();
        }
    }
}

void DeckWriter::writeBlock(const Frame& frame, const Block& block) {
    if (block.ids.empty())
        return;
    out_.text("*ELEMENT, TYPE=").text(block.typeName);
    if (!block.elset.empty())
        out_.text(", ELSET=").text(names_.of(frame.instance, block.elset));
    out_.text("\n");
    LineWriter line(out_);
    const int* node = block.nodes.data();
    for (const int id : block.ids) {
        line.integer(id + frame.elementShift);
        for (std::size_t i = 0; i < block.type.written; ++i)
            line.integer(*node++ + frame.nodeShift);
        line.finish();
    }
}

void DeckWriter::writeSet(const std::string& name, const std::vector<Member>& members) {
    out_.text("*ELSET, ELSET=").text(name).text("\n");
    LineWriter line(out_);
    for (const Member& member : members) {
        line.integer(newId(member));
        if (line.isFull())
            line.finish();
    }
    if (!line.isEmpty())
        line.finish();
}

void DeckWriter::writeSets(const PlannedFaces& faces) {
    for (const Frame& frame : frames_.all())
        for (const auto& [name, set] : frame.scope->elementSets) {
            if (name.empty() || (!set.isListed && !faces.sets.contains({frame.instance, name})))
                continue;
            const FoundSet found{frame.scope, frame.instance, &set, name};
            const Members members = membersOf(model_, found, SetKind::kElements);
            cost_ += members.cost;
            if (cost_ > Frames::kMostRows)
                return lines_.noteAt(Finding::kTooMuch, set.place, name, "members of sets");
            if (!members.list.empty())
                writeSet(linkedName(names_.of(frame.instance, name)), members.list);
        }
}

void DeckWriter::writeShellSections() {
    for (const Frame& frame : frames_.all())
        for (const ShellSection& section : frame.scope->shellSections) {
            out_.text("*SHELL SECTION");
            if (!section.elset.empty())
                out_.text(", ELSET=").text(names_.of(frame.instance, section.elset));
            // The reader looks for the word in all of the line.
            const std::string material = writtenName(section.material);
            const bool isWritten = !material.empty() && !section.elset.empty();
            out_.text(", MATERIAL=").text(isWritten ? material : "NONE");
            out_.text("\n");
            LineWriter line(out_);
            line.real(section.thickness).finish();
        }
}

// Elements that need a set of their own get it; a surface of nothing is left out.
void DeckWriter::writeSurface(const PlannedSurface& surface) {
    std::vector<std::pair<std::string, int>> items;
    for (const PlannedSurface::Line& line : surface.lines)
        items.emplace_back(linkedName(names_.of(line.instance, line.set)), line.face);
    for (std::size_t i = 0; i < kMostFaces; ++i)
        if (!surface.elements[i].empty()) {
            const std::string face = std::to_string(i + 1);
            const std::string name = names_.makeNew("_" + surface.name + "_S" + face);
            writeSet(name, surface.elements[i]);
            items.emplace_back(name, static_cast<int>(i) + 1);
        }
    if (items.empty())
        return;
    out_.text("*SURFACE, TYPE=ELEMENT");
    if (!surface.name.empty())
        out_.text(", NAME=").text(linkedName(writtenName(surface.name)));
    out_.text("\n");
    for (const auto& [set, face] : items)
        out_.text(set).text(", S").text(std::to_string(face)).text("\n");
}

void DeckWriter::writeLoads(const PlannedFaces& faces) {
    if (faces.loads.empty())
        return;
    out_.text("*DLOAD\n");
    LineWriter line(out_);
    for (const PlannedLoad& load : faces.loads) {
        line.integer(newId(load.element)).text(", P").text(std::to_string(load.face));
        line.real(load.value).finish();
    }
}

void DeckWriter::write(const PlannedFaces& faces) {
    out_.text("** Tidy deck\n");
    writeNodes();
    for (const Frame& frame : frames_.all())
        for (const Block& block : frame.scope->blocks)
            writeBlock(frame, block);
    writeSets(faces);
    writeShellSections();
    for (const PlannedSurface& surface : faces.surfaces)
        writeSurface(surface);
    writeLoads(faces);
}

// Files change seldom from row to row.
class FileWalk {
  public:
    explicit FileWalk(const FileRows& rows) : rows_(rows) {}
    bool reaches(std::size_t row) {
        const bool isNext = next_ < rows_.changes.size() && rows_.changes[next_].row == row;
        if (isNext)
            file_ = rows_.changes[next_++].file;
        return isNext;
    }
    std::uint32_t file() const { return file_; }

  private:
    const FileRows& rows_;
    std::size_t next_ = 0;
    std::uint32_t file_ = 0;
};

void addOrigins(const GrowingArray<int>& ids, std::int64_t shift, std::size_t firstRow,
                std::string_view part, const SourceFiles& files, FileWalk& walk, Origins& origins,
                OriginMap& map) {
    std::uint32_t source = origins.sourceOf(part, files.fileName(walk.file()));
    for (std::size_t row = 0; row < ids.size(); ++row) {
        if (walk.reaches(firstRow + row))
            source = origins.sourceOf(part, files.fileName(walk.file()));
        map.add({static_cast<int>(ids[row] + shift), ids[row], source});
    }
}

}  // namespace

void writeDeck(const Model& model, const Frames& frames, const PlannedFaces& faces,
               DeckLines& lines, OutputFile& out) {
    DeckWriter(model, frames, lines, out).write(faces);
}

void fillOrigins(const Frames& frames, const SourceFiles& files, Origins& origins) {
    for (const Frame& frame : frames.all()) {
        FileWalk walk(frame.scope->nodes.files);
        addOrigins(frame.scope->nodes.ids, frame.nodeShift, 0, frame.name, files, walk, origins,
                   origins.nodes);
    }
    for (const Frame& frame : frames.all()) {
        FileWalk walk(frame.scope->elementFiles);
        for (const Block& block : frame.scope->blocks)
            addOrigins(block.ids, frame.elementShift, block.first, frame.name, files, walk, origins,
                       origins.elements);
    }
}

}  // namespace kvocaeio::tidy::abaqus
