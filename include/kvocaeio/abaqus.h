/// Abaqus input decks: import, raw tables, normalised mesh.
#ifndef KVOCAEIO_ABAQUS_H
#define KVOCAEIO_ABAQUS_H

#include <kvocaeio/export.h>

namespace kvocaeio {
namespace abaqus {
struct AbaqusModel;
}
}  // namespace kvocaeio

class CKVOImportReport;

/// Reads one Abaqus input deck and hands out its mesh.
///
/// Two views of the deck stand side by side. The raw tables hold what the deck lists, in its order
/// and with its own numbers (OIDs). The normalised mesh, made by `SortData`, holds solids and
/// shells apart, in new node IDs and corner nodes only; its accessors end in R.
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
/// Import one deck with each reader. A second import keeps what was in the tables, cut or grown to
/// the new deck's counts, and appends to the lists of sets, surfaces and loads.
///
/// Ownership: the caller allocates the records. Every pointer that an accessor puts into a record
/// points into the reader's own tables; the caller does not free it. It stays valid until the
/// reader is destroyed or imports again; one from an accessor that ends in R also ends with the
/// next `SortData`. No accessor checks its pointer arguments. No member throws, except `SortData`
/// as stated there.
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
        /// Node OID.
        int id;
        /// Three doubles: x, y, z in the deck's length unit.
        double* coord;
    };

    /// One element.
    struct ElemData {
        /// Element OID; 0 from `GetElemSecElemNextR`.
        int id;
        /// Number of nodes.
        int nodeNum;
        /// The connectivity. Each accessor says how many nodes it covers, and who sets the pointer.
        int* nodes;
    };

    /// One element section: the elements of one `*ELEMENT` block, or a section of the normalised
    /// mesh.
    struct ElemSecData {
        /// Value of ELSET= in upper case, cut to 79 characters; empty without one.
        char elset[80];
        /// 0 unknown, 1 shell, 2 solid.
        int geometryType;
        /// Nodes of every element; 0 for a block of unknown type.
        int nodesPerElem;
        /// Number of elements.
        int elemNum;
        /// Connectivity, element by element: `elemNum` times `nodesPerElem` node OIDs; new node IDs
        /// from an accessor that ends in R.
        int* nodes;
        /// `elemNum` element OIDs; null from an accessor that ends in R.
        int* ids;
    };

    /// One `*SHELL SECTION` block. The name of its material is not handed out.
    struct ShellSecData {
        /// Value of ELSET= in upper case, cut to 79 characters; empty without one.
        char elset[80];
        /// First number of the block's last data line, in the deck's length unit; 0 without one.
        double thickness;
    };

    /// Makes a reader with empty tables.
    CKVOAbaqusReader();
    /// Releases the tables. A copy of this reader is left with a dangling pointer.
    ~CKVOAbaqusReader();
    /// Shallow: both readers share one set of tables, without a count of owners. Only one of them
    /// may be destroyed. The tables that `*this` had before are not released.
    CKVOAbaqusReader& operator=(const CKVOAbaqusReader& other);
    /// Shallow: both readers share one set of tables, and only one of them may be destroyed.
    CKVOAbaqusReader(const CKVOAbaqusReader& other) = default;

    /// Imports the deck at `path` (in the system's narrow encoding). The deck is opened for update,
    /// so a read-only one cannot be opened, but it is never written to. Returns false when the deck
    /// cannot be opened or memory runs out. Otherwise returns true, whatever the deck holds: what
    /// cannot be read is passed over.
    bool ImportInpFile(const char* path);
    /// The same, and fills `report` (may be null) with what of the deck was not read, see
    /// kvocaeio/report.h.
    bool ImportInpFile(const char* path, CKVOImportReport* report);

    /// Derives the normalised mesh from the raw tables, which stay as they are. Does nothing when
    /// the deck has no nodes or no element sections. To be called once: a second call lists the
    /// faces of loads and surfaces a second time.
    ///
    /// Throws `std::length_error` ("vector<T> too long") where a lone section is to be split by a
    /// generated set that ends more than one before it starts, and where such sets or the surfaces
    /// ask for more elements than an int counts. Throws `std::bad_alloc` when memory runs out. The
    /// reader can be walked, sorted again and destroyed after that.
    void SortData();
    /// The same, and adds to `report` (may be null) what of the raw tables the normalised mesh does
    /// not hold as it stands there.
    void SortData(CKVOImportReport* report);

    /// Returns the number of nodes.
    int GetNodeNum();
    /// Starts the walk over the nodes. Returns false when there are none.
    bool GetNodeBegin();
    /// Sets `out` to the next node in deck order: `id`, and `coord`, which points at three doubles
    /// in the reader's table. Returns false at the end, with `out` untouched.
    bool GetNodeNext(NodeData* out);
    /// Looks up a node by its OID: sets `out->id` to `oid`, and writes x, y, z through
    /// `out->coord`, which the caller has pointed at room for three doubles. For an OID up to the
    /// largest of the deck that no node has, returns true with the first node's coordinates.
    /// Returns false for a negative OID, for one above the largest, and when no nodes or no
    /// elements were imported, with `out` untouched.
    bool GetNodeDataByOID(int oid, NodeData* out);

    /// Returns the number of element sections, one per `*ELEMENT` block.
    int GetElemSecNum();
    /// Starts the walk over the element sections. Returns false when there are none.
    bool GetElemSecBegin();
    /// Sets `out` to the next element section in deck order, and starts the walk over its elements.
    /// Returns false at the end, with `out` untouched.
    bool GetElemSecNext(ElemSecData* out);
    /// Starts the walk over the elements of the section again. Always returns true.
    bool GetElemSecElemBegin();
    /// Sets `*id` to the OID of the next element of `sec`, which `GetElemSecNext` has filled, and
    /// points `*nodes` at its `sec->nodesPerElem` node OIDs in the reader's table. Returns false at
    /// the end, with both untouched.
    bool GetElemSecElemNext(ElemSecData* sec, int* id, int** nodes);
    /// Looks up an element by its OID: sets `out->id` to `oid` and `out->nodeNum` to the number of
    /// its nodes, and writes one node OID, that of its first node, through `out->nodes`, which the
    /// caller has pointed at an int. An OID up to the largest of the deck that no element has
    /// stands for the first element of the first section. For an element without nodes (of unknown
    /// type) nothing is written through `out->nodes`. Returns true in all these cases. Returns
    /// false for a negative OID, for one above the largest, and when no nodes or no elements were
    /// imported, with `out` untouched.
    bool GetElemNodesByOID(int oid, ElemData* out);

    /// Returns the number of `*SHELL SECTION` blocks.
    int GetShellSecNum();
    /// Starts the walk over the shell sections. Returns false when there are none.
    bool GetShellSecBegin();
    /// Sets `out` to the next shell section in deck order. Returns false at the end, with `out`
    /// untouched.
    bool GetShellSecNext(ShellSecData* out);

    /// Returns the number of sections of solids in the normalised mesh; 0 before `SortData`.
    int GetElemSolidSecNumR();
    /// Returns the number of sections of shells in the normalised mesh, including those made from
    /// loads ("Dload_Shell") and surfaces ("Surface_Shell") at the end; 0 before `SortData`.
    int GetElemShellSecNumR();
    /// Starts the walk over the sections of solids. Returns false when there are none. Solids and
    /// shells share one cursor, so finish one walk before starting the other.
    bool GetElemSolidSecBeginR();
    /// Starts the walk over the sections of shells. Returns false when there are none.
    bool GetElemShellSecBeginR();
    /// Sets `out` to the next section of solids: `nodes` points at new node IDs (rows of the node
    /// walk, from 0), `ids` is null, `geometryType` is 2. Does not start the walk over its
    /// elements. Returns false at the end, with `out` untouched.
    bool GetElemSolidSecNextR(ElemSecData* out);
    /// Sets `out` to the next section of shells, as `GetElemSolidSecNextR` does, with the
    /// `geometryType` 1. Returns false at the end, with `out` untouched.
    bool GetElemShellSecNextR(ElemSecData* out);
    /// Starts the walk over the elements of `sec`; to be called for each section. Returns false
    /// when it has none. `elem` is not looked at.
    bool GetElemSecElemBeginR(ElemSecData* sec, ElemData* elem);
    /// Sets `out` to the next element of `sec`: `id` is 0, and `nodes` points at `nodeNum` new node
    /// IDs in the reader's table. The element's number in its section, from 0, is the number of
    /// calls before this one. Returns false at the end, with `out` untouched.
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
