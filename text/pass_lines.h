/// The lines of one pass over a file, and who listens to the pass.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string_view>
#include <type_traits>

#include "text/findings.h"
#include "text/line_reader.h"

namespace kvocaeio::text {

/// A `LineReader` that notes findings with the place of the line taken last. Nobody listens to an
/// ordinary import: a note then costs the test of a pointer, in a branch that is seldom taken.
class PassLines {
  public:
    /// `cutKind` is noted for each piece that the bound cuts off a line.
    template <class Kind>
    requires std::is_enum_v<Kind> PassLines(std::FILE* file, std::size_t bound, LineMode mode,
                                            const Listener& listener, Kind cutKind)
        : PassLines(file, bound, mode, listener, &rowOf(cutKind)) {}
    /// Where `cutKind` is null, another pass over the file notes them.
    PassLines(std::FILE* file, std::size_t bound, LineMode mode, const Listener& listener,
              const FindingKind* cutKind)
        : reader_(file, bound, mode, listener.watch),
          findings_(listener.findings),
          cutKind_(cutKind) {
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
    bool isCutAtNul() const { return reader_.isCutAtNul(); }
    bool isEndedByMark() const { return reader_.isEndedByMark(); }
    void giveBack() { reader_.giveBack(); }
    void setBound(std::size_t bound) { reader_.setBound(bound); }

    /// Whether somebody hears what is noted, so that a place is worth looking for.
    bool areNoted() const { return findings_ != nullptr; }

    /// Where the line taken last begins, for `noteAt`; nowhere while nobody listens.
    LinePlace place() { return findings_ != nullptr ? reader_.place() : LinePlace(); }

    /// From here on `kind` is noted for each line of which a NUL hides a part.
    template <class Kind>
    void noteNulsAs(Kind kind) {
        nulKind_ = &rowOf(kind);
    }

    /// Takes all further lines. Returns how many lines of the file stand after the one taken last;
    /// 0 while nobody listens.
    std::size_t linesAfter();

    /// Notes the line taken last. Findings of one kind are kept apart by their subjects.
    template <class Kind>
    void note(Kind kind) {
        if (findings_ != nullptr) [[unlikely]]
            noteLine(rowOf(kind), {});
    }
    template <class Kind>
    void noteNamed(Kind kind, std::string_view subject) {
        if (findings_ != nullptr) [[unlikely]]
            noteLine(rowOf(kind), subject);
    }

    /// Notes a field of it; without a column where `field` is no part of `line()`.
    template <class Kind>
    void note(Kind kind, std::string_view field, std::string_view subject = {}) {
        if (findings_ != nullptr) [[unlikely]]
            noteField(rowOf(kind), field, subject);
    }

    /// Notes a place of the file, as that of an earlier line: `line` from 1, `column` from 1 or 0.
    template <class Kind>
    void noteAt(Kind kind, const LinePlace& place, std::string_view what,
                std::string_view subject = {}) {
        if (findings_ != nullptr) [[unlikely]]
            findings_->note(rowOf(kind), place.line, place.column, what, subject);
    }

  private:
    bool taken(bool found) {
        if (findings_ != nullptr && (!found || reader_.isCut() || reader_.isCutAtNul()))
            [[unlikely]]
            found ? noteCut() : noteEnd();
        return found;
    }
    void noteCut();
    void noteOnce(const FindingKind& kind, LinePlace& last);
    void noteEnd();
    void noteLine(const FindingKind& kind, std::string_view subject);
    void noteField(const FindingKind& kind, std::string_view field, std::string_view subject);

    LineReader reader_;
    Findings* findings_;
    const FindingKind* cutKind_;
    const FindingKind* nulKind_ = nullptr;
    LinePlace lastCut_;  // a line that is given back is cut once
    LinePlace lastNul_;
    bool hasNotedEnd_ = false;
};

}  // namespace kvocaeio::text
