/// New numbers for those that are too long.
#include "tidy/nastran/numbering.h"

namespace kvocaeio::tidy::nastran {

bool Numbering::choose() {
    if (isChosen_)
        return true;
    std::ranges::sort(large_);
    large_.erase(std::unique(large_.begin(), large_.end()), large_.end());
    const std::size_t count = large_.size();
    if (count <= static_cast<std::size_t>(kMost - largest_)) {
        for (int number = largest_ + 1; chosen_.size() < count; ++number)
            chosen_.push_back(number);
    } else if (used_.empty()) {
        *this = {};
        used_.resize(std::size_t{kMost} + 1);
        return false;
    }
    for (std::size_t i = 1; i < used_.size() && chosen_.size() < count; ++i)
        if (!used_[i])
            chosen_.push_back(static_cast<int>(i));
    isChosen_ = true;
    return true;
}

int Numbering::numberOfLarge(int number) const {
    const auto row =
        static_cast<std::size_t>(std::ranges::lower_bound(large_, number) - large_.begin());
    return row < chosen_.size() && large_[row] == number ? chosen_[row] : 0;
}

int PropertyNumbering::numberOf(int number) {
    if (number != lastNumber_ || last_ == 0) {
        const auto [row, isNew] = numbers_.try_emplace(number, 0);
        if (isNew)
            row->second = cards_ + ++others_;
        lastNumber_ = number;
        last_ = row->second;
    }
    return last_;
}

}  // namespace kvocaeio::tidy::nastran
