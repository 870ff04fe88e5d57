/// Standard output caught while the library speaks.
#include "support/captured_output.h"

#include <atomic>
#include <cstdio>
#include <system_error>
#include <utility>

#include "support/descriptors.h"
#include "support/files.h"

namespace kvocaeio::test {
namespace {

/// One folder serves all captures: a folder takes far longer to remove than a file.
std::filesystem::path nextFile() {
    static const TempFolder folder;
    static std::atomic<unsigned> count{0};
    return folder.path() / ("stdout-" + std::to_string(count++));
}

}  // namespace

CapturedOutput::CapturedOutput() : path_(nextFile()) {
    std::fflush(stdout);
    saved_ = duplicate(1);
    std::FILE* file = std::fopen(path_.string().c_str(), "wb");
    redirect(descriptorOf(file), 1);
    std::fclose(file);
}

CapturedOutput::~CapturedOutput() {
    restore();
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

std::string CapturedOutput::text() {
    restore();
    return readText(path_);
}

void CapturedOutput::restore() {
    if (saved_ < 0)
        return;
    std::fflush(stdout);
    redirect(saved_, 1);
    closeDescriptor(std::exchange(saved_, -1));
}

}  // namespace kvocaeio::test
