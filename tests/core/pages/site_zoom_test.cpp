#include "core/pages/site_zoom.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(SiteZoom, ASiteIsAHostWithoutWwwAndWhatTheProgramMakesIsOne) {
    struct Case {
        std::string_view scheme, host, site;
    };
    for (const Case& c : {Case{"https", "www.nasdaq.com", "nasdaq.com"},
                          {"http", "nasdaq.com", "nasdaq.com"},
                          {"https", "WWW.Nasdaq.COM.", "nasdaq.com"},
                          {"https", "old.nasdaq.com", "old.nasdaq.com"},
                          {"https", "www.www.nasdaq.com", "www.nasdaq.com"},
                          {"https", "www.com", "www.com"},
                          {"https", "www.", "www"},
                          {"https", "wwwx.nasdaq.com", "wwwx.nasdaq.com"},
                          {"http", "127.0.0.1", "127.0.0.1"},
                          {"http", "::1", "::1"},
                          {"http", "localhost", "localhost"},
                          {"portal", "help", "portal:"},
                          {"portal", "www.nasdaq.com", "portal:"},
                          {"portal", "p0123.pages", "portal:"},
                          {"https", "", ""},
                          {"https", "...", ""},
                          {"https", "a b", ""},
                          {"https", "a|b", ""},
                          {"about", "", ""},
                          {"data", "", ""},
                          {"blob", "nasdaq.com", ""},
                          {"", "nasdaq.com", ""}})
        EXPECT_EQ(ZoomSite(c.scheme, c.host), c.site) << c.scheme << " " << c.host;
    EXPECT_EQ(ZoomSite("https", std::string(256, 'a')), "");
    EXPECT_EQ(ZoomSite("https", std::string(255, 'a')), std::string(255, 'a'));
}

TEST(SiteZoom, AListSaysThePercentOfEachSite) {
    const std::string_view list = "nasdaq.com 121|portal: 90|::1 25|localhost 500|nasdaq.com 50|";
    struct Case {
        std::string_view site;
        int percent;
    };
    for (const Case& c : {Case{"nasdaq.com", 121},
                          {"portal:", 90},
                          {"::1", 25},
                          {"localhost", 500},
                          {"asdaq.com", 100},
                          {"nasdaq.com ", 100},
                          {"", 100}})
        EXPECT_EQ(ZoomPercent(list, c.site), c.percent) << c.site;
    EXPECT_EQ(ZoomPercent("", "nasdaq.com"), 100);
    EXPECT_EQ(ZoomPercent("nasdaq.com 121", "nasdaq.com"), 121);
}

TEST(SiteZoom, WhatIsNoPercentIsTheUsualSize) {
    for (const std::string_view value :
         {"0", "1e9", "24", "501", "-121", "+121", "121%", "121.5", "0x79", "", " 121", "121 ",
          "99999999999999999999", "nan", "\xff", "121 130"})
        EXPECT_EQ(ZoomPercent("a.b 110|c.d " + std::string(value) + "|e.f 90", "c.d"), 100)
            << value;
    for (const std::string_view list : {"|", "||||", " ", " 121", "c.d", "c.d|121", "\n\0c.d 120|"})
        EXPECT_EQ(ZoomPercent(list, "c.d"), 100) << list;
    EXPECT_EQ(ZoomPercent("damaged|0 0|| 5|c.d 121|", "c.d"), 121);
}

TEST(SiteZoom, TheSiteThatWasSetLastStandsInFrontAndTheUsualSizeIsNotKept) {
    struct Case {
        std::string_view list, site;
        int percent;
        std::string_view expected;
    };
    for (const Case& c : {Case{"", "a.b", 121, "a.b 121|"},
                          {"a.b 121|", "c.d", 90, "c.d 90|a.b 121|"},
                          {"c.d 90|a.b 121|", "a.b", 133, "a.b 133|c.d 90|"},
                          {"c.d 90|a.b 121|", "c.d", 100, "a.b 121|"},
                          {"a.b 121|", "a.b", 100, ""},
                          {"a.b 121|", "x.y", 100, "a.b 121|"},
                          {"rubbish|e.f 1e9|a.b 121|", "c.d", 90, "c.d 90|a.b 121|"},
                          {"a.b 121|", "", 90, "a.b 121|"},
                          {"a.b 121|", "c|d", 90, "a.b 121|"},
                          {"a.b 121|c.d 90|", "a.b", 1000, "c.d 90|"}})
        EXPECT_EQ(WithZoom(c.list, c.site, c.percent), c.expected) << c.list << " " << c.site;
}

TEST(SiteZoom, TheOldestSitesGo) {
    std::string list;
    for (int n = 0; n <= 200; ++n)
        list = WithZoom(list, "s" + std::to_string(n) + ".example", 110);
    EXPECT_EQ(ZoomPercent(list, "s0.example"), 100);
    EXPECT_EQ(ZoomPercent(list, "s1.example"), 110);
    EXPECT_EQ(ZoomPercent(list, "s200.example"), 110);
    EXPECT_EQ(std::count(list.begin(), list.end(), '|'), 200);
    list = WithZoom(list, "s1.example", 120);
    EXPECT_EQ(std::count(list.begin(), list.end(), '|'), 200);
    EXPECT_EQ(ZoomPercent(list, "s2.example"), 110);
}

} // namespace
} // namespace tallowmere
