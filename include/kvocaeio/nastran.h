/// Nastran bulk data decks, read into flat arrays and written card by card.
#ifndef KVOCAEIO_NASTRAN_H
#define KVOCAEIO_NASTRAN_H

#include <kvocaeio/export.h>

namespace kvocaeio {
namespace nastran {
struct NastranFileInfo;
struct NastranWriterState;
}  // namespace nastran
}  // namespace kvocaeio

class CKVOImportReport;

/// Reads one Nastran bulk data deck into three flat arrays: nodes, elements, sections.
///
///     KVONASTRAN_Reader reader;
///     if (!reader.SetFilePath("part.bdf")) ...
///     const float* nodes = reader.GetNodeVector();      // GetNodeCout() rows of 4
///     const int* elements = reader.GetElemVector();     // GetElemCout() rows of 9
///     const int* sections = reader.GetSectionVector();  // GetSectionCout() rows of 3
///
/// A card is recognised by a name anywhere in the line's fields, and read in fixed fields of eight
/// columns; a comma or a plus sign counts as eight blanks. docs/nastran.md shows what that means
/// for free fields, large fields and continuations.
///
/// Ownership: the arrays belong to the reader and stay valid until it is destroyed, also when
/// `SetFilePath` is called again. The caller frees nothing.
///
/// Threads: a reader and its copies serve one thread at a time; different readers share nothing.
/// Only the constructor throws: `std::bad_alloc`, when memory runs out. Nothing is printed.
class KVOCAEIO_API KVONASTRAN_Reader {
  public:
    /// Makes a reader without arrays: all counts are 0, all vectors null.
    KVONASTRAN_Reader();
    /// Shallow: both readers share all arrays, without a count of owners. Only one of them may be
    /// destroyed.
    KVONASTRAN_Reader(const KVONASTRAN_Reader& other);
    /// Shallow, like the copy. The arrays that `*this` had before are not released.
    KVONASTRAN_Reader& operator=(const KVONASTRAN_Reader& other);
    /// Releases all arrays that this reader and its copies have ever handed out.
    virtual ~KVONASTRAN_Reader();

    /// Reads the deck at `path` (in the system's narrow encoding). Returns false when it cannot be
    /// opened, when it has no `GRID` card or no element card (`CROD`, `CTUBE`, `CBAR`, `CBEAM`,
    /// `CQUAD...`, `CTRIA...`, `CSHEAR`, `CTETRA`, `CPENTA`, `CHEXA`) with an OID above 0, and when
    /// the arrays for its largest OIDs cannot be allocated. After that the vectors and the counts
    /// of sections and properties are those of the deck before. The counts of nodes and elements
    /// are not: they are the largest OIDs of the new deck where only its cards are the reason, and
    /// 0 where it cannot be opened or memory runs out.
    bool SetFilePath(const char* path);
    /// The same, and fills `report` (may be null) with what of the deck was not read, see
    /// kvocaeio/report.h.
    bool SetFilePath(const char* path, CKVOImportReport* report);

    /// Returns the number of rows of the node vector: the largest node OID of the deck.
    int GetNodeCout();
    /// Returns the number of rows of the element vector: the largest element OID of the deck,
    /// shells and bars included.
    int GetElemCout();
    /// Returns the number of rows of the section vector: the property OID of the deck's last
    /// property card, or 0 without one. An OID below 0 is returned as well; there are no rows then.
    int GetSectionCout();
    /// Returns how many different material OIDs the section vector has, counting only those from 1
    /// to the section count.
    int GetPropertiesCout();

    /// Returns the nodes, `GetNodeCout()` rows of four floats: node OID, x, y, z in the deck's
    /// length unit. The row of OID n is row n-1; an OID that the deck does not use has a row of
    /// zeros. Returns null before a deck was read.
    float* GetNodeVector();
    /// Returns the elements, `GetElemCout()` rows of nine ints: element OID, then eight node OIDs.
    /// An element of fewer nodes repeats its last one. The row of OID n is row n-1; an OID that the
    /// deck does not use, and that of a shell, has a row of zeros. Returns null before a deck was
    /// read.
    int* GetElemVector();
    /// Returns the sections, `GetSectionCout()` rows of three ints, in deck order: property OID,
    /// material OID, property value. The value is a length in the deck's unit without its fraction:
    /// the equivalent diameter of bars and rods, twice the outer diameter of tubes, the thickness
    /// of shells. For solids it is the number after the material. Returns null before a deck was
    /// read.
    int* GetSectionVector();

  private:
    float* nodeVector;
    int* elemVector;
    int* sectionVector;
    int* materialFlags;
    int sectionCount;
    kvocaeio::nastran::NastranFileInfo* info;
};

/// Writes a mesh as a Nastran deck for a static analysis: a fixed header with the case control, the
/// cards that the host adds, in the order of its calls, and a fixed footer. Each card is written at
/// once; the writer keeps no model.
///
///     KVONASTRAN_Writer writer;
///     if (!writer.SetFilePath("part.nas", "mm")) ...
///     writer.AddNode(1, 0.0, 0.0, 0.0);  // ... all cards
///     writer.EndWriting();
///
/// All writing calls return false when no deck is open. They do not tell whether the disk took what
/// was written. Numbers are written as in the C locale, whatever the host's.
///
/// Ownership: copies share one deck. If no `EndWriting` was called, the deck is closed without a
/// footer when the last of them is destroyed. The writer keeps no pointer that it is given.
///
/// Threads: a writer and its copies serve one thread at a time; different writers share nothing,
/// nor do they touch what `std::localtime` has returned to the host.
/// Only the constructor throws: `std::bad_alloc`, when memory runs out. Nothing is printed.
class KVOCAEIO_API KVONASTRAN_Writer {
  public:
    /// Makes a writer without a deck.
    KVONASTRAN_Writer();
    /// Shares the deck of `other`.
    KVONASTRAN_Writer(const KVONASTRAN_Writer& other);
    /// Shares the deck of `other`. The deck of `*this` is closed as by the destructor.
    KVONASTRAN_Writer& operator=(const KVONASTRAN_Writer& other);
    /// Closes the deck, without a footer, if no copy of this writer is left.
    virtual ~KVONASTRAN_Writer();

    /// Starts a deck at `path` (in the system's narrow encoding) with the mesh unit "mm", replacing
    /// an older file. A deck that is still open is closed without a footer. Returns false when
    /// `path` is null, when the file cannot be created and when memory runs out.
    bool SetFilePath(const char* path);
    /// Starts a deck with the mesh unit `unit`, which goes into the header as it stands. If it
    /// holds "m", "mm", "cm" or "inch", the header also names the units of the elastic module and
    /// of the density that belong to it; otherwise these are empty.
    bool SetFilePath(const char* path, const char* unit);

    /// Writes a `GRID` card of node OID `id`, its coordinates with three decimals.
    bool AddNode(int id, double x, double y, double z);
    /// Writes a `PSOLID` card of property OID `id` and material 1; `second` is not used.
    bool AddSection(int id, int second);
    /// Writes a `CTETRA`, `CPENTA` or `CHEXA` card of element OID `id` and property OID `section`,
    /// with the 4, 6 or 8 node OIDs in `nodes`. Returns false for another `nodeCount`, with nothing
    /// written.
    bool AddElement(int id, int section, int nodeCount, int* const nodes);
    /// Writes `entry` as it stands, without adding a line end.
    bool WriteStringEntry(char* entry);
    /// Writes the footer and closes the deck.
    bool EndWriting();

  private:
    kvocaeio::nastran::NastranWriterState* state;
};

#endif
