#include "core/shell/command_options.h"

#include <gmock/gmock.h>

#include <sstream>

namespace tallowmere {
namespace {

TEST(CommandOptions, TheHelpStandsInColumnsOfALineThatATerminalHolds) {
    EXPECT_EQ(HelpText(),
              "Usage: tallowmere [options]\n"
              "A desktop research browser for private stock investors.\n"
              "\n"
              "  --web live|sample|direct  where addresses lead: to today's web (default), to\n"
              "                            the built-in portal with its invented sample\n"
              "                            market, or as built\n"
              "  --profile DIR             keep settings and files in DIR\n"
              "  --sites FILE              use FILE as the table of sites\n"
              "  --version                 print the version and end\n"
              "  --help                    print this text and end\n");
}

TEST(CommandOptions, TheManualPageHasEveryOptionWithWhatItTakesAndMeans) {
    const std::string page = ManualPage();
    EXPECT_THAT(page, testing::StartsWith(".TH TALLOWMERE 1 \"\" \"Tallowmere " TALLOWMERE_VERSION
                                          "\" \"User Commands\"\n.SH NAME\ntallowmere \\- "));
    EXPECT_THAT(page, testing::HasSubstr(".TP\n.B \\-\\-web \\fIlive|sample|direct\\fR\n"
                                         "where addresses lead: to today\\(aqs web (default), to "
                                         "the built\\-in portal with its invented sample market, "
                                         "or as built\n"));
    for (const CommandOption& option : kCommandOptions)
        EXPECT_THAT(page, testing::HasSubstr("\n.B \\-\\-" + std::string(option.name)));
    for (const char* section : {"SYNOPSIS", "DESCRIPTION", "OPTIONS", "FILES", "EXIT STATUS"})
        EXPECT_THAT(page, testing::HasSubstr("\n.SH " + std::string(section) + "\n"));
}

} // namespace
} // namespace tallowmere
