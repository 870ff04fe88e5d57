/// Statements, their continuation, and includes between them.
#include "tidy/abaqus/deck_lines.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "text/scan.h"
#include "tidy/abaqus/fields.h"

namespace kvocaeio::tidy::abaqus {

namespace {

// Of longer lines, with their ends, the reader takes the rest for further lines.
constexpr std::size_t kMostPiece = 509;

// Parameters without a value that may stand alone in a line.
constexpr std::string_view kFlags[] = {"GENERATE", "INTERNAL", "UNSORTED", "COMPOSITE",
                                       "REFLECT",  "SHIFT",    "POLE",     "TWO STEP"};

// Whether a line can continue a keyword line that ends with a comma: it names a parameter. Many a
// keyword line ends with a comma that means nothing, before data that may be names of sets.
bool continuesKeyword(std::string_view line) {
    const std::string first = nameOf(line.substr(0, line.find(',')));
    return !first.starts_with('*') && (first.find('=') != std::string::npos ||
                                       std::ranges::find(kFlags, first) != std::end(kFlags));
}

}  // namespace

bool DeckLines::take() {
    if (isHeld_) {
        isHeld_ = false;
        return true;
    }
    if (!files_.next())
        return false;
    line_ = files_.line();
    if (files_.hasReturnsAlone())
        setNeeded();
    if (files_.hasByteOrderMark())
        change(Finding::kByteOrderMark, line());
    if (!parameters_.isEmpty())
        putParameters();
    if (line().size() > kMostPiece)
        change(Finding::kLineSplit, line());
    return true;
}

// Values that the reader needs are told; in other statements they change nothing.
void DeckLines::putParameters() {
    if (!parameters_.substitute(files_.line(), substituted_))
        return;
    if (isPlainExpected_ || trimmed(line_).starts_with('*'))
        change(Finding::kParameter, line_);
    line_ = substituted_;
}

// Whether the line taken last is data of the present statement. Otherwise it is passed over, or it
// is a statement that is kept for later.
bool DeckLines::isData() {
    const std::string_view line = line_;
    std::size_t at = 0;
    while (at < line.size() && text::isSpace(line[at]))
        ++at;
    if (at == line.size()) {
        if (isPlainExpected_)
            change(Finding::kBlankLine, line);
        return false;
    }
    if (line[at] != '*')
        return true;
    if (at + 1 < line.size() && line[at + 1] == '*') {
        if (isInside_ || (at > 0 && isPlainExpected_))
            change(Finding::kCommentInside, line);
        return false;
    }
    keywordLine_ = line.substr(at);
    keywordPlace_ = place(line.substr(at));
    hasKeyword_ = true;
    if (at > 0)
        change(Finding::kKeywordIndented, line.substr(at));
    return false;
}

bool DeckLines::nextData() {
    while (!hasKeyword_ && take()) {
        if (isData())
            return true;
        if (hasKeyword_)
            followInclude();
    }
    return false;
}

// An include is no statement of its own: the data of the present one may go on in the file.
bool DeckLines::followInclude() {
    constexpr std::string_view kInclude = "*INCLUDE";
    std::string folded;
    for (const char c : std::string_view(keywordLine_).substr(0, kInclude.size() + 1))
        folded += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    if (!folded.starts_with(kInclude))
        return false;
    Statement statement;
    statement.parse(keywordLine_);
    if (statement.keyword != kInclude.substr(1))
        return false;
    hasKeyword_ = false;
    if (statement.value("INPUT").empty()) {
        joinContinued();
        statement.parse(keywordLine_);
    }
    setNeeded();
    includeNamed(statement);
    return true;
}

void DeckLines::includeNamed(const Statement& statement) {
    std::string_view name = statement.value("INPUT");
    if (name.size() > 1 && (name.front() == '"' || name.front() == '\''))
        name = name.substr(1, name.size() - 2);
    files_.include(trimmed(name));
    line_ = {};
}

// Takes the lines after one that ends with a comma.
void DeckLines::joinContinued() {
    while (trimmed(keywordLine_).ends_with(',')) {
        if (!take())
            return;
        if (trimmed(line()).starts_with("**"))
            continue;
        if (!continuesKeyword(line())) {
            isHeld_ = true;
            return;
        }
        change(Finding::kKeywordContinued, line());
        keywordLine_ += line();
    }
}

bool DeckLines::nextStatement(Statement& statement) {
    isPlainExpected_ = false;
    isInside_ = false;
    while (nextData()) {
    }
    if (!hasKeyword_)
        return false;
    hasKeyword_ = false;
    joinContinued();
    statement.parse(keywordLine_);
    std::swap(statementLine_, keywordLine_);
    statementPlace_ = keywordPlace_;
    return true;
}

void DeckLines::expectPlain(const Statement& statement, std::string_view kept) {
    isPlainExpected_ = true;
    if (!statement.isPlain(kept))
        changeStatement(Finding::kKeywordForm, statement.title);
}

bool DeckLines::tellTabs() {
    const std::size_t tab = line().find('\t');
    if (tab == std::string_view::npos)
        return false;
    change(Finding::kTab, line().substr(tab));
    return true;
}

void DeckLines::includeInput(const Statement& statement) {
    if (!statement.has("INPUT"))
        return;
    setNeeded();
    includeNamed(statement);
}

}  // namespace kvocaeio::tidy::abaqus
