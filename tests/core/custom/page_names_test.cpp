#include "core/custom/page_names.h"

#include "core/custom/custom_link.h"
#include "core/links/address.h"
#include "core/sites/site_table.h"
#include "shipped_files.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tallowmere {
namespace {

TEST(PageNames, AreTheWordsOfTheLinkOrTheHost) {
    const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "page_names";
    std::filesystem::remove_all(folder);
    SettingsStore settings(folder / "settings.ini");
    SaveCustomLink(settings, 101,
                   {"https://forum.test/t/LEFTONE/LCASETICK?page=1", "My forum", {}});
    SaveCustomLink(settings, 102, {"plain.test/today", "News", {}});
    SaveCustomLink(settings, 103, {"MULTILINK:Three.mlnk", "Three", {}});
    const SiteTable sites = ShippedSites();
    const PageNames names(sites, settings);
    const std::string quote =
        BuildAddress(Catalogue()[3], FormsOf("MSFT"), sites, Date{2026, 11, 21});
    struct Case {
        std::string address, name;
    };
    for (const Case& c : {Case{quote, "Full Yahoo! Quote"},
                          {"http://" + quote, "Full Yahoo! Quote"},
                          {"biz.yahoo.com/p/m/msft.html", "Yahoo! Profile Sheet"},
                          {"https://forum.test/t/m/msft?page=1", "My forum"},
                          {"http://plain.test/today", "News"},
                          {"/profile/ycs.htm", "3 small Yahoo! charts"},
                          {"C:\\data\\ycl.htm", "4 large Yahoo! charts"},
                          {"https://www.elsewhere.test/a/b?c", "elsewhere.test"},
                          {"Deep.Elsewhere.test:8080/", "deep.elsewhere.test:8080"},
                          {"", ""}})
        EXPECT_EQ(names.Of(c.address), c.name) << c.address;
    std::filesystem::remove_all(folder);
}

} // namespace
} // namespace tallowmere
