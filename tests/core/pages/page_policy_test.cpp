#include "core/pages/page_policy.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::HasSubstr;
using testing::Not;

struct PolicyCase {
    std::string_view name;
    bool hasFrames;
    bool hasPictures;
};

// clang-format off
constexpr PolicyCase kPolicyCases[] = {
    {"report.html",    false, false},
    {"ycprint.html",   false, true},
    {"ycs.htm",        false, true},
    {"ycl.htm",        false, true},
    {"multiweb.html",  true,  false},
    {"My pages.mlnk",  true,  false},
};
// clang-format on

TEST(ThePolicyOfAPage, AllowsNoScriptAndOnlyWhatThePageNeeds) {
    for (const PolicyCase& row : kPolicyCases) {
        const std::string policy = PolicyOfGenerated(row.name);
        EXPECT_THAT(policy, HasSubstr("default-src 'none'")) << row.name;
        EXPECT_THAT(policy, Not(HasSubstr("script-src"))) << row.name;
        EXPECT_THAT(policy, HasSubstr("form-action 'none'")) << row.name;
        EXPECT_EQ(policy.find("frame-src") != std::string::npos, row.hasFrames) << row.name;
        EXPECT_EQ(policy.find("img-src") != std::string::npos, row.hasPictures) << row.name;
    }
}

TEST(ThePolicyOfAPage, AllowsOfAllScriptsOurOwn) {
    EXPECT_THAT(PolicyOfMade(""), Not(HasSubstr("script-src")));
    EXPECT_THAT(PolicyOfMade("abc="), HasSubstr("script-src 'sha256-abc=';"));
    EXPECT_THAT(PolicyOfMade("abc="), Not(HasSubstr("script-src 'unsafe-inline'")));
}

TEST(ThePolicyOfAPage, AllowsTextNothing) {
    EXPECT_THAT(PolicyOfText(), HasSubstr("default-src 'none'"));
    for (const char* source : {"script-src", "img-src", "frame-src"})
        EXPECT_THAT(PolicyOfText(), Not(HasSubstr(source)));
}

struct PlaceCase {
    std::string_view page;
    std::string_view before; ///< what stands in front of the policy
};

// clang-format off
constexpr PlaceCase kPlaceCases[] = {
    {"",                                      ""},
    {"<html><head></head>",                   ""},
    {"<script>first()</script><!doctype html>", ""},
    {"<!DOCTYPE html>\n<html>",               "<!DOCTYPE html>"},
    {" \r\n<!doctype html public \"x\"><p>",  " \r\n<!doctype html public \"x\">"},
    {"\xEF\xBB\xBF<!doctype html><p>",        "\xEF\xBB\xBF<!doctype html>"},
    {"\xEF\xBB\xBF<p>",                       "\xEF\xBB\xBF"},
    {"<!doctype",                             ""},
};
// clang-format on

TEST(ThePolicyOfAPage, StandsInFrontOfAllButADocumentType) {
    const std::string meta = R"(<meta http-equiv="Content-Security-Policy" content="p">)";
    for (const PlaceCase& row : kPlaceCases)
        EXPECT_EQ(WithPolicy(row.page, "p"),
                  std::string(row.before) + meta + std::string(row.page.substr(row.before.size())))
            << row.page;
}

} // namespace
} // namespace tallowmere
