/// What both dumps are written with: fields one after the other, each in the form of its type.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/format.h"

namespace kvocaeio::abaqus {

inline void putField(text::Writer& log, std::string_view field) {
    log.text(field);
}
inline void putField(text::Writer& log, int field) {
    log.integer(field);
}
inline void putField(text::Writer& log, std::size_t field) {
    log.integer(static_cast<int>(field));
}
inline void putField(text::Writer& log, double field) {
    log.fixed(field);
}

template <class... Fields>
void put(text::Writer& log, const Fields&... fields) {
    (putField(log, fields), ...);
}

}  // namespace kvocaeio::abaqus
