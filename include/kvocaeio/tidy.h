/// Decks rewritten before an import into the form that the readers take whole.
#ifndef KVOCAEIO_TIDY_H
#define KVOCAEIO_TIDY_H

#include <kvocaeio/export.h>

namespace kvocaeio {
namespace tidy {
struct TidyState;
}  // namespace tidy
}  // namespace kvocaeio

class CKVOImportReport;

/// Rewrites an Abaqus or Nastran deck, in whatever dialect a program wrote it, as a deck of the
/// plain form that `CKVOAbaqusReader` or `KVONASTRAN_Reader` reads whole: one file without
/// includes, parts, local coordinate systems, free or large fields.
///
///     CKVODeckTidy tidy;
///     CKVOImportReport report;
///     KVONASTRAN_Reader reader;
///     if (!tidy.Tidy("part.bdf", "part.tidy.nas", CKVODeckTidy::kNastran, &report)) ...
///     bool imported = reader.SetFilePath(tidy.IsNeeded() ? "part.tidy.nas" : "part.bdf");
///     CKVODeckTidy::OriginData origin;
///     for (tidy.GetElemOriginBegin(); tidy.GetElemOriginNext(&origin);)
///         std::printf("%d was %d in %s\n", origin.id, origin.originalId, origin.file);
///
/// The new deck holds what the reader can hold: the mesh, and of an Abaqus deck sets, surfaces and
/// loads. docs/tidy.md shows decks before and after.
///
/// Ownership: the caller allocates the records; texts are copied into them, cut to their capacity.
/// A tidy keeps nothing of the report that it fills.
///
/// Threads: a tidy serves one thread at a time; different ones share nothing. Only the constructor
/// throws: `std::bad_alloc`, when memory runs out. No accessor checks its pointer arguments.
/// Nothing is printed.
class KVOCAEIO_API CKVODeckTidy {
  public:
    /// The format of a deck.
    enum Format {
        /// To be told by the deck's content. The name of the file does not matter.
        kRecognise = 0,
        /// Abaqus input deck.
        kAbaqus = 1,
        /// Nastran bulk data.
        kNastran = 2
    };

    /// Where a node, element or property of the new deck comes from.
    struct OriginData {
        /// Its number in the new deck.
        int id;
        /// Its number in the original.
        int originalId;
        /// Name of the instance or part that it belongs to in the original; empty without one.
        char part[80];
        /// Path of the file that it stands in: the deck, or a file that the deck includes. A wide
        /// path is in UTF-8.
        char file[1024];
    };

    /// Makes a tidy that has seen no deck.
    CKVODeckTidy();
    ~CKVODeckTidy();
    CKVODeckTidy(const CKVODeckTidy&) = delete;
    CKVODeckTidy& operator=(const CKVODeckTidy&) = delete;

    /// Rewrites the deck at `inPath` as a new file at `outPath`; with a null `outPath` the deck is
    /// only examined. A deck in which nothing needs to be changed is copied byte by byte. Files
    /// that the deck includes are read, wherever they are.
    ///
    /// Returns true only if the reader will find in the new deck everything that it can hold of the
    /// original. Otherwise nothing is written, an older file at `outPath` stays, and the report
    /// says why (`GetFailure`). The file at `outPath` is the old one or the whole new one at any
    /// time; it must be none of the files that are read.
    ///
    /// `format` is `kRecognise`, `kAbaqus` or `kNastran`. `report` may be null. Of its findings,
    /// notes tell what was done, warnings and errors what could not be done. Their places are those
    /// of the original. After a call that returns false, `IsNeeded` returns false, and there are no
    /// origins.
    bool Tidy(const char* inPath, const char* outPath, int format, CKVOImportReport* report);
    /// The same for wide paths, which are UTF-8 encoded off Windows.
    bool Tidy(const wchar_t* inPath, const wchar_t* outPath, int format, CKVOImportReport* report);

    /// Returns whether the last deck had to be changed. Where not, a host may import the original.
    bool IsNeeded();
    /// Returns the format of the last deck, or `kRecognise` where it could not be told.
    int GetFormat();
    /// Returns by how much the coordinate of a node in the last deck differs most from its place in
    /// the new one, in the deck's length unit.
    double GetDeviation();

    /// Returns the number of nodes of the new deck.
    long long GetNodeOriginNum();
    /// Starts the walk over them. Returns false when there are none.
    bool GetNodeOriginBegin();
    /// Sets `out` to the next node's origin, in the order of the new deck. Returns false at the
    /// end, with `out` untouched.
    bool GetNodeOriginNext(OriginData* out);

    /// The same for elements.
    long long GetElemOriginNum();
    bool GetElemOriginBegin();
    bool GetElemOriginNext(OriginData* out);

    /// The same for properties. Abaqus decks have none.
    long long GetPropertyOriginNum();
    bool GetPropertyOriginBegin();
    bool GetPropertyOriginNext(OriginData* out);

    /// Writes all origins as a table: a header line, then a line each of nodes, elements and
    /// properties, with the cells kind ("node", "element", "property"), id, original id, part and
    /// file, separated by tabs. Returns false, with nothing written, when the disk refuses it, and
    /// for a file that `IsSource` tells.
    bool WriteMap(const char* path);
    /// The same for a wide path.
    bool WriteMap(const wchar_t* path);

    /// Returns whether the file at `path` is the last deck or a file that it includes, which a host
    /// had better not replace. After a call of `Tidy` that returns false there are none.
    bool IsSource(const char* path);
    /// The same for a wide path.
    bool IsSource(const wchar_t* path);

  private:
    kvocaeio::tidy::TidyState* state;
};

#endif
