/// Paths as the references that documents hold.
#pragma once

#include <string>
#include <string_view>

namespace kvocaeio::host {

/// `path` as a URI reference, percent-encoded: "a b.inp" becomes "a%20b.inp", "/a.inp"
/// "file:///a.inp", and on Windows "C:\a.inp" "file:///C:/a.inp".
std::string uriOf(std::string_view path, bool isWindows);

}  // namespace kvocaeio::host
