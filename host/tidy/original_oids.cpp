/// The library's walks over origins, sorted by number.
#include "tidy/original_oids.h"

#include <algorithm>
#include <charconv>

#include <kvocaeio/tidy.h>

namespace kvocaeio::host {

OriginalOids::OriginalOids(CKVODeckTidy& tidy) {
    CKVODeckTidy::OriginData origin;
    nodes_.reserve(static_cast<std::size_t>(tidy.GetNodeOriginNum()));
    for (tidy.GetNodeOriginBegin(); tidy.GetNodeOriginNext(&origin);)
        nodes_.push_back({origin.id, origin.originalId, rowOf(origin.part)});
    elements_.reserve(static_cast<std::size_t>(tidy.GetElemOriginNum()));
    for (tidy.GetElemOriginBegin(); tidy.GetElemOriginNext(&origin);)
        elements_.push_back({origin.id, origin.originalId, rowOf(origin.part)});
    for (tidy.GetPropertyOriginBegin(); tidy.GetPropertyOriginNext(&origin);)
        properties_.push_back({origin.id, origin.originalId, rowOf(origin.part)});
    std::ranges::stable_sort(nodes_, {}, &Row::id);
    std::ranges::stable_sort(elements_, {}, &Row::id);
    std::ranges::stable_sort(properties_, {}, &Row::id);
}

std::size_t OriginalOids::rowOf(const char* part) {
    // What follows one another is mostly of one part.
    const auto known = std::find(parts_.rbegin(), parts_.rend(), part);
    if (known != parts_.rend())
        return static_cast<std::size_t>(parts_.rend() - known) - 1;
    parts_.emplace_back(part);
    return parts_.size() - 1;
}

const OriginalOids::Row* OriginalOids::find(const Rows& rows, int id) {
    const auto row = std::ranges::lower_bound(rows, id, {}, &Row::id);
    return row != rows.end() && row->id == id ? &*row : nullptr;
}

int OriginalOids::property(int id) const {
    const Row* const row = find(properties_, id);
    return row == nullptr ? id : row->originalId;
}

bool OriginalOids::restore(const Rows& rows, std::vector<int>& oids) {
    std::vector<int> originals = oids;
    for (int& oid : originals)
        if (const Row* row = find(rows, oid))
            oid = row->originalId;
    std::vector<int> sorted = originals;
    std::ranges::sort(sorted);
    if (std::ranges::adjacent_find(sorted) != sorted.end())
        return false;
    oids = std::move(originals);
    return true;
}

void OriginalOids::translateNumber(const Rows& rows, std::string_view& rest,
                                   std::string& out) const {
    int id = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), id);
    const Row* row = error == std::errc() ? find(rows, id) : nullptr;
    if (row == nullptr)
        return;
    out += std::to_string(row->originalId);
    if (!parts_[row->part].empty())
        out += " of " + parts_[row->part];
    rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
}

std::string OriginalOids::translated(std::string_view text) const {
    constexpr std::string_view kNode = "node ";
    constexpr std::string_view kElement = "element ";
    std::string out;
    while (!text.empty()) {
        const bool isNode = text.starts_with(kNode);
        if (isNode || text.starts_with(kElement)) {
            const std::string_view word = isNode ? kNode : kElement;
            out += word;
            text.remove_prefix(word.size());
            translateNumber(isNode ? nodes_ : elements_, text, out);
        } else {
            out += text.front();
            text.remove_prefix(1);
        }
    }
    return out;
}

}  // namespace kvocaeio::host
