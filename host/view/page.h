/// The page into which `kvocaeio view` puts its data.
#pragma once

#include <string_view>

namespace kvocaeio::host {

/// The page as the build has bundled it, with @TITLE@, @SCENE@ and @GEOMETRY@ in the places of the
/// data, in this order. Empty where the build had no npm to make it with.
std::string_view viewPage();

}  // namespace kvocaeio::host
