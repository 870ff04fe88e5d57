/// The order of an import by either reader: first the highest node id, then the packets.
#pragma once

#include <cstdio>

#include "patran/id_map.h"
#include "patran/model.h"
#include "text/findings.h"

namespace kvocaeio::patran {

/// Appends an open file to the lists, from where it stands. False where memory cannot be allocated,
/// the file cannot be gone through twice, or the host stops the import: the lists are empty then,
/// and the counts those read last.
bool importLists(std::FILE* file, const text::Listener& listener, ListMesh& mesh) noexcept;

/// Reads a file into new arrays, its node ids into a new map. False where it cannot be opened
/// or gone through twice, memory cannot be allocated, or the host stops the import: both must not
/// be used then. Prints a message where there is no file, and where either pass finds no packet 99.
bool importFlat(const char* path, const text::Listener& listener, IdMap& nodeIds,
                FlatMesh& mesh) noexcept;

/// The same of a file that is open, at its beginning.
bool importFlat(std::FILE* file, const text::Listener& listener, IdMap& nodeIds,
                FlatMesh& mesh) noexcept;

/// The highest id of all node packets, 0 at least. Throws where memory cannot be allocated, as
/// `findNodeDimension` does.
int findMaxNodeId(std::FILE* file, const text::Listener& listener);

/// The highest id of the nodes that the summary counts, 0 at least. Prints a message where there is
/// no packet 99.
int findNodeDimension(std::FILE* file, const text::Listener& listener);

/// The reader behind the exported bridge. Nobody listens to its imports.
class CKVO_PatranIO {
  public:
    virtual ~CKVO_PatranIO() = default;

    bool ReadPackets(std::FILE* file, const text::Listener& listener = {}) noexcept {
        return importLists(file, listener, mesh);
    }
    static int FindMaxNodeId(std::FILE* file) { return findMaxNodeId(file, {}); }

    ListMesh mesh;
};

}  // namespace kvocaeio::patran
