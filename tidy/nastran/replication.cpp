/// Cards that are made of the card before.
#include <algorithm>
#include <array>
#include <charconv>
#include <string>

#include "tidy/nastran/card_reader.h"
#include "tidy/nastran/numbers.h"

namespace kvocaeio::tidy::nastran {

namespace {

// What stands in "(n)", or behind a sign without parentheses.
std::string_view inner(std::string_view text) {
    if (text.starts_with('(') && text.ends_with(')'))
        return trimmed(text.substr(1, text.size() - 2));
    return text;
}

}  // namespace

bool CardReader::refuseReplication() {
    sources_.noteAt(Finding::kReplicationWrong, replication_.file, replication_.line, 1, "=");
    isIncomplete_ = true;
    repeats_ = 0;
    return false;
}

// "=" is a card like the one before; "=(n)" or "=n" are n of them, by the fields behind it or,
// where there are none, by those of the last replication.
bool CardReader::readReplication() {
    const std::string count(inner(line_->first.text.substr(1)));
    const bool isOne = count.empty() || count == "=";
    const bool hasFields =
        line_->isInColumns()
            ? !trimmed(line_->columns).empty()
            : !std::ranges::all_of(line_->data, &std::string_view::empty, &Field::text);
    long long times = 1;
    replication_ = lineInFile();
    if (!hasCard_ || (!isOne && !readInteger(count, times)) || times < 0)
        return refuseReplication();
    if (isOne || hasFields) {
        readCard(template_);
        hasTemplate_ = true;
    } else if (!hasTemplate_ || hasLastValues()) {
        return refuseReplication();
    }
    repeats_ = times;
    return times > 0 && replicate();
}

// Whether there is a "%(n)", which only a number of cards on its own line gives a meaning.
bool CardReader::hasLastValues() const {
    for (std::size_t i = 0; i < template_.fieldCount(); ++i)
        if (template_.field(i).starts_with('%'))
            return true;
    return false;
}

bool CardReader::replicate() {
    if (++replicas_ > kMostReplicas)
        return refuseReplication();
    const Card& before = cards_[current_];
    Card& card = cards_[1 - current_];
    card.beginLike(before, template_.place());
    for (std::size_t i = 0; i < template_.fieldCount(); ++i) {
        const std::string_view text = template_.field(i);
        if (text == "==") {
            for (; i < before.fieldCount(); ++i)
                card.addText(before.field(i));
            break;
        }
        if (!replicateField(before.field(i), text, card))
            return refuseReplication();
    }
    current_ = 1 - current_;
    --repeats_;
    return true;
}

bool CardReader::replicateField(std::string_view before, std::string_view text, Card& card) const {
    if (text == "=") {
        card.addText(before);
        return true;
    }
    if (text.starts_with('*') || text.starts_with('%'))
        return moveField(before, text, card);
    card.addText(text);
    return !text.starts_with('=');
}

// "*(n)" adds n; "%(n)" leads in equal steps to n, which the last card has.
bool CardReader::moveField(std::string_view before, std::string_view text, Card& card) const {
    const bool isStep = text[0] == '*';
    const std::string_view operand = inner(trimmed(text.substr(1)));
    std::array<char, 40> moved;
    std::to_chars_result end{};
    long long whole = 0;
    long long wholeOperand = 0;
    double real = 0.0;
    double realOperand = 0.0;
    constexpr long long kMost = 1'000'000'000'000;
    if (readInteger(before, whole) && readInteger(operand, wholeOperand)) {
        if (whole > kMost || whole < -kMost || wholeOperand > kMost || wholeOperand < -kMost)
            return false;
        const long long way = wholeOperand - whole;
        if (!isStep && way % repeats_ != 0)
            return false;
        whole += isStep ? wholeOperand : way / repeats_;
        end = std::to_chars(moved.data(), moved.data() + moved.size(), whole);
    } else {
        if (!readReal(before.empty() ? "0." : before, real) || !readReal(operand, realOperand))
            return false;
        real += isStep ? realOperand : (realOperand - real) / static_cast<double>(repeats_);
        // Of so many digits that errors of the sums do not show.
        end = std::to_chars(moved.data(), moved.data() + moved.size(), real,
                            std::chars_format::general, 15);
        if (std::string_view(moved.data(), end.ptr).find_first_of(".e") == std::string_view::npos)
            *end.ptr++ = '.';
    }
    card.addText({moved.data(), static_cast<std::size_t>(end.ptr - moved.data())});
    return true;
}

}  // namespace kvocaeio::tidy::nastran
