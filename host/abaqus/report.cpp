/// The report on an Abaqus deck, written as text and as JSON.
#include "abaqus/report.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>
#include <utility>
#include <vector>

#include "abaqus/findings.h"
#include "clean_name.h"
#include "counted.h"
#include "json_values.h"
#include "text_table.h"
#include "timed.h"

namespace kvocaeio::host {

namespace {

std::string shownSet(const std::string& name) {
    return name.empty() ? "(no name)" : cleanName(name);
}

void append(std::string& words, const std::string& more) {
    words += (words.empty() ? "" : ", ") + more;
}

std::string placeOf(const NormalisedSummary& section) {
    return section.list + " " + std::to_string(section.index);
}

/// What the rows of a section of the mesh hold.
std::string contentOf(const NormalisedSummary& section) {
    KindCounts kinds = section.kinds;
    for (auto& [kind, elements] : kinds)
        if (kind == kDegenerate)
            elements -= std::min(elements, section.blank);  // told below
    std::erase_if(kinds, [](const auto& kind) { return kind.second == 0; });
    std::string words = asText(kinds);
    if (section.origin != "elements")
        return "faces of " + section.origin + ": " + words;
    if (section.repeated != 0)
        append(words, std::to_string(section.repeated) + " of them repeated");
    if (section.blank != 0)
        append(words, counted(section.blank, "rows") + " without an element");
    return words;
}

}  // namespace

AbaqusReport::AbaqusReport(const AbaqusDeck& deck)
    : summary_(summarise(deck.tables, deck.sortFailure.empty())),
      importSeconds_(deck.importSeconds),
      normalisationSeconds_(deck.normalisationSeconds),
      isNormalised_(deck.sortFailure.empty()) {
    imported = deck.imported;
    addFindings(summary_, *this);
    if (!isNormalised_)
        find(Finding::Level::kError, "not-normalised", 1,
             "the deck cannot be normalised: " + deck.sortFailure);
}

std::vector<std::pair<std::string_view, double>> AbaqusReport::seconds() const {
    return {{"import", importSeconds_}, {"normalisation", normalisationSeconds_}};
}

void AbaqusReport::print(std::ostream& out, const PageStyle& style) const {
    printOverview(out, style);
    printDeck(out, style);
    printMesh(out, style);
}

void AbaqusReport::printOverview(std::ostream& out, const PageStyle& style) const {
    TextTable table("lw");
    table.add({"nodes", std::to_string(summary_.nodes)});
    if (summary_.box.known())
        table.add({"bounding box", asText(summary_.box)});
    table.add({"elements", std::to_string(summary_.elements) + " in " +
                               counted(summary_.raw.size(), "sections") +
                               (summary_.kinds.empty() ? "" : ": " + asText(summary_.kinds))});
    if (isNormalised_)
        table.add({"faces", std::to_string(summary_.loadFaces) + " from loads, " +
                                std::to_string(summary_.surfaceFaces) + " from surfaces"});
    table.add({"time taken", "import " + secondsText(importSeconds_) + ", normalisation " +
                                 secondsText(normalisationSeconds_)});
    table.print(out, style.width);
    if (summary_.thicknesses.empty())
        return;
    TextTable shells("nl");
    shells.add({"shell section", "thickness"});
    for (const ShellThickness& shell : summary_.thicknesses) {
        std::ostringstream thickness;
        thickness << shell.thickness;
        shells.add({shownSet(shell.elset), thickness.str()});
    }
    out << '\n';
    shells.print(out, style.width);
}

void AbaqusReport::printDeck(std::ostream& out, const PageStyle& style) const {
    if (summary_.raw.empty())
        return;
    TextTable table("rnwrw");
    table.add({"deck", "set", "elements", "nodes each", isNormalised_ ? "in the mesh" : ""});
    for (std::size_t s = 0; s < summary_.raw.size(); ++s) {
        const RawSummary& raw = summary_.raw[s];
        table.add({std::to_string(s), shownSet(raw.elset), counted(raw.elements, raw.kind),
                   std::to_string(raw.nodesPerElement), isNormalised_ ? destinationsOf(s) : ""});
    }
    out << '\n';
    table.print(out, style.width);
}

/// Where the elements of a section of the deck are in the mesh, and what became of them.
std::string AbaqusReport::destinationsOf(std::size_t section) const {
    const RawSummary& raw = summary_.raw[section];
    std::string words;
    bool isFilled = false;
    for (auto flow = std::ranges::lower_bound(summary_.flows, section, {}, &Flow::raw);
         flow != summary_.flows.end() && flow->raw == section; ++flow) {
        const NormalisedSummary& target = summary_.normalised[flow->normalised];
        append(words, placeOf(target));
        if (flow->elements != raw.elements)
            words += " (" + std::to_string(flow->elements) + ")";
        isFilled = isFilled || raw.corners < target.nodesPerElement;
    }
    if (raw.leftOut != 0)
        append(words,
               (raw.leftOut == raw.elements ? "" : std::to_string(raw.leftOut) + " ") + "left out");
    if (raw.reduced)
        append(words, "reduced to corners");
    if (isFilled)
        append(words, "last corner repeated");
    return words;
}

void AbaqusReport::printMesh(std::ostream& out, const PageStyle& style) const {
    if (summary_.normalised.empty())
        return;
    TextTable table("lnrrw");
    table.add({"mesh", "set", "rows", "nodes each", "content"});
    for (const NormalisedSummary& section : summary_.normalised)
        table.add({placeOf(section), shownSet(section.elset), std::to_string(section.elements),
                   std::to_string(section.nodesPerElement), contentOf(section)});
    out << '\n';
    table.print(out, style.width);
}

void AbaqusReport::addTo(Json& object) const {
    object["mesh"] = meshAsJson(summary_.nodes, summary_.box, summary_.elements, summary_.kinds);
    Json shells = Json::array();
    for (const ShellThickness& shell : summary_.thicknesses)
        shells.push_back({{"set", shell.elset}, {"thickness", shell.thickness}});
    object["abaqus"] = {{"sections", sectionsAsJson()},
                        {"shellSections", std::move(shells)},
                        {"normalised", isNormalised_ ? normalisedAsJson() : Json()}};
}

Json AbaqusReport::sectionsAsJson() const {
    Json sections = Json::array();
    auto flow = summary_.flows.begin();
    for (std::size_t s = 0; s < summary_.raw.size(); ++s) {
        const RawSummary& raw = summary_.raw[s];
        Json section = {{"set", raw.elset},
                        {"kind", kindCode(raw.kind)},
                        {"nodesPerElement", raw.nodesPerElement},
                        {"elements", raw.elements}};
        if (isNormalised_) {
            section["reduced"] = raw.reduced;
            section["split"] = raw.split;
            section["leftOut"] = raw.leftOut;
            if (raw.leftOut != 0)
                section["leftOutBecause"] = wordsOf(raw.reason).code;
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

Json AbaqusReport::normalisedAsJson() const {
    Json mesh = {{"solid", Json::array()}, {"shell", Json::array()}};
    for (const NormalisedSummary& section : summary_.normalised)
        mesh[section.list].push_back({{"set", section.elset},
                                      {"origin", section.origin},
                                      {"nodesPerElement", section.nodesPerElement},
                                      {"elements", section.elements},
                                      {"elementsByKind", asJson(section.kinds)},
                                      {"merged", section.merged},
                                      {"repeated", section.repeated},
                                      {"blank", section.blank}});
    mesh["loadFaces"] = summary_.loadFaces;
    mesh["surfaceFaces"] = summary_.surfaceFaces;
    return mesh;
}

}  // namespace kvocaeio::host
