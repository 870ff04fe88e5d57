/// The findings of data lines, in the order of `Finding`.
#pragma once

#include <array>

#include "text/findings.h"

namespace kvocaeio::abaqus {

inline constexpr std::array kDataKinds{
    text::FindingKind{"abaqus.node-without-number", text::Severity::kWarning,
                      "a line of a *NODE block without a number counts as a node at the origin",
                      "Every data line of the block is a node, a blank one too. It has the OID 0.",
                      "Remove blank lines and text from the block"},
    text::FindingKind{
        "abaqus.node-cut-short", text::Severity::kError,
        "the reading of a node ends at {}: coordinates are 0 from there on",
        "Reading of the line stops at the first field that is no number, and within a "
        "field that does not end at a comma. Fields that are empty or separated by "
        "blanks end it, too.",
        "Write four numbers with commas between them"},
    text::FindingKind{
        "abaqus.exponent-torn", text::Severity::kError,
        "the number {} is read up to its D alone, and nothing after it",
        "A D is no letter of an exponent here: 1.0D3 is 1.0. What follows on the line "
        "is lost.",
        "Write exponents with E"},
    text::FindingKind{"abaqus.coordinate-missing", text::Severity::kNote,
                      "a node has fewer than three coordinates: those that are missing are 0",
                      "Decks of plane meshes are written that way.", ""},
    text::FindingKind{
        "abaqus.fields-ignored", text::Severity::kNote,
        "further fields on the data lines of {} are not read",
        "Normals of nodes, for example, and the integration points of a shell section "
        "are passed over.",
        ""},
    text::FindingKind{
        "abaqus.oid-out-of-range", text::Severity::kError, "an OID is below 1 or too large: {}",
        "OIDs are numbers from 1 to 2147483647. A larger one is kept as 2147483647, a "
        "negative one cannot be found by any element.",
        "Number the nodes and elements anew"},
    text::FindingKind{
        "abaqus.element-type-unknown", text::Severity::kError,
        "elements of type {} have no place in the mesh: the type is not known",
        "Types are recognised by parts of their names. Of an unknown type the OIDs are "
        "read and, mostly, no nodes; the normalised mesh leaves the elements out.",
        "Use solids with 4, 5, 6, 8, 10, 15 or 20 nodes, or shells with 3 or 4"},
    text::FindingKind{"abaqus.element-type-flat", text::Severity::kWarning,
                      "elements of type {} are taken for shells",
                      "Types are recognised by parts of their names, and that of a flat stress "
                      "element or of a gasket holds the mark of a shell.",
                      "Check whether these elements belong to the model"},
    text::FindingKind{
        "abaqus.element-type-other", text::Severity::kWarning,
        "elements of type {} are no solids or shells and have no place in the mesh",
        "Points, springs, trusses, beams, pipes and connectors are not read. Their OIDs "
        "are in the raw tables.",
        ""},
    text::FindingKind{
        "abaqus.element-field-stale", text::Severity::kError,
        "{} is no number: an element gets the number before it instead",
        "A field that cannot be read keeps the number before it in the block, or 0 at "
        "the start of the block.",
        "Write the number of a node there"},
    text::FindingKind{"abaqus.field-torn", text::Severity::kWarning,
                      "the number {} is read only in part",
                      "A number ends at the first character that is no part of it, and the rest of "
                      "the field is passed over: 1.9 is the OID 1.",
                      "Write whole numbers, with commas between them"},
    text::FindingKind{"abaqus.element-runs-on", text::Severity::kError,
                      "an element goes on in a comment or keyword line: {}",
                      "The lines that continue an element are taken whatever they are, until all "
                      "nodes of the type are there. A keyword on such a line is lost with its "
                      "block.",
                      "Check the number of nodes of the element before this line"},
    text::FindingKind{"abaqus.element-incomplete", text::Severity::kError,
                      "the deck ends inside an element",
                      "The fields of the last line come again until the element has all its nodes.",
                      "Check whether the end of the deck is missing"},
    text::FindingKind{"abaqus.element-nodes-ignored", text::Severity::kError,
                      "an element of type {} has more fields than nodes are read: the rest is lost",
                      "The node count follows from the type's name; an R3D4 has three nodes here. "
                      "Where an element has too few nodes it takes those of the next line, and the "
                      "rest of that line is passed over.",
                      "Check the type, and the number of nodes of this and the element before"},
    text::FindingKind{
        "abaqus.set-internal", text::Severity::kWarning, "a set flagged INTERNAL is dropped",
        "Such a set is passed over with its data lines. Surfaces that name it make no "
        "faces.",
        "Remove the flag from sets that surfaces name"},
    text::FindingKind{
        "abaqus.set-member-name", text::Severity::kWarning,
        "{} is no number: this member of a set stands for element 0",
        "Names of sets inside of sets are not resolved. Where a surface names the set, "
        "the first element of the deck gets the face.",
        "List the elements by their numbers"},
    text::FindingKind{
        "abaqus.range-unread", text::Severity::kError,
        "the range of a generated set is not read as it is written: {}",
        "A field that is no number, and a blank before a comma, end the reading of the "
        "line: 1 , 3 is element 1 alone.",
        "Write start, end and step with commas after them, without blanks before"},
    text::FindingKind{"abaqus.range-replaced", text::Severity::kError,
                      "a generated set has several lines: this one takes the place of those before",
                      "The last line of the block with a number on it is the range of the set.",
                      "Give each range a set of its own"},
    text::FindingKind{"abaqus.range-step", text::Severity::kWarning,
                      "the step of a generated set is below 1 and taken as 1: {}",
                      "A walk over the range would not end otherwise.",
                      "Write a step of at least 1"},
    text::FindingKind{
        "abaqus.range-backwards", text::Severity::kError,
        "a generated set ends before it starts: {}",
        "The set has no element. SortData throws std::length_error where a section is "
        "to be split by it.",
        "Write the smaller number first"},
    text::FindingKind{"abaqus.load-by-set", text::Severity::kError,
                      "a load is put on a wrong element, since {} is no number",
                      "Loads are read by element number alone. A set's name, or a number with text "
                      "before it, repeats the element of the line before, or 0.",
                      "Write a line for each element of the set"},
    text::FindingKind{
        "abaqus.thickness-unread", text::Severity::kWarning,
        "no thickness can be read from a line of a shell section: {}",
        "A line that does not begin with a number keeps the thickness before it, which "
        "is 0 at the start of the block.",
        "Write the thickness as the first field of the line"},
    text::FindingKind{"abaqus.thickness-replaced", text::Severity::kWarning,
                      "a shell section has several lines: this one takes the place of those before",
                      "The thickness is the first number of the last line. Layers are not added.",
                      "Give the section one line with its whole thickness"},
    text::FindingKind{"abaqus.thickness-missing", text::Severity::kWarning,
                      "a shell section has no data line: its thickness is 0",
                      "The thickness stands on the line after the keyword.",
                      "Write the thickness on a line of its own"},
};

}  // namespace kvocaeio::abaqus
