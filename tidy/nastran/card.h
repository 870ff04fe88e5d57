/// One card with all its lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tidy/nastran/card_table.h"
#include "tidy/nastran/fields.h"

namespace kvocaeio::tidy::nastran {

/// A line of a deck.
struct LineInFile {
    std::uint32_t file = 0;  ///< as `SourceFiles::fileRow`
    std::size_t line = 0;
};

/// A card in its logical form: its fields in their order, whatever lines and forms they stood in.
/// The texts are the card's own.
class Card {
  public:
    /// Fields beyond these are dropped; no card that is read has as many.
    static constexpr std::size_t kMostFields = 40;

    /// Begins a card with its first line. `name` is what stands in the first field.
    void begin(const SplitLine& line, LineInFile place);
    /// Adds a line's data fields.
    void add(const SplitLine& line, LineInFile place);
    /// Adds one field without a place of its own.
    void addText(std::string_view text);
    /// Becomes a card that is made of another one: it has its name, but no fields yet.
    void beginLike(const Card& other, LineInFile place);

    const CardRule* rule() const { return rule_; }
    std::string_view name() const { return name_; }
    std::size_t fieldCount() const {
        return isInColumns_ ? text_.size() / kColumns : fields_.size();
    }
    /// Data field `index` from 0; empty beyond the last one.
    std::string_view field(std::size_t index) const {
        if (index >= fieldCount())
            return {};
        if (isInColumns_)
            return trimmed(std::string_view(text_).substr(index * kColumns, kColumns));
        return std::string_view(text_).substr(fields_[index].begin, fields_[index].size);
    }
    /// Whether fewer fields were there than the card's rule looks at.
    bool isShort() const { return rule_ != nullptr && fieldCount() < rule_->fields(); }

    /// Place of the first line, or of a field; its column is 0 where the field is blank.
    LineInFile place() const { return lines_.front(); }
    LineInFile placeOf(std::size_t index) const;
    std::uint32_t columnOf(std::size_t index) const;

    bool isFreeForm = false;
    bool isLargeForm = false;
    bool hasTabs = false;
    bool hasOtherName = false;  ///< in another case, or with an underscore behind it
    bool isReplicated = false;

  private:
    struct StoredField {
        std::uint32_t begin;
        std::uint32_t size;
        std::uint32_t column;
        std::uint32_t line;  // a row of `lines_`
    };

    static constexpr std::size_t kColumns = 8;

    void clear(LineInFile place);
    void push(std::string_view text, std::uint32_t column, std::size_t line);
    void leaveColumns();

    const CardRule* rule_ = nullptr;
    std::string name_;
    bool isInColumns_ = true;  // all lines so far were: eight characters of `text_` are a field
    std::string text_;
    std::vector<StoredField> fields_;
    std::vector<LineInFile> lines_;
};

}  // namespace kvocaeio::tidy::nastran
