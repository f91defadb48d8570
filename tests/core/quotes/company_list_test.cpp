#include "core/quotes/company_list.h"

#include <gmock/gmock.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kNow = 1'790'000'000;

TEST(CompanyList, HasTheCompaniesByTheirRank) {
    EXPECT_THAT(ReadCompanyList(R"({"10":{"cik_str":1,"ticker":"JPM","title":"JPMORGAN CHASE & CO"},
                                    "0":{"cik_str":2,"ticker":"NVDA","title":"NVIDIA CORP"},
                                    "2":{"cik_str":3,"ticker":"BRK-B","title":"Berkshire"},
                                    "1":{"cik_str":2,"ticker":"aapl","title":" Apple Inc. "}})"),
                ElementsAre(NamedTicker{"NVDA", "NVIDIA CORP"}, NamedTicker{"AAPL", "Apple Inc."},
                            NamedTicker{"BRK.B", "Berkshire"},
                            NamedTicker{"JPM", "JPMORGAN CHASE & CO"}));
}

TEST(CompanyList, LeavesOutRowsThatAreWrong) {
    EXPECT_THAT(ReadCompanyList(R"({"0":{"ticker":"","title":"a"}, "1":{"ticker":"A","title":""},
                            "2":{"ticker":"<b>","title":"b"}, "3":{"ticker":7,"title":"c"},
                            "4":[], "x":{"ticker":"D","title":"d"}, "5":{"title":"e"},
                            "6":{"ticker":"ABCDEFGHIJKLMNOP","title":"f"},
                            "7":{"ticker":"G","title":"\u0007\u202e"},
                            "8":{"ticker":"H","title":"h\u202ei\n"}})"),
                ElementsAre(NamedTicker{"H", "hi"}));
    for (const char* text : {"", "{", "[]", "7", "null", R"(["AAPL"])"})
        EXPECT_THAT(ReadCompanyList(text), IsEmpty()) << text;
}

TEST(CompanyList, TakesTheLargestOfFarTooManyAndCanKeepThem) {
    std::string text = "{";
    for (std::size_t n = 0; n < kMostCompanies + 10; ++n)
        text += (n == 0 ? "\"" : ",\"") + std::to_string(n) + "\":{\"ticker\":\"T" +
                std::to_string(n) + "\",\"title\":\"Name of a company\"}";
    const auto companies = ReadCompanyList(text + "}");
    ASSERT_EQ(companies.size(), kMostCompanies);
    EXPECT_EQ(companies.back().ticker, "T" + std::to_string(kMostCompanies - 1));
    EXPECT_EQ(ReadKeptCompanies(WriteKeptCompanies({1, 1, companies})).companies, companies);
}

TEST(CompanyList, ShortensALongName) {
    const auto row = ShownName("A", std::string(99, 'x') + "\xC3\xA9" + "y");
    EXPECT_EQ(row.name, std::string(99, 'x'));
}

TEST(CompanyList, ReadsTheNamesOfTheShippedMarket) {
    EXPECT_THAT(ReadShippedNames("# a comment | of words\nMSFT|Microsoft|7|1.0 2.0\n\nGE|General "
                                 "Electric\nnothing\n|x|\nA||3\nT|AT&T|"),
                ElementsAre(NamedTicker{"MSFT", "Microsoft"}, NamedTicker{"GE", "General Electric"},
                            NamedTicker{"T", "AT&T"}));
}

struct Due {
    const char* what;
    std::int64_t askedAt, receivedAt, now;
    bool isDue;
};

TEST(CompanyList, IsAskedForOnceAWeekAndAfterADayWhenThatFailed) {
    CompanySource source;
    source.request = "https://a.example/list";
    source.contact = "A B a@b.example";
    const Due cases[] = {
        {"never asked", 0, 0, kNow, true},
        {"just received", kNow, kNow, kNow, false},
        {"six days ago", kNow, kNow, kNow + 6 * kDay, false},
        {"a second before the week is over", kNow, kNow, kNow + 7 * kDay - 1, false},
        {"a week ago", kNow, kNow, kNow + 7 * kDay, true},
        {"failed just now", kNow, 0, kNow + 1, false},
        {"failed yesterday", kNow, 0, kNow + kDay, true},
        {"failed a moment ago after an older list", kNow, kNow - 8 * kDay, kNow + 60, false},
        {"asked by a clock that was wrong", kNow + 400 * kDay, kNow + 400 * kDay, kNow, true},
    };
    for (const Due& due : cases)
        EXPECT_EQ(IsCompanyListDue(source, {due.askedAt, due.receivedAt, {}}, due.now), due.isDue)
            << due.what;
}

TEST(CompanyList, IsNotAskedForWithoutAContact) {
    CompanySource source;
    source.request = "https://a.example/list";
    EXPECT_FALSE(IsCompanyListDue(source, {}, kNow));
    source.contact = "  ";
    EXPECT_FALSE(IsCompanyListDue(source, {}, kNow));
    source.contact = "a@b.example";
    EXPECT_TRUE(IsCompanyListDue(source, {}, kNow));
    source.enabled = false;
    EXPECT_FALSE(IsCompanyListDue(source, {}, kNow));
    source.enabled = true;
    source.request.clear();
    EXPECT_FALSE(IsCompanyListDue(source, {}, kNow));
}

TEST(CompanyList, NamesTheContactToTheServer) {
    CompanySource source;
    source.contact = "A B a@b.example";
    EXPECT_EQ(source.Agent("Program/1.0"), "Program/1.0 A B a@b.example");
    source.userAgent = "Own/2";
    EXPECT_EQ(source.Agent("Program/1.0"), "Own/2 A B a@b.example");
}

TEST(CompanyList, IsKeptAsItCame) {
    const KeptCompanies kept{kNow, kNow - 5, {{"MSFT", "Micro \"soft\" | \\"}, {"^SPC", "S&P"}}};
    const KeptCompanies again = ReadKeptCompanies(WriteKeptCompanies(kept));
    EXPECT_EQ(again.askedAt, kNow);
    EXPECT_EQ(again.receivedAt, kNow - 5);
    EXPECT_EQ(again.companies, kept.companies);
}

TEST(CompanyList, ADamagedFileIsAnEmptyList) {
    const std::string text = WriteKeptCompanies({kNow, kNow, {{"MSFT", "Microsoft"}}});
    for (std::size_t length = 0; length + 2 < text.size(); ++length)
        EXPECT_EQ(ReadKeptCompanies(text.substr(0, length)).askedAt, 0) << length;
    const KeptCompanies odd = ReadKeptCompanies(
        R"({"asked":5,"received":"x","companies":[["A"],["B","b","c"],[1,2],{},["C","c"]]})");
    EXPECT_EQ(odd.askedAt, 5);
    EXPECT_EQ(odd.receivedAt, 0);
    EXPECT_THAT(odd.companies, ElementsAre(NamedTicker{"C", "c"}));
}

} // namespace
} // namespace tallowmere
