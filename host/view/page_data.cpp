/// The JSON text, the stream, and the page around them.
#include "view/page_data.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "bounding_box.h"
#include "counted.h"
#include "json_values.h"
#include "mesh/mesh.h"
#include "package/scene.h"
#include "view/base64_stream.h"
#include "view/page.h"
#include "view/shown_mesh.h"

namespace kvocaeio::host {

namespace {

/// Without what could end the element of the page that it stands in.
std::string escaped(const Json& json) {
    // Names may be of any encoding; bytes that are no UTF-8 become replacement characters.
    const std::string text = json.dump(-1, ' ', false, Json::error_handler_t::replace);
    std::string safe;
    for (const char c : text)
        if (c == '<')
            safe += "\\u003c";
        else
            safe += c;
    return safe;
}

/// The title in the text of a page: the JSON's UTF-8, with what means something to HTML replaced.
std::string escapedTitle(const std::string& title) {
    std::string safe;
    const std::string utf8 = Json(title).dump(-1, ' ', false, Json::error_handler_t::replace);
    for (const char c : std::string_view(utf8).substr(1, utf8.size() - 2))
        if (c == '<')
            safe += "&lt;";
        else if (c == '&')
            safe += "&amp;";
        else
            safe += c;
    return safe;
}

/// Writes the page; `write(stream)` gives it its numbers.
template <class Write>
void writeAround(const Json& scene, const std::string& path, const Write& write) {
    OutputFile file(path);
    std::string_view rest = viewPage();
    const auto printUntil = [&](std::string_view mark) {
        const std::size_t at = rest.find(mark);
        file << rest.substr(0, at);
        rest.remove_prefix(at + mark.size());
    };
    printUntil("@TITLE@");
    file << escapedTitle(scene["title"].get<std::string>());
    printUntil("@SCENE@");
    file << escaped(scene);
    printUntil("@GEOMETRY@");
    Base64Stream stream(file);
    write(stream);
    stream.finish();
    file << rest;
    file.finish();
}

/// [2, "nodes"].
Json count(std::size_t number, std::string_view things) {
    const std::string text = counted(number, things);
    return {number, text.substr(text.find(' ') + 1)};
}

Json headOf(const PageHead& head, const char* content, const std::vector<Note>& losses,
            const std::vector<Note>& remarks) {
    Json notes = Json::array();
    for (const Note& note : losses)
        notes.push_back("Left out: " + note.text);
    for (const Note& note : remarks)
        notes.push_back(note.text);
    return {{"content", content},
            {"title", head.title},
            {"format", head.format},
            {"notes", std::move(notes)},
            {"start", head.start}};
}

Json jsonOf(const ImportFinding& finding) {
    Json places = Json::array();
    for (const ImportFinding::Place& place : finding.places)
        places.push_back({place.line, place.column, place.text});
    return {{"level", nameOf(finding.level)}, {"code", finding.code},
            {"text", finding.text},           {"advice", finding.advice},
            {"count", finding.count},         {"places", std::move(places)},
            {"groups", Json::array()},        {"points", 0}};
}

Json kindsAsJson() {
    Json kinds = Json::array();
    for (std::size_t kind = 0; kind <= static_cast<std::size_t>(CellKind::kHexahedron20); ++kind) {
        const CellShape& shape = cellShape(static_cast<CellKind>(kind));
        Json faces = Json::array();
        for (const CellFace& face : shape.faces)
            faces.push_back(std::vector<int>(face.places.begin(),
                                             face.places.begin() + cellShape(face.kind).nodes));
        kinds.push_back({{"name", shape.name},
                         {"singular", count(1, shape.name)[1]},
                         {"nodes", shape.nodes},
                         {"dimension", shape.dimension},
                         {"faces", std::move(faces)}});
    }
    return kinds;
}

/// One mesh on its way into a page.
class MeshPage {
  public:
    explicit MeshPage(const Mesh& mesh)
        : mesh_(mesh),
          groups_(groupsAtSurface(mesh)),
          marks_(marksOf(mesh)),
          nodes_(nodesOf(mesh, groups_, marks_)),
          rows_(mesh.nodes()) {
        for (std::size_t row = 0; row < nodes_.size(); ++row)
            rows_[static_cast<std::size_t>(nodes_[row])] = static_cast<int>(row);
        for (const ShownGroup& group : groups_)
            for (const int node : connectivityOf(mesh, group))
                box_.add(mesh.place(node));
        chooseOrigin();
        // Sections of one origin and name are one.
        std::ranges::stable_sort(groups_, {}, [&](const ShownGroup& group) {
            return firstOf(mesh.sections[group.section]);
        });
    }

