/// Coordinates rounded as they will be written, and compared.
#include "convert/rounding.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>
#include <sstream>

#include "counted.h"
#include "file_report.h"

namespace kvocaeio::host {

namespace {

using Places = std::vector<std::array<double, 3>>;

double rounded(double value, const MeshWriter& writer) {
    char digits[512];
    const char* end =
        std::to_chars(digits, digits + sizeof digits, value, writer.form, writer.decimals).ptr;
    double written = value;
    std::from_chars(digits, end, written);
    return written;
}

/// The nodes of `mesh`, scaled and rounded.
Places writtenPlaces(const SolidMesh& mesh, const MeshWriter& writer, double scale) {
    Places places = mesh.nodes;
    for (auto& place : places)
        for (double& value : place)
            value = rounded(value * scale, writer);
    return places;
}

/// Whether nodes of the element that were apart are at one place.
bool collapses(const SolidMesh& mesh, const SolidMesh::Element& element, const Places& written) {
    const auto* end = element.nodes.begin() + element.corners;
    for (const auto* a = element.nodes.begin(); a != end; ++a)
        for (const auto* b = a + 1; b != end; ++b) {
            const auto rowA = static_cast<std::size_t>(*a);
            const auto rowB = static_cast<std::size_t>(*b);
            if (written[rowA] == written[rowB] && mesh.nodes[rowA] != mesh.nodes[rowB])
                return true;
        }
    return false;
}

std::size_t countCollapses(const SolidMesh& mesh, const Places& written) {
    return static_cast<std::size_t>(std::count_if(
        mesh.elements.begin(), mesh.elements.end(),
        [&](const SolidMesh::Element& element) { return collapses(mesh, element, written); }));
}

/// The same of the element of a section in `row`.
bool collapses(const Mesh& mesh, const MeshSection& section, std::size_t row,
               const std::vector<double>& written) {
    const std::size_t nodes = cellShape(section.kind).nodes;
    const std::span<const int> element(section.element(row), nodes);
    for (std::size_t a = 0; a < nodes; ++a)
        for (std::size_t b = a + 1; b < nodes; ++b) {
            const auto rowA = 3 * static_cast<std::size_t>(element[a]);
            const auto rowB = 3 * static_cast<std::size_t>(element[b]);
            if (std::equal(&written[rowA], &written[rowA] + 3, &written[rowB]) &&
                !std::equal(&mesh.places[rowA], &mesh.places[rowA] + 3, &mesh.places[rowB]))
                return true;
        }
    return false;
}

/// Remarks that coordinates change by up to `largest`, if they do.
void remarkRounding(std::vector<Note>& remarks, std::string_view formName, double largest) {
    if (largest == 0.0)
        return;
    std::ostringstream text;
    text << "coordinates are written with " << formName << ", which changes them by up to "
         << largest;
    remarks.push_back({"coordinates-rounded", 1, text.str()});
}

/// A smaller unit, and how many of it one of a larger one is.
struct Finer {
    std::string_view unit;
    std::string_view finer;
    double scale;
};
constexpr std::array<Finer, 4> kFiner = {
    {{"m", "cm", 100.0}, {"m", "mm", 1000.0}, {"cm", "mm", 10.0}, {"inch", "mm", 25.4}}};

/// Options by which nothing would collapse, for the user.
std::string remedy(const SolidMesh& mesh, const MeshWriter& writer, const std::string& unit) {
    const auto helps = [&](double scale) {
        return countCollapses(mesh, writtenPlaces(mesh, writer, scale)) == 0;
    };
    for (const Finer& finer : kFiner)
        if (finer.unit == unit && helps(finer.scale)) {
            std::ostringstream words;
            words << "--unit " << finer.finer << " --scale " << finer.scale << " would do";
            return words.str();
        }
    if (writer.form == std::chars_format::fixed)  // else the digits are as many at every scale
        for (double scale = 10.0; scale <= 1e9; scale *= 10.0)
            if (helps(scale)) {
                std::ostringstream words;
                words << "--scale " << scale << " would do";
                return words.str();
            }
    return "no --scale would do";
}

}  // namespace

void checkRounding(SolidMesh& mesh, const MeshWriter& writer, const std::string& unit) {
    const Places written = writtenPlaces(mesh, writer, 1.0);
    if (const std::size_t collapsed = countCollapses(mesh, written); collapsed != 0)
        throw FileError("cannot be written: coordinates have " + std::string(writer.formName) +
                            " there, by which nodes of " + counted(collapsed, "elements") +
                            " meet; " + remedy(mesh, writer, unit),
                        "nodes-meet");
    double largest = 0.0;
    for (std::size_t row = 0; row < written.size(); ++row)
        for (std::size_t axis = 0; axis < 3; ++axis)
            largest = std::max(largest, std::fabs(written[row][axis] - mesh.nodes[row][axis]));
    remarkRounding(mesh.remarks, writer.formName, largest);
}

void checkRounding(Mesh& mesh, NumberField& numbers, std::string_view formName) {
    if (numbers.largestChange() == 0.0)
        return;
    std::vector<double> written;
    for (const double value : mesh.places) {
        numbers.write(value);
        written.push_back(numbers.written());
    }
    std::size_t collapsed = 0;
    for (const MeshSection& section : mesh.sections)
        for (std::size_t row = 0; row < section.elements(); ++row)
            collapsed += collapses(mesh, section, row, written) ? 1u : 0u;
    if (collapsed != 0)
        throw FileError("cannot be written: coordinates have " + std::string(formName) +
                            " there, by which nodes of " + counted(collapsed, "elements") + " meet",
                        "nodes-meet");
    remarkRounding(mesh.remarks, formName, numbers.largestChange());
}

}  // namespace kvocaeio::host
