#include "core/sites/probe.h"
#include "core/sites/site_table.h"

#include "shipped_files.h"

#include <gmock/gmock.h>

#include <set>

namespace tallowmere {
namespace {

using testing::HasSubstr;

constexpr std::int64_t kNow = 1795258800; // November 21, 2026

SourceTable ShippedSources() {
    return ReadSourceTable(ShippedFile("sources.toml"), "sources.toml");
}

ProbeAnswer Page(int status, std::string finalAddress,
                 std::string type = "text/html; charset=utf-8") {
    return {{status, std::move(type), "", "<html></html>"}, std::move(finalAddress), ""};
}

TEST(Probe, AsksForEveryAddressOfTodayOnce) {
    const TodayTable today = ReadTodayTable("[links]\n"
                                            "3 = \"https://a.example/{yahoo}\"\n"
                                            "15 = \"https://a.example/MSFT\"\n"
                                            "16 = \"portal:\"\n"
                                            "29 = \"\"\n"
                                            "[menus.mnuHisto]\n"
                                            "1 = \"https://b.example/{lower}\"\n",
                                            "sites.toml");
    const MenuTable menus =
        MenuTable::Parse("[mnuAVLink]\n3 = \"https://tv.example/\"\n", "menus.toml");
    const SiteTable sites = SiteTable::Parse("[hosts]\ndefault = \"old.example\"\n", "sites.toml");
    std::vector<std::string> asked;
    for (const Probe& probe : SiteProbes(sites, menus, today, "me/1.0")) {
        asked.push_back(probe.rows + " " + probe.address);
        EXPECT_EQ(probe.userAgent, "me/1.0");
    }
    EXPECT_THAT(asked, testing::UnorderedElementsAre("links.3, links.15 https://a.example/MSFT",
                                                     "menus.mnuHisto.1 https://b.example/msft",
                                                     "menus.mnuAVLink.3 https://tv.example/"));
}

TEST(Probe, AsksForAllThatShips) {
    const TodayTable today = ReadTodayTable(ShippedFile("sites.toml"), "sites.toml");
    const MenuTable menus = MenuTable::Parse(ShippedFile("menus.toml"), "menus.toml");
    std::set<std::string> addresses;
    std::string rows;
    for (const Probe& probe : SiteProbes(ShippedSites(), menus, today, "x")) {
        EXPECT_TRUE(addresses.insert(probe.address).second) << probe.address;
        EXPECT_EQ(probe.address.find_first_of("{}"), std::string::npos) << probe.address;
        rows += ", " + probe.rows;
    }
    rows += ",";
    for (const auto& [key, address] : today.addresses) {
        if (address == kPortalTarget || key == kOutsideKey)
            continue;
        const auto [table, row] = PlaceOfRow(key);
        EXPECT_THAT(rows, HasSubstr(", " + table + "." + row + ",")) << key;
    }
    for (const auto& [item, address] : menus.All())
        EXPECT_TRUE(addresses.contains(address)) << address;
}

TEST(Probe, AsksEverySourceForASymbolThatItHas) {
    const SourceTable sources = ShippedSources();
    const auto probes = SourceProbes(sources, kNow);
    ASSERT_EQ(probes.size(), sources.rows.size());
    std::map<std::string, std::string> symbols;
    for (const Probe& probe : probes) {
        symbols[probe.rows] = probe.symbols.at(0);
        EXPECT_TRUE(probe.address.starts_with("https://")) << probe.address;
        EXPECT_EQ(probe.userAgent, sources.userAgent);
    }
    EXPECT_EQ(symbols["sources.cnbc"], "MSFT");
    EXPECT_EQ(symbols["sources.fred"], "^SPC");
    EXPECT_EQ(symbols["sources.treasury"], "^TYX");
}

TEST(Probe, LeavesOutASourceThatIsSwitchedOff) {
    SourceTable sources = ShippedSources();
    sources.rows[0].enabled = false;
    EXPECT_EQ(SourceProbes(sources, kNow).size(), sources.rows.size() - 1);
}

TEST(Probe, JudgesPagesByStatusTypeAndWhereTheyLead) {
    const Probe probe{"links.3", "https://a.example/q?s=MSFT", "me"};
    struct Case {
        ProbeAnswer answer;
        Judgement judgement;
        std::string text;
    };
    const std::string same = probe.address;
    for (const Case& c : {
             Case{Page(200, same), Judgement::Good, ""},
             {Page(200, same, ""), Judgement::Good, ""},
             {Page(200, "https://b.example/quote/MSFT"), Judgement::Good,
              "leads to https://b.example/quote/MSFT"},
             {Page(200, "https://b.example/"), Judgement::Doubtful,
              "leads to a front page: https://b.example/"},
             {Page(200, same, "application/pdf"), Judgement::Doubtful,
              "is no page but application/pdf"},
             {Page(403, same), Judgement::Doubtful,
              "status 403: refuses programs, to be looked at in a browser"},
             {Page(429, same), Judgement::Doubtful,
              "status 429: refuses programs, to be looked at in a browser"},
             {Page(404, same), Judgement::Bad, "status 404"},
             {Page(500, same), Judgement::Bad, "status 500"},
             {Page(302, same), Judgement::Bad, "status 302"},
             {{{}, same, "Host not found"}, Judgement::Bad, "no answer: Host not found"},
         }) {
        const Verdict verdict = Judge(probe, c.answer, kNow);
        EXPECT_EQ(verdict.judgement, c.judgement) << c.text;
        EXPECT_EQ(verdict.text, c.text);
    }
    const Probe front{"links.11", "https://a.example/", "me"};
    EXPECT_EQ(Judge(front, Page(200, "https://www.a.example/"), kNow).judgement, Judgement::Good);
}

TEST(Probe, JudgesASourceByWhatTheProgramReadsOutOfIt) {
    const Probe probe = SourceProbes(ShippedSources(), kNow).at(0);
    ASSERT_EQ(probe.rows, "sources.cnbc");
    const auto verdict = [&](int status, std::string type, std::string body) {
        return Judge(probe, {{status, std::move(type), "", std::move(body)}, probe.address, ""},
                     kNow);
    };
    const Verdict good = verdict(
        200, "application/json",
        R"({"FormattedQuoteResult":{"FormattedQuote":[{"symbol":"MSFT","code":0,"name":"Microsoft",)"
        R"("last":"512.25","change":"+1.00","last_time":"2026-11-20T16:00:00-0500"}]}})");
    EXPECT_EQ(good.judgement, Judgement::Good);
    EXPECT_EQ(good.text, "MSFT 512.25");
    EXPECT_EQ(verdict(200, "text/html", "<html>Are you a robot?</html>").judgement,
              Judgement::Doubtful);
    EXPECT_EQ(verdict(403, "text/html", "<html>no</html>").judgement, Judgement::Doubtful);
    EXPECT_EQ(verdict(500, "text/html", "<html>oops</html>").judgement, Judgement::Bad);
    EXPECT_EQ(verdict(200, "application/json", "[]").judgement, Judgement::Bad);
    EXPECT_EQ(verdict(0, "", "").judgement, Judgement::Bad);
}

TEST(Probe, ReportsALineForEachAddress) {
    const Probe probe{"links.3, links.15", "https://a.example/q", "me"};
    EXPECT_EQ(ReportLine(probe, {Judgement::Good, ""}),
              "good      links.3, links.15  https://a.example/q");
    EXPECT_EQ(ReportLine(probe, {Judgement::Bad, "status 404"}),
              "bad       links.3, links.15  https://a.example/q  status 404");
}

} // namespace
} // namespace tallowmere
