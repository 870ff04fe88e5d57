/// What must be known of a deck before its cards can be written.
#pragma once

#include "text/findings.h"
#include "tidy/deck.h"
#include "tidy/nastran/card_reader.h"
#include "tidy/nastran/frames.h"
#include "tidy/nastran/numbering.h"

namespace kvocaeio::tidy::nastran {

struct DeckContent {
    StrayLines strayLines;
    Numbering nodes;
    Numbering elements;
    PropertyNumbering properties;
    FrameTable frames;
    int defaultFrame = 0;     ///< of grid points whose coordinate system is blank
    bool hasControl = false;  ///< sections before a `BEGIN`, which have no cards

    /// Forgets all cards.
    void forgetCards() {
        nodes = elements = {};
        properties.clear();
        frames.clear();
        defaultFrame = 0;
    }
};

/// Reads the number of a card. False for anything but an integer from 1 to the largest int.
bool readNumber(std::string_view field, int& number);

/// Reads the coordinate system of a grid point; blank is `ifBlank`.
bool readFrameNumber(std::string_view field, int ifBlank, int& number);

/// Reads three coordinates from field `first` on; blank is 0. Returns how many could be read.
std::size_t readPoint(const Card& card, std::size_t first, Point& point);

/// Goes through the deck, more than once where that is needed. Nothing is noted: the cards are read
/// again when they are written. False where the deck cannot be opened.
bool scanDeck(const Deck& deck, const text::Listener& listener, DeckContent& content);

}  // namespace kvocaeio::tidy::nastran
