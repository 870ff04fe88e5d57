/// Notes of a pass: out of line, since nobody listens to most passes.
#include "text/pass_lines.h"

#include <cstdint>
#include <functional>

#include "text/listened_file.h"

namespace kvocaeio::text {

void PassLines::noteCut() {
    if (cutKind_ != nullptr && reader_.isCut())
        noteOnce(*cutKind_, lastCut_);
    if (nulKind_ != nullptr && reader_.isCutAtNul())
        noteOnce(*nulKind_, lastNul_);
}

void PassLines::noteOnce(const FindingKind& kind, LinePlace& last) {
    const LinePlace place = reader_.place();
    if (place == last)
        return;
    last = place;
    findings_->note(kind, place.line, 0, line());
}

std::size_t PassLines::linesAfter() {
    if (findings_ == nullptr)
        return 0;
    const std::size_t before = reader_.place().line;
    while (reader_.next()) {
    }
    return reader_.place().line - before;
}

void PassLines::noteEnd() {
    if (hasNotedEnd_)
        return;
    hasNotedEnd_ = true;
    if (cutKind_ != nullptr && reader_.isEndedByMark())
        findings_->note(rowOf(FileFinding::kEndMark), reader_.place().line, 0, line());
    if (reader_.hasFailed())
        noteFailure(*findings_, FileFinding::kReadError, reader_.failure(), reader_.place().line);
}

void PassLines::noteLine(const FindingKind& kind, std::string_view subject) {
    FindingPlace* const place = findings_->count(kind, subject);
    if (place == nullptr)
        return;
    place->line = reader_.place().line;
    place->setText(line());
}

void PassLines::noteField(const FindingKind& kind, std::string_view field,
                          std::string_view subject) {
    FindingPlace* const place = findings_->count(kind, subject);
    if (place == nullptr)
        return;
    const LinePlace begin = reader_.place();
    const char* const first = line().data();
    const bool isPart = std::greater_equal<>()(field.data(), first) &&
                        std::less_equal<>()(field.data(), first + line().size());
    place->line = begin.line;
    if (isPart)
        place->column = static_cast<std::uint32_t>(begin.column +
                                                   static_cast<std::size_t>(field.data() - first));
    place->setText(field);
}

}  // namespace kvocaeio::text
