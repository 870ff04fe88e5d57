/// The findings of the finished tables and of the normalisation, in the order of `Finding`.
#pragma once

#include <array>

#include "text/findings.h"

namespace kvocaeio::abaqus {

inline constexpr std::array kMeshKinds{
    text::FindingKind{
        "abaqus.node-undefined", text::Severity::kError,
        "elements name nodes that the deck does not define; the first is {}",
        "The raw tables keep the number. In the normalised mesh the first node of the "
        "deck stands in its place.",
        "Add the nodes, or check whether a *NODE block was not read"},
    text::FindingKind{"abaqus.node-repeated", text::Severity::kWarning,
                      "nodes are defined twice with the same coordinates; the first is {}",
                      "Both rows stay in the table of nodes. Elements get the later one.",
                      "Write each node once"},
    text::FindingKind{"abaqus.node-conflict", text::Severity::kError,
                      "nodes are defined twice with different coordinates; the first is {}",
                      "Both rows stay in the table of nodes. All elements get the later one, also "
                      "those that mean the earlier one, as in a deck of several parts.",
                      "Number the nodes of all parts apart"},
    text::FindingKind{"abaqus.element-repeated", text::Severity::kWarning,
                      "elements are listed twice with the same nodes; the first is {}",
                      "Both stay in the mesh. Loads and surfaces get the later one.",
                      "List each element once; put it into further sets with *ELSET"},
    text::FindingKind{
        "abaqus.element-conflict", text::Severity::kError,
        "elements have the same number but different nodes; the first is {}",
        "Both stay in the mesh. Loads and surfaces get the later one, also those that "
        "mean the earlier one, as in a deck of several parts.",
        "Number the elements of all parts apart"},
    text::FindingKind{"abaqus.nothing-to-sort", text::Severity::kWarning,
                      "the deck has no nodes or no element blocks: no mesh is made",
                      "SortData does nothing without nodes and without element blocks.",
                      "Check whether the file is an Abaqus deck, and whether it includes others"},
    text::FindingKind{
        "abaqus.section-reduced", text::Severity::kWarning,
        "of the elements of type {} the corner nodes alone are kept in the mesh",
        "The normalised mesh has linear elements: of 10 nodes 4 are kept, of 15 nodes "
        "6, of 20 nodes 8. The raw tables have all nodes.",
        "Take the elements from the raw tables where mid-side nodes matter"},
    text::FindingKind{
        "abaqus.sections-merged", text::Severity::kWarning,
        "several element blocks of set {} become one section",
        "Where a set name stands on several blocks, the list is put in the order of "
        "names, and the blocks of one name become one section: solids with 8 nodes per "
        "element, shells with 4. Smaller elements repeat their last node.",
        "Give each block a set name of its own"},
    text::FindingKind{
        "abaqus.section-split", text::Severity::kWarning,
        "generated sets take the place of the section {}",
        "Where the mesh has one section of solids, or else one of shells, each "
        "generated set of the deck becomes a section in its place. Each element is in "
        "one of them here.",
        "Write the sets without GENERATE to keep the section"},
    text::FindingKind{"abaqus.element-in-no-set", text::Severity::kError,
                      "elements leave the mesh, since no generated set holds them; the first is {}",
                      "Generated sets take the place of the only section of the mesh. What is in "
                      "none of them stays in the raw tables alone.",
                      "Add a generated set of the other elements, or write the sets without "
                      "GENERATE"},
    text::FindingKind{
        "abaqus.element-in-two-sets", text::Severity::kWarning,
        "elements are twice in the mesh, since generated sets overlap; the first is "
        "{}",
        "Each generated set becomes a section with its elements, also with those that "
        "another set has already.",
        "Write sets that do not overlap, or write them without GENERATE"},
    text::FindingKind{
        "abaqus.range-rows-blank", text::Severity::kError,
        "the generated set {} has a step: its section ends in elements of node 0 "
        "alone",
        "The section has as many rows as the range has numbers, whatever the step. The "
        "rows that the step leaves over are blank.",
        "List the elements without GENERATE"},
    text::FindingKind{"abaqus.range-element-unknown", text::Severity::kError,
                      "generated sets name elements that the section does not have; the first is "
                      "{}",
                      "Each of these numbers stands for the first element of the section, which is "
                      "then several times in the mesh.",
                      "Write ranges of the elements that there are, or write the sets without "
                      "GENERATE"},
    text::FindingKind{"abaqus.section-misnamed", text::Severity::kError,
                      "the section of the generated set {} has the name of another set",
                      "The first of the new sections has the name of the first set of the deck, "
                      "generated or not, and so on.",
                      "Put generated sets before all others"},
    text::FindingKind{"abaqus.set-shifted", text::Severity::kError,
                      "the name {} stands for a later set, or for none",
                      "Once a set name is repeated, all new names after it are shifted by one set: "
                      "surfaces get the elements of other sets.",
                      "Give each set one block"},
    text::FindingKind{"abaqus.set-shadows-block", text::Severity::kWarning,
                      "a surface takes the *ELSET {} alone, not the *ELEMENT block of that name",
                      "The elements of a block are no members of the set of its name here.",
                      "List the elements of the block in the set"},
    text::FindingKind{"abaqus.surface-set-unknown", text::Severity::kWarning,
                      "surfaces name what is no set of an *ELSET block; the first is {}",
                      "A surface line must name such a set. Numbers of elements, names of *ELEMENT "
                      "blocks and sets flagged INTERNAL make no faces.",
                      "Write an *ELSET block with the elements"},
    text::FindingKind{
        "abaqus.face-label", text::Severity::kWarning,
        "loads or surfaces have labels that are no face; the first is {}",
        "Of loads, P1 to P6 in capitals make faces; of surfaces, labels with a digit "
        "from 1 to 6 in second place. Body forces and the sides of a shell make none.",
        "Write the number of the face, such as P1 or S1"},
    text::FindingKind{"abaqus.face-missing", text::Severity::kWarning,
                      "loads or surfaces name faces that an element does not have; the first is {}",
                      "Tetrahedra have faces 1 to 4, wedges 1 to 5, hexahedra 1 to 6. Pyramids, "
                      "triangles and elements of unknown type have none here.",
                      "Check the element and the number of its face"},
    text::FindingKind{
        "abaqus.face-element-unknown", text::Severity::kError,
        "loads or surfaces name elements that the deck does not have; the first is {}",
        "A number up to the largest of the deck stands for the first element. Others "
        "make no face.",
        "Check whether an *ELEMENT block was not read"},
    text::FindingKind{"abaqus.face-of-shell", text::Severity::kError,
                      "shells of 4 nodes get the faces of a tetrahedron; the first is {}",
                      "The number of nodes decides about the faces of an element, not its type.",
                      "Name the sides of shells SPOS and SNEG, which make no faces"},
    text::FindingKind{"abaqus.face-repeated", text::Severity::kWarning,
                      "faces are named more than once and stand as often in the mesh; the first is "
                      "{}",
                      "Nothing is compared: each load, and each line of a surface, adds its faces.",
                      "Name each face once"},
    text::FindingKind{"abaqus.too-many-rows", text::Severity::kError,
                      "SortData throws std::length_error: a section would have too many rows",
                      "A range or a surface asks for more than 2147483647 rows, or a range ends "
                      "before it starts. The raw tables can still be walked.",
                      "Correct the ranges of the generated sets"},
};

}  // namespace kvocaeio::abaqus
