/// The order of the passes over a Nastran deck.
#include "tidy/nastran/rewrite.h"

#include <utility>
#include <vector>

#include "tidy/nastran/deck_content.h"
#include "tidy/nastran/deck_writer.h"
#include "tidy/nastran/plain_deck.h"
#include "tidy/source_files.h"

namespace kvocaeio::tidy::nastran {

namespace {

// Shells of a plain deck, which are noted once it is known to be one.
struct NotedShell {
    std::size_t line;
    std::string_view name;  // of a table
};

void noteShells(const std::vector<NotedShell>& shells, const Deck& deck,
                const text::Listener& listener) {
    if (shells.empty())
        return;
    listener.findings->beginFile(deck.name);
    for (const NotedShell& shell : shells)
        listener.findings->note(rowOf(Finding::kShell), shell.line, 1, shell.name, shell.name);
}

void addOrigin(const PlainDeck& plain, std::uint32_t source, Origins& origins) {
    const Origin origin{plain.number(), plain.number(), source};
    if (plain.thing() == PlainDeck::Thing::kNode)
        origins.nodes.add(origin);
    else if (plain.thing() == PlainDeck::Thing::kProperty)
        origins.properties.add(origin);
    else
        origins.elements.add(origin);
}

// Looks whether the deck is plain. Its origins are kept only then.
bool isPlain(const Deck& deck, Outcome& outcome, const text::Listener& listener) {
    SourceFiles sources(deck, listener.withoutFindings());
    if (!sources.open())
        return false;
    PlainDeck plain;
    Outcome found;
    const std::uint32_t source = found.origins.sourceOf({}, deck.name);
    std::vector<NotedShell> shells;
    while (sources.next()) {
        if (sources.hasByteOrderMark() || sources.hasReturnsAlone() || !plain.take(sources.line()))
            return false;
        if (plain.thing() == PlainDeck::Thing::kNone)
            continue;
        if (!sources.hasLineEnd())
            return false;  // the reader does not fill such a line with blanks
        addOrigin(plain, source, found.origins);
        if (plain.thing() == PlainDeck::Thing::kShell && listener.findings != nullptr)
            shells.push_back({sources.lineNumber(), plain.name()});
    }
    if (!plain.isWhole() || sources.isIncomplete())
        return false;
    found.files = sources.opened();
    outcome = std::move(found);
    noteShells(shells, deck, listener);
    return true;
}

bool writeDeck(const Deck& deck, DeckContent& content, OutputFile& out, Outcome& outcome,
               const text::Listener& listener) {
    SourceFiles sources(deck, listener);
    if (!sources.open())
        return false;
    CardReader cards(sources, content.strayLines);
    if (content.hasControl)
        cards.skipControl();
    DeckWriter writer(sources, cards, content, out, outcome);
    writer.begin();
    while (cards.next())
        writer.writeCard();
    writer.finish();
    outcome.files = sources.opened();
    bool isWhole = !cards.isIncomplete();
    if (isWhole && outcome.origins.nodes.count() == 0) {
        listener.note(Finding::kNoNodes, {});
        isWhole = false;
    } else if (isWhole && outcome.origins.elements.count() == 0) {
        listener.note(Finding::kNoElements, {});
        isWhole = false;
    }
    return isWhole;
}

}  // namespace

bool rewriteDeck(const Deck& deck, OutputFile& out, Outcome& outcome,
                 const text::Listener& listener) {
    if (isPlain(deck, outcome, listener))
        return true;
    outcome.isNeeded = true;
    DeckContent content;
    scanDeck(deck, listener.withoutFindings(), content);
    return writeDeck(deck, content, out, outcome, listener);
}

}  // namespace kvocaeio::tidy::nastran
