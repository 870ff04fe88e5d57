/// The kinds of finding of both readers.
#include "patran/findings.h"

namespace kvocaeio::patran {

using enum text::Severity;

const std::array<text::FindingKind, static_cast<std::size_t>(Finding::kCount)> kFindingKinds{{
    {"patran.line-cut", kError, "the line is too long: its rest is read as the next line",
     "Lines are read in pieces of 223 characters. Every piece counts as a card, so the cards after "
     "it move.",
     "Break the line, or remove the blanks at its end"},
    {"patran.byte-order-mark", kError, "a byte order mark stands before the first line",
     "The mark takes the first three columns, so the first line is neither a comment nor the "
     "header that it should be.",
     "Save the file without a byte order mark"},
    {"patran.comment-as-card", kError, "a comment between data cards is read as a data card",
     "A line that begins with ! is a comment only where a header card is expected. Between the "
     "cards of a packet it takes the place of the next card, and the last card becomes a header.",
     "Move the comment before the header card of the packet"},
    {"patran.card-as-header", kError, "a data card of a packet ({}) is read as a header card",
     "Nodes and elements have two data cards, properties and the summary one, whatever KC says. "
     "Further cards are read as headers, and so are the cards of packets that the summary does "
     "not count. Some of them look like other packets, which are stored or end the file.",
     "Write elements with one card of nodes, and counts that are right"},
    {"patran.card-missing", kError,
     "the file ends inside a packet: its last line stands for the card that is missing",
     "At the end of the file the line read last is taken for every card that is still wanted.",
     "Write the file again: it was cut off"},
    {"patran.header-repeated", kError,
     "the line has no packet type and repeats the packet before it",
     "A header field that cannot be read keeps its value from the header before. So a blank line "
     "where a header is expected is one more packet of the same type and id, and the lines after "
     "it are its data cards.",
     "Remove the line, or mark it as a comment with !"},
    {"patran.header-field-kept", kWarning,
     "the header field {} is missing or no number: an earlier value stands for it",
     "A header field that cannot be read keeps its value from the header before. In a summary "
     "CPatranReader takes it for 0.",
     "Write all fields of the header, eight columns each after the two of the packet type"},
    {"patran.card-count-low", kWarning, "the header of this {} counts fewer data cards than it has",
     "A node and an element have two data cards, a property has one, whatever KC says. The search "
     "for the largest node id goes by KC, so it may take data cards for headers and miss nodes.",
     "Write KC as the number of data cards that follow"},
    {"patran.number-unreadable", kWarning, "\"{}\" is no number and counts as 0",
     "A field of a data card that cannot be read is 0.", "Write a number in these columns"},
    {"patran.number-torn", kWarning, "only the beginning of \"{}\" is read as a number",
     "A number ends at the first character that does not belong to it; the rest of its columns is "
     "dropped.",
     "Put each number into its own columns"},
    {"patran.exponent-torn", kError, "the exponent of \"{}\" is not read",
     "A number ends at the first character that does not belong to it. The letter of an exponent "
     "is E.",
     "Write exponents with the letter E"},
    {"patran.coordinate-missing", kWarning,
     "the coordinate {} of a node is missing and counts as 0",
     "Coordinates stand in columns of sixteen on the card after the header. A blank one is 0.",
     "Write three coordinates for each node, sixteen columns each"},
    {"patran.packet-skipped", kNote, "packets of type {} are skipped",
     "Only nodes, elements, their properties, the title and the summary are read. Other packets "
     "are passed over by their number of cards.",
     ""},
    {"patran.packet-unknown", kError,
     "the line is read as a header card, but no packet has type "
     "\"{}\"",
     "Where a header is expected any line is one. As many lines after it are skipped as its fourth "
     "field says.",
     "Check the packet before: it may have more or fewer cards than the format asks for"},
    {"patran.packet-before-summary", kError, "{} before the summary are not stored",
     "No more nodes, elements and properties are stored than the summary (packet 26) counts, and "
     "before it none. The data cards of such a packet are read as headers.",
     "Put the summary before all other packets but the title"},
    {"patran.packet-not-counted", kError, "more {} than the summary counts: the rest is not stored",
     "No more nodes, elements and properties are stored than the summary (packet 26) counts. The "
     "data cards of further ones are read as headers.",
     "Correct the counts in the summary"},
    {"patran.summary-missing", kError, "the file has no summary, so nothing of it is stored",
     "No more nodes, elements and properties are stored than the summary (packet 26) counts.",
     "Check that this is a neutral file, and write a packet 26 before the nodes"},
    {"patran.summary-repeated", kError, "a second summary takes the place of the first",
     "CPatranReader forgets all that stands before a summary. CKVO_PatranIO_Bridge keeps it, and "
     "goes by the new counts.",
     "Write one summary, before all other packets but the title"},
    {"patran.count-negative", kError, "the summary counts a negative number of {}",
     "Counts are taken as they stand. Nothing is stored by a negative one, and a negative number "
     "of properties gives all elements of CKVO_PatranIO_Bridge the type 14.",
     "Correct the counts in the summary"},
    {"patran.fewer-than-counted", kError, "the file holds fewer {} than the summary counts",
     "CPatranReader hands out as many rows as the summary counts. Those that the file does not "
     "fill are zero. CKVO_PatranIO_Bridge hands out those that were read.",
     "Check whether the file is complete, and correct the counts in the summary"},
    {"patran.fewer-properties", kWarning,
     "the file holds fewer properties than the summary counts: "
     "{}",
     "Where the summary counts properties, the element types of CKVO_PatranIO_Bridge come from "
     "these and no longer from the shapes. CPatranReader hands out the count as it stands.",
     "Correct the counts in the summary; without properties N4 is 0"},
    {"patran.last-line-repeated", kError,
     "the last line is read once more, as the header of one more packet",
     "At the end of a file without packet 99 the last line is read once more. What it repeats is "
     "stored where the summary counts one more.",
     "End the file with packet 99"},
    {"patran.end-missing", kWarning, "the file has no packet 99 at its end",
     "Packet 99 is the last one of a file. Without it nothing tells whether the file is complete.",
     "Check whether the file was cut off"},
    {"patran.content-after-end", kWarning, "what stands after packet 99 is not read",
     "Packet 99 ends the reading.", "Remove packet 99 where the file goes on"},
    {"patran.import-appended", kError,
     "the reader holds an earlier mesh ({}): the corners of both are no longer right",
     "A second import by one CKVO_PatranIO_Bridge appends its nodes and elements. Its corners "
     "count from its own first node, and those of the first import are mapped once more.",
     "Use one CKVO_PatranIO_Bridge for each file"},
    {"patran.node-repeated", kError, "the file defines node {} twice",
     "Both nodes are stored, but the elements find the later one only.",
     "Give each node an id of its own"},
    {"patran.node-outside-map", kError, "no element finds node {}",
     "Elements find nodes by a map as long as the largest node id. It does not hold ids below 0, "
     "nor those that the first pass misses when it skips the cards of a packet by a wrong KC.",
     "Write node ids from 1 up, and KC as the number of data cards that follow"},
    {"patran.node-id-zero", kWarning, "a node has the id 0, which unused places of elements name",
     "CPatranReader hands out eight node indices for each element. Places that the shape does not "
     "use count as id 0, and so become the index of this node.",
     "Number nodes from 1"},
    {"patran.node-undefined", kError, "elements name nodes that are not found: {}",
     "The first node, of index 0, stands for a node that the file does not define, or that the "
     "reader does not find by its id.",
     "Check whether nodes are missing, and whether node ids stand in columns of eight"},
    {"patran.nodes-dropped", kWarning, "only the first {} are read",
     "CKVO_PatranIO_Bridge reads four nodes of each element, CPatranReader reads eight. Mid-side "
     "nodes and further corners are dropped.",
     "Read solids with CPatranReader, and write elements without mid-side nodes"},
    {"patran.shape-unknown", kWarning, "elements of shape {} are stored without a shape",
     "CPatranReader knows the shapes 2, 3, 4, 5, 7 and 8. Of other elements it keeps the nodes, "
     "with the type 0.",
     "Write such elements as one of the known shapes"},
    {"patran.property-header-differs", kWarning,
     "the header of a property reads otherwise in columns than number by number",
     "The header of packet 4 is read twice: in columns as every header, then as numbers with white "
     "space between them. The second reading counts. They differ where a field is blank or fills "
     "its columns, and where the header is not in columns at all.",
     "Write all fields of the header in their columns, with a blank between them"},
    {"patran.property-id-outside", kWarning, "the property of id {} is not kept",
     "Properties are kept by id from 0 to 16,777,215.", "Number properties from 1"},
    {"patran.property-repeated", kWarning, "the file defines property {} twice",
     "The later one takes the place of the earlier, but values that it does not set stay.",
     "Give each property an id of its own"},
    {"patran.property-without-type", kNote,
     "properties with {} values set no element type: it is 0",
     "Properties with two, three or four values are those of bars and shells. Elements with any "
     "other, as solids have, are handed out with the type 0 by CKVO_PatranIO_Bridge.",
     ""},
    {"patran.property-missing", kWarning,
     "elements name properties that the file does not define: {}",
     "Where the summary counts properties, CKVO_PatranIO_Bridge takes the type of an element from "
     "its property. Without one it is 14, or 0 where the id is below the largest one.",
     "Write the missing properties, or a summary that counts none"},
    {"patran.value-unreadable", kWarning,
     "the {} value of a property cannot be read and counts as 0",
     "The two values stand on the card after the header, in columns of sixteen or with white space "
     "between them. Where the first cannot be read both are 0.",
     "Write two numbers on the card of the property"},
}};
static_assert(static_cast<std::size_t>(Finding::kCount) == 37);

}  // namespace kvocaeio::patran
