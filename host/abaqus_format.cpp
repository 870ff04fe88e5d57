/// Abaqus input decks: how they are told from other files, and how they are read.
#include <algorithm>
#include <array>

#include "abaqus_deck.h"
#include "abaqus_report.h"
#include "file_head.h"
#include "format.h"
#include "solid_mesh.h"

namespace kvocaeio::host {

namespace {

constexpr std::array<std::string_view, 1> kExtensions = {".inp"};

// A file without any of them holds nothing that the reader takes in.
constexpr std::array<std::string_view, 6> kKeywords = {"*NODE",    "*ELEMENT", "*ELSET",
                                                       "*SURFACE", "*DLOAD",   "*SHELL SECTION"};

bool recognises(std::string_view head) {
    return anyLine(head, [](std::string_view line) {
        const std::string keyword = upperCase(trimmed(line.substr(0, line.find(','))));
        return std::count(kKeywords.begin(), kKeywords.end(), keyword) != 0;
    });
}

std::unique_ptr<Report> read(const std::string& path, PrintTarget progress) {
    return std::make_unique<AbaqusReport>(AbaqusDeck(path, progress));
}

}  // namespace

const Format kAbaqusFormat = {"Abaqus input deck", kExtensions, recognises, read, takeAbaqusSolids};

}  // namespace kvocaeio::host
