/// Files that no reader takes, told by their first bytes.
#pragma once

#include <string_view>

namespace kvocaeio::host {

/// Throws `FileError` with the name of what it is where `head`, the first part of a file, is
/// compressed, text of another encoding or with other line ends, or a document of another kind.
void refuseForeignContent(std::string_view head);

/// Throws `FileError` where `head` is no text.
void refuseBinary(std::string_view head);

/// `head` without a byte order mark of UTF-8.
std::string_view withoutMark(std::string_view head);

/// Throws `FileError` where a byte order mark of UTF-8 makes the readers miss the first line of
/// `head`: they know it only as a comment, a heading or nothing.
void refuseHiddenLine(std::string_view head);

}  // namespace kvocaeio::host
