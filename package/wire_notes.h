/// What somebody who listens to the passes over wire models and wires is told.
#pragma once

#include <cstddef>
#include <string_view>

#include "package/findings.h"
#include "package/model.h"
#include "package/words.h"
#include "text/pass_lines.h"
#include "text/scan.h"

namespace kvocaeio::package {

inline constexpr Word kColorWord("COLOR");
inline constexpr Word kWireWord("WIRE");
inline constexpr Word kPolylineWord("3DPL");

/// To be called while somebody listens. Nothing here reads for the model.
class WireNotes {
  public:
    explicit WireNotes(text::PassLines& lines) : lines_(lines) {}

    /// Seeks a word as `PassLines::nextWith` does, and notes the polylines before it.
    bool seek(const Word& sought);
    /// A wire may begin with the line in hand, that of its colour.
    void beginWire() { colorLine_ = lines_.place().line; }
    /// The wire in hand is given up at this line.
    void refuse(Finding why);
    /// A row of points, while some are missing, with `count` numbers, of at most `most`, that end
    /// at `behind`. `isShort`: whether the wire is known to lack points.
    void pointRow(int count, std::size_t most, const char* behind, bool& isShort);
    /// One of the two lines after the points, whatever it holds.
    void lineAfter();
    /// The wire in hand is about to be stored.
    void stored(const WireTables& wires, int colorId);

  private:
    text::PassLines& lines_;
    std::size_t colorLine_ = 0;
    bool passesColor_ = false;  // a further colour stood before what was sought last
    bool hasRefused_ = false;   // the wire in hand, so that its polyline was told of
};

/// Whether a line describes a wire model, and its name.
inline bool scanModel(std::string_view line, std::string_view& name) {
    text::Scan scan(line);
    std::string_view word;
    double real = 0.0;
    int number = 0;
    return scan.word(name) && scan.real(real) && scan.integer(number) && scan.word(word);
}

/// A line after "WIRE_MODEL" that is no model: that of a wire, mostly.
void noteNoModel(text::PassLines& lines);

/// A "WIRE_MODEL" line without its number: a wire's, or that of a model which is lost. Takes no
/// line.
void noteModelLine(text::PassLines& lines);

/// The model that was stored at `index`, counted from 1, after its first line at `place`.
void noteModel(text::PassLines& lines, const text::LinePlace& place, int number,
               std::string_view name, std::size_t index);

}  // namespace kvocaeio::package
