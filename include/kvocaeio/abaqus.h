/// Abaqus input decks: import, raw tables, normalised mesh.
#ifndef KVOCAEIO_ABAQUS_H
#define KVOCAEIO_ABAQUS_H

#include <kvocaeio/export.h>

namespace kvocaeio {
namespace abaqus {
struct AbaqusModel;
}
}  // namespace kvocaeio

/// Reads one Abaqus input deck and hands out its mesh.
///
/// Two views of the deck stand side by side. The raw tables hold what the deck lists, in its order
/// and with its own numbers (OIDs). The normalised tables, made by `SortData`, hold solids and
/// shells apart, in new node IDs, corner nodes only; their accessors end in R.
///
/// Calling order:
///
///     CKVOAbaqusReader reader;
///     if (!reader.ImportInpFile("part.inp")) ...           // the deck cannot be opened
///     for (reader.GetNodeBegin(); reader.GetNodeNext(&node);) ...
///     reader.GetElemSecBegin();
///     while (reader.GetElemSecNext(&section))
///         while (reader.GetElemSecElemNext(&section, &id, &nodes)) ...
///     reader.SortData();
///     if (reader.GetElemSolidSecBeginR())
///         while (reader.GetElemSolidSecNextR(&section))
///             if (reader.GetElemSecElemBeginR(&section, &element))
///                 while (reader.GetElemSecElemNextR(&section, &element)) ...
///
/// One import per reader is the designed use: a second one keeps what was in the tables that it
/// resizes, and appends to the lists of sets, surfaces and loads.
///
/// Ownership: the caller allocates the records. Every pointer that an accessor puts into a record
/// points into the reader's own tables and stays valid until the reader is destroyed or imports
/// again (`...R` accessors: or sorts again); the caller frees nothing. No accessor checks its
/// pointer arguments. No member throws, except `SortData` as stated there.
///
/// Output: the import and `SortData` print progress lines to standard output. If a folder named
/// debug stands beside the deck, they write "InputAbaqus.log" and "SortData.log" into it.
///
/// Threads: a reader serves one thread at a time. Readers are independent: each may serve a thread
/// of its own. The folder that `SortData` logs to is the one that the latest import of the process
/// found, whatever reader and thread it was of; logs that two readers write into one folder at once
/// may be mixed.
class KVOCAEIO_API CKVOAbaqusReader {
  public:
    /// One node.
    struct NodeData {
        int id;         ///< node OID
        double* coord;  ///< x, y, z in the deck's length unit
    };

    /// One element.
    struct ElemData {
        int id;       ///< element OID; 0 from `GetElemSecElemNextR`
        int nodeNum;  ///< nodes of this element
        int* nodes;   ///< its connectivity; who points it where is said at each accessor
    };

    /// One element section: the elements of one `*ELEMENT` block, or a section of the normalised
    /// mesh.
    struct ElemSecData {
        char elset[80];  ///< ELSET= name in upper case, cut to 79 characters; empty where there is
                         ///< none
        int geometryType;  ///< 0 unknown, 1 shell, 2 solid
        int nodesPerElem;  ///< nodes of every element; 0 for a block of unknown type
        int elemNum;       ///< number of elements
        int*
            nodes;  ///< `elemNum` groups of `nodesPerElem` nodes: OIDs, or new node IDs from `...R`
        int* ids;   ///< `elemNum` element OIDs; null from `...R`
    };

    /// One `*SHELL SECTION` block. Its material name is not handed out.
    struct ShellSecData {
        char elset[80];  ///< ELSET= name in upper case, cut to 79 characters; empty where there is
                         ///< none
        double thickness;  ///< first number of the block's last data line; 0 without one
    };

    /// Makes a reader with empty tables.
    CKVOAbaqusReader();
    /// Releases the tables. A copy of this reader is left with a dangling pointer.
    ~CKVOAbaqusReader();
    /// Shallow: both readers share one set of tables, without a count of owners. Only one of them
    /// may be destroyed, and the tables that `*this` had before are not released.
    CKVOAbaqusReader& operator=(const CKVOAbaqusReader& other);
    /// Shallow, like the assignment.
    CKVOAbaqusReader(const CKVOAbaqusReader& other) = default;

    /// Imports the deck at `path` (in the system's narrow encoding). It is opened for update, so a
    /// read-only deck cannot be opened, but never written to. False when the deck cannot be opened
    /// or memory runs out; otherwise true, whatever the deck holds: what cannot be read is passed
    /// over.
    bool ImportInpFile(const char* path);

