/// The version that the library was built as.
#include <kvocaeio/version.h>

int kvocaeio_version() {
    return KVOCAEIO_VERSION;
}
