/// The cards of a deck, with their continuations, replications and included files.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "tidy/nastran/card.h"
#include "tidy/nastran/fields.h"
#include "tidy/nastran/findings.h"
#include "tidy/source_files.h"

namespace kvocaeio::tidy::nastran {

/// Continuations that do not follow their card. The first pass over a deck collects them; the
/// passes after it find them here.
struct StrayLines {
    struct Line {
        std::string text;
        LineInFile place;
    };
    std::unordered_map<std::string, Line> byMark;
    std::vector<std::filesystem::path> files;  ///< of their places
    bool areWanted = false;                    ///< a card needs one
    bool areKnown = false;                     ///< the first pass is over
};

/// Reads the cards of one pass, in the order in which they are meant.
class CardReader {
  public:
    /// What replication may make in one deck.
    static constexpr std::size_t kMostReplicas = 10'000'000;

    CardReader(SourceFiles& sources, StrayLines& strayLines)
        : sources_(sources), strayLines_(strayLines) {}

    /// Takes the next card, known or not. False at the end of the deck.
    bool next();

    const Card& card() const { return cards_[current_]; }
    /// Whether the deck's bulk data has begun, so that what is not known is a card.
    bool isInBulk() const { return isInBulk_; }
    /// Whether the control sections have ended with a `BEGIN`, so that nothing before it is a card.
    bool hasLeftControl() const { return hasLeftControl_; }
    /// Passes over all before that `BEGIN`, which is known to come.
    void skipControl() { skipsControl_ = true; }

    /// Notes a field of the card, or its first line where it has no such field.
    void note(Finding finding, std::size_t field, std::string_view subject = {});
    void note(Finding finding, std::string_view subject = {});
    /// The same, and the deck cannot be rewritten.
    void fail(Finding finding, std::size_t field, std::string_view subject = {});

    /// Whether something was found that makes the deck incomplete.
    bool isIncomplete() const { return isIncomplete_ || sources_.isIncomplete(); }

  private:
    bool takeLine();
    bool takeStatement();
    void takeInclude(std::string_view rest);
    void takeBegin(std::string_view line);
    LineInFile lineInFile() const { return {sources_.fileRow(), sources_.lineNumber()}; }

    void readCard(Card& card);
    void keepMark(const SplitLine& line);
    void addContinuations(Card& card);
    bool belongsToLast(std::string_view field) const;
    void keepStray();
    bool addStrayLines(Card& card);

    bool readReplication();
    bool hasLastValues() const;
    bool replicate();
    bool replicateField(std::string_view before, std::string_view text, Card& card) const;
    bool moveField(std::string_view before, std::string_view text, Card& card) const;
    bool refuseReplication();

    SourceFiles& sources_;
    StrayLines& strayLines_;
    LineSplitter splitter_;
    LineSplitter straySplitter_;
    const SplitLine* line_ = nullptr;  // the line taken last
    bool isHeld_ = false;              // it will be taken again
    std::array<Card, 2> cards_;        // the present one and the one before
    std::size_t current_ = 0;
    std::string lastMark_;                   // of the line before
    bool isMarkSigned_ = false;              // it begins with a plus sign or a star
    std::unordered_set<std::string> unmet_;  // marks of cards whose continuation did not follow
    Card template_;                          // of the last replication
    bool hasTemplate_ = false;
    bool hasCard_ = false;
    long long repeats_ = 0;   // cards that it still makes
    LineInFile replication_;  // the line that asked for them
    std::size_t replicas_ = 0;
    bool isInBulk_ = false;
    bool hasControl_ = false;
    bool hasLeftControl_ = false;
    bool skipsControl_ = false;
    bool isIncomplete_ = false;
};

}  // namespace kvocaeio::tidy::nastran
