/// What the keywords that no section reader takes would have meant.
#pragma once

#include <string_view>

#include "abaqus/findings.h"

namespace kvocaeio::abaqus {

struct KeywordMeaning {
    Finding finding;
    std::string_view meaning;  ///< in words; empty where nothing is to be said
};

/// `keyword` begins with its asterisk and is in upper case.
KeywordMeaning meaningOf(std::string_view keyword);

}  // namespace kvocaeio::abaqus
