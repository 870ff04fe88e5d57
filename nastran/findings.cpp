/// The sentences of the findings.
#include "nastran/findings.h"

namespace kvocaeio::nastran {

using text::FindingKind;
using text::Severity;

const std::array<FindingKind, static_cast<std::size_t>(Finding::kCount)> kFindingKinds{{
    {"nastran.line-cut", Severity::kWarning,
     "a line has more than 253 characters; the rest is read as a new line",
     "Lines are read in pieces of 254 characters. Each piece is a line of its own: a name in "
     "it makes it a card.",
     "Break the line, or shorten the remark"},
    {"nastran.line-hidden", Severity::kWarning, "a NUL byte hides the rest of the line",
     "Text ends at a NUL for the reader. The fields behind it keep the numbers of an earlier "
     "card, or read as zero.",
     "Write the deck anew: such bytes come from a damaged file, or from one that is not plain "
     "text"},
    {"nastran.byte-order-mark", Severity::kWarning,
     "the deck begins with a byte order mark, which moves the first line by three columns",
     "The mark is no part of the text, but the reader takes its three bytes for columns of the "
     "first line. A comment there is no longer one, and the fields of a card are torn.",
     "Save the deck without a byte order mark"},
    {"nastran.card-unknown", Severity::kNote, "{} cards are not read",
     "Nodes, elements and their properties are read, and nothing else: materials, loads, "
     "constraints, coordinate systems and parameters are passed over.",
     ""},
    {"nastran.element-unknown", Severity::kWarning, "{} elements are not read",
     "Of elements the reader knows tetrahedra, wedges, hexahedra and bars by their common "
     "names. Springs, masses, gaps, rigid bodies and pyramids are passed over; the rows of "
     "their OIDs stay zero.",
     "Write such elements as CTETRA, CPENTA, CHEXA or CBAR, if the mesh needs them"},
    {"nastran.property-unknown", Severity::kWarning, "{} properties are not read",
     "Properties are read of PROD, PTUBE, PBAR, PBEAM, PSHELL, PSHEAR and PSOLID. Those of "
     "other cards get no row.",
     "Write the property as one of these cards, if the host needs its thickness or material"},
    {"nastran.include", Severity::kError, "a file that the deck includes is not read: {}",
     "The reader opens no other file. All nodes, elements and properties that stand in the "
     "included file are missing.",
     "Put the text of the included file in the place of the INCLUDE statement"},
    {"nastran.replication", Severity::kError,
     "a card is a copy of the one before it, and is not read: {}",
     "A field \"=\" repeats the field of the card before, and \"=(n)\" repeats cards. The "
     "reader knows no such cards: the nodes and elements that they stand for are missing.",
     "Have the program that wrote the deck write out all cards"},
    {"nastran.name-lower-case", Severity::kError,
     "{} cards are not read, as the name is not in upper case",
     "Names are sought as they stand, in capital letters.",
     "Write the names of cards in upper case"},
    {"nastran.name-torn", Severity::kError,
     "{} cards are not read, as the name lies across a border of two fields",
     "The reader parts a line into groups of eight columns before it looks for a name, and so "
     "cuts a name that begins further right.",
     "Begin cards in the first column"},
    {"nastran.name-inside", Severity::kError,
     "a line is taken for another card, whose name stands in it: {}",
     "A card is known by its name anywhere in the line. The line fills a row that is not its "
     "own, or one with numbers of another meaning.",
     "Change the name in the line, or delete the line if the mesh does not need it"},
    {"nastran.grid-defaults", Severity::kError,
     "GRDSET names coordinate system {} for the nodes that name none; they are read as if it "
     "were the basic one",
     "GRDSET is not read, and coordinates are never transformed.",
     "Write all nodes in the basic coordinate system"},
    {"nastran.after-end", Severity::kWarning, "{} cards after ENDDATA are read",
     "ENDDATA is no card that the reader knows: it reads on to the end of the file.",
     "Delete what follows ENDDATA"},
    {"nastran.free-field", Severity::kError, "fields of {} between commas are read wrongly",
     "Each comma becomes eight blanks, and the line is then cut into groups of eight columns. "
     "Numbers are cut in two there, and zeros appear between them.",
     "Write the deck in fixed fields of eight columns"},
    {"nastran.large-field", Severity::kError, "large fields of {} are read wrongly",
     "A card with a star has fields of sixteen columns. The reader takes them for fields of "
     "eight, of which each blank one is a zero, so that OIDs and coordinates become 0 or those "
     "of another field.",
     "Write the deck in fixed fields of eight columns"},
    {"nastran.tab", Severity::kError, "fields of {} between tabs are read wrongly",
     "A tab goes on to the next field by the rules of the format. For the reader it is one "
     "character among others: the groups of eight columns no longer are the fields.",
     "Replace the tabs by blanks up to the next field"},
    {"nastran.exponent-torn", Severity::kError,
     "a number of {} is torn at the plus sign of its exponent",
     "Each plus sign becomes eight blanks, wherever it stands. The number ends before it, its "
     "exponent is lost, and the digits behind it are read as the next field.",
     "Write exponents without a plus sign, 1.5E3 for 1.5E+3"},
    {"nastran.sign-torn", Severity::kError, "a number of {} is moved by the plus sign before it",
     "Each plus sign becomes eight blanks, wherever it stands. What follows moves on by seven "
     "columns: numbers are cut, and zeros appear between them.",
     "Write positive numbers without a sign"},
    {"nastran.exponent-d", Severity::kError, "a number of {} ends before the D of its exponent",
     "An exponent begins with E. With a D the number ends there, and this card keeps the "
     "numbers of an earlier card in the fields that follow.",
     "Write exponents with E"},
    {"nastran.field-stale", Severity::kError,
     "a field of {} cannot be read and keeps the number of an earlier card",
     "The numbers of a card are read one by one up to the first that cannot be read. It and "
     "all after it are those that the last card with such a field has left.",
     "Correct the field: there must be a number in it"},
    {"nastran.field-misread", Severity::kError, "a field of {} is not read as it stands",
     "The line is cut into groups of eight columns, and its numbers are then read one after "
     "the other. A number that lies across two fields is cut, two numbers in a field count for "
     "two fields, and an OID with a decimal point ends the reading.",
     "Put each number into its own eight columns"},
    {"nastran.coordinate-system", Severity::kError,
     "nodes are given in coordinate system {}, but are read as if it were the basic one",
     "The third field of GRID is read and dropped: coordinates are never transformed, and "
     "cards of coordinate systems are not read.",
     "Write all nodes in the basic coordinate system"},
    {"nastran.hexa-node-lost", Severity::kError,
     "the seventh node of {} becomes 0 and the eighth is lost",
     "The blank columns 73 to 80 of the first line read as a zero, which stays as the seventh "
     "node; the seventh moves to the place of the eighth. Only a card that has a zero further "
     "in front is read whole.",
     "Write leading zeros to the OID of the element (CHEXA   00000007): the card is then read "
     "whole"},
    {"nastran.continuation-misread", Severity::kError,
     "a field on the second line of {} is not read as it stands",
     "The second line loses its first nine characters, or all up to a comma in its first "
     "eight. Its numbers are then read one after the other behind those of the first line, "
     "whose label moves them.",
     "Leave columns 73 to 80 of the first line and the first field of the second blank, and "
     "put each number at the end of its eight columns"},
    {"nastran.continuation-missing", Severity::kError,
     "the second line of {} is missing; its last nodes are lost",
     "CHEXA takes the next line along, whatever it is. At the end of the deck there is none, and "
     "the last line is taken again.",
     "Add the second line of the card"},
    {"nastran.continuation-comment", Severity::kError,
     "a comment stands where the second line of {} is expected; the last nodes are lost",
     "CHEXA takes the next line along, whatever it is.", "Move the comment to another place"},
    {"nastran.card-swallowed", Severity::kError,
     "a card is read as the second line of {} and is lost",
     "CHEXA and CQUAD8 take the next line along, whatever it is; so does a comment in which "
     "one of these names stands.",
     "Put a blank comment line ($) between them, or write the second line of the element"},
    {"nastran.continuation-passed", Severity::kNote, "second lines of {} are not read",
     "All that is read of these cards stands on their first line.", ""},
    {"nastran.midside-nodes", Severity::kWarning, "mid-side nodes of {} are not read",
     "Of a solid the corner nodes are read: an element of second order becomes one of first "
     "order with straight edges.",
     ""},
    {"nastran.node-missing", Severity::kError, "{} has fewer nodes than its type needs",
     "A field of a node is blank, or not there, and reads as 0.",
     "Complete the element, or delete it"},
    {"nastran.shell-empty", Severity::kWarning, "{} elements are not read; their rows stay zero",
     "Shells count for the number of rows, but neither their nodes nor their properties are "
     "read.",
     "Mesh the part with solids: the reader has no shells"},
    {"nastran.oid-dropped", Severity::kError, "{} cards are dropped, as their OIDs have no row",
     "Rows count from OID 1 to the largest one. A card whose OID is 0 or below, or cannot be "
     "read, has none.",
     "Number nodes and elements from 1 on"},
    {"nastran.oid-twice", Severity::kWarning,
     "{} cards have the OID of an earlier one with another content; the last one counts",
     "Rows go by OID, so the later card replaces the earlier one.",
     "Number nodes and elements so that each OID stands once"},
    {"nastran.property-fraction", Severity::kWarning,
     "the value of a property loses its fraction: {}",
     "Values of properties are kept as whole numbers: a thickness of 0.8 becomes 0, and so "
     "does a diameter that is computed.",
     "Choose a unit in which the value is a whole number"},
    {"nastran.property-out-of-range", Severity::kError,
     "the value of a property is not one that can be kept; it becomes -2147483648: {}",
     "Values of properties are kept as whole numbers. A diameter of a negative area is no "
     "number, and others are too large.",
     "Correct the value"},
    {"nastran.property-dropped", Severity::kWarning,
     "property cards have no row, as the last one has a smaller OID than there are cards: the "
     "first is {}",
     "There are as many rows of properties as the OID of the last property card says. Cards "
     "beyond that are dropped.",
     "Number properties from 1 on without gaps, in the order of their cards"},
    {"nastran.material-uncounted", Severity::kWarning,
     "materials are not counted, as their OIDs are not from 1 to the number of section rows: "
     "the first is {}",
     "The number of materials goes by flags, of which there are as many as rows of sections.",
     "Number materials from 1 on"},
    {"nastran.rows-empty", Severity::kNote, "{} are zero, as no card has their OIDs",
     "Rows go by OID from 1 to the largest one. Numbers that the deck does not use have rows "
     "of zeros.",
     "Number from 1 on without gaps, if the host walks over all rows"},
    {"nastran.node-undefined", Severity::kError,
     "elements name nodes that the deck does not have: the first is {}",
     "The numbers of nodes are stored as they stand. The row of such a node is zero, or there "
     "is none.",
     "Add the nodes: they may stand in another file, or on cards that are not read"},
    {"nastran.no-nodes", Severity::kError,
     "the deck has no GRID card with an OID above 0 that can be read",
     "The import returns false without a node.",
     "Check that the deck has nodes, and see what else was found"},
    {"nastran.no-elements", Severity::kError,
     "the deck has no element card with an OID above 0 that can be read",
     "The import returns false without an element of a type that the reader knows.",
     "Check that the deck has elements, and see what else was found"},
}};

}  // namespace kvocaeio::nastran
