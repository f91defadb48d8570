#include "core/pages/saved_page.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(SavedPage, ItsNameSaysItsForm) {
    struct Case {
        std::string_view name;
        SavedForm form;
    };
    for (const Case& c : {Case{"a.html", SavedForm::Complete},
                          {"a.htm", SavedForm::Complete},
                          {"a", SavedForm::Complete},
                          {"", SavedForm::Complete},
                          {"a.mhtml", SavedForm::OneFile},
                          {"A.MHT", SavedForm::OneFile},
                          {"a.b.txt", SavedForm::Text},
                          {"a.txt.html", SavedForm::Complete},
                          {"folder/a.Pdf", SavedForm::Pdf}})
        EXPECT_EQ(SavedFormOf(c.name), c.form) << c.name;
}

TEST(SavedPage, IsNamedByItsTitleElseByItsAddress) {
    struct Case {
        std::string_view title, address, name;
    };
    for (const Case& c : {
             Case{"MSFT: Summary", "http://h.example/q?s=msft", "MSFT_ Summary.pdf"},
             {" Profit/Loss 3\\4 ", "h.example", "Profit-Loss 3-4.pdf"},
             {"", "https://h.example/q/msft", "h.example-q-msft.pdf"},
             {"  ", "h.example/x", "h.example-x.pdf"},
             {"..hidden", "h.example", "hidden.pdf"},
             {"con", "h.example", "_con.pdf"},
         })
        EXPECT_EQ(PageFileName(c.title, c.address, ".pdf"), c.name) << c.title;
    const std::string name = PageFileName(std::string(5000, 'x'), "", ".html");
    EXPECT_LE(name.size(), 200U);
    EXPECT_TRUE(name.ends_with("x.html"));
}

TEST(SavedPage, PagesAreNumbered) {
    EXPECT_EQ(PageNumberText(1, 1), "Page 1 of 1");
    EXPECT_EQ(PageNumberText(12, 30), "Page 12 of 30");
}

} // namespace
} // namespace tallowmere