    Json asJson(const PageHead& head) const {
        Json scene = headOf(head, "mesh", mesh_.losses, mesh_.remarks);
        scene["unit"] = mesh_.lengthUnit;
        scene["counts"] = {count(mesh_.nodes(), "nodes"), count(mesh_.elements(), "elements")};
        scene["origin"] = origin_;
        Json& box = scene["box"];
        for (std::size_t axis = 0; axis < 3; ++axis) {
            box["min"].push_back(box_.low[axis] - origin_[axis]);
            box["max"].push_back(box_.high[axis] - origin_[axis]);
        }
        scene["nodes"] = nodes_.size();
        scene["kinds"] = kindsAsJson();
        scene["sections"] = sectionsAsJson();
        Json& findings = scene["findings"] = Json::array();
        for (std::size_t i = 0; i < marks_.size(); ++i) {
            Json finding = jsonOf(mesh_.imported.findings[i]);
            for (const ShownGroup& group : marks_[i].groups)
                finding["groups"].push_back(groupAsJson(group));
            finding["points"] = marks_[i].points.size();
            findings.push_back(std::move(finding));
        }
        return scene;
    }

    void write(Base64Stream& stream) const {
        std::vector<int> oids;
        for (const int node : nodes_) {
            for (std::size_t axis = 0; axis < 3; ++axis)
                stream.real(mesh_.place(node)[axis] - origin_[axis]);
            oids.push_back(mesh_.nodeOids.empty() ? node + 1
                                                  : mesh_.nodeOids[static_cast<std::size_t>(node)]);
        }
        stream.integers(oids);
        for (const ShownGroup& group : groups_)
            writeGroup(group, stream);
        for (const ShownMarks& marks : marks_) {
            for (const ShownGroup& group : marks.groups)
                writeGroup(group, stream);
            stream.integers(rowsOf(marks.points));
        }
    }

    PageSize size() const {
        PageSize size;
        for (const ShownGroup& group : groups_)
            for (const std::uint8_t mask : group.outer)
                size.faces += static_cast<std::size_t>(std::popcount(mask));
        size.marked =
            static_cast<std::size_t>(std::ranges::count_if(marks_, [](const ShownMarks& marks) {
                return !marks.groups.empty() || !marks.points.empty();
            }));
        return size;
    }

  private:
    /// Single precision has seven digits: those of places far from the origin would be used up.
    void chooseOrigin() {
        double size = 0.0;
        double away = 0.0;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const double middle = (box_.low[axis] + box_.high[axis]) / 2;
            size = std::max(size, box_.high[axis] - box_.low[axis]);
            away = std::max(away, std::abs(middle));
            origin_[axis] = middle;
        }
        if (away <= 8 * size)
            origin_ = {};
    }

    /// The first section of the same origin and name.
    std::size_t firstOf(const MeshSection& section) const {
        return static_cast<std::size_t>(std::ranges::find_if(mesh_.sections,
                                                             [&](const MeshSection& other) {
                                                                 return other.origin ==
                                                                            section.origin &&
                                                                        other.name == section.name;
                                                             }) -
                                        mesh_.sections.begin());
    }

    Json groupAsJson(const ShownGroup& group) const {
        const MeshSection& section = mesh_.sections[group.section];
        return {{"kind", static_cast<int>(section.kind)},
                {"elements", group.rows.size()},
                {"total", section.elements()},
                {"hasOids", !section.oids.empty()}};
    }

    Json sectionsAsJson() const {
        Json sections = Json::array();
        std::size_t last = mesh_.sections.size();
        for (const ShownGroup& group : groups_) {
            const MeshSection& section = mesh_.sections[group.section];
            if (const std::size_t first = firstOf(section); first != last) {
                last = first;
                sections.push_back({{"name", section.name},
                                    {"origin", nameOf(section.origin)},
                                    {"property", section.property},
                                    {"thickness", section.thickness},
                                    {"groups", Json::array()}});
            }
            sections.back()["groups"].push_back(groupAsJson(group));
        }
        return sections;
    }

