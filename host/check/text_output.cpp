/// Findings as compilers write them, so that editors jump to the place.
#include <set>

#include "check/more.h"
#include "check/output.h"
#include "clean_name.h"
#include "counted.h"
#include "info/page.h"
#include "input_file.h"
#include "standard_output.h"

namespace kvocaeio::host {

namespace {

std::string placeOf(const ImportFinding& finding) {
    const auto& [line, column, text] = finding.places.front();
    std::string place = shownName(finding.file) + ':';
    if (line != 0)
        place += std::to_string(line) + ':';
    if (line != 0 && column != 0)
        place += std::to_string(column) + ':';
    return place;
}

class TextOutput final : public CheckOutput {
  public:
    explicit TextOutput(bool brief) : isBrief_(brief) {}

    void add(const CheckedFile& file) override {
        std::string lines;
        std::set<std::string_view> advised;  // once for each code is enough
        for (const ImportFinding& finding : file.import.findings) {
            lines += bold(placeOf(finding)) + ' ' +
                     coloured(std::string(nameOf(finding.level)) + ':', finding.level, style_) +
                     ' ' + cleanName(finding.text + moreOf(finding)) + " [" + finding.code + "]\n";
            if (!isBrief_ && !finding.advice.empty() && advised.insert(finding.code).second)
                lines += "  help: " + cleanName(finding.advice) + '\n';
        }
        writeOut(lines);
    }

    void finish(const CheckTotals& totals) override {
        std::string line = summaryOf(totals.tally, totals.files, style_);
        if (totals.failed != 0)
            line += ", of which " + std::to_string(totals.failed) + " could not be read";
        const std::string hidden = hiddenIn(totals.hidden);
        if (!hidden.empty())
            line += "; not listed: " + hidden;
        if (totals.tally == Tally() && !totals.counts.empty())
            line += "; read: " + countsIn(totals);
        if (totals.passedOver != 0)
            line += "; passed over: " + counted(totals.passedOver, "files") + " of no known format";
        writeOut(line + '\n');
    }

  private:
    std::string bold(const std::string& words) const {
        return style_.isColoured ? "\x1b[1m" + words + "\x1b[0m" : words;
    }

    static std::string hiddenIn(const Tally& hidden) {
        std::string words;
        for (const Level level : {Level::kWarning, Level::kNote})
            if (hidden.of(level) != 0)
                words += (words.empty() ? "" : ", ") + std::string(nameOf(level)) + "s";
        return words;
    }

    static std::string countsIn(const CheckTotals& totals) {
        std::string words;
        for (const auto& [name, count] : totals.counts)
            words += (words.empty() ? "" : ", ") + counted(static_cast<std::size_t>(count), name);
        return words;
    }

    PageStyle style_ = styleOfOutput();
    bool isBrief_;
};

}  // namespace

std::unique_ptr<CheckOutput> textOutput(bool brief) {
    return std::make_unique<TextOutput>(brief);
}

}  // namespace kvocaeio::host
