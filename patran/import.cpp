/// Two passes over a file: the first looks for the highest node id, the second stores.
#include "patran/import.h"

#include <algorithm>
#include <cerrno>
#include <exception>
#include <string>

#include "patran/audit.h"
#include "patran/packet_notes.h"
#include "patran/packets.h"
#include "text/listened_file.h"

namespace kvocaeio::patran {

namespace {

// Where the bridge's first pass skips data cards, longer pieces of a line count as one.
constexpr std::size_t kSkippedLineBound = 260;

// The pass that stores, for either mesh. Returns whether there is a packet 99.
template <class Mesh>
bool readPackets(PacketLines& lines, IdMap& nodeIds, Mesh& mesh) {
    PacketCounts read;
    PacketNotes notes(lines);
    const bool foundEnd = lines.forEachPacket([&] {
        switch (lines.header.it) {
            case kNodePacket:
                if (notes.isCounted(read.nodes, mesh.nodeCount))
                    readNode(lines, read.nodes++, nodeIds, mesh);
                return true;
            case kElementPacket:
                if (notes.isCounted(read.elements, mesh.elementCount))
                    readElement(lines, read.elements++, nodeIds, mesh);
                return true;
            case kPropertyPacket:
                if (notes.isCounted(read.properties, mesh.propertyCount)) {
                    readProperty(lines, mesh);
                    ++read.properties;
                }
                return true;
            case kTitlePacket:
                notes.header();
                lines.nextCard();
                return true;
            case kSummaryPacket:
                notes.header();
                readSummary(lines, mesh);
                return true;
            default:
                notes.header();
                return false;
        }
    });
    notes.end(foundEnd, read, {mesh.nodeCount, mesh.elementCount, mesh.propertyCount});
    return foundEnd;
}

void reportEndOfFile(bool foundEndPacket, const text::Listener& listener) {
    if (!foundEndPacket && !listener.hasStopped() && !listener.isQuiet)
        std::printf("We have reached end-of-file\n");
}

void noteEarlierMesh(ListMesh& mesh, const text::Listener& listener) {
    if (!mesh.nodes.empty() || !mesh.elements.empty())
        listener.note(Finding::kImportAppended, std::to_string(mesh.nodes.size()) + " nodes, " +
                                                    std::to_string(mesh.elements.size()) +
                                                    " elements");
    mesh.storedIds.nodes.clear();
    mesh.storedIds.elements.clear();
}

// Empties the lists, since corners may still be node ids.
void clear(ListMesh& mesh) noexcept {
    mesh.nodes.clear();
    mesh.elements.clear();
    mesh.elementPropertyIds.clear();
    mesh.propertyTypes.clear();
    mesh.elementShapes.clear();
    mesh.propertyValueA.clear();
    mesh.propertyValueB.clear();
    mesh.propertyValueC.clear();
    mesh.storedIds = {};
}

}  // namespace

int findMaxNodeId(std::FILE* file, const text::Listener& listener) {
    PacketLines lines(file, listener, kSkippedLineBound);
    int highest = 0;
    lines.forEachPacket([&] {
        if (lines.header.it == kNodePacket)
            highest = std::max(highest, lines.header.id);
        return false;
    });
    return highest;
}

int findNodeDimension(std::FILE* file, const text::Listener& listener) {
    PacketLines lines(file, listener);
    int highest = 0;
    int nodes = 0;
    int nodeCount = 0;
    const bool foundEnd = lines.forEachPacket([&] {
        switch (lines.header.it) {
            case kNodePacket:
                if (nodes < nodeCount) {
                    highest = std::max(highest, lines.header.id);
                    lines.skip(2);
                    ++nodes;
                }
                return true;
            case kTitlePacket:
                lines.nextCard();
                return true;
            case kSummaryPacket:
                nodeCount = lines.header.n1;
                lines.nextCard();
                return true;
            default:
                return false;
        }
    });
    reportEndOfFile(foundEnd, listener);
    return highest;
}

bool importLists(std::FILE* file, const text::Listener& listener, ListMesh& mesh) noexcept {
    try {
        const std::size_t nodesBefore = mesh.nodes.size();
        const std::size_t elementsBefore = mesh.elements.size();
        noteEarlierMesh(mesh, listener);
        const long start = std::ftell(file);
        IdMap nodeIds(findMaxNodeId(file, listener.withoutFindings()));
        const bool goesOn = start >= 0 && std::fseek(file, start, SEEK_SET) == 0;
        if (goesOn) {
            PacketLines lines(file, listener);
            readPackets(lines, nodeIds, mesh);
        } else if (listener.findings != nullptr) {
            text::noteFailure(*listener.findings, text::FileFinding::kChanged, errno);
        }
        if (goesOn && !listener.hasStopped()) {
            if (listener.findings != nullptr) [[unlikely]]
                auditLists(nodeIds, mesh, {nodesBefore, elementsBefore}, *listener.findings);
            for (std::array<int, 4>& corners : mesh.elements)
                for (int& corner : corners)
                    corner = nodeIds.at(corner);
            return true;
        }
    } catch (const std::exception&) {
        listener.note(text::FileFinding::kOutOfMemory, {});
    }
    clear(mesh);
    return false;
}

bool importFlat(const char* path, const text::Listener& listener, IdMap& nodeIds,
                FlatMesh& mesh) noexcept {
    const text::File file = text::openFile(path, "rb", listener);
    if (file == nullptr) {
        std::printf("File Not Found : %s\n", path);
        return false;
    }
    return importFlat(file.get(), listener, nodeIds, mesh);
}

bool importFlat(std::FILE* file, const text::Listener& listener, IdMap& nodeIds,
                FlatMesh& mesh) noexcept {
    try {
        nodeIds = IdMap(findNodeDimension(file, listener.withoutFindings()));
        if (!text::rewindFile(file, listener))
            return false;
        PacketLines lines(file, listener);
        reportEndOfFile(readPackets(lines, nodeIds, mesh), listener);
        return !listener.hasStopped();
    } catch (const std::exception&) {
        listener.note(text::FileFinding::kOutOfMemory, {});
        return false;
    }
}

}  // namespace kvocaeio::patran
