/// The lines of one pass over a file, and who listens to the pass.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string_view>

#include "text/findings.h"
#include "text/line_reader.h"

namespace kvocaeio::text {

/// A `LineReader` that notes findings with the place of the line taken last. Nobody listens to an
/// ordinary import: a note then costs the test of a pointer, in a branch that is seldom taken.
class PassLines {
  public:
    /// `cutKind` is noted for each piece that the bound cuts off a line.
    template <class Kind>
    PassLines(std::FILE* file, std::size_t bound, LineMode mode, const Listener& listener,
              Kind cutKind)
        : reader_(file, bound, mode, listener.watch),
          findings_(listener.findings),
          cutKind_(static_cast<std::size_t>(cutKind)) {
        if (findings_ != nullptr)
            reader_.countLines();
    }

    // As in `LineReader`.
    bool next() { return taken(reader_.next()); }
    template <class Find>
    bool nextWith(const Find& find) {
        return taken(reader_.nextWith(find));
    }
    std::string_view line() const { return reader_.line(); }
    bool metEnd() const { return reader_.metEnd(); }
    bool hasFailed() const { return reader_.hasFailed(); }
    void giveBack() { reader_.giveBack(); }
    void setBound(std::size_t bound) { reader_.setBound(bound); }

    /// Notes the line taken last.
    template <class Kind>
    void note(Kind kind) {
        if (findings_ != nullptr) [[unlikely]]
            noteLine(static_cast<std::size_t>(kind));
    }

    /// Notes a field of it; without a column where `field` is no part of `line()`.
    template <class Kind>
    void note(Kind kind, std::string_view field) {
        if (findings_ != nullptr) [[unlikely]]
            noteField(static_cast<std::size_t>(kind), field);
    }

    /// The number of the line taken last; 0 where nobody listens.
    std::size_t lineNumber() { return findings_ == nullptr ? 0 : reader_.place().line; }

    /// Notes a line that was taken before, by the number that it had then.
    template <class Kind>
    void note(Kind kind, std::size_t line, std::string_view text) {
        if (findings_ != nullptr) [[unlikely]]
            findings_->note(static_cast<std::size_t>(kind), line, 0, text);
    }

  private:
    bool taken(bool found) {
        if (findings_ != nullptr && found) [[unlikely]]
            noteCut();
        return found;
    }
    void noteCut();
    void noteLine(std::size_t kind);
    void noteField(std::size_t kind, std::string_view field);

    LineReader reader_;
    Findings* findings_;
    std::size_t cutKind_;
    LinePlace lastCut_;  // a line that is given back is cut once
};

}  // namespace kvocaeio::text
