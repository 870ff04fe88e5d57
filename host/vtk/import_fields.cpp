/// The fields, as rows of bytes.
#include "vtk/import_fields.h"

#include <array>

namespace kvocaeio::host {

namespace {

std::string lineOf(const ImportFinding& finding) {
    return std::string(nameOf(finding.level)) + ": " + finding.text + " (" +
           std::to_string(finding.count) + ") [" + finding.code + "]";
}

}  // namespace

void writeImportFields(VtkFile& file, const ImportFindings& imported, const std::string& source,
                       const std::string& unit) {
    const Tally tally = imported.tally();
    std::array<std::int32_t, 3> numbers{};
    for (std::size_t i = 0; i < 3; ++i)
        numbers[i] = static_cast<std::int32_t>(
            tally.of(std::array{Level::kError, Level::kWarning, Level::kNote}[i]));
    std::vector<std::string> lines;
    for (const ImportFinding& finding : imported.findings)
        lines.push_back(lineOf(finding));
    if (!lines.empty())
        file.byteRows("ImportTexts", lines);
    file.array("ImportFindings", std::span<const std::int32_t>(numbers), 3);
    if (!unit.empty())
        file.byteRows("LengthUnit", std::array{unit});
    file.byteRows("Source", std::array{source});
}

}  // namespace kvocaeio::host
