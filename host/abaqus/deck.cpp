/// The road of one deck through the library: import, raw walks, normalisation, normalised walks.
#include "abaqus/deck.h"

#include <new>
#include <stdexcept>

#include "c_file.h"
#include "file_report.h"
#include "timed.h"

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

AbaqusDeck::AbaqusDeck(const std::string& path, PrintTarget progress) {
    bool imported = false;
    importSeconds = timed(progress, [&] { imported = reader_.ImportInpFile(path.c_str()); });
    if (!imported)
        throwImportFailure(path);
    tables = takeRawTables(reader_);
    if (tables.nodeIds.empty() && tables.raw.empty() && tables.thicknesses.empty())
        throw FileError("holds no nodes, no elements and no shell sections of an Abaqus deck",
                        "nothing-read");
    try {
        normalisationSeconds = timed(progress, [&] { reader_.SortData(); });
        takeNormalisedTables(reader_, tables);
    } catch (const std::length_error& error) {
        sortFailure =
            std::string("a generated set ends before it starts, or sets ask for too many rows (") +
            error.what() + ")";
    } catch (const std::bad_alloc&) {
        sortFailure = "there is not enough memory";
    }
}

}  // namespace kvocaeio::host
