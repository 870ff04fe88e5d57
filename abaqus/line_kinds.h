/// The findings of lines and keywords, in the order of `Finding`.
#pragma once

#include <array>

#include "text/findings.h"

namespace kvocaeio::abaqus {

inline constexpr std::array kLineKinds{
    text::FindingKind{
        "abaqus.line-cut", text::Severity::kWarning,
        "a line is longer than 511 characters: its rest is read as a line of its own",
        "Lines are read in pieces of at most 511 characters. In a *NODE or *ELEMENT block the rest "
        "is a further node or element; after a comment it is data.",
        "Break the line"},
    text::FindingKind{
        "abaqus.nul-character", text::Severity::kWarning,
        "a NUL character hides the rest of its line",
        "A line ends for the reader at its first NUL. Such characters stand in damaged "
        "files and in files of an encoding with two bytes per character.",
        "Write the deck as plain text"},
    text::FindingKind{"abaqus.byte-order-mark", text::Severity::kNote,
                      "the deck begins with a byte order mark",
                      "The mark hides a keyword on the first line. No keyword that is read stands "
                      "there, so nothing of the mesh is concerned.",
                      "Save the deck as UTF-8 without a byte order mark"},
    text::FindingKind{
        "abaqus.keyword-hidden", text::Severity::kError, "a byte order mark hides the keyword {}",
        "The deck begins with a byte order mark, which belongs to the first line as the "
        "reader sees it. The keyword there is not recognised, and its data lines are "
        "passed over.",
        "Save the deck as UTF-8 without a byte order mark"},
    text::FindingKind{
        "abaqus.encoding", text::Severity::kError, "the deck is in UTF-16, which is not read",
        "The deck begins with the byte order mark of UTF-16. Keywords are looked for as "
        "plain text, one byte per character, so none is found.",
        "Save the deck as plain text or as UTF-8 without a byte order mark"},
    text::FindingKind{"abaqus.line-outside", text::Severity::kWarning,
                      "lines before the first keyword are passed over",
                      "Data lines belong to the keyword before them. Where there is none, nobody "
                      "knows what they mean.",
                      "Check whether the beginning of the deck is missing"},
    text::FindingKind{
        "abaqus.keyword-passed-over", text::Severity::kNote,
        "{} is passed over, with its data lines",
        "The mesh, its sets, surfaces, loads and shell thicknesses are read; all else "
        "that a deck can hold is passed over as designed.",
        ""},
    text::FindingKind{
        "abaqus.keyword-unknown", text::Severity::kWarning,
        "{} is no keyword that is known, and is passed over with its data lines",
        "A keyword must be spelled out as it is. What an unknown one would have meant "
        "cannot be told: it may be a misspelled *NODE.",
        "Check the spelling of the keyword"},
    text::FindingKind{
        "abaqus.keyword-lost", text::Severity::kWarning,
        "{} is passed over, with its data lines: something of the model is lost",
        "The keyword changes what is made of the mesh: faces with loads, thicknesses "
        "of shells, places of nodes or the list of elements. The reader does not know "
        "it.",
        "Write the same with the keywords *DLOAD, *SURFACE, *SHELL SECTION, *NODE and "
        "*ELEMENT"},
    text::FindingKind{"abaqus.include", text::Severity::kError,
                      "the file that {} names is not read",
                      "The reader reads one file. What stands in the other one is missing: nodes, "
                      "elements or sets.",
                      "Put the contents of the other file into the deck"},
    text::FindingKind{"abaqus.part", text::Severity::kError,
                      "{} is passed over: parts and instances are not kept apart",
                      "What stands inside a part is read as if it stood on its own, once and where "
                      "it is. Nodes of several parts have the same OIDs, and all elements then get "
                      "those of the last part; copies and shifts of an instance are not made.",
                      "Write the deck as a flat file, without parts and assemblies"},
    text::FindingKind{"abaqus.generation", text::Severity::kError,
                      "the nodes or elements that {} makes are missing",
                      "The keyword makes nodes or elements of others by a rule. The reader takes "
                      "only those that the deck lists.",
                      "Write the deck with all nodes and elements listed"},
    text::FindingKind{"abaqus.coordinate-system", text::Severity::kError,
                      "{} is passed over: nodes are not where the deck has them",
                      "Coordinates are read as they are written. Those in a cylindrical, spherical "
                      "or shifted system are not turned into the global one.",
                      "Write the coordinates in the global Cartesian system"},
    text::FindingKind{"abaqus.input-file", text::Severity::kError,
                      "the data lines of {} stand in another file, which is not read",
                      "The parameter INPUT names a file with the data lines. The reader reads one "
                      "file, so they are missing.",
                      "Put the data lines into the deck"},
    text::FindingKind{"abaqus.keyword-continued", text::Severity::kError,
                      "the keyword line of {} goes on in the next line, which is read as data",
                      "A comma at the end of a keyword line does not join it to the next line. The "
                      "parameters there are lost, and the line counts as a data line: as a node, "
                      "for example.",
                      "Write the keyword line as one line"},
    text::FindingKind{
        "abaqus.keyword-indented", text::Severity::kError,
        "the keyword {} has blanks before it and is read as data",
        "Inside a block, and after a keyword that is passed over, a line is a keyword "
        "line only if its first character is an asterisk. The data lines after it "
        "count for the keyword before it.",
        "Remove the blanks before the keyword"},
    text::FindingKind{"abaqus.parameter-ignored", text::Severity::kNote, "{} is not taken",
                      "The reader takes few parameters. Node sets, for example, are not read.", ""},
    text::FindingKind{"abaqus.parameter-misread", text::Severity::kWarning,
                      "the value of {} is not taken as it is written",
                      "Values are cut at commas, equals signs and some blanks, also within quotes, "
                      "and other blanks belong to them. A value that is the name of a parameter is "
                      "taken for that parameter.",
                      "Use names of letters, digits, - and _ alone, without blanks around them"},
    text::FindingKind{"abaqus.name-cut", text::Severity::kWarning,
                      "a name is longer than 79 characters: its rest is not handed out",
                      "Records hand out the first 79 characters of a name.", "Use shorter names"},
    text::FindingKind{
        "abaqus.surface-ends-reading", text::Severity::kError,
        "a surface whose TYPE is not ELEMENT ends the reading of the deck: {}",
        "Neither such a surface nor anything after it is read, and the import returns "
        "true all the same. A surface without TYPE does likewise.",
        "Move such surfaces to the end of the deck, or write TYPE=ELEMENT where it is "
        "missing"},
    text::FindingKind{
        "abaqus.shell-section-ends-reading", text::Severity::kError,
        "a shell section without MATERIAL ends the reading of the deck: {}",
        "Neither such a section (one with COMPOSITE, for example) nor anything after it "
        "is read, and the import returns true all the same.",
        "Move such sections to the end of the deck, or name a material on their "
        "keyword lines"},
};

}  // namespace kvocaeio::abaqus
