/// The version of the library that the process has loaded. For C and C++ hosts.
#ifndef KVOCAEIO_VERSION_H
#define KVOCAEIO_VERSION_H

#include <kvocaeio/export.h>

/// The version of the library that these headers belong to, as one number that grows with every
/// release: 1,000,000 times the major, plus 1,000 times the minor, plus the patch number.
#define KVOCAEIO_VERSION \
    (KVOCAEIO_VERSION_MAJOR * 1000000 + KVOCAEIO_VERSION_MINOR * 1000 + KVOCAEIO_VERSION_PATCH)

#ifdef __cplusplus
extern "C" {
#endif

/// Returns the version of the loaded library as the same number. While the major number is 0, a
/// host fits the library only where `kvocaeio_version() / 1000 == KVOCAEIO_VERSION / 1000`. May be
/// called from any thread at any time; never fails.
KVOCAEIO_API int kvocaeio_version(void);

#ifdef __cplusplus
}
#endif

#endif
