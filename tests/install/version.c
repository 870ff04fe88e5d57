/* The smallest host in C, without a runtime library: ends with 0 where the DLL is the headers'. */
#include <kvocaeio/version.h>

int start(void) {
    return kvocaeio_version() == KVOCAEIO_VERSION ? 0 : 1;
}
