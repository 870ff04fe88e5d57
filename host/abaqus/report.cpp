/// The report on an Abaqus deck, written as text and as JSON.
#include "abaqus/report.h"

#include <nlohmann/json.hpp>
#include <sstream>
#include <utility>
#include <vector>

#include "json_values.h"
#include "text_table.h"
#include "timed.h"

namespace kvocaeio::host {

namespace {

std::string quoted(const std::string& name) {
    return name.empty() ? "(no name)" : printable(name);
}

std::string joined(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words)
        line += (line.empty() ? "" : ", ") + word;
    return line;
}

using Cells = std::vector<std::string>;

/// The right half of a line: `elements` of a section of the mesh.
Cells meshCells(const NormalisedSummary& section, std::size_t elements, const std::string& how) {
    std::string part = std::to_string(elements);
    if (elements != section.elements)
        part += " of " + std::to_string(section.elements);
    return {section.list + " " + std::to_string(section.index), quoted(section.elset),
            std::to_string(section.nodesPerElement), part, how};
}

Cells sideBySide(Cells left, const Cells& right) {
    left.emplace_back("|");
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

}  // namespace

AbaqusReport::AbaqusReport(const AbaqusDeck& deck)
    : summary_(summarise(deck.tables, deck.sortFailure.empty())),
      importSeconds_(deck.importSeconds),
      normalisationSeconds_(deck.normalisationSeconds),
      sortFailure_(deck.sortFailure) {}

std::string AbaqusReport::failure() const {
    return sortFailure_.empty() ? "" : "the deck cannot be normalised: " + sortFailure_;
}

void AbaqusReport::print(std::ostream& out) const {
    printOverview(out);
    printSections(out);
    printLosses(out);
    out << '\n';
}

void AbaqusReport::printOverview(std::ostream& out) const {
    TextTable table("ll");
    table.add({"nodes", std::to_string(summary_.nodes)});
    if (summary_.box.known())
        table.add({"bounding box", asText(summary_.box)});
    table.add({"elements", std::to_string(summary_.elements) + " in " +
                               std::to_string(summary_.raw.size()) + " sections" +
                               (summary_.kinds.empty() ? "" : ": " + asText(summary_.kinds))});
    for (const ShellThickness& shell : summary_.thicknesses) {
        std::ostringstream thickness;
        thickness << quoted(shell.elset) << ": thickness " << shell.thickness;
        table.add({"shell section", thickness.str()});
    }
    table.add({"time taken", "import " + secondsText(importSeconds_) + ", normalisation " +
                                 secondsText(normalisationSeconds_)});
    table.print(out, "  ");
}

// Left half: the deck's sections; right half: where their elements are in the normalised mesh.
void AbaqusReport::printSections(std::ostream& out) const {
    if (summary_.raw.empty())
        return;
    TextTable table("rllrlllrrl");
    table.add({"deck", "set", "elements", "nodes", "", "mesh", "set", "nodes", "elements", "how"});
    std::vector<bool> shown(summary_.normalised.size());
    auto flow = summary_.flows.begin();
    for (std::size_t s = 0; s < summary_.raw.size(); ++s) {
        const RawSummary& raw = summary_.raw[s];
        Cells left = {std::to_string(s), quoted(raw.elset),
                      std::to_string(raw.elements) + " " + raw.kind,
                      std::to_string(raw.nodesPerElement)};
        const auto addLine = [&](const Cells& right) {
            table.add(sideBySide(std::exchange(left, {"", "", "", ""}), right));
        };
        const bool placed = flow != summary_.flows.end() && flow->raw == s;
        for (; flow != summary_.flows.end() && flow->raw == s; ++flow) {
            addLine(
                meshCells(summary_.normalised[flow->normalised], flow->elements, howItCame(*flow)));
            shown[flow->normalised] = true;
        }
        if (raw.leftOut != 0)
            addLine({"-", "", "", std::to_string(raw.leftOut), "left out: " + raw.reason});
        else if (!placed)
            addLine({sortFailure_.empty() ? "" : "not normalised"});
    }
    for (std::size_t s = 0; s < summary_.normalised.size(); ++s) {
        if (shown[s])
            continue;
        const NormalisedSummary& section = summary_.normalised[s];
        const bool faces = section.origin != "elements";
        table.add(sideBySide({"", "", faces ? section.origin : "", ""},
                             meshCells(section, section.elements,
                                       faces ? "faces: " + asText(section.kinds) : "blank rows")));
    }
    out << '\n';
    table.print(out, "  ");
}

std::string AbaqusReport::howItCame(const Flow& flow) const {
    const RawSummary& raw = summary_.raw[flow.raw];
    const NormalisedSummary& target = summary_.normalised[flow.normalised];
    std::vector<std::string> words;
    if (raw.reduced)
        words.emplace_back("reduced to corners");
    if (target.merged)
        words.emplace_back("merged");
    if (raw.corners < target.nodesPerElement)
        words.push_back("filled up to " + std::to_string(target.nodesPerElement));
    if (raw.split)
        words.emplace_back("split");
    if (target.repeated != 0)
        words.push_back(std::to_string(target.repeated) + " repeated");
    if (target.blank != 0)
        words.push_back(std::to_string(target.blank) + " blank rows");
    return joined(words);
}

void AbaqusReport::printLosses(std::ostream& out) const {
    TextTable table("ll");
    if (summary_.unknownType != 0)
        table.add({"left out", std::to_string(summary_.unknownType) + " elements of unknown type"});
    if (summary_.otherLeftOut != 0)
        table.add({"left out", std::to_string(summary_.otherLeftOut) + " elements " +
                                   (summary_.nodes == 0 ? "of a deck without nodes"
                                                        : "that are in no generated set")});
    if (summary_.undefinedNodes != 0)
        table.add({"no such node", std::to_string(summary_.undefinedNodes) +
                                       " times in elements; the first node stands in"});
    if (sortFailure_.empty())
        table.add(
            {"faces", std::to_string(summary_.loadFaces) + " from loads, " +
                          std::to_string(summary_.surfaceFaces) +
                          " from surfaces; the reader does not tell which of them gave none"});
    if (summary_.withoutFaces != 0)
        table.add({"faceless", std::to_string(summary_.withoutFaces) +
                                   " elements, of which loads and surfaces give no face (pyramids, "
                                   "triangles, unknown types)"});
    out << '\n';
    table.print(out, "  ");
}

void AbaqusReport::addTo(Json& object) const {
    object["nodes"] = summary_.nodes;
    object["boundingBox"] = asJson(summary_.box);
    object["elements"] = summary_.elements;
    object["elementsByKind"] = asJson(summary_.kinds);
    object["shellSections"] = Json::array();
    for (const ShellThickness& shell : summary_.thicknesses)
        object["shellSections"].push_back({{"elset", shell.elset}, {"thickness", shell.thickness}});
    object["sections"] = sectionsAsJson();
    object["normalised"] = sortFailure_.empty() ? meshAsJson() : Json();
    object["seconds"] = {{"import", importSeconds_}, {"normalisation", normalisationSeconds_}};
}

Json AbaqusReport::sectionsAsJson() const {
    Json sections = Json::array();
    auto flow = summary_.flows.begin();
    for (std::size_t s = 0; s < summary_.raw.size(); ++s) {
        const RawSummary& raw = summary_.raw[s];
        Json section = {{"elset", raw.elset},
                        {"kind", raw.kind},
                        {"nodesPerElement", raw.nodesPerElement},
                        {"elements", raw.elements}};
        if (sortFailure_.empty()) {
            section["reduced"] = raw.reduced;
            section["split"] = raw.split;
            section["leftOut"] = raw.leftOut;
            if (raw.leftOut != 0)
                section["leftOutBecause"] = raw.reason;
            section["normalisedTo"] = Json::array();
            for (; flow != summary_.flows.end() && flow->raw == s; ++flow) {
                const NormalisedSummary& target = summary_.normalised[flow->normalised];
                section["normalisedTo"].push_back({{"list", target.list},
                                                   {"section", target.index},
                                                   {"elements", flow->elements}});
            }
        }
        sections.push_back(std::move(section));
    }
    return sections;
}

Json AbaqusReport::meshAsJson() const {
    Json mesh = {{"solid", Json::array()}, {"shell", Json::array()}};
    for (const NormalisedSummary& section : summary_.normalised)
        mesh[section.list].push_back({{"elset", section.elset},
                                      {"origin", section.origin},
                                      {"nodesPerElement", section.nodesPerElement},
                                      {"elements", section.elements},
                                      {"elementsByKind", asJson(section.kinds)},
                                      {"merged", section.merged},
                                      {"repeated", section.repeated},
                                      {"blank", section.blank}});
    mesh["leftOut"] = {{"unknownType", summary_.unknownType}, {"other", summary_.otherLeftOut}};
    mesh["undefinedNodes"] = summary_.undefinedNodes;
    mesh["faces"] = {{"loads", summary_.loadFaces},
                     {"surfaces", summary_.surfaceFaces},
                     {"elementsWithout", summary_.withoutFaces}};
    return mesh;
}

}  // namespace kvocaeio::host
