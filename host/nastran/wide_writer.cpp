/// A mesh written card by card.
#include "nastran/wide_writer.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "convert/convert.h"
#include "convert/number_field.h"
#include "convert/oids.h"
#include "convert/rounding.h"
#include "counted.h"
#include "mesh/mesh.h"
#include "output_file.h"

namespace kvocaeio::host {

namespace {

constexpr int kLargestWideOid = 99'999'999;  // a field has eight columns
constexpr std::size_t kWideField = 16;
constexpr std::size_t kFieldsPerCard = 8;

/// A card of elements: the nodes in its order, as places in the mesh's.
struct Card {
    std::string_view name;
    std::array<std::uint8_t, 20> places;
};

// In the order of the kinds. Edges between the two faces of a solid come before those of the second
// face.
constexpr std::array<Card, 12> kCards = {{
    {"CROD", {0, 1}},
    {"CTRIA3", {0, 1, 2}},
    {"CQUAD4", {0, 1, 2, 3}},
    {"CTRIA6", {0, 1, 2, 3, 4, 5}},
    {"CQUAD8", {0, 1, 2, 3, 4, 5, 6, 7}},
    {"CTETRA", {0, 1, 2, 3}},
    {"CPYRAM", {0, 1, 2, 3, 4}},
    {"CPENTA", {0, 1, 2, 3, 4, 5}},
    {"CHEXA", {0, 1, 2, 3, 4, 5, 6, 7}},
    {"CTETRA", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}},
    {"CPENTA", {0, 1, 2, 3, 4, 5, 6, 7, 8, 12, 13, 14, 9, 10, 11}},
    {"CHEXA", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 16, 17, 18, 19, 12, 13, 14, 15}},
}};

/// `text` in a field of so many columns, at its right end.
std::string rightOf(std::string_view text, std::size_t width) {
    return std::string(width - std::min(width, text.size()), ' ') + std::string(text);
}

std::string rightOf(int number, std::size_t width) {
    return rightOf(std::to_string(number), width);
}

std::string leftOf(std::string_view text, std::size_t width) {
    return std::string(text) + std::string(width - std::min(width, text.size()), ' ');
}

/// What a continuation begins with after + or *: `kind`, and the OID in six letters and digits.
std::string markOf(char kind, int oid) {
    std::string mark(7, '0');
    mark.front() = kind;
    for (std::size_t at = mark.size() - 1; at > 0; --at, oid /= 36)
        mark[at] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[oid % 36];
    return mark;
}

/// What elements of one dimension are made of.
struct Property {
    int id;
    int dimension;
    const MeshSection* first;
};

class WideDeckWriter {
  public:
    WideDeckWriter(Mesh& mesh, const std::string& path) : mesh_(mesh), out_(path) {
        chooseProperties();
    }

    void write(const std::string& unit) {
        out_ << "$ Written by kvocaeio\n$ Mesh unit           = " << unit << "\nBEGIN BULK\n";
        for (std::size_t row = 0; row < mesh_.nodes(); ++row)
            writeNode(mesh_.nodeOids[row], mesh_.place(static_cast<int>(row)));
        for (const Property& property : properties_)
            writeProperty(property);
        for (std::size_t s = 0; s < mesh_.sections.size(); ++s)
            for (std::size_t row = 0; row < mesh_.sections[s].elements(); ++row)
                writeElement(mesh_.sections[s], row, propertyOf_[s]);
        out_ << "ENDDATA\n";
        checkRounding(mesh_, numbers_, "at most sixteen characters");
        out_.finish();
        takeNotes();
    }

