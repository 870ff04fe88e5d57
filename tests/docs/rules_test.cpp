/// The rules of each format's page: what a page says of an input is what comes of it.
#include "docs/rules.h"

#include <gtest/gtest.h>
#include <map>

namespace kvocaeio::test {
namespace {

using Show = Lines (*)(const Rule&);

void checkPage(const char* page, std::size_t leastRules, const std::map<std::string, Show>& shows) {
    const std::vector<Rule> rules = rulesOf(page);
    EXPECT_GE(rules.size(), leastRules);
    for (const Rule& rule : rules) {
        const auto show = shows.find(rule.format);
        ASSERT_NE(show, shows.end()) << rule.format;
        checkOutcome(rule, show->second(rule));
    }
}

TEST(Documentation, RulesOfAbaqusDecks) {
    checkPage("abaqus.md", 74, {{"inp", showAbaqus}});
}

TEST(Documentation, RulesOfNastranDecks) {
    checkPage("nastran.md", 39, {{"nastran", showNastran}, {"calls", showNastranWriter}});
}

TEST(Documentation, RulesOfPatranFiles) {
    checkPage("patran.md", 34, {{"patran", showPatran}, {"calls", showPatranWriter}});
}

TEST(Documentation, RulesOf3diFiles) {
    checkPage("package.md", 48, {{"3di", show3di}});
}

TEST(Documentation, RulesOfCadenceReports) {
    checkPage("cadence.md", 23, {{"reports", showReports}});
}

}  // namespace
}  // namespace kvocaeio::test
