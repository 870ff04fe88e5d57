/// The exported writer.
#include <cstddef>
#include <span>
#include <utility>

#include "nastran/deck_writer.h"
#include <kvocaeio/nastran.h>

using namespace kvocaeio;

KVONASTRAN_Writer::KVONASTRAN_Writer() : state(new nastran::NastranWriterState) {}

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
    return path != nullptr && unit != nullptr && nastran::startDeck(path, unit, *state);
}

bool KVONASTRAN_Writer::AddNode(int id, double x, double y, double z) {
    if (!state->deck)
        return false;
    nastran::writeGrid(*state->deck, id, x, y, z);
    return true;
}

bool KVONASTRAN_Writer::AddSection(int id, int) {
    if (!state->deck)
        return false;
    nastran::writeSolidSection(*state->deck, id);
    return true;
}

bool KVONASTRAN_Writer::AddElement(int id, int section, int nodeCount, int* const nodes) {
    if (!state->deck || (nodeCount != 4 && nodeCount != 6 && nodeCount != 8))
        return false;
    nastran::writeElement(*state->deck, id, section,
                          std::span<const int>(nodes, static_cast<std::size_t>(nodeCount)));
    return true;
}

bool KVONASTRAN_Writer::WriteStringEntry(char* entry) {
    if (!state->deck)
        return false;
    state->deck->text(entry);
    return true;
}

bool KVONASTRAN_Writer::EndWriting() {
    if (!state->deck)
        return false;
    nastran::writeFooter(*state->deck);
    state->close();
    return true;
}
