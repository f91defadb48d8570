#include "core/shell/command_guide.h"

#include "core/text/bytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tallowmere {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(CommandGuide, PutsInTheFirstShortcutOfACommand) {
    const CommandChords chords = {
        {"findInPage", {"F3", "Ctrl+F"}}, {"undo", {}}, {"exit", {"Ctrl+<"}}};
    struct Case {
        std::string_view page, filled;
    };
    for (const Case& c : {
             Case{"a <kbd data-command=\"findInPage\"></kbd> b", "a <kbd>F3</kbd> b"},
             {"<kbd data-command=\"undo\"></kbd>", "<kbd>no key</kbd>"},
             {"<kbd data-command=\"exit\"></kbd>", "<kbd>Ctrl+&lt;</kbd>"},
             {"<kbd data-command=\"none\"></kbd>!", "<kbd data-command=\"none\"></kbd>!"},
             {"<kbd data-command=\"undo", "<kbd data-command=\"undo"},
             {"<kbd>x</kbd>", "<kbd>x</kbd>"},
             {"", ""},
         })
        EXPECT_EQ(WithShortcuts(c.page, chords), c.filled) << c.page;
}

TEST(CommandGuide, ListsWhatHasAShortcutAndJoinsWhatDoesTheSame) {
    const CommandChords chords = {{"selectPortfolio1", {"Alt+1"}},
                                  {"selectPortfolio2", {}},
                                  {"selectPortfolio3", {"Alt+3"}},
                                  {"undo", {}},
                                  {"help", {"F1", "Ctrl+H"}}};
    EXPECT_EQ(WithShortcuts("<tbody data-commands></tbody>", chords),
              "<tbody>\n<tr><td>Alt+1, Alt+3</td><td>choose a portfolio</td></tr>\n"
              "<tr><td>F1, Ctrl+H</td><td>this guide</td></tr>\n</tbody>");
}

TEST(CommandGuide, TheGuideThatShipsHasNoOtherMarks) {
    std::ifstream file(TALLOWMERE_SOURCE_DIR "/data/help/index.html", std::ios::binary);
    const std::string page(std::istreambuf_iterator<char>(file), {});
    EXPECT_GE(CountOccurrences(page, "data-command=\""), 8U);
    const std::string filled = WithShortcuts(page, ShippedChords());
    EXPECT_THAT(filled, Not(HasSubstr("data-command")));
    EXPECT_THAT(filled, HasSubstr("<td>F5, Ctrl+R</td><td>load the page again</td>"));
    EXPECT_THAT(filled, Not(HasSubstr("no key")));
}

} // namespace
} // namespace tallowmere
