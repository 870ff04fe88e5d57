/// Extraction reports put together from rows, and what an import of them as they lie gives.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "package/cadence_design.h"
#include "support/files.h"

namespace kvocaeio::test {

inline const std::string kSymbolHeader =
    "A!REFDES!SYM_NAME!SYM_BOX_X1!SYM_BOX_Y1!SYM_BOX_X2!SYM_BOX_Y2!GRAPHIC_DATA_NAME!"
    "GRAPHIC_DATA_1!GRAPHIC_DATA_2!GRAPHIC_DATA_3!GRAPHIC_DATA_4!\n";
inline const std::string kLayerHeader =
    "A!LAYER_SORT!LAYER_SUBCLASS!LAYER_TYPE!LAYER_MATERIAL!LAYER_THICKNESS!\n";
inline const std::string kStackHeader =
    "A!DSA_MEMBER_TYPE!DSA_MEMBER_NAME!DSA_EXTENTS_X1!DSA_EXTENTS_Y1!DSA_EXTENTS_X2!"
    "DSA_EXTENTS_Y2!DSA_STACK_HEIGHT_MIN!DSA_STACK_HEIGHT_MAX!\n";

inline const std::string kSubstrateRow = "S!BGA!Balls!7!7!9!9!RECTANGLE!0!0!4!2!\n";
inline const std::string kDieRow = "S!DIE!Chip!0!0!2!1!LINE!7!7!9!9!\n";

/// What becomes of these rows while no height is known.
inline const std::string kFlatSubstrate = "SUBSTRATE at 2 1 0, 4 x 2 x 0\n";
inline const std::string kFlatDie = "Chip at 1 0.5 0, 2 x 1 x 0\n";

/// A full job line: 13 cells with the tag, the unit in cell 8.
inline std::string job(const std::string& design, const std::string& unit = "MM") {
    return "J!" + design + "!2!3!4!5!6!7!" + unit + "!9!10!11!12!\n";
}
inline std::string symbols(const std::string& design, const std::string& rows,
                           const std::string& unit = "MM") {
    return kSymbolHeader + job(design, unit) + rows;
}
inline std::string layers(const std::string& design, const std::string& rows = "") {
    return kLayerHeader + "J!" + design + "!\n" + rows;
}
inline std::string layer(const std::string& type, const std::string& thickness,
                         const std::string& material = "X") {
    return "S!1!SUB!" + type + "!" + material + "!" + thickness + "!\n";
}
inline std::string stack(const std::string& rows) {
    return kStackHeader + rows;
}

/// `content` with the first `from` replaced by `to`.
inline std::string changed(std::string content, const std::string& from, const std::string& to) {
    return content.replace(content.find(from), from.size(), to);
}

/// "true", "false" or the text of the out-of-range error, and the bodies that are there then.
template <class Import>
std::string outcomeOf(CKVOCadenceReader& reader, const Import& import) {
    std::string result;
    try {
        result = import() ? "true\n" : "false\n";
    } catch (const std::out_of_range& error) {
        result = std::string("throws ") + error.what() + "\n";
    }
    return result + bodiesOf(reader);
}

/// A reader with a folder for reports and without a tool.
class ReportFolder {
  public:
    ReportFolder() { reader.SetTempFilePath(folder.path().string().c_str()); }

    /// Lays the reports down in place of earlier ones, imports them and gives the outcome.
    std::string import(const std::optional<std::string>& report1,
                       const std::optional<std::string>& report2,
                       const std::optional<std::string>& report3 = {}) {
        lay("CmdFile1.txt", report1);
        lay("CmdFile2.txt", report2);
        lay("CmdFile3.txt", report3);
        return outcomeOf(reader, [this] { return reader.ImportCadenceFile("unused"); });
    }

    TempFolder folder;
    CKVOCadenceReader reader;

  private:
    void lay(const char* name, const std::optional<std::string>& report) {
        std::filesystem::remove(folder.path() / name);
        if (report)
            folder.write(name, *report);
    }
};

/// The outcome of one import by a new reader.
inline std::string imported(const std::optional<std::string>& report1,
                            const std::optional<std::string>& report2,
                            const std::optional<std::string>& report3 = {}) {
    return ReportFolder().import(report1, report2, report3);
}

}  // namespace kvocaeio::test
