/// Paths as the references that documents hold.
#pragma once

#include <string>
#include <string_view>

namespace kvocaeio::host {

/// `path` as a URI reference, percent-encoded: "a b.inp" becomes "a%20b.inp", "/a.inp"
/// "file:///a.inp", and on Windows "C:\a.inp" "file:///C:/a.inp".
std::string uriOf(std::string_view path, bool isWindows);

/// Whether the paths of this program are those of Windows.
#if defined(_WIN32)
inline constexpr bool kIsWindows = true;
#else
inline constexpr bool kIsWindows = false;
#endif

}  // namespace kvocaeio::host
