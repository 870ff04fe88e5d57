/// The rules read out of a page.
#include "docs/rules.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <gtest/gtest.h>
#include <map>
#include <regex>

#include "support/files.h"

namespace kvocaeio::test {

namespace {

constexpr std::string_view kArrow = "=> ";
constexpr std::string_view kNextFile = "<next file>";

// What the words in an input stand for; a word may have a number in front.
const std::map<std::string, std::string>& bytesOfWords() {
    static const std::map<std::string, std::string> bytes = {
        {"blank", " "},      {"blanks", " "}, {"commas", ","},     {"NUL", {'\0'}},
        {"byte 1A", "\x1a"}, {"TAB", "\t"},   {"CR", "\r"},        {"BOM", "\xef\xbb\xbf"},
        {"letters", "x"},    {"zeros", "0"},  {"no line end", ""},
    };
    return bytes;
}

std::string expandWords(const std::string& text) {
    static const std::regex word("<(?:(\\d+) )?([A-Za-z][A-Za-z0-9 ]*)>(\n?)");
    std::string result;
    auto from = text.cbegin();
    for (std::sregex_iterator it(text.begin(), text.end(), word), end; it != end; ++it) {
        const auto bytes = bytesOfWords().find((*it)[2]);
        if (bytes == bytesOfWords().end())
            continue;
        result.append(from, (*it)[0].first);
        for (int i = (*it)[1].matched ? std::stoi((*it)[1]) : 1; i > 0; --i)
            result += bytes->second;
        if (bytes->first != "no line end")
            result += (*it)[3];
        from = (*it)[0].second;
    }
    return result.append(from, text.cend());
}

std::string kindOf(const std::string& line) {
    if (line.starts_with("no "))
        return line.substr(3);
    std::string kind = line.substr(0, line.find(':'));
    if (kind.find('(') == std::string::npos)
        kind.resize(std::min(kind.size(), kind.find_first_of("0123456789\"")));
    return kind.substr(0, kind.find_last_not_of(" -") + 1);
}

Lines linesOfKind(const Lines& lines, const std::string& kind) {
    Lines found;
    for (const std::string& line : lines)
        if (kindOf(line) == kind && !line.starts_with("no "))
            found.push_back(line);
    return found;
}

std::string joined(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

// A block between fences: the name that later inputs know it by, its input and its outcome.
struct Block {
    std::string format, name, input;
    Lines outcome;
};

Block readBlock(const Lines& lines, std::size_t& at) {
    Block block;
    std::smatch info;
    std::regex_match(lines[at], info, std::regex("```(\\S+)(?: head (.+))?.*"));
    block.format = info[1];
    block.name = info[2];
    for (++at; at < lines.size() && lines[at] != "```"; ++at)
        if (lines[at].starts_with(kArrow))
            block.outcome.push_back(lines[at].substr(kArrow.size()));
        else
            block.input += lines[at] + "\n";
    return block;
}

// The files of an input; a line "<NAME>" stands for the block of that name.
std::vector<std::string> filesOf(const std::string& input,
                                 const std::map<std::string, std::string>& heads) {
    std::vector<std::string> files(1);
    for (const std::string& line : splitLines(input))
        if (line == kNextFile)
            files.emplace_back();
        else if (const auto head = heads.find(line); head != heads.end())
            files.back() += head->second;
        else
            files.back() += line + "\n";
    for (std::string& file : files)
        file = expandWords(file);
    return files;
}

}  // namespace

Lines splitLines(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::string print(const char* layout, ...) {
    std::va_list arguments;
    va_start(arguments, layout);
    char text[4096];
    std::vsnprintf(text, sizeof text, layout, arguments);
    va_end(arguments);
    return text;
}

std::vector<Rule> rulesOf(std::string_view page) {
    const Lines lines =
        splitLines(readText(std::string(KVOCAEIO_SOURCES) + "/docs/" + std::string(page)));
    EXPECT_FALSE(lines.empty()) << page;
    std::vector<Rule> rules;
    std::map<std::string, std::string> heads;
    int number = 0;
    std::smatch match;
    for (std::size_t at = 0; at < lines.size(); ++at) {
        if (std::regex_search(lines[at], match, std::regex("^\\*\\*(\\d+)\\.\\*\\* "))) {
            EXPECT_EQ(std::stoi(match[1]), number + 1) << page;
            number = std::stoi(match[1]);
        } else if (lines[at].starts_with("```")) {
            const Block block = readBlock(lines, at);
            if (!block.name.empty())
                heads["<" + block.name + ">"] = block.input;
            if (!block.outcome.empty())
                rules.push_back({number, block.format, filesOf(block.input, heads), block.outcome});
        }
    }
    return rules;
}

void checkOutcome(const Rule& rule, const Lines& shown) {
    Lines kinds;
    for (const std::string& line : rule.outcome)
        if (std::find(kinds.begin(), kinds.end(), kindOf(line)) == kinds.end())
            kinds.push_back(kindOf(line));
    for (const std::string& kind : kinds)
        EXPECT_EQ(joined(linesOfKind(rule.outcome, kind)), joined(linesOfKind(shown, kind)))
            << "rule " << rule.number << ", " << kind;
}

}  // namespace kvocaeio::test
