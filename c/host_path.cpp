/// From UTF-8 to the paths of the system, and from its errors to texts.
#include "c/host_path.h"

#include <cerrno>
#include <system_error>

#include "c/content.h"
#include "report/sentence.h"
#include "text/listened_file.h"

namespace kvocaeio::c_interface {

std::filesystem::path pathOf(const char* utf8) {
    const std::string text = utf8;
    return std::u8string(text.begin(), text.end());
}

std::string systemReason(const char* otherwise) {
    return errno == 0 ? otherwise : std::generic_category().message(errno);
}

kvocaeio_status takePath(const char* path, Request& request) {
    if (path == nullptr)
        return fail(KVOCAEIO_BAD_ARGUMENT, "no path is given");
    request.name = path;
    try {
        request.path = pathOf(path);
    } catch (const std::system_error&) {
        return fail(KVOCAEIO_CANNOT_OPEN, "the path is no UTF-8 text", path);
    }
    return KVOCAEIO_OK;
}

text::File openRequested(const Request& request, kvocaeio_status& status) {
    errno = 0;
    text::File file = text::openFile(request.path.c_str(), "rb", request.listener());
    if (file == nullptr)
        status = fail(KVOCAEIO_CANNOT_OPEN,
                      "the file cannot be opened: " + systemReason("it is not a regular file"),
                      request.name);
    return file;
}

void expectPasses(const Request& request, std::uint64_t passes) {
    std::error_code error;
    if (request.progress == nullptr)
        return;
    const std::uintmax_t size = std::filesystem::file_size(request.path, error);
    request.progress->expect(error ? 0 : passes * size);
}

kvocaeio_status failImport(const Request& request, kvocaeio_status otherwise,
                           std::string_view text) {
    if (request.listener().hasStopped())
        return fail(KVOCAEIO_STOPPED, "the host has stopped the import", request.name);
    if (request.report == nullptr || request.report->findings.lastError() == nullptr)
        return fail(otherwise, text, request.name);
    const text::Findings& findings = request.report->findings;
    const text::FindingPlace& place = findings.lastError()->first[findings.lastErrorPlace()];
    std::array<char, 512> sentence;
    report::writeSentence(*findings.lastError(), place, sentence);
    return request.isTidied ? fail(otherwise, sentence.data(), request.name)
                            : fail(otherwise, sentence.data(), findings.file(place.file),
                                   static_cast<std::int64_t>(place.line));
}

}  // namespace kvocaeio::c_interface
