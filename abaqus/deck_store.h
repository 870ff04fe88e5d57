/// The sink of the second pass: stores what the first one counted.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "abaqus/element_type.h"
#include "abaqus/lines.h"
#include "abaqus/model.h"

namespace kvocaeio::abaqus {

/// The entry in hand of a table that is filled in its order.
template <class Entry>
class EntryInHand {
  public:
    /// Takes the table's next entry into the hand; after its end a spare one, which nobody reads.
    void takeFrom(std::vector<Entry>& table) {
        entry_ = taken_ < table.size() ? &table[taken_++] : &spare_;
    }
    Entry* operator->() { return entry_; }

  private:
    Entry spare_;
    Entry* entry_ = &spare_;
    std::size_t taken_ = 0;
};

/// Writes into tables that are sized already. A deck can change between the passes; whatever has no
/// place in the tables then is not stored, while the scanner goes on as if it were.
class DeckStore {
  public:
    /// Notes on `lines`, whose line in hand is the one handed in, what cannot be read of it.
    DeckStore(AbaqusModel& model, DeckLines& lines)
        : model_(model), lines_(lines), areNoted_(lines.areNoted()) {}

    // What the scanner calls. Values that cannot be read keep what stood there before.

    void beginNodes() {}
    void addNode(std::string_view line);
    void beginElements(std::string_view typeName, std::string_view elset, ElementType type);
    /// Takes up to `wanted` tokens of the element in hand from the line: the OID first, then its
    /// nodes. Returns the number taken.
    std::size_t addElementTokens(std::string_view line, std::size_t wanted);
    void repeatLastNumber(std::size_t count);
    void endElement();
    void beginElset(std::string_view name, bool generated);
    void addMembers(std::string_view line);
    void setRange(std::string_view line);
    void beginSurface(std::string_view type, std::string_view name);
    void addSurfaceItem(std::string_view line);
    void beginDload();
    void addLoad(std::string_view line);
    void beginShellSection(std::string_view material, std::string_view elset);
    void setThickness(std::string_view line);

  private:
    void storeElementNumber();
    const char* readOddNumber(const char* token, const char* end);

    // Findings of the line in hand (deck_store_notes.cpp).
    void noteNode(std::string_view line, std::size_t field, bool isWhole, std::string_view rest);
    void noteElementNumber(std::string_view field, bool isNumber, std::string_view rest);
    void noteElementFieldsBeyond(std::string_view rest);
    void noteMembers(std::string_view line);
    void noteRange(std::string_view line, std::size_t fields);
    void noteLoad(std::string_view oid, bool isNumber, std::string_view rest);
    void noteThickness(std::string_view line, bool isNumber, std::string_view rest);
    void noteFieldsBeyond(std::string_view rest, std::string_view keyword);
    bool noteKeywordInData(std::string_view line);

    AbaqusModel& model_;
    DeckLines& lines_;
    std::string folded_;
    std::size_t nodeRow_ = 0;

    // The element section in hand, and where the next node of its element in hand goes. One number
    // serves the whole section: a token that is none leaves it as it is.
    EntryInHand<ElemSection> elements_;
    std::size_t elementRow_ = 0;
    int* nextNode_ = nullptr;
    int* behindNodes_ = nullptr;
    int elementNumber_ = 0;
    bool oidTaken_ = false;

    EntryInHand<ElsetSection> elset_;
    EntryInHand<SurfaceSection> surface_;
    EntryInHand<DloadSection> dload_;
    double loadValue_ = 0.0;
    EntryInHand<ShellSection> shellSection_;
    double thickness_ = 0.0;
    int loadElement_ = 0;
    bool hasRange_ = false;
    bool hasThickness_ = false;
    const bool areNoted_;
};

}  // namespace kvocaeio::abaqus
