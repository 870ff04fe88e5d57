/// One function per packet and reader: what is read of its cards, and what becomes of it. `lines`
/// stands after the header card.
#pragma once

#include "patran/id_map.h"
#include "patran/lines.h"
#include "patran/model.h"

namespace kvocaeio::patran {

/// Packet 1. The header's id leads to `index`; coordinates stand on the first data card, and the
/// second is dropped.
void readNode(PacketLines& lines, int index, IdMap& nodeIds, ListMesh& mesh);
void readNode(PacketLines& lines, int index, IdMap& nodeIds, FlatMesh& mesh);

/// Packet 2. The shape stands in the header, the property id on the first data card, node ids on
/// the second.
/// List mesh: four corners are appended as ids, since their nodes may follow; any shape is stored.
/// Flat mesh: row `index` receives eight ids, `kUnknownNode` for those outside the map, and only a
/// shape that is known.
void readElement(PacketLines& lines, int index, const IdMap& nodeIds, ListMesh& mesh);
void readElement(PacketLines& lines, int index, const IdMap& nodeIds, FlatMesh& mesh);

/// Packet 4. The header is read again in free form; values stand on one data card.
/// List mesh: type and values of the elements with this property. Flat mesh: nothing is stored.
void readProperty(PacketLines& lines, ListMesh& mesh);
void readProperty(PacketLines& lines, FlatMesh& mesh);

/// Packet 26: how many nodes, elements and properties are to be read. Its data card is dropped.
/// List mesh: what has been read stays. Flat mesh: it is discarded, and new arrays are made; the
/// header is read without what the headers before it left. Throws where memory cannot be allocated.
void readSummary(PacketLines& lines, ListMesh& mesh);
void readSummary(PacketLines& lines, FlatMesh& mesh);

}  // namespace kvocaeio::patran
