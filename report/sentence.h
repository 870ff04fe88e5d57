/// The texts of a finding as a host gets them.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "text/findings.h"

namespace kvocaeio::report {

/// Copies `what` into `field` with a NUL behind it, cut to what fits. Control characters become
/// dots: the text comes from a file and may go to a terminal.
void copyText(std::string_view what, std::span<char> field);

/// Writes what was found: the text of the kind, with the subject, or the text of `place`, in its
/// "{}".
void writeSentence(const text::FindingEntry& entry, const text::FindingPlace& place,
                   std::span<char> field);

}  // namespace kvocaeio::report
