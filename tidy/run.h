/// One tidy run: a deck is told by its content, rewritten, and put where it is wanted.
#pragma once

#include <filesystem>

#include "text/findings.h"
#include "tidy/deck.h"
#include "tidy/format.h"

namespace kvocaeio::tidy {

/// Rewrites `deck` as a new file at `target`, or only examines it where that is null. A `format`
/// that is unknown is set to that of the content. False, with an empty outcome, where it cannot be
/// rewritten; the listener hears why.
bool runTidy(const Deck& deck, const std::filesystem::path* target, DeckFormat& format,
             Outcome& outcome, const text::Listener& listener) noexcept;

}  // namespace kvocaeio::tidy
