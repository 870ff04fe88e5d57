/// Runs a fuzz target over all files of a folder, where no fuzzer is at hand.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>

#include "support/files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[1])) {
        if (!entry.is_regular_file())
            continue;
        // The name stands in the output before the input can end the program.
        std::fprintf(stderr, "%s\n", entry.path().filename().string().c_str());
        const std::string bytes = kvocaeio::test::readBytes(entry.path());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++count;
    }
    std::fprintf(stderr, "%zu inputs replayed\n", count);
    return count == 0 ? 1 : 0;
}
