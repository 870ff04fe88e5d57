/// The rows of what is told of Nastran decks.
#include "tidy/nastran/findings.h"

namespace kvocaeio::tidy::nastran {

using enum text::Severity;

const std::array<text::FindingKind, static_cast<std::size_t>(Finding::kCount)> kFindingKinds{{
    {"tidy.nastran-free-field", kNote, "{} cards in free fields are put into fixed fields",
     "The reader takes a comma for eight blanks, so that values between commas are torn or "
     "shifted.",
     ""},
    {"tidy.nastran-large-field", kNote,
     "{} cards in large fields are put into fields of eight columns",
     "The reader knows columns of eight alone. Numbers keep as many digits as fit.", ""},
    {"tidy.nastran-tabs", kNote, "{} cards with tabs are put into columns",
     "A tab leads to the next column that is a multiple of eight. The reader takes it for one "
     "character.",
     ""},
    {"tidy.nastran-other-name", kNote, "the name of {} cards is written as the reader knows it",
     "The reader finds names in upper case alone. Some programs put an underscore behind those of "
     "elements with mid-side nodes.",
     ""},
    {"tidy.nastran-byte-order-mark", kNote, "the byte order mark is left out",
     "It would move the first line by three columns.", ""},
    {"tidy.nastran-continuation-elsewhere", kNote,
     "the continuation {} is taken from another place of the deck",
     "Continuations that are named on both lines may stand anywhere in a deck.", ""},
    {"tidy.nastran-replication", kNote, "{} cards made by replication are written out",
     "Fields of equals signs repeat those of the card before; \"*(n)\" adds n to it, \"%(n)\" "
     "leads in equal steps to n. The reader knows no replication.",
     ""},
    {"tidy.nastran-number-form", kNote,
     "a number of a {} card is put into the form that the reader reads",
     "The reader parts numbers at a plus sign, and knows no exponents with a \"D\".", ""},
    {"tidy.nastran-number-rounded", kNote,
     "coordinates of {} cards have more digits than eight columns hold, and are rounded",
     "They keep the digits that fit; `GetDeviation` returns the largest difference. Told only "
     "where the reader's float is another one.",
     ""},
    {"tidy.nastran-frame", kNote, "nodes of the coordinate system {} are put into the basic one",
     "The reader drops the coordinate system of a GRID card and takes the coordinates as they are.",
     ""},
    {"tidy.nastran-hexa", kNote,
     "CHEXA cards are put into the form of which the eighth node is read",
     "Of an ordinary CHEXA card in fixed fields the reader loses the eighth node. With zeros in "
     "front "
     "of the element's number, it does not.",
     ""},
    {"tidy.nastran-mid-side-nodes", kNote, "mid-side nodes of {} cards are left out",
     "The reader takes the corners of an element.", ""},
    {"tidy.nastran-written-as", kNote, "{} cards are written as cards that the reader knows",
     "A pyramid is a CHEXA that repeats its last node, which is how the reader holds elements of "
     "fewer nodes. Beams of three nodes become beams of two; properties keep number, material and "
     "the value that the reader hands out.",
     ""},
    {"tidy.nastran-section-area", kNote, "the area of a {} section is computed from its dimensions",
     "The reader hands out the diameter of a round bar of the same area.", ""},
    {"tidy.nastran-property-number", kNote, "properties are numbered from 1",
     "The reader has as many section rows as the number of the last property card says. The "
     "origins "
     "tell the numbers of the original.",
     ""},
    {"tidy.nastran-number-large", kNote,
     "the number {} is too long for eight columns and is replaced",
     "The origins tell the numbers of the original.", ""},
    {"tidy.nastran-card-left-out", kNote, "{} cards are left out",
     "The reader knows no such card. Materials, loads, constraints and the control of a solution "
     "are "
     "no part of what it hands out.",
     ""},
    {"tidy.nastran-element-left-out", kWarning,
     "{} cards are left out: the reader has no row for them",
     "The reader knows bars, rods, tubes, beams and solids.", ""},
    {"tidy.nastran-shell", kWarning,
     "{} elements are shells, of which the reader hands out nothing",
     "They are kept in the new deck, but the reader has rows of zeros for them.", ""},
    {"tidy.nastran-area-unknown", kWarning, "the area of a {} section is not known",
     "Of this cross section no area is computed, or its dimensions cannot be read. The property "
     "has "
     "the value 0.",
     "Replace the card by a PBAR or PBEAM card with the area"},
    {"tidy.nastran-value-unreadable", kWarning, "a material or value of a {} card is no number",
     "It becomes 0.", "Correct the card"},
    {"tidy.nastran-property-twice", kWarning, "the property {} is defined again",
     "Each card has a section row of its own; elements belong to the first one.",
     "Take one of the cards out"},
    {"tidy.nastran-material-large", kWarning,
     "the material {} has a number too long for eight columns",
     "The section row has the material 0.", "Give the material a number of at most eight digits"},
    {"tidy.nastran-other-model", kWarning, "the deck has a further model: {}",
     "Superelements and auxiliary models number their nodes and elements on their own. All are "
     "written into one deck; what has the same number twice is the later one.",
     "Export the models one by one"},
    {"tidy.nastran-id-unreadable", kError, "the number of a {} card is no positive integer",
     "Nodes, elements, properties and coordinate systems are numbered from 1.", "Correct the card"},
    {"tidy.nastran-coordinate-unreadable", kError, "a coordinate of a {} card is no number",
     "A node without a place would be a wrong one.", "Correct the card"},
    {"tidy.nastran-node-missing", kError, "a corner of a {} card is no node number",
     "A continuation may be missing, or the card be damaged.", "Correct the card"},
    {"tidy.nastran-frame-missing", kError, "the coordinate system {} is not defined",
     "Its nodes cannot be placed.",
     "Add the card of the coordinate system, or the file that has it"},
    {"tidy.nastran-frame-wrong", kError, "the coordinate system {} has no axes",
     "Its points lie on a line, its card cannot be read, one of its grid points is missing, or it "
     "is "
     "defined by itself.",
     "Correct the card"},
    {"tidy.nastran-replication-wrong", kError, "a replication cannot be followed",
     "There is no card before it, a field cannot be added to, a \"%(n)\" stands in a line that "
     "does not say how many cards there are, or there would be more than ten million cards.",
     "Write the cards out"},
    {"tidy.nastran-include-name", kError, "an include has no name, or a quote that is not closed",
     "The name of an included file stands in quotes, and may go over several lines.",
     "Correct the statement"},
    {"tidy.nastran-no-number-left", kError, "there are more than 99,999,999 numbers of one kind",
     "Eight columns hold no more.", "Split the deck"},
    {"tidy.nastran-no-nodes", kError, "the deck has no node",
     "The reader refuses a deck without GRID cards.", "Check that all files of the deck are there"},
    {"tidy.nastran-no-elements", kError, "the deck has no element that the reader knows",
     "The reader refuses a deck without an element card that it knows.",
     "Check that all files of the deck are there"},
}};

}  // namespace kvocaeio::tidy::nastran
