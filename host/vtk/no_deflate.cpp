/// What a build without zlib has in the place of it.
#include "vtk/deflate.h"

namespace kvocaeio::host {

bool canDeflate() {
    return false;
}

std::string deflated(std::string_view) {
    return {};
}

}  // namespace kvocaeio::host
