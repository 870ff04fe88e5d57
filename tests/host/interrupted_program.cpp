/// A program that is interrupted while it has a temporary file open, with code 3 as its end. Where
/// tests run, no console can send it the event.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "file_system.h"
#include "temporary_path.h"

using namespace kvocaeio::host;

int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    const TemporaryPath folder(TemporaryPath::Kind::kFolder, argv[1]);
    const TemporaryPath file(folder.path() + "/file");
    std::FILE* open = std::fopen(file.path().c_str(), "wb");
    if (open == nullptr)
        return 4;
    std::thread([] {
        removeForInterruption();
        std::_Exit(3);
    }).detach();
    for (;;) {
        std::fputs("what is written until the end comes\n", open);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}
