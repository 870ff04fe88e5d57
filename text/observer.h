/// What a reader can tell of a file beside its content: the places where it read less than stands
/// there. An import report listens; an import without one pays nothing.
#pragma once

#include <cstddef>
#include <string_view>

namespace kvocaeio::text {

enum class Finding {
    kPassedOver,  ///< read by nobody: an unknown keyword, a line without fields
    kCut,         ///< a line longer than the line bound: the rest is read as the next line
    kStale,       ///< a field that could not be read, so that an older value or zero stands for it
    kEndedEarly,  ///< the rest of the file, or of an entry, is not there or not read
};

/// An observer that listens to nothing. Others have `kListens` true and the same member `note`:
/// `line` counts the file's lines from 1; `what` is the text in question, valid during the call
/// only; `why` is a fixed text.
struct NoObserver {
    static constexpr bool kListens = false;
    void note(Finding, std::size_t /*line*/, std::string_view /*what*/, std::string_view /*why*/) {}
};

}  // namespace kvocaeio::text
