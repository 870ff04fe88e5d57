/// Sets of a deck by name, and their members.
#pragma once

#include <compare>
#include <cstddef>
#include <string_view>
#include <vector>

#include "tidy/abaqus/model.h"

namespace kvocaeio::tidy::abaqus {

/// A node or element of an instance, or of the deck's own scope.
struct Member {
    int instance;
    int id;
    // NOLINTNEXTLINE(modernize-use-nullptr): what the compiler makes of it is not ours
    auto operator<=>(const Member&) const = default;
};

enum class SetKind : unsigned char { kNodes, kElements };

/// A set where it is defined.
struct FoundSet {
    const Scope* scope = nullptr;
    int instance = kOwnScope;  ///< that the scope stands for
    const IdSet* set = nullptr;
    std::string_view name;  ///< in that scope
};

/// Looks a name up in a scope; from the deck's own one also "INSTANCE.SET". The set is null where
/// there is none.
FoundSet findSet(const Model& model, const Scope& scope, int instance, std::string_view name,
                 SetKind kind);

struct Members {
    std::vector<Member> list;  ///< that are there; ascending, each once, unless unsorted
    std::size_t cost = 0;      ///< of finding them, in about as many steps
    bool hasUnknown = false;   ///< whether there are ids or sets that are not there
};

/// The members of a set and of all sets in it.
Members membersOf(const Model& model, const FoundSet& found, SetKind kind);

/// Reads what a field names, seen from the deck's own scope or from an instance.
Target targetOf(const Model& model, std::string_view field, int instance);

}  // namespace kvocaeio::tidy::abaqus
