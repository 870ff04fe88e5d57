/// The way back from the numbers of a tidy deck to those of the original.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class CKVODeckTidy;

namespace kvocaeio::host {

/// The OIDs that nodes and elements have in the original.
class OriginalOids {
  public:
    explicit OriginalOids(CKVODeckTidy& tidy);

    /// `text` with the numbers of the original behind the words "node" and "element", and the part
    /// that they are of: "element 5 of BOLT-1" for "element 1005".
    std::string translated(std::string_view text) const;

    /// The number of a property; `id` where it has no card.
    int property(int id) const;

    /// Replaces OIDs of the tidy deck. False, with `oids` untouched, where two of them have the
    /// same number in the original.
    bool restoreNodes(std::vector<int>& oids) const { return restore(nodes_, oids); }
    bool restoreElements(std::vector<int>& oids) const { return restore(elements_, oids); }

  private:
    struct Row {
        int id;
        int originalId;
        std::size_t part;  ///< in `parts_`
    };
    using Rows = std::vector<Row>;  ///< by `id`

    std::size_t rowOf(const char* part);
    static bool restore(const Rows& rows, std::vector<int>& oids);
    static const Row* find(const Rows& rows, int id);
    /// Appends the number at the beginning of `rest` as it is in the original, and takes it off.
    void translateNumber(const Rows& rows, std::string_view& rest, std::string& out) const;

    Rows nodes_;
    Rows elements_;
    Rows properties_;
    std::vector<std::string> parts_;
};

}  // namespace kvocaeio::host
