/// Stand-in for the extraction tool of Cadence designs. It records how it was run beside its
/// command file, and leaves the reports that lie prepared there: for the commands "CmdFile1.txt"
/// all files of the folder "CmdFile1.run".
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#if defined(_WIN32)
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace {

namespace fs = std::filesystem;

// The words of the command line, split as the library means them on every platform.
std::vector<fs::path> commandLineWords([[maybe_unused]] int argc, [[maybe_unused]] char** argv) {
    std::vector<fs::path> words;
#if defined(_WIN32)
    std::wstring word;
    for (const wchar_t* next = GetCommandLineW();; ++next) {
        if (*next != L' ' && *next != L'\0') {
            word += *next;
        } else if (!word.empty()) {
            words.emplace_back(word);
            word.clear();
        }
        if (*next == L'\0')
            return words;
    }
#else
    words.assign(argv, argv + argc);
    return words;
#endif
}

std::string utf8(const fs::path& path) {
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

// A host that hands a descriptor down names it in the environment.
void greetThroughDescriptor() {
#if !defined(_WIN32)
    if (const char* descriptor = std::getenv("KVOCAEIO_TEST_DESCRIPTOR"))
        if (write(std::atoi(descriptor), "inherited", 9) != 9)
            std::exit(4);
#endif
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<fs::path> words = commandLineWords(argc, argv);
    if (words.size() < 3)
        return 2;
    const fs::path& commandFile = words[2];
    const fs::path folder = commandFile.parent_path();
    std::ofstream record(folder / "record.txt", std::ios::binary | std::ios::app);
    record << "run in " << utf8(fs::current_path()) << '\n';
    const char* mark = std::getenv("KVOCAEIO_TEST_MARK");
    record << "mark " << (mark == nullptr ? "" : mark) << '\n';
    for (const fs::path& word : words)
        record << "word " << utf8(word) << '\n';
    std::ifstream commands(commandFile);
    record << std::string(std::istreambuf_iterator<char>(commands), {});
    record.flush();
    commands.close();

    greetThroughDescriptor();
    fs::path prepared = commandFile;
    prepared.replace_extension(".run");
    std::error_code failure;
    for (const fs::directory_entry& report : fs::directory_iterator(prepared, failure)) {
        // Not every library can copy onto a file that is there.
        const fs::path place = folder / report.path().filename();
        fs::remove(place);
        fs::copy_file(report.path(), place);
    }
    if (fs::exists(folder / "slow.txt"))
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    record << "end\n";
    return failure ? 3 : 0;
}
