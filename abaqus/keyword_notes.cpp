/// Keyword lines looked at once more, for the wording of their findings.
#include "abaqus/keyword_notes.h"

#include <algorithm>
#include <span>
#include <string>

#include "abaqus/deck_counts.h"
#include "abaqus/deck_scanner.h"
#include "abaqus/keywords.h"
#include "text/ascii.h"
#include "text/scan.h"

namespace kvocaeio::abaqus {

namespace {

using text::trimSpace;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kMostNameLength = 79;

/// A parameter that a section reader takes.
struct TakenParameter {
    std::string_view name;
    const text::Delimiters* value = nullptr;  // null for a flag
    bool isName = false;                      // records hand it out
};

constexpr TakenParameter kElementParameters[] = {{"TYPE", &kOpenValue},
                                                 {"ELSET", &kOpenValue, true}};
constexpr TakenParameter kElsetParameters[] = {
    {"ELSET", &kClosedValue, true}, {"GENERATE"}, {"INTERNAL"}};
constexpr TakenParameter kSurfaceParameters[] = {{"TYPE", &kClosedValue}, {"NAME", &kOpenValue}};
constexpr TakenParameter kShellParameters[] = {{"MATERIAL", &kOpenValue},
                                               {"ELSET", &kOpenValue, true}};

std::span<const TakenParameter> parametersOf(std::string_view keyword) {
    if (keyword == "*ELEMENT")
        return kElementParameters;
    if (keyword == "*ELSET")
        return kElsetParameters;
    if (keyword == "*SURFACE")
        return kSurfaceParameters;
    if (keyword == "*SHELL SECTION")
        return kShellParameters;
    return {};
}

/// A parameter as the format has it: a quoted value is one value, blanks around it do not count.
struct WrittenParameter {
    std::string_view name;
    std::string_view value;
    bool hasValue = false;
};

// Takes the next parameter of what is left of a keyword line.
WrittenParameter takeParameter(std::string_view& rest) {
    std::size_t end = 0;
    bool isQuoted = false;
    for (; end < rest.size() && (isQuoted || rest[end] != ','); ++end)
        isQuoted = isQuoted != (rest[end] == '"');
    const std::string_view field = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    const std::size_t equals = std::min(field.find('='), field.size());
    const bool hasValue = equals < field.size();
    return {trimSpace(field.substr(0, equals)),
            hasValue ? trimSpace(field.substr(equals + 1)) : std::string_view(), hasValue};
}

// Their names hold the mark of a shell: plane stress, gaskets of it, line springs.
constexpr std::string_view kFlatFamilies[] = {"CPS", "GKPS", "LS3"};
// Elements that are no solids, shells or other bodies with faces.
constexpr std::string_view kOtherFamilies[] = {
    "MASS", "ROTARYI", "HEATCAP", "SPRING", "DASHPOT", "JOINT", "GAP",  "B2",
    "B3",   "PIPE",    "ELBOW",   "FRAME",  "T2",      "T3",    "CONN", "R2D2",
    "RB2",  "RB3",     "DCOUP",   "ITS",    "DC1D",    "DCC1D", "AC1D", "F2D2"};

bool beginsWithOne(std::string_view name, std::span<const std::string_view> families) {
    return std::ranges::any_of(families, [&](auto family) { return name.starts_with(family); });
}

/// The parameters of one keyword line and what the section reader takes of them.
class ParameterNotes {
  public:
    ParameterNotes(DeckLines& lines, std::string_view keywordLine, std::string_view keyword)
        : lines_(lines), keywordLine_(keywordLine), keyword_(keyword) {}

    void noteAll() {
        const std::size_t keywordEnd = std::min(keywordLine_.find(','), keywordLine_.size() - 1);
        std::string_view rest = keywordLine_.substr(keywordEnd + 1);
        while (!rest.empty())
            if (const WrittenParameter written = takeParameter(rest); !written.name.empty())
                note(written);
    }

  private:
    void note(const WrittenParameter& written) {
        const auto taken = parametersOf(keyword_);
        const auto known = std::ranges::find(taken, written.name, &TakenParameter::name);
        if (written.name == "INPUT")
            lines_.note(Finding::kInputFile, asInFile(written.value), keyword_);
        else if (written.name == "SYSTEM" && keyword_ == "*NODE" && written.value != "R")
            lines_.note(Finding::kCoordinateSystem, asInFile(written.name), "SYSTEM of *NODE");
        else if (known == taken.end())
            lines_.note(Finding::kParameterIgnored, asInFile(written.name), of(written.name));
        else if (known->value == nullptr)
            noteFlag(written);
        else
            noteValue(written, *known);
    }

    void noteFlag(const WrittenParameter& written) {
        if (!hasFlag(keywordLine_, written.name))
            lines_.note(Finding::kParameterMisread, asInFile(written.name), of(written.name));
    }

    void noteValue(const WrittenParameter& written, const TakenParameter& known) {
        const std::string_view value = parameterValue(keywordLine_, known.name, *known.value);
        // Blanks in a type do not matter: its text is searched.
        const bool isSame =
            value == written.value || (!known.isName && trimSpace(value) == written.value);
        if (!isSame)
            lines_.note(Finding::kParameterMisread, asInFile(written.value), of(written.name));
        if (known.isName && value.size() > kMostNameLength)
            lines_.note(Finding::kNameCut, asInFile(value));
    }

