/// A mesh written keyword by keyword.
#include "abaqus/mesh_writer.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "abaqus/deck_names.h"
#include "abaqus/deck_surfaces.h"
#include "convert/convert.h"
#include "convert/number_field.h"
#include "convert/oids.h"
#include "convert/rounding.h"
#include "counted.h"
#include "mesh/mesh.h"
#include "output_file.h"

namespace kvocaeio::host {

namespace {

constexpr int kLargestOid = 999'999'999;
constexpr std::size_t kNumberWidth = 20;  // what programs read of a number at most
constexpr std::size_t kFieldsPerLine = 16;
constexpr std::string_view kMaterial = "MATERIAL_1";

// In the order of the kinds.
constexpr std::array<std::string_view, 12> kTypes = {
    "B31", "S3", "S4", "STRI65", "S8R", "C3D4", "C3D5", "C3D6", "C3D8", "C3D10", "C3D15", "C3D20"};

/// Writes numbers, sixteen a line.
class FieldLines {
  public:
    explicit FieldLines(OutputFile& out) : out_(out) {}

    void add(int number) {
        if (fields_ != 0)
            out_ << (fields_ % kFieldsPerLine == 0 ? ",\n" : ", ");
        out_ << number;
        ++fields_;
    }
    void end() {
        out_ << "\n";
        fields_ = 0;
    }

  private:
    OutputFile& out_;
    std::size_t fields_ = 0;
};

class DeckWriter {
  public:
    DeckWriter(Mesh& mesh, const std::string& path)
        : mesh_(mesh), out_(path), names_(mesh), surfaces_(mesh) {}

    void write() {
        out_ << "*HEADING\nWritten by kvocaeio\n";
        writeNodes();
        for (std::size_t s = 0; s < mesh_.sections.size(); ++s)
            if (!mesh_.sections[s].isOfFaces())
                writeElements(mesh_.sections[s], names_.ofElements(s));
        writeSections();
        writeSurfaces();
        checkRounding(mesh_, numbers_, "at most twenty characters");
        out_.finish();
        takeNotes();
    }

  private:
    void writeNodes() {
        out_ << "*NODE\n";
        for (std::size_t row = 0; row < mesh_.nodes(); ++row) {
            out_ << mesh_.nodeOids[row];
            const double* const place = mesh_.place(static_cast<int>(row));
            for (int axis = 0; axis < 3; ++axis)
                out_ << ", " << numbers_.write(place[axis]);
            out_ << "\n";
        }
    }

    void writeElements(const MeshSection& section, const std::string& name) {
        out_ << "*ELEMENT, TYPE=" << kTypes[static_cast<std::size_t>(section.kind)];
        if (!name.empty())
            out_ << ", ELSET=" << name;
        out_ << "\n";
        FieldLines lines(out_);
        const std::size_t nodes = cellShape(section.kind).nodes;
        for (std::size_t row = 0; row < section.elements(); ++row) {
            lines.add(section.oids[row]);
            for (std::size_t i = 0; i < nodes; ++i)
                lines.add(mesh_.nodeOids[static_cast<std::size_t>(section.element(row)[i])]);
            lines.end();
        }
    }

    void writeSet(const std::string& name, const std::vector<const MeshSection*>& sections) {
        out_ << "*ELSET, ELSET=" << name << "\n";
        FieldLines lines(out_);
        for (const MeshSection* section : sections)
            for (const int oid : section->oids)
                lines.add(oid);
        lines.end();
    }

    void writeSections() {
        for (const DeckNames::SectionSet& set : names_.sets()) {
            if (set.isExtra)
                writeSet(set.name, set.sections);
            const MeshSection& first = *set.sections.front();
            const int dimension = cellShape(first.kind).dimension;
            if (dimension == 3)
                out_ << "*SOLID SECTION, ELSET=" << set.name << ", MATERIAL=" << kMaterial << "\n";
            else if (dimension == 2 && first.thickness > 0.0)
                out_ << "*SHELL SECTION, ELSET=" << set.name << ", MATERIAL=" << kMaterial << "\n"
                     << numbers_.write(first.thickness) << "\n";
            else
                ++withoutSection_;
        }
    }

    void writeSurfaces() {
        std::size_t number = 0;
        for (const DeckSurfaces::Surface& surface : surfaces_.surfaces()) {
            std::string faces;
            for (const DeckSurfaces::Run& run : surface.runs) {
                const std::string set = names_.unused("FACES_" + std::to_string(++number));
                out_ << "*ELSET, ELSET=" << set << "\n";
                FieldLines lines(out_);
                for (const int oid : run.elements)
                    lines.add(oid);
                lines.end();
                faces += set + ", S" + std::to_string(run.face) + '\n';
            }
            out_ << "*SURFACE, TYPE=ELEMENT, NAME=" << surface.name << "\n" << faces;
        }
    }

    void takeNotes() {
        mesh_.dropFaces();
        names_.takeNotes(mesh_.remarks);
        surfaces_.takeNotes(mesh_.losses, mesh_.remarks);
        if (withoutSection_ != 0)
            mesh_.remarks.push_back({"sections-missing", withoutSection_,
                                     counted(withoutSection_, "sets") +
                                         " of shells or bars without a section, as their thickness "
                                         "or profile is not known"});
        mesh_.remarks.push_back({"material-missing", 1,
                                 "the deck needs a *MATERIAL with the name " +
                                     std::string(kMaterial) + ", which all sections name"});
    }

    Mesh& mesh_;
    OutputFile out_;
    DeckNames names_;
    DeckSurfaces surfaces_;
    NumberField numbers_{kNumberWidth, true};
    std::size_t withoutSection_ = 0;
};

}  // namespace

void writeAbaqusDeck(Mesh& mesh, const std::string& path, const ConvertOptions&) {
    chooseOids(mesh, kLargestOid);
    DeckWriter(mesh, path).write();
}

}  // namespace kvocaeio::host
