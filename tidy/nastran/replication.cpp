/// Cards that are made of the card before.
#include <array>
#include <charconv>

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
    sources_.note(Finding::kReplicationWrong);
    isIncomplete_ = true;
    repeats_ = 0;
    return false;
}

// "=" is a card like the one before, "=(n)" or "=n" repeats what was done last n times.
bool CardReader::readReplication() {
    const std::string_view count = inner(line_->first.text.substr(1));
    if (!hasCard_)
        return refuseReplication();
    if (count.empty() || count == "=") {
        readCard(template_);
        hasTemplate_ = true;
        repeats_ = 0;
        return replicate();
    }
    long long times = 0;
    if (!hasTemplate_ || !readInteger(count, times) || times < 0)
        return refuseReplication();
    if (times == 0)
        return false;
    repeats_ = times - 1;
    return replicate();
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
        if (!replicateField(before, i, text, card))
            return refuseReplication();
    }
    current_ = 1 - current_;
    return true;
}

bool CardReader::replicateField(const Card& before, std::size_t index, std::string_view text,
                                Card& card) {
    if (text == "=") {
        card.addText(before.field(index));
        return true;
    }
    if (!text.starts_with('*')) {
        card.addText(text);
        return !text.starts_with('=') && !text.starts_with('%');
    }
    const std::string_view step = inner(trimmed(text.substr(1)));
    std::array<char, 40> sum;
    std::to_chars_result end{};
    long long whole = 0;
    long long wholeStep = 0;
    double real = 0.0;
    double realStep = 0.0;
    constexpr long long kMost = 1'000'000'000'000;
    if (readInteger(before.field(index), whole) && readInteger(step, wholeStep)) {
        if (whole > kMost || wholeStep > kMost || wholeStep < -kMost)
            return false;
        end = std::to_chars(sum.data(), sum.data() + sum.size(), whole + wholeStep);
    } else {
        const std::string_view number = before.field(index).empty() ? "0." : before.field(index);
        if (!readReal(number, real) || !readReal(step, realStep))
            return false;
        end = std::to_chars(sum.data(), sum.data() + sum.size(), real + realStep);
        if (std::string_view(sum.data(), end.ptr).find_first_of(".e") == std::string_view::npos)
            *end.ptr++ = '.';
    }
    card.addText({sum.data(), static_cast<std::size_t>(end.ptr - sum.data())});
    return true;
}

}  // namespace kvocaeio::tidy::nastran
