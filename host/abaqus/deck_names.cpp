/// The choice of names.
#include "abaqus/deck_names.h"

#include <algorithm>
#include <array>
#include <map>
#include <tuple>

#include "counted.h"

namespace kvocaeio::host {

namespace {

constexpr std::size_t kLongestName = 79;

// By the dimension of the elements.
constexpr std::array<std::string_view, 4> kKinds = {"", "BARS", "SHELLS", "SOLIDS"};

bool isLetter(char c) {
    return c >= 'A' && c <= 'Z';
}

/// The name in the letters that every program reads, in upper case, as they read it.
std::string asLabel(const std::string& name) {
    std::string label = name.substr(0, kLongestName);
    for (char& c : label) {
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
        if (!isLetter(c) && !(c >= '0' && c <= '9') && c != '-' && c != '.')
            c = '_';
    }
    if (!label.empty() && !isLetter(label.front()) && label.front() != '_')
        label.insert(0, "_").resize(std::min(label.size(), kLongestName));
    return label;
}

}  // namespace

DeckNames::DeckNames(const Mesh& mesh) : ofElements_(mesh.sections.size()) {
    std::map<std::string, std::string> labels;  // by name
    std::map<std::string, std::set<int>> dimensions;
    for (const MeshSection& section : mesh.sections)
        if (!section.isOfFaces() && asLabel(section.name) == section.name && !section.name.empty())
            used_.insert(labels[section.name] = section.name);
    for (std::size_t s = 0; s < mesh.sections.size(); ++s) {
        const MeshSection& section = mesh.sections[s];
        if (section.isOfFaces())
            continue;
        const auto [label, isNew] = labels.try_emplace(section.name);
        if (isNew && !section.name.empty()) {
            label->second = unused(asLabel(section.name));
            ++changed_;
        }
        ofElements_[s] = label->second;
        dimensions[label->second].insert(cellShape(section.kind).dimension);
    }
    std::map<std::tuple<std::string, int, double>, std::size_t> places;
    for (std::size_t s = 0; s < mesh.sections.size(); ++s) {
        const MeshSection& section = mesh.sections[s];
        if (section.isOfFaces())
            continue;
        const std::string& label = ofElements_[s];
        const int dimension = cellShape(section.kind).dimension;
        const auto [place, isNew] =
            places.try_emplace({label, dimension, section.thickness}, sets_.size());
        if (isNew) {
            const bool isExtra = label.empty() || dimensions[label].size() > 1;
            const std::string_view kind = kKinds[static_cast<std::size_t>(dimension)];
            sets_.push_back(
                {isExtra ? unused(label + (label.empty() ? "" : "_") + std::string(kind)) : label,
                 {},
                 isExtra});
        }
        sets_[place->second].sections.push_back(&section);
    }
}

std::string DeckNames::unused(const std::string& name) {
    std::string free = name.substr(0, kLongestName);
    for (int n = 2; !used_.insert(free).second; ++n) {
        const std::string end = "_" + std::to_string(n);
        free = name.substr(0, kLongestName - end.size()) + end;
    }
    return free;
}

void DeckNames::takeNotes(std::vector<Note>& remarks) const {
    if (changed_ != 0)
        remarks.push_back({"names-changed", changed_,
                           counted(changed_, "names") +
                               " of sections changed to what a deck can hold: letters, digits, "
                               "hyphens, points and underscores"});
}

}  // namespace kvocaeio::host
