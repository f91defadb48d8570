#include "core/portal/generated_pages.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

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
