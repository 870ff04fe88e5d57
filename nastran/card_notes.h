/// Tells what becomes of the cards of a deck while they are read, to somebody who listens.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "nastran/card.h"
#include "nastran/card_layout.h"
#include "nastran/lines.h"
#include "nastran/model.h"

namespace kvocaeio::nastran {

/// Costs nothing where nobody listens: its calls stand in branches that are not taken then. What it
/// tells goes by what the reader has read, and where in the line it has read that.
class CardNotes {
  public:
    /// All are borrowed. `tables` are those that the cards will be stored in.
    CardNotes(CardLines& lines, CardReader& reader, DeckTables& tables)
        : lines_(lines), reader_(reader), tables_(tables) {}

    /// To be called for each card, before it is stored.
    void hear(const ReadCard& read) noexcept;
    /// To be called when the tables are made: `sections` are all property cards.
    void finish(std::span<const SectionRow> sections);

  private:
    static constexpr std::size_t kFirstLineNumbers = 8;

    // Where the numbers of a card stand by the rules of the format.
    struct Fields {
        LineLayout first;
        LineLayout second;
        std::string_view operator[](std::size_t number) const {
            return number < kFirstLineNumbers ? first.fields[1 + number]
                                              : second.fields[1 + number - kFirstLineNumbers];
        }
    };
    Fields fields() const;

    void makeRowSets();
    void hearSecondLine();
    void hearCard(const ReadCard& read);
    void hearByOtherName(const CardRule& rule, std::string_view name);
    void hearShell(std::string_view name);
    void hearNode();
    void hearElement(const CardRule& rule);
    void hearMoreNodes(const CardRule& rule);
    void hearProperty(const CardRule& rule);
    void hearRow(const CardRule& rule);
    void hearLargeContinuation();
    void hearOther(const CardRule* readAs);

    bool noteMisread(const ReadCard& read);
    Finding misreadKind(const Fields& fields, std::size_t number, bool isRead) const;
    bool isField(std::string_view field, const NumberOrigin& origin, double value) const;
    double valueOf(const CardRule& rule, std::size_t number) const;
    std::size_t numbersOf(const CardRule& rule) const;
    bool changesRow(const CardRule& rule);
    std::size_t row() const { return text::asSize(reader_.numbers().ints[0]) - 1; }
    bool hasRow(const CardRule& rule) const;
    RowSet& rowsOf(const CardRule& rule) {
        return rule.code == CardCode::kGrid ? tables_.nodeRows : tables_.elementRows;
    }

    CardLines& lines_;
    CardReader& reader_;
    DeckTables& tables_;
    CardText normalised_;
    bool isBegun_ = false;
    bool hasEnded_ = false;             // `ENDDATA` was there
    bool isSecondRead_ = true;          // the second line of the card is its own
    const CardRule* parent_ = nullptr;  // of the continuations that may follow
    bool isParentLarge_ = false;
    bool isToldOfMore_ = false;  // and whether it was told that they are not read
    bool isIncomplete_ = false;
};

}  // namespace kvocaeio::nastran
