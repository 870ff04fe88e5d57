/// Nastran bulk data decks, read into flat arrays and written card by card.
#ifndef KVOCAEIO_NASTRAN_H
#define KVOCAEIO_NASTRAN_H

#include <kvocaeio/export.h>

namespace kvocaeio {
struct NastranFileInfo;
struct NastranWriterState;
}  // namespace kvocaeio

/// Reads one Nastran bulk data deck into three flat arrays: nodes, elements, sections.
///
///     KVONASTRAN_Reader reader;
///     if (!reader.SetFilePath("part.bdf")) ...
///     const float* nodes = reader.GetNodeVector();      // GetNodeCout() rows of 4
///     const int* elements = reader.GetElemVector();     // GetElemCout() rows of 9
///     const int* sections = reader.GetSectionVector();  // GetSectionCout() rows of 3
///
/// Cards are told by a name anywhere in the line's fields and read in fixed fields of eight
/// columns; a comma or a plus sign counts as eight blanks. docs/nastran.md says what that does to
/// which deck.
///
/// Ownership: the arrays belong to the reader and stay valid until it is destroyed, also when
/// `SetFilePath` is called again. The caller frees nothing.
///
/// Threads: a reader and its copies serve one thread at a time; others share nothing. Nothing but
/// the constructor throws, and only where memory runs out; nothing is printed.
class KVOCAEIO_API KVONASTRAN_Reader {
  public:
    /// Makes a reader without arrays: all counts 0, all vectors null.
    KVONASTRAN_Reader();
    /// Shallow: both readers share all arrays, without a count of owners; only one may be
    /// destroyed.
    KVONASTRAN_Reader(const KVONASTRAN_Reader& other);
    /// Shallow, like the copy. What `*this` had before is not released.
    KVONASTRAN_Reader& operator=(const KVONASTRAN_Reader& other);
    /// Releases all arrays that this reader and its copies have ever handed out.
    virtual ~KVONASTRAN_Reader();

    /// Reads the deck at `path` (in the system's narrow encoding). False when it cannot be opened,
    /// has no `GRID` card or no element card (`CROD`, `CTUBE`, `CBAR`, `CBEAM`, `CQUAD...`,
    /// `CTRIA...`, `CSHEAR`, `CTETRA`, `CPENTA`, `CHEXA`) with an OID above 0, or when the arrays
    /// for its largest OIDs cannot be had. Then the vectors and what belongs to the sections are
    /// those of the deck before, and the node and element counts say nothing of them: they are the
    /// largest OIDs of a deck that could be scanned, else 0.
    bool SetFilePath(const char* path);

    /// Rows of the node vector: the largest node OID of the deck.
    int GetNodeCout();
    /// Rows of the element vector: the largest element OID of the deck, shells and bars included.
    int GetElemCout();
    /// Rows of the section vector: the property OID of the deck's last property card, 0 without
    /// one. Where that OID is below 0, so is the result, and there are no rows.
    int GetSectionCout();
    /// Number of different material OIDs in the section vector, of those from 1 to the section
    /// count.
    int GetPropertiesCout();

    /// Four floats per row: node OID, x, y, z in the deck's length unit. The row of OID n is row
    /// n-1; an OID that the deck does not use has a row of zeros. Null before a deck was read.
    float* GetNodeVector();
    /// Nine ints per row: element OID, then eight node OIDs, of which the unused ones repeat the
    /// last real one. The row of OID n is row n-1; unused OIDs, and shells, have a row of zeros.
    /// Null before a deck was read.
    int* GetElemVector();
    /// Three ints per row, in deck order: property OID, material OID, property value without its
    /// fraction (bars and rods: equivalent diameter; tubes: twice the outer diameter; shells:
    /// thickness; solids: the number behind the material). Null before a deck was read.
    int* GetSectionVector();

  private:
    float* nodeVector;
    int* elemVector;
    int* sectionVector;
    int* materialFlags;
    int sectionCount;
    kvocaeio::NastranFileInfo* info;
};

/// Writes a mesh as a static-analysis Nastran deck, card by card: a fixed header with the case
/// control, then whatever the host adds, in its order, then a fixed footer. Keeps no model.
///
///     KVONASTRAN_Writer writer;
///     if (!writer.SetFilePath("part.nas", "mm")) ...
///     writer.AddNode(1, 0.0, 0.0, 0.0);  // ... all cards
///     writer.EndWriting();
///
/// Numbers are written as in the C locale whatever the host's. Copies share one deck, which is
/// closed, without a footer, when the last of them is destroyed before `EndWriting`. Writing calls
/// do not tell whether the disk took what was written. Nothing throws, nothing is printed.
///
/// Threads: a writer and its copies serve one thread at a time; other writers share nothing. The
/// date in the header is taken without the C library's shared result of `std::localtime`.
class KVOCAEIO_API KVONASTRAN_Writer {
  public:
    /// Makes a writer without a deck: all writing calls give false.
    KVONASTRAN_Writer();
    /// Shares the deck of `other`.
    KVONASTRAN_Writer(const KVONASTRAN_Writer& other);
    /// Shares the deck of `other`; the one before is closed as by the destructor.
    KVONASTRAN_Writer& operator=(const KVONASTRAN_Writer& other);
    virtual ~KVONASTRAN_Writer();

    /// Starts a deck with the mesh unit "mm" at `path`, replacing an older file. False when the
    /// file cannot be created.
    bool SetFilePath(const char* path);
    /// The same with a mesh unit of the host's. It goes into the header as it stands, with the
    /// units of the elastic module and the density that belong to "m", "mm", "cm" or "inch" in it;
    /// empty ones where it holds none of these.
    bool SetFilePath(const char* path, const char* unit);

    /// Writes a `GRID` card, coordinates with three decimals. False without an open deck, as below.
    bool AddNode(int id, double x, double y, double z);
    /// Writes a `PSOLID` card of material 1; `second` is not used.
    bool AddSection(int id, int second);
    /// Writes a `CTETRA`, `CPENTA` or `CHEXA` card with 4, 6 or 8 `nodes`. False, nothing written,
    /// for another count.
    bool AddElement(int id, int section, int nodeCount, int* const nodes);
    /// Writes `text` as it stands, no line end added.
    bool WriteStringEntry(char* text);
    /// Writes the footer and closes the deck; all writing calls give false then.
    bool EndWriting();

  private:
    kvocaeio::NastranWriterState* state;
};

#endif
