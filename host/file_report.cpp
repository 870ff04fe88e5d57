/// Findings that several formats have.
#include "file_report.h"

#include "counted.h"

namespace kvocaeio::host {

void FileReport::find(Finding::Level level, std::string_view code, std::size_t count,
                      std::string text) {
    if (count != 0)
        findings.push_back({level, code, count, std::move(text)});
}

void FileReport::warnOfNonFinite(std::size_t number, std::string_view things) {
    warn("not-finite", number,
         "coordinates that are infinite or no numbers: in " + counted(number, things));
}

}  // namespace kvocaeio::host
