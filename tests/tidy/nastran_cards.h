/// Cards of Nastran decks, tidied on their own.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "tidy/tidied.h"

namespace kvocaeio::test {

/// A node and an element, so that there are some.
inline constexpr std::string_view kGrid = "GRID          99              1.      1.      1.\n";
inline constexpr std::string_view kBar = "CBAR           9       1       1       2\n";

inline Tidied tidiedNastran(const std::string& deck) {
    return tidyText(deck, CKVODeckTidy::kNastran);
}

/// What becomes of `cards`, between that node and that element.
inline std::string cardsOf(const std::string& cards) {
    const Tidied result = tidiedNastran(std::string(kGrid) + cards + std::string(kBar));
    EXPECT_TRUE(result.isDone);
    EXPECT_TRUE(result.isNeeded);
    const std::string& text = result.text;
    const std::string begin = "BEGIN BULK\n" + std::string(kGrid);
    const std::size_t end = text.rfind("CBAR           9");
    EXPECT_TRUE(text.starts_with(begin));
    EXPECT_TRUE(text.ends_with("\nENDDATA\n"));
    return end == std::string::npos ? "" : text.substr(begin.size(), end - begin.size());
}

}  // namespace kvocaeio::test
