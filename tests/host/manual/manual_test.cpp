/// Manual pages and completion of a small program, compared word by word.
#include <CLI/CLI.hpp>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "manual/command.h"
#include "manual/completion.h"
#include "manual/man_page.h"

namespace kvocaeio::host {
namespace {

/// A program with an option of every kind, and with what is hidden.
class Manual : public ::testing::Test {
  protected:
    Manual() : app_("Cuts paper.", "cutter") {
        app_.footer(".5 mm at least.\nIt's \\sharp.");
        app_.add_flag("--secret")->group("");
        app_.add_subcommand("hidden", "Not told.")->group("");
        CLI::App* cut = app_.add_subcommand("cut", "Cuts each SHEET.");
        cut->set_help_flag("-h,--help", "Help.");
        cut->add_option("--unit", unit_, "Unit of the lengths [metric].")
            ->check(CLI::IsMember({"mm", "cm"}))
            ->default_str("mm");
        cut->add_option("--list", list_, "File with what's cut.");
        cut->add_option("SHEET", sheets_, "Sheets to cut.")->required();
        app_.set_help_flag();
    }

    CLI::App app_;
    std::string unit_;
    std::string list_;
    std::vector<std::string> sheets_;
};

TEST_F(Manual, DescribesWhatTheHelpShows) {
    const CommandDescription program = describe(app_);
    EXPECT_EQ(program.name, "cutter");
    EXPECT_TRUE(program.options.empty());
    ASSERT_EQ(program.commands.size(), 1U);
    const CommandDescription& cut = program.commands[0];
    ASSERT_EQ(cut.options.size(), 3U);
    EXPECT_EQ(cut.options[0].names, (std::vector<std::string>{"-h", "--help"}));
    EXPECT_EQ(cut.options[0].value, "");
    EXPECT_EQ(cut.options[1].choices, (std::vector<std::string>{"mm", "cm"}));
    EXPECT_EQ(cut.options[1].byDefault, "mm");
    EXPECT_EQ(cut.options[2].value, "TEXT");
    EXPECT_TRUE(cut.options[2].choices.empty());
    ASSERT_EQ(cut.arguments.size(), 1U);
    EXPECT_EQ(cut.arguments[0].names, (std::vector<std::string>{"SHEET"}));
    EXPECT_TRUE(cut.arguments[0].required);
    EXPECT_TRUE(cut.arguments[0].repeated);
}

TEST_F(Manual, PageOfTheProgramNamesItsCommands) {
    EXPECT_EQ(manPage(describe(app_), "1.2.3"),
              ".TH CUTTER 1 \"\" \"cutter 1.2.3\" \"User Commands\"\n"
              ".SH NAME\n"
              "cutter \\- cuts paper\n"
              ".SH SYNOPSIS\n"
              "\\fBcutter\\fR \\fICOMMAND\\fR ...\n"
              ".SH DESCRIPTION\n"
              "Cuts paper.\n"
              ".SH COMMANDS\n"
              ".TP\n"
              "\\fBcut\\fR\n"
              "Cuts each SHEET.\n"
              ".SH NOTES\n"
              "\\&.5 mm at least.\n"
              ".br\n"
              "It's \\esharp.\n"
              ".SH SEE ALSO\n"
              "\\fBcutter\\-cut\\fR(1)\n");
}

TEST_F(Manual, PageOfACommandHasArgumentsAndOptions) {
    const CommandDescription program = describe(app_);
    EXPECT_EQ(manPage(program, program.commands.at(0), "1.2.3"),
              ".TH CUTTER\\-CUT 1 \"\" \"cutter 1.2.3\" \"User Commands\"\n"
              ".SH NAME\n"
              "cutter\\-cut \\- cuts each SHEET\n"
              ".SH SYNOPSIS\n"
              "\\fBcutter\\fR \\fBcut\\fR [\\fIOPTIONS\\fR] \\fISHEET\\fR ...\n"
              ".SH DESCRIPTION\n"
              "Cuts each SHEET.\n"
              ".SH ARGUMENTS\n"
              ".TP\n"
              "\\fISHEET\\fR\n"
              "Sheets to cut.\n"
              ".SH OPTIONS\n"
              ".TP\n"
              "\\fB\\-h\\fR, \\fB\\-\\-help\\fR\n"
              "Help.\n"
              ".TP\n"
              "\\fB\\-\\-unit\\fR \\fImm|cm\\fR\n"
              "Unit of the lengths [metric].\n"
              "Default: \\fBmm\\fR.\n"
              ".TP\n"
              "\\fB\\-\\-list\\fR \\fITEXT\\fR\n"
              "File with what's cut.\n"
              ".SH NOTES\n"
              "\\&.5 mm at least.\n"
              ".br\n"
              "It's \\esharp.\n"
              ".SH SEE ALSO\n"
              "\\fBcutter\\fR(1)\n");
}

TEST_F(Manual, CompletionQuotesWhatTheShellsWouldTake) {
    const CommandDescription program = describe(app_);
    EXPECT_NE(bashCompletion(program).find("--unit) mapfile -t COMPREPLY < <(compgen -W 'mm cm'"),
              std::string::npos);
    const std::string zsh = zshCompletion(program);
    EXPECT_NE(zsh.find("'(-h --help)'{-h,--help}'[Help.]'"), std::string::npos);
    EXPECT_NE(zsh.find("'--unit[Unit of the lengths \\[metric\\].]:TEXT:(mm cm)'"),
              std::string::npos);
    EXPECT_NE(zsh.find("'--list[File with what'\\''s cut.]:TEXT:_files'"), std::string::npos);
    EXPECT_NE(zsh.find("'*:SHEET:_files'"), std::string::npos);
    EXPECT_EQ(fishCompletion(program),
              "complete -c cutter -n __fish_use_subcommand -f -a cut -d 'Cuts each SHEET.'\n"
              "complete -c cutter -n '__fish_seen_subcommand_from cut' -s h -l help -d 'Help.'\n"
              "complete -c cutter -n '__fish_seen_subcommand_from cut' -l unit -x -a 'mm cm' -d "
              "'Unit of the lengths [metric].'\n"
              "complete -c cutter -n '__fish_seen_subcommand_from cut' -l list -r -d 'File with "
              "what\\'s cut.'\n");
}

}  // namespace
}  // namespace kvocaeio::host
