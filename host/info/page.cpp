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

struct LevelStyle {
    std::string_view name;
    std::string_view colour;  ///< the sequence that begins it
};

constexpr std::array<LevelStyle, 3> kLevels = {{
    {"note", "\x1b[36m"},
    {"warning", "\x1b[1;33m"},
    {"error", "\x1b[1;31m"},
}};

const LevelStyle& styleOf(Finding::Level level) {
    return kLevels[static_cast<std::size_t>(level)];
}

std::string coloured(std::string_view words, std::string_view colour, const PageStyle& style) {
    if (!style.isColoured)
        return std::string(words);
    return std::string(colour).append(words).append("\x1b[0m");
}

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool has(std::span<const Finding> findings, Finding::Level level) {
    return std::ranges::find(findings, level, &Finding::level) != findings.end();
}

}  // namespace

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
        const LevelStyle& level = styleOf(finding.level);
        std::string front = std::string(kItemIndent, ' ') +
                            coloured(level.name, level.colour, style) +
                            std::string(kText - kItemIndent - level.name.size(), ' ');
        out << (isFirst ? "\n" : "");
        isFirst = false;
        for (const std::string& line : wrapped(finding.text, style.width - kText)) {
            out << front << line << '\n';
            front.assign(kText, ' ');
        }
    }
}

void printTotals(std::ostream& out, const Totals& totals, const PageStyle& style) {
    if (totals.files > 1)
        out << totals.files << " files, ";
    if (totals.failed != 0)
        out << coloured(std::to_string(totals.failed) + " failed",
                        styleOf(Finding::Level::kError).colour, style)
            << ", ";
    if (totals.warnings != 0)
        out << coloured(counted(totals.warnings, "warnings"),
                        styleOf(Finding::Level::kWarning).colour, style);
    else
        out << "no warnings";
    if (totals.passedOver != 0)
        out << "; passed over: " << counted(totals.passedOver, "files") << " of no known format";
    out << '\n';
}

Json asJson(std::span<const Finding> findings) {
    Json rows = Json::array();
    for (const Finding& finding : findings) {
        Json row = {{"level", styleOf(finding.level).name},
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
