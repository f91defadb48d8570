#include "core/pages/passage.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

struct PassageCase {
    std::string_view scheme;
    Passage mainFrame; ///< started by a form, a script, a redirect
    Passage frame;
    Passage clicked;  ///< a link that the user clicked, in the page
    Passage inAFrame; ///< the same in one of its frames
};

using enum Passage;

// clang-format off
constexpr PassageCase kPassageCases[] = {
    {"http",            Shown,   Shown,   Shown,   Shown},
    {"https",           Shown,   Shown,   Shown,   Shown},
    {"portal",          Shown,   Shown,   Shown,   Shown},
    {"about",           Shown,   Shown,   Shown,   Shown},
    {"data",            Refused, Shown,   Refused, Shown},
    {"blob",            Refused, Shown,   Refused, Shown},
    {"mailto",          Refused, Refused, Mail,    Mail},
    {"file",            Refused, Refused, Refused, Refused},
    {"smb",             Refused, Refused, Refused, Refused},
    {"x",               Refused, Refused, Refused, Refused},
    {"ftp",             Refused, Refused, Refused, Refused},
    {"tel",             Refused, Refused, Refused, Refused},
    {"ms-msdt",         Refused, Refused, Refused, Refused},
    {"javascript",      Refused, Refused, Refused, Refused},
    {"view-source",     Refused, Refused, Refused, Refused},
    {"chrome",          Refused, Refused, Refused, Refused},
    {"filesystem",      Refused, Refused, Refused, Refused},
    {"",                Refused, Refused, Refused, Refused},
};
// clang-format on

TEST(ThePassageOfAPage, FollowsOneRuleForAll) {
    for (const PassageCase& row : kPassageCases) {
        EXPECT_EQ(PassageOf(row.scheme, {true, false}), row.mainFrame) << row.scheme;
        EXPECT_EQ(PassageOf(row.scheme, {false, false}), row.frame) << row.scheme;
        EXPECT_EQ(PassageOf(row.scheme, {true, true}), row.clicked) << row.scheme;
        EXPECT_EQ(PassageOf(row.scheme, {false, true}), row.inAFrame) << row.scheme;
    }
}

} // namespace
} // namespace tallowmere
