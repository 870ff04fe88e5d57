/// Findings, sums and the style of the page.
#include "info/page.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <ostream>

#include "counted.h"
#include "display_width.h"
#include "platform.h"

namespace kvocaeio::host {

namespace {

constexpr std::size_t kLeastWidth = 80;

// The sequences that begin them, in the order of the levels.
constexpr std::array<std::string_view, 3> kColours = {"\x1b[36m", "\x1b[1;33m", "\x1b[1;31m"};

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool has(std::span<const Finding> findings, Finding::Level level) {
    return std::ranges::find(findings, level, &Finding::level) != findings.end();
}

}  // namespace

std::string coloured(std::string_view words, Level level, const PageStyle& style) {
    if (!style.isColoured)
        return std::string(words);
    return std::string(kColours[static_cast<std::size_t>(level)]).append(words).append("\x1b[0m");
}

PageStyle styleOfOutput() {
    PageStyle style;
    const std::size_t columns = terminalColumns();
    style.width = columns;
    if (columns == 0 && isSet("COLUMNS"))
        style.width = std::strtoul(std::getenv("COLUMNS"), nullptr, 10);
    style.width = std::max(style.width, kLeastWidth);
    const char* terminal = std::getenv("TERM");
    const bool isDumb = terminal != nullptr && std::string_view(terminal) == "dumb";
    style.isColoured = columns != 0 && !isSet("NO_COLOR") && !isDumb;
    return style;
}

void Totals::add(std::span<const Finding> findings) {
    ++files;
    failed += has(findings, Finding::Level::kError) ? 1u : 0u;
    warnings += static_cast<std::size_t>(
        std::ranges::count(findings, Finding::Level::kWarning, &Finding::level));
}

std::string_view statusOf(std::span<const Finding> findings) {
    if (has(findings, Finding::Level::kError))
        return "failed";
    return has(findings, Finding::Level::kWarning) ? "warnings" : "ok";
}

void printFindings(std::ostream& out, std::span<const Finding> findings, const PageStyle& style) {
    constexpr std::size_t kItemIndent = 2;
    constexpr std::size_t kText = 11;  // where the text begins
    bool isFirst = true;
    for (const Finding& finding : findings) {
        if (finding.level == Finding::Level::kError)
            continue;  // told on standard error
        const std::string_view level = nameOf(finding.level);
        std::string front = std::string(kItemIndent, ' ') + coloured(level, finding.level, style) +
                            std::string(kText - kItemIndent - level.size(), ' ');
        out << (isFirst ? "\n" : "");
        isFirst = false;
        for (const std::string& line : wrapped(finding.text, style.width - kText)) {
            out << front << line << '\n';
            front.assign(kText, ' ');
        }
    }
}

void printTotals(std::ostream& out, const Totals& totals, const PageStyle& style) {
    const std::string closing =
        closingLine(totals.imported, totals.importedFiles, totals.isTidied, style);
    std::vector<std::string> words;
    if (totals.files > 1)
        words.push_back(counted(totals.files, "files"));
    if (totals.failed != 0)
        words.push_back(coloured(std::to_string(totals.failed) + " failed", Level::kError, style));
    if (totals.warnings != 0)
        words.push_back(coloured(counted(totals.warnings, "warnings"), Level::kWarning, style));
    else if (closing.empty())
        words.push_back("no warnings");
    std::string line;
    for (const std::string& word : words)
        line += (line.empty() ? "" : ", ") + word;
    if (totals.passedOver != 0)
        line += (line.empty() ? "" : "; ") + std::string("passed over: ") +
                counted(totals.passedOver, "files") + " of no known format";
    if (!line.empty())
        out << line << '\n';
    out << closing;
}

std::string summaryOf(const Tally& tally, std::size_t files, const PageStyle& style) {
    std::string words;
    for (const Level level : {Level::kError, Level::kWarning, Level::kNote})
        if (const std::size_t number = tally.of(level); number != 0)
            words += (words.empty() ? "" : ", ") +
                     coloured(counted(number, std::string(nameOf(level)) + "s"), level, style);
    return (words.empty() ? "no findings" : words) + " in " + counted(files, "files");
}

std::string closingLine(const Tally& tally, std::size_t files, bool isTidied,
                        const PageStyle& style) {
    if (tally.of(Level::kWarning) + tally.of(Level::kError) == 0)
        return "";
    return "import: " + summaryOf(tally, files, style) + "; kvocaeio check " +
           (isTidied ? "--tidy " : "") + "lists them\n";
}

Json asJson(std::span<const Finding> findings) {
    Json rows = Json::array();
    for (const Finding& finding : findings) {
        Json row = {{"level", nameOf(finding.level)},
                    {"code", finding.code},
                    {"count", finding.count},
                    {"text", finding.text}};
        if (!finding.paths.empty())
            row["paths"] = finding.paths;
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace kvocaeio::host