  private:
    /// Keeps the source's numbers where no two properties have the same.
    void chooseProperties() {
        std::map<SectionKey, int> ids;
        std::set<int> used;
        const auto add = [&](const MeshSection& section, int id) {
            ids[sectionKeyOf(section)] = id;
            used.insert(id);
            properties_.push_back({id, cellShape(section.kind).dimension, &section});
        };
        for (const MeshSection& section : mesh_.sections)
            if (!ids.contains(sectionKeyOf(section)) && section.property >= 1 &&
                section.property <= kLargestWideOid && !used.contains(section.property))
                add(section, section.property);
        int next = 1;
        for (const MeshSection& section : mesh_.sections) {
            if (ids.contains(sectionKeyOf(section)))
                continue;
            while (used.contains(next))
                ++next;
            add(section, next);
        }
        for (const MeshSection& section : mesh_.sections)
            propertyOf_.push_back(ids[sectionKeyOf(section)]);
    }

    void writeNode(int oid, const double* place) {
        const std::string mark = markOf('N', oid);
        out_ << "GRID*   " << rightOf(oid, kWideField) << rightOf("", kWideField);
        out_ << rightOf(numbers_.write(place[0]), kWideField);
        out_ << rightOf(numbers_.write(place[1]), kWideField) << "*" << mark << "\n*" << mark;
        out_ << rightOf(numbers_.write(place[2]), kWideField) << "\n";
    }

    void writeProperty(const Property& property) {
        const MeshSection& section = *property.first;
        std::string name = section.name;
        std::replace_if(
            name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; },
            '?');
        out_ << "$ Section " << property.id << ": " << name << "\n";
        if (property.dimension == 3) {
            out_ << "PSOLID  " << rightOf(property.id, 8) << rightOf(1, 8) << "\n";
            return;
        }
        const bool isKnown = property.dimension == 2 && section.thickness > 0.0;
        withoutSize_ += isKnown ? 0 : 1;
        out_ << (property.dimension == 2 ? "PSHELL* " : "PROD*   ");
        out_ << rightOf(property.id, kWideField) << rightOf(1, kWideField);
        out_ << rightOf(isKnown ? numbers_.write(section.thickness) : "", kWideField);
        // Shells bend in the same material.
        out_ << (property.dimension == 2 ? rightOf(1, kWideField) : "") << "\n*\n";
    }

    void writeElement(const MeshSection& section, std::size_t row, int property) {
        const Card& card = kCards[static_cast<std::size_t>(section.kind)];
        const int oid = section.oids[row];
        out_ << leftOf(card.name, 8) << rightOf(oid, 8) << rightOf(property, 8);
        std::size_t field = 2;
        const std::size_t nodes = cellShape(section.kind).nodes;
        for (std::size_t i = 0; i < nodes; ++i, ++field) {
            if (field != 0 && field % kFieldsPerCard == 0) {
                const std::string mark =
                    '+' + markOf(static_cast<char>('0' + field / kFieldsPerCard), oid);
                out_ << mark << "\n" << mark;
            }
            const int node = section.element(row)[card.places[i]];
            out_ << rightOf(mesh_.nodeOids[static_cast<std::size_t>(node)], 8);
        }
        out_ << "\n";
    }

    void takeNotes() {
        if (withoutSize_ != 0)
            mesh_.remarks.push_back({"sections-missing", withoutSize_,
                                     counted(withoutSize_, "properties") +
                                         " of shells or bars without a thickness or an area, which "
                                         "are not known"});
        mesh_.remarks.push_back(
            {"material-missing", 1,
             "the deck needs a MAT1 card for material 1, which all properties name"});
    }

    Mesh& mesh_;
    OutputFile out_;
    NumberField numbers_{kWideField, false};
    std::vector<Property> properties_;
    std::vector<int> propertyOf_;  // per section
    std::size_t withoutSize_ = 0;
};

}  // namespace

void writeWideNastran(Mesh& mesh, const std::string& path, const ConvertOptions& options) {
    leaveOut(mesh.losses, "faces", mesh.dropFaces(), "faces", " of loads and surfaces");
    chooseOids(mesh, kLargestWideOid);
    WideDeckWriter(mesh, path).write(options.lengthUnit());
}

}  // namespace kvocaeio::host
