/// Structs that begin with their size as the host knows them: a host of an earlier version has
/// fewer members, one of a later version more.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "c/failure.h"

namespace kvocaeio::c_interface {

/// Sets the members of `to` that its host knows; `from.struct_size` does not matter.
template <class Struct>
kvocaeio_status hand(Struct from, Struct* to) noexcept {
    if (to == nullptr)
        return fail(KVOCAEIO_BAD_ARGUMENT, "no struct to be filled is given");
    const std::size_t known = to->struct_size;
    if (known <= sizeof to->struct_size)
        return fail(KVOCAEIO_BAD_ARGUMENT, "the struct_size of a struct is not set");
    from.struct_size = known;
    std::memcpy(to, &from, std::min(known, sizeof from));
    return KVOCAEIO_OK;
}

/// The members that the host has set, the others being 0; all of them for null.
template <class Struct>
Struct taken(const Struct* from) noexcept {
    Struct members{};
    if (from != nullptr)
        std::memcpy(&members, from, std::min(from->struct_size, sizeof members));
    return members;
}

}  // namespace kvocaeio::c_interface
