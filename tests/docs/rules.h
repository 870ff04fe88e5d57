/// The numbered rules of the documentation: each shows a small input and, after arrows, its
/// outcome.
///
///     **7.** The rule in words.
///
///     ```inp
///     the input, line by line
///     => the outcome, line by line
///     ```
///
/// A line "<cube>" in an input stands for the block that opens with "```inp head cube". The word
/// "<3 blanks>" stands for three of them; see `rules.cpp` for all such words. The lines of an
/// outcome are compared with all lines of their kind that are made of the reader's tables.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvocaeio::test {

using Lines = std::vector<std::string>;

/// An input: files that one reader imports in turn.
struct Rule {
    int number = 0;
    std::string format;
    std::vector<std::string> files;
    Lines outcome;
};

/// The rules of a page of docs/, whose numbers are checked to count from 1.
std::vector<Rule> rulesOf(std::string_view page);

/// Checks that the outcome of `rule` is what stands in `shown`, kind by kind. The kind of a line is
/// its text up to the first digit, quote or colon, or up to the colon where it shows a call. The
/// line "no KIND" says that there is none.
void checkOutcome(const Rule& rule, const Lines& shown);

/// The lines of `text`, without their line feeds.
Lines splitLines(std::string_view text);

/// Text as `printf` makes it.
std::string print(const char* layout, ...);

Lines showAbaqus(const Rule& rule);
Lines showNastran(const Rule& rule);
Lines showNastranWriter(const Rule& rule);
Lines showPatran(const Rule& rule);
Lines showPatranWriter(const Rule& rule);
Lines show3di(const Rule& rule);
Lines showReports(const Rule& rule);

}  // namespace kvocaeio::test