    /// Derives the normalised tables from the raw ones, which stay as they are. Does nothing when
    /// the deck has no nodes or no element sections. Throws `std::length_error` ("vector<T> too
    /// long") where a lone section is to be split by a generated set that ends more than one before
    /// it starts, and where such sets or the surfaces ask for more elements than int counts;
    /// `std::bad_alloc` when memory runs out. The reader can still be walked, sorted again and
    /// destroyed then. Meant to be called once: a second call lists the faces of loads and surfaces
    /// a second time.
    void SortData();

    /// Number of nodes.
    int GetNodeNum();
    /// Starts the walk over the nodes. False when there are none.
    bool GetNodeBegin();
    /// Gives the next node in deck order: `id`, and `coord` pointing into the reader's table (three
    /// doubles). False at the end, `out` untouched.
    bool GetNodeNext(NodeData* out);
    /// Looks a node up by its OID and writes its x, y, z through `out->coord`, which the caller has
    /// pointed at room for three doubles. An OID up to the largest of the deck that no node has
    /// gives true and the first node's coordinates. False for a negative OID, one above the
    /// largest, or without nodes and elements imported: `out` untouched.
    bool GetNodeDataByOID(int oid, NodeData* out);

    /// Number of element sections: one per `*ELEMENT` block.
    int GetElemSecNum();
    /// Starts the walk over the element sections. False when there are none.
    bool GetElemSecBegin();
    /// Gives the next element section, in deck order, and starts the walk over its elements. False
    /// at the end, `out` untouched.
    bool GetElemSecNext(ElemSecData* out);
    /// Starts the walk over a section's elements again. Always true.
    bool GetElemSecElemBegin();
    /// Gives the next element of `sec`, which `GetElemSecNext` has filled: `*id` its OID, `*nodes`
    /// its `sec->nodesPerElem` node OIDs. False at the end, outputs untouched.
    bool GetElemSecElemNext(ElemSecData* sec, int* id, int** nodes);
    /// Looks an element up by its OID: sets `out->id` and `out->nodeNum`, and writes the element's
    /// first node OID, that one alone, through `out->nodes`, which the caller has pointed at an
    /// int. An OID up to the largest of the deck that no element has gives the first element of the
    /// first section. An element without nodes (of unknown type): true, nothing written through
    /// `out->nodes`. False for a negative OID, one above the largest, or without nodes and elements
    /// imported: `out` untouched.
    bool GetElemNodesByOID(int oid, ElemData* out);

    /// Number of `*SHELL SECTION` blocks.
    int GetShellSecNum();
    /// Starts the walk over them. False when there are none.
    bool GetShellSecBegin();
    /// Gives the next one in deck order. False at the end, `out` untouched.
    bool GetShellSecNext(ShellSecData* out);

    /// Number of sections of solids in the normalised mesh; 0 before `SortData`.
    int GetElemSolidSecNumR();
    /// Number of sections of shells in the normalised mesh, with those made from loads
    /// ("Dload_Shell") and surfaces ("Surface_Shell") at the end; 0 before `SortData`.
    int GetElemShellSecNumR();
    /// Starts the walk over the sections of solids. False when there are none. The walks over
    /// solids and shells share one cursor and must not be interleaved.
    bool GetElemSolidSecBeginR();
    /// Starts the walk over the sections of shells, likewise.
    bool GetElemShellSecBeginR();
    /// Gives the next section of solids: `nodes` holds new node IDs (rows of the node walk, from
    /// 0), `ids` is null, `geometryType` 2. The element walk is not started by it. False at the
    /// end, `out` untouched.
    bool GetElemSolidSecNextR(ElemSecData* out);
    /// Gives the next section of shells, likewise with `geometryType` 1.
    bool GetElemShellSecNextR(ElemSecData* out);
    /// Starts the walk over the elements of `sec`; to be called for each section. False when it has
    /// none. `elem` is not looked at.
    bool GetElemSecElemBeginR(ElemSecData* sec, ElemData* elem);
    /// Gives the next element of `sec`: `id` 0, `nodeNum`, and `nodes` pointing at its new node
    /// IDs. Its new element ID is the count of calls before this one. False at the end, `out`
    /// untouched.
    bool GetElemSecElemNextR(ElemSecData* sec, ElemData* out);

  private:
    kvocaeio::abaqus::AbaqusModel* impl;
    int nodeCursor;
    int sectionCursor;
    int sectionElementCursor;
    int shellSectionCursor;
    int sortedSectionCursor;
    int sortedElementCursor;
};

#endif
