#include "core/portal/generated_pages.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

struct SchemeCase {
    std::string_view address;
    std::string_view scheme;
    std::string_view completed;
};

// clang-format off
constexpr SchemeCase kSchemeCases[] = {
    {"",                                   "",            ""},
    {"  ",                                 "",            ""},
    {"www.example.com",                    "",            "http://www.example.com"},
    {" www.example.com/a ",                "",            "http://www.example.com/a"},
    {"http://www.example.com",             "http",        "http://www.example.com"},
    {"HTTPS://www.example.com",            "https",       "HTTPS://www.example.com"},
    {"localhost:8080/q",                   "",            "http://localhost:8080/q"},
    {"127.0.0.1:80",                       "",            "http://127.0.0.1:80"},
    {"example.com/q?u=http://other.com",   "",            "http://example.com/q?u=http://other.com"},
    {"example.com?to=mailto:me",           "",            "http://example.com?to=mailto:me"},
    {"javascript:alert(1)",                "javascript",  "javascript:alert(1)"},
    {"JavaScript:alert(1)",                "javascript",  "JavaScript:alert(1)"},
    {"file:///etc/hosts",                  "file",        "file:///etc/hosts"},
    {"file:/etc/hosts",                    "file",        "file:/etc/hosts"},
    {"view-source:http://a",               "view-source", "view-source:http://a"},
    {"data:text/html,x",                   "data",        "data:text/html,x"},
    {"about:blank",                        "about",       "about:blank"},
    {"://x",                               "",            "http://://x"},
};
// clang-format on

TEST(AddressText, TheSchemeIsReadFromTheFrontOnly) {
    for (const SchemeCase& row : kSchemeCases)
        EXPECT_EQ(SchemeOf(row.address), row.scheme) << row.address;
}

TEST(AddressText, HttpIsPutBeforeAnAddressWithoutAScheme) {
    for (const SchemeCase& row : kSchemeCases)
        EXPECT_EQ(WithScheme(row.address), row.completed) << row.address;
}

TEST(AddressText, OnlyThePagesThatTheProgramWritesAreGeneratedPages) {
    for (const std::string_view name : {"ycs.htm", "ycl.htm", "ycprint.html", "report.html",
                                        "multiweb.html", "My chips.mlnk", "a.b.mlnk"})
        EXPECT_TRUE(IsGeneratedPageName(name)) << name;
    for (const std::string_view name :
         {"", "TickNotes.txt", "remind.txt", "tallowmere.ini", "report.html.bak", "REPORT.HTML",
          ".mlnk", "..mlnk", "../report.html", "a/b.mlnk", "a\\b.mlnk", "../x.mlnk", "/x.mlnk"})
        EXPECT_FALSE(IsGeneratedPageName(name)) << name;
    EXPECT_FALSE(IsGeneratedPageName(std::string_view("a\0.mlnk", 7)));
}

TEST(AddressText, AGeneratedPageIsNamedByItsPathInTheFolder) {
    EXPECT_EQ(GeneratedPageIn("/folders/t", "/folders/t/report.html"), "report.html");
    EXPECT_EQ(GeneratedPageIn("/folders/t", "/folders/t\\ycs.htm"), "ycs.htm");
    EXPECT_EQ(GeneratedPageIn("C:\\t", "C:\\t\\Two words.mlnk"), "Two words.mlnk");
    EXPECT_EQ(GeneratedPageIn("/folders/t", "/folders/t/TickNotes.txt"), "");
    EXPECT_EQ(GeneratedPageIn("/folders/t", "/folders/t/../report.html"), "");
    EXPECT_EQ(GeneratedPageIn("/folders/t", "/folders/tt/report.html"), "");
    EXPECT_EQ(GeneratedPageIn("/folders/t", "/folders/treport.html"), "");
    EXPECT_EQ(GeneratedPageIn("", "/report.html"), "");
}

} // namespace
} // namespace tallowmere