    std::vector<int> rowsOf(std::vector<int> nodes) const {
        for (int& node : nodes)
            node = rows_[static_cast<std::size_t>(node)];
        return nodes;
    }

    void writeGroup(const ShownGroup& group, Base64Stream& stream) const {
        const MeshSection& section = mesh_.sections[group.section];
        std::vector<int> oids;
        for (const std::uint32_t row : group.rows)
            oids.push_back(section.oids.empty() ? static_cast<int>(row) + 1 : section.oids[row]);
        stream.integers(oids);
        stream.integers(rowsOf(connectivityOf(mesh_, group)), cellShape(section.kind).nodes);
        for (const std::uint8_t mask : group.outer)
            stream.octet(mask);
        for (const std::uint8_t mask : group.between)
            stream.octet(mask);
    }

    const Mesh& mesh_;
    std::vector<ShownGroup> groups_;
    std::vector<ShownMarks> marks_;
    std::vector<int> nodes_;  // those of the page, as rows of the mesh's
    std::vector<int> rows_;   // and back
    BoundingBox box_;
    std::array<double, 3> origin_{};
};

Json colourOf(const std::optional<unsigned>& color) {
    if (!color)
        return {};
    char digits[8];
    std::snprintf(digits, sizeof digits, "#%02x%02x%02x", *color & 0xffu, *color >> 8 & 0xffu,
                  *color >> 16 & 0xffu);
    return digits;
}

BoundingBox boxOf(const PackageScene& scene) {
    BoundingBox box;
    const auto add = [&box](const double* middle, const std::array<double, 3>& size) {
        for (const double side : {-0.5, 0.5}) {
            std::array<double, 3> end{};
            for (std::size_t axis = 0; axis < 3; ++axis)
                end[axis] = middle[axis] + side * size[axis];
            box.add(end.data());
        }
    };
    for (const PackageBody& body : scene.bodies)
        add(body.center.data(), body.size);
    for (const PackageWire& wire : scene.wires)
        for (std::size_t i = 0; i + 2 < wire.path.size(); i += 3)
            add(wire.path.data() + i, {wire.diameter, wire.diameter, wire.diameter});
    return box;
}

Json packageAsJson(const PackageScene& package, const PageHead& head) {
    Json scene = headOf(head, "package", package.losses, package.remarks);
    scene["unit"] = "mm";
    const auto balls =
        static_cast<std::size_t>(std::ranges::count_if(package.bodies, &PackageBody::isBall));
    scene["counts"] = {count(package.bodies.size() - balls, "bodies"), count(balls, "solder balls"),
                       count(package.wires.size(), "bond wires")};
    const BoundingBox box = boxOf(package);
    scene["box"] = {{"min", box.low}, {"max", box.high}};
    Json& bodies = scene["bodies"] = Json::array();
    for (const PackageBody& body : package.bodies)
        bodies.push_back({{"name", body.name},
                          {"kind", body.kind},
                          {"center", body.center},
                          {"size", body.size},
                          {"isBall", body.isBall},
                          {"colour", colourOf(body.color)}});
    Json& profiles = scene["profiles"] = Json::array();
    for (const WireProfile& profile : package.profiles)
        profiles.push_back({{"number", profile.number},
                            {"name", profile.name ? Json(*profile.name) : Json()},
                            {"colour", colourOf(profile.color)}});
    Json& wires = scene["wires"] = Json::array();
    for (const PackageWire& wire : package.wires)
        wires.push_back({{"profile", wire.profile},
                         {"diameter", wire.diameter},
                         {"points", wire.path.size() / 3}});
    Json& findings = scene["findings"] = Json::array();
    for (const ImportFinding& finding : package.imported.findings)
        findings.push_back(jsonOf(finding));
    return scene;
}

}  // namespace

PageSize writePage(const Mesh& mesh, const PageHead& head, const std::string& path) {
    const MeshPage page(mesh);
    writeAround(page.asJson(head), path, [&](Base64Stream& stream) { page.write(stream); });
    return page.size();
}

void writePage(const PackageScene& scene, const PageHead& head, const std::string& path) {
    writeAround(packageAsJson(scene, head), path, [&](Base64Stream& stream) {
        for (const PackageWire& wire : scene.wires)
            for (const double value : wire.path)
                stream.real(value);
    });
}

}  // namespace kvocaeio::host
