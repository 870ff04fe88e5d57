/// The exported writer and the deck that its copies share.
#include <cstddef>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "nastran/card_writer.h"
#include "text/file.h"
#include "text/format.h"
#include <kvocaeio/nastran.h>

namespace kvocaeio {

struct NastranWriterState {
    std::string path;
    std::string unit;
    text::File stream;
    std::optional<text::Writer> deck;  // open as long as there is one
    int writers = 1;

    void close() {
        deck.reset();
        stream.reset();
    }
};

namespace {

// Creates the file with its header, then opens it again to append to. False when it cannot be
// created; whether it could be opened again shows only in `deck`.
bool startDeck(NastranWriterState& state) {
    state.stream = text::openFile(state.path.c_str(), "w");
    if (state.stream == nullptr)
        return false;
    writeHeader(state.deck.emplace(state.stream.get()), state.unit);
    state.close();
    state.stream = text::openFile(state.path.c_str(), "a+");
    if (state.stream != nullptr)
        state.deck.emplace(state.stream.get());
    return true;
}

}  // namespace

}  // namespace kvocaeio

KVONASTRAN_Writer::KVONASTRAN_Writer() : state(new kvocaeio::NastranWriterState) {}

KVONASTRAN_Writer::KVONASTRAN_Writer(const KVONASTRAN_Writer& other) : state(other.state) {
    ++state->writers;
}

KVONASTRAN_Writer& KVONASTRAN_Writer::operator=(const KVONASTRAN_Writer& other) {
    KVONASTRAN_Writer copy(other);
    std::swap(state, copy.state);
    return *this;
}

KVONASTRAN_Writer::~KVONASTRAN_Writer() {
    if (--state->writers == 0)
        delete state;
}

bool KVONASTRAN_Writer::SetFilePath(const char* path) {
    return SetFilePath(path, "mm");
}

bool KVONASTRAN_Writer::SetFilePath(const char* path, const char* unit) {
    if (path == nullptr || unit == nullptr)
        return false;
    try {
        state->close();
        state->path = path;
        state->unit = unit;
        return kvocaeio::startDeck(*state);
    } catch (const std::exception&) {  // memory ran out
        state->close();
        return false;
    }
}

bool KVONASTRAN_Writer::AddNode(int id, double x, double y, double z) {
    if (!state->deck)
        return false;
    kvocaeio::writeGrid(*state->deck, id, x, y, z);
    return true;
}

bool KVONASTRAN_Writer::AddSection(int id, int) {
    if (!state->deck)
        return false;
    kvocaeio::writeSolidSection(*state->deck, id);
    return true;
}

bool KVONASTRAN_Writer::AddElement(int id, int section, int nodeCount, int* const nodes) {
    if (!state->deck || (nodeCount != 4 && nodeCount != 6 && nodeCount != 8))
        return false;
    kvocaeio::writeElement(*state->deck, id, section,
                           std::span<const int>(nodes, static_cast<std::size_t>(nodeCount)));
    return true;
}

bool KVONASTRAN_Writer::WriteStringEntry(char* text) {
    if (!state->deck)
        return false;
    state->deck->text(text);
    return true;
}

bool KVONASTRAN_Writer::EndWriting() {
    if (!state->deck)
        return false;
    kvocaeio::writeFooter(*state->deck);
    state->close();
    return true;
}
