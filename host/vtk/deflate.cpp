/// zlib, as far as the program uses it.
#include "vtk/deflate.h"

#include <new>
#include <zlib.h>

namespace kvocaeio::host {

bool canDeflate() {
    return true;
}

std::string deflated(std::string_view bytes) {
    const auto size = static_cast<uLong>(bytes.size());
    uLongf length = compressBound(size);
    std::string stream(length, '\0');
    if (compress2(reinterpret_cast<Bytef*>(stream.data()), &length,
                  reinterpret_cast<const Bytef*>(bytes.data()), size, Z_BEST_SPEED) != Z_OK)
        throw std::bad_alloc();  // with room enough, nothing else can fail
    stream.resize(length);
    return stream;
}

}  // namespace kvocaeio::host
