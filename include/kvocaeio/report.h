/// The report of an import: what of a file was read, and what was not.
#ifndef KVOCAEIO_REPORT_H
#define KVOCAEIO_REPORT_H

#include <kvocaeio/export.h>

namespace kvocaeio {
namespace report {
struct Access;
struct ImportReport;
}  // namespace report
}  // namespace kvocaeio

/// Tells what an import passes over, changes or cannot read. The readers return true whatever a
/// file holds; handed to an import beside the path, a report says what became of the rest.
///
///     CKVOImportReport report;
///     CKVOAbaqusReader reader;
///     bool imported = reader.ImportInpFile("part.inp", &report);
///     CKVOImportReport::FindingData finding;
///     for (report.GetFindingBegin(); report.GetFindingNext(&finding);)
///         std::printf("%s:%lld: %s\n", finding.file, finding.line, finding.text);
///
/// Every import empties the report and fills it anew; `SortData` adds to what is there. The tables
/// of the reader are the same with and without a report.
///
/// Equal findings are one: it has a count and the first places, at most eight. What a report holds
/// stays below 1 MiB, whatever the file. docs/findings.md lists all codes.
///
/// Ownership: the caller allocates the records; texts are copied into them, cut to their capacity.
/// A report keeps nothing of the reader, and the reader nothing of the report.
///
/// Threads: a report serves one thread at a time. Only the constructor throws: `std::bad_alloc`,
/// when memory runs out. No accessor checks its pointer arguments. Nothing is printed.
class KVOCAEIO_API CKVOImportReport {
  public:
    /// What a finding means for the model that the reader hands out.
    enum Severity {
        /// Passed over as designed; nothing of the mesh is concerned.
        kNote = 0,
        /// Something of the model is lost or changed.
        kWarning = 1,
        /// What follows is not read, or the result is surely not what the file means.
        kError = 2
    };

    /// One finding, with its first place.
    struct FindingData {
        /// `kNote`, `kWarning` or `kError`.
        int severity;
        /// Column of the first place, in bytes from 1, in the line as it stands in the file; 0
        /// where no field is concerned.
        int column;
        /// Line of the first place, from 1; 0 where no line is concerned.
        long long line;
        /// How often it was found.
        long long count;
        /// Number of places that `GetPlaceNext` returns, at most 8.
        int placeNum;
        /// The stable code in words, such as "nastran.exponent-torn".
        char code[64];
        /// What was found, in a sentence without a full stop.
        char text[512];
        /// What to do about it, likewise; empty where nothing helps.
        char advice[512];
        /// Path of the file, as handed in (a wide one in UTF-8), cut to 1023 bytes.
        char file[1024];
    };

    /// One place of a finding.
    struct PlaceData {
        /// Column in bytes, from 1; 0 where no field is concerned.
        int column;
        /// Line, from 1; 0 where no line is concerned.
        long long line;
        /// The line or field as it stands in the file, or what else names the place (an OID, a
        /// set), cut to 80 bytes. Control characters are replaced by dots.
        char text[81];
        /// Path of the file, as in `FindingData`.
        char file[1024];
    };

    /// One count of what was read.
    struct CountData {
        /// What is counted, such as "nodes" or "element sections".
        char name[64];
        /// How many the walks of the reader return.
        long long count;
    };

    /// Makes an empty report.
    CKVOImportReport();
    ~CKVOImportReport();
    CKVOImportReport(const CKVOImportReport&) = delete;
    CKVOImportReport& operator=(const CKVOImportReport&) = delete;

    /// Forgets all findings and counts.
    void Clear();

    /// Returns the number of findings that differ in code or in what they are about.
    int GetFindingNum();
    /// Starts the walk over the findings. Returns false when there are none.
    bool GetFindingBegin();
    /// Sets `out` to the next finding, in the order in which they were first noticed, and starts
    /// the walk over its places. Returns false at the end, with `out` untouched.
    bool GetFindingNext(FindingData* out);
    /// Sets `out` to the next place of the finding that `GetFindingNext` has returned. Returns
    /// false after the last one that is kept, with `out` untouched.
    bool GetPlaceNext(PlaceData* out);

    /// Returns how often findings of `severity` were found.
    long long GetSeverityCount(int severity);
    /// Returns how often findings of `code` were found; 0 for a code that was not.
    long long GetCodeCount(const char* code);

    /// Returns false when the import that filled this report returned true, or none has. Otherwise
    /// returns true, and sets `out` to the finding that says why it returned false.
    bool GetFailure(FindingData* out);

    /// Returns the number of counts of what was read.
    int GetCountNum();
    /// Starts the walk over the counts. Returns false when there are none.
    bool GetCountBegin();
    /// Sets `out` to the next count. Returns false at the end, with `out` untouched.
    bool GetCountNext(CountData* out);

  private:
    friend struct kvocaeio::report::Access;

    kvocaeio::report::ImportReport* impl;
    int findingCursor;
    int placeCursor;
    int countCursor;
};

#endif
