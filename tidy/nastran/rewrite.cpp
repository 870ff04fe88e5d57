/// The order of the passes over a Nastran deck.
#include "tidy/nastran/rewrite.h"

#include "tidy/findings.h"

namespace kvocaeio::tidy::nastran {

bool rewriteDeck(const Deck&, OutputFile&, Outcome&, const text::Listener& listener) {
    listener.note(Finding::kFormatNotRead, {});
    return false;
}

}  // namespace kvocaeio::tidy::nastran
