/// The road of one deck through the library: import, raw walks, normalisation, normalised walks.
#include "abaqus/deck.h"

#include <new>
#include <stdexcept>

#include "c_file.h"
#include "file_report.h"
#include "timed.h"
#include <kvocaeio/report.h>

namespace kvocaeio::host {

namespace {

/// Why the import refused a file that could be read before.
[[noreturn]] void throwImportFailure(const std::string& path) {
    if (openFile(path, "r+b"))
        throw std::bad_alloc();
    throw FileError("cannot be opened for reading and writing: " + systemFailure() +
                    " (a deck must be writable, although it is never changed)");
}

}  // namespace

std::string sortFailureOf(CKVOAbaqusReader& reader, CKVOImportReport& report) {
    try {
        reader.SortData(&report);
        return "";
    } catch (const std::length_error& error) {
        return std::string(
                   "a generated set ends before it starts, or sets ask for too many rows (") +
               error.what() + ")";
    } catch (const std::bad_alloc&) {
        return "there is not enough memory";
    }
}

AbaqusDeck::AbaqusDeck(const std::string& path, PrintTarget progress) {
    CKVOImportReport report;
    bool isImported = false;
    importSeconds =
        timed(progress, [&] { isImported = reader_.ImportInpFile(path.c_str(), &report); });
    if (!isImported)
        throwImportFailure(path);
    listed.take(report, isImported);
    tables = takeRawTables(reader_);
    if (tables.nodeIds.empty() && tables.raw.empty() && tables.thicknesses.empty())
        throw FileError("holds no nodes, no elements and no shell sections of an Abaqus deck",
                        "nothing-read");
    normalisationSeconds = timed(progress, [&] { sortFailure = sortFailureOf(reader_, report); });
    imported = listed;
    imported.take(report, true);
    if (sortFailure.empty())
        takeNormalisedTables(reader_, tables);
}

}  // namespace kvocaeio::host
