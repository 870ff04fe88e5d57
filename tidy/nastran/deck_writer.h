/// The cards of a deck, written in the form that the reader takes whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "tidy/deck.h"
#include "tidy/nastran/card_reader.h"
#include "tidy/nastran/deck_content.h"
#include "tidy/nastran/output_card.h"
#include "tidy/output_file.h"
#include "tidy/source_files.h"

namespace kvocaeio::tidy::nastran {

class DeckWriter {
  public:
    DeckWriter(const SourceFiles& sources, CardReader& cards, DeckContent& content, OutputFile& out,
               Outcome& outcome)
        : sources_(sources), cards_(cards), content_(content), out_(out), outcome_(outcome) {}

    void begin();
    /// Writes the card that was read last, if the new deck has it, and tells what becomes of it.
    void writeCard();
    void finish();

  private:
    const Card& card() const { return cards_.card(); }
    void tellForm();
    std::uint32_t source();
    int numberOf(const Numbering& numbers, int number, std::size_t field);

    void writeGrid();
    void putCoordinate(std::size_t field, double value);
    void writeElement();
    bool readCorners(int number);
    void putElement(int number, int property);
    void putHexa(int number, int property);
    void tellMidSideNodes();
    void writeProperty();
    void putMaterial();
    void putValue();
    void putArea();
    void putReal(double value);

    const SourceFiles& sources_;
    CardReader& cards_;
    DeckContent& content_;
    OutputFile& out_;
    Outcome& outcome_;
    OutputCard line_;
    std::vector<int> corners_;
    int propertyRows_ = 0;
    std::vector<std::int64_t> rowsOfSources_;  // by file; -1 for none yet
};

}  // namespace kvocaeio::tidy::nastran