    // The same characters of the line in hand, which is not in upper case.
    std::string_view asInFile(std::string_view part) const {
        if (part.empty())
            return lines_.line().substr(0, 0);
        const auto at = static_cast<std::size_t>(part.data() - keywordLine_.data());
        return lines_.line().substr(at, part.size());
    }

    std::string of(std::string_view name) const {
        return std::string(name.substr(0, text::FindingEntry::kMostSubject / 2)) + " of " +
               std::string(keyword_);
    }

    DeckLines& lines_;
    std::string_view keywordLine_;
    std::string_view keyword_;
};

bool isKeyword(std::string_view text) {
    return text.starts_with('*') && !text.starts_with("**");
}

bool isSectionKeyword(std::string_view keyword) {
    return std::ranges::any_of(kSectionReaders<DeckCounts>,
                               [&](const auto& reader) { return reader.keyword == keyword; });
}

void noteKeyword(DeckLines& lines, std::string_view keyword) {
    const auto [finding, meaning] = meaningOf(keyword);
    std::string subject(keyword);
    if (!meaning.empty())
        subject += " (" + std::string(meaning) + ")";
    lines.noteNamed(finding, subject);
}

// What stands behind a byte order mark on the first line.
void noteMarkedLine(DeckLines& lines, std::string_view keyword) {
    lines.meetKeyword();
    if (isSectionKeyword(keyword))
        return lines.noteNamed(Finding::kKeywordHidden, keyword);
    lines.note(Finding::kByteOrderMark);
    if (isKeyword(keyword))
        noteKeyword(lines, keyword);
}

}  // namespace

void noteEncoding(DeckLines& lines) {
    if (!lines.areNoted() || !lines.next())
        return;
    const std::string_view line = lines.line();
    if (line.starts_with("\xFF\xFE") || line.starts_with("\xFE\xFF")) {
        lines.note(Finding::kEncoding, line.substr(0, 0));
        lines.meetKeyword();
    } else {
        lines.noteNulsAs(Finding::kNulCharacter);
    }
    lines.giveBack();
}

void noteUnknownLine(DeckLines& lines, std::string_view keyword) {
    if (!lines.areNoted())
        return;
    if (keyword.starts_with(kByteOrderMark))
        return noteMarkedLine(lines, trimSpace(keyword.substr(kByteOrderMark.size())));
    if (keyword.starts_with("**"))
        return;
    if (keyword.starts_with('*')) {
        lines.meetKeyword();
        return noteKeyword(lines, keyword);
    }
    if (!lines.hasMetKeyword() && !trimSpace(keyword).empty())
        lines.note(Finding::kLineOutside);
}

void noteSkippedLine(DeckLines& lines) {
    if (!lines.areNoted())
        return;
    const std::string_view line = lines.line();
    const std::string_view text = trimSpace(line);
    if (!lines.hasMetKeyword() && !text.empty() && !text.starts_with('*'))
        lines.note(Finding::kLineOutside);
    if (!line.starts_with('*') && isKeyword(text))
        noteIndentedKeyword(lines, text);
}

void noteIndentedKeyword(DeckLines& lines, std::string_view text) {
    std::string keyword;
    text::foldToUpper(trimSpace(text.substr(0, text.find(','))), keyword);
    lines.note(Finding::kKeywordIndented, text.substr(0, 1), keyword);
}

void noteKeywordLine(DeckLines& lines, std::string_view keywordLine, std::string_view keyword) {
    if (!lines.areNoted())
        return;
    lines.meetKeyword();
    ParameterNotes(lines, keywordLine, keyword).noteAll();
    if (trimSpace(keywordLine).ends_with(',')) {
        lines.noteNamed(Finding::kKeywordContinued, keyword);
        lines.continueKeyword();
    }
}

void noteElementType(DeckLines& lines, std::string_view keywordLine, std::string_view typeValue,
                     ElementType type) {
    if (!lines.areNoted() || type.geometry == GeometryType::kSolid)
        return;
    const std::string_view name = trimSpace(typeValue);
    Finding finding = Finding::kElementTypeFlat;
    if (type.geometry == GeometryType::kUnknown)
        finding = beginsWithOne(name, kOtherFamilies) ? Finding::kElementTypeOther
                                                      : Finding::kElementTypeUnknown;
    else if (!beginsWithOne(name, kFlatFamilies))
        return;
    if (name.empty())
        return lines.noteNamed(finding, "(none)");
    const auto at = static_cast<std::size_t>(name.data() - keywordLine.data());
    lines.note(finding, lines.line().substr(at, name.size()), name);
}

void noteEndOfReading(DeckLines& lines, Finding finding) {
    if (!lines.areNoted())
        return;
    const text::LinePlace place = lines.place();
    const std::size_t lost = lines.linesAfter();
    const std::string what = lost == 1 ? "1 line after it is not read"
                                       : std::to_string(lost) + " lines after it are not read";
    lines.noteAt(finding, {place.line, 0}, what);
}

}  // namespace kvocaeio::abaqus
