/// Notes of a pass: out of line, since nobody listens to most passes.
#include "text/pass_lines.h"

#include <functional>

namespace kvocaeio::text {

void PassLines::noteCut() {
    if (!reader_.isCut())
        return;
    const LinePlace place = reader_.place();
    if (place == lastCut_)
        return;
    lastCut_ = place;
    findings_->note(cutKind_, place.line, 0, line());
}

void PassLines::noteLine(std::size_t kind) {
    findings_->note(kind, reader_.place().line, 0, line());
}

void PassLines::noteField(std::size_t kind, std::string_view field) {
    const LinePlace place = reader_.place();
    const char* const first = line().data();
    const bool isPart = std::greater_equal<>()(field.data(), first) &&
                        std::less_equal<>()(field.data(), first + line().size());
    const std::size_t column =
        isPart ? place.column + static_cast<std::size_t>(field.data() - first) : 0;
    findings_->note(kind, place.line, column, field);
}

}  // namespace kvocaeio::text
