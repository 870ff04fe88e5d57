/// Loads the DLL of a wheel by its path, as Python does, and reads a deck through it.
///
/// usage: load_library DLL DECK
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <windows.h>

#include <kvocaeio/kvocaeio.h>

namespace {

HMODULE library;

template <class Function>
Function* function(const char* name) {
    const FARPROC found = GetProcAddress(library, name);
    if (found == nullptr) {
        std::printf("the DLL has no %s\n", name);
        std::exit(1);
    }
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

#define KVOCAEIO_LOADED(name) function<decltype(name)>(#name)

int readDeck(const char* deck) {
    kvocaeio_model* model = nullptr;
    if (KVOCAEIO_LOADED(kvocaeio_open)(deck, nullptr, &model) != KVOCAEIO_OK) {
        std::printf("%s\n", KVOCAEIO_LOADED(kvocaeio_error_text)());
        return 1;
    }
    kvocaeio_nodes nodes = {};
    nodes.struct_size = sizeof nodes;
    const kvocaeio_status status = KVOCAEIO_LOADED(kvocaeio_get_nodes)(model, &nodes);
    std::printf("version %d, status %d, %d nodes\n", KVOCAEIO_LOADED(kvocaeio_version)(),
                static_cast<int>(status), static_cast<int>(nodes.count));
    KVOCAEIO_LOADED(kvocaeio_close)(model);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    // With its own folder among those in which its neighbours are looked for, and no other.
    library = LoadLibraryExW(std::filesystem::absolute(argv[1]).c_str(), nullptr,
                             LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
    if (library == nullptr) {
        std::printf("the DLL cannot be loaded: error %lu\n", GetLastError());
        return 1;
    }
    return readDeck(argv[2]);
}
