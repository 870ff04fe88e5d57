/// The macro that marks the exported classes, and the version of the interface.
#ifndef KVOCAEIO_EXPORT_H
#define KVOCAEIO_EXPORT_H

/// Version of the library that these headers belong to: the major number,
#define KVOCAEIO_VERSION_MAJOR 0
/// the minor number,
#define KVOCAEIO_VERSION_MINOR 1
/// and the patch number.
#define KVOCAEIO_VERSION_PATCH 0

/// Stands before every exported class. A host defines nothing; `KVOCAEIO_BUILDING` is set while the
/// library itself is compiled, `KVOCAEIO_STATIC` where its objects are linked in directly.
#if defined(KVOCAEIO_STATIC)
#define KVOCAEIO_API
#elif defined(_WIN32)
#if defined(KVOCAEIO_BUILDING)
#define KVOCAEIO_API __declspec(dllexport)
#else
#define KVOCAEIO_API __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define KVOCAEIO_API __attribute__((visibility("default")))
#else
#define KVOCAEIO_API
#endif

#endif
