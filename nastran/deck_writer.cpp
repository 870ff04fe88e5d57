/// Starts and closes a written deck.
#include "nastran/deck_writer.h"

#include <exception>

#include "nastran/card_writer.h"

namespace kvocaeio::nastran {

void closeDeck(NastranWriterState& state) {
    state.deck.reset();
    state.stream.reset();
}

bool startDeck(const char* path, const char* unit, NastranWriterState& state) {
    closeDeck(state);
    try {
        state.path = path;
        state.unit = unit;
        state.stream = text::openFile(path, "w");
        if (state.stream == nullptr)
            return false;
        writeHeader(state.deck.emplace(state.stream.get()), state.unit);
        closeDeck(state);
        state.stream = text::openFile(path, "a+");
        if (state.stream != nullptr)
            state.deck.emplace(state.stream.get());
        return true;
    } catch (const std::exception&) {  // memory ran out
        closeDeck(state);
        return false;
    }
}

}  // namespace kvocaeio::nastran
