#include "core/quotes/company_names.h"

#include <gmock/gmock.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

CompanyNames Known() {
    CompanyNames names;
    for (const NamedTicker& row : std::initializer_list<NamedTicker>{
             {"AAPL", "Apple Inc."},
             {"MSFT", "MICROSOFT CORP"},
             {"BAC", "BANK OF AMERICA CORP /DE/"},
             {"BK", "Bank of New York Mellon Corp"},
             {"MU", "MICRON TECHNOLOGY INC"},
             {"AMD", "ADVANCED MICRO DEVICES INC"},
             {"APP", "AppLovin Corp"},
             {"BRK.B", "BERKSHIRE HATHAWAY INC"},
             {"LOREAL", "L'Or\xC3\xA9"
                        "al"},
             {"A", "AGILENT TECHNOLOGIES, INC."},
         })
        names.Add(row);
    return names;
}

std::vector<std::string> Tickers(const std::vector<NamedTicker>& rows) {
    std::vector<std::string> tickers;
    for (const NamedTicker& row : rows)
        tickers.push_back(row.ticker);
    return tickers;
}

struct Case {
    const char* text;
    std::vector<std::string> found;
};

TEST(CompanyNames, FindsTickersAndThenNames) {
    const Case cases[] = {
        {"micro", {"MSFT", "MU", "AMD"}},
        {"MICROS", {"MSFT"}},
        {"app", {"APP", "AAPL"}},
        {"ap", {"APP", "AAPL"}},
        {"apple", {"AAPL"}},
        {"brk", {"BRK.B"}},
        {"brk.b", {"BRK.B"}},
        {"bank of am", {"BAC"}},
        {"  bank   am  ", {"BAC"}},
        {"am bank", {"BAC"}},
        {"bank", {"BAC", "BK"}},
        {"mellon", {"BK"}},
        {"ellon", {}},
        {"or\xC3\x89"
         "al",
         {"LOREAL"}},
        {"de", {"BAC", "AMD"}},
        {"a", {}},
        {"", {}},
        {"  ", {}},
        {"zzz", {}},
        {"\xFF\xFE", {}},
    };
    const CompanyNames names = Known();
    for (const Case& sample : cases)
        EXPECT_EQ(Tickers(names.Find(sample.text, 10)), sample.found) << sample.text;
}

TEST(CompanyNames, GivesNoMoreThanIsWanted) {
    EXPECT_THAT(Tickers(Known().Find("micro", 2)), ElementsAre("MSFT", "MU"));
    EXPECT_THAT(Known().Find("micro", 0), IsEmpty());
}

TEST(CompanyNames, KnowsATickerInAnySpelling) {
    const CompanyNames names = Known();
    EXPECT_EQ(names.NameOf("msft"), "MICROSOFT CORP");
    EXPECT_EQ(names.NameOf("brk-b"), "BERKSHIRE HATHAWAY INC");
    EXPECT_EQ(names.NameOf("BRK/B"), "BERKSHIRE HATHAWAY INC");
    EXPECT_EQ(names.NameOf("IBM"), "");
    EXPECT_EQ(names.NameOf(""), "");
}

TEST(CompanyNames, ALaterNameTakesThePlaceOfAnEarlierOne) {
    CompanyNames names = Known();
    names.Add({"MSFT", "Microsoft Corporation"});
    EXPECT_EQ(names.Count(), 10U);
    EXPECT_EQ(names.NameOf("MSFT"), "Microsoft Corporation");
    EXPECT_THAT(Tickers(names.Find("micro", 10)), ElementsAre("MSFT", "MU", "AMD"));
}

struct Entry {
    const char* text;
    std::size_t start;
    std::vector<std::string> found;
};

TEST(CompanyNames, AreOfferedForTheEndOfAnEntry) {
    const Entry entries[] = {
        {"MICRO", 0, {"MSFT", "MU", "AMD"}},
        {"  MICROSOFT", 2, {"MSFT"}},
        {"IBM,MICROSOFT", 4, {"MSFT"}},
        {"IBM;  MICROSOFT", 6, {"MSFT"}},
        {"IBM MICROSOFT", 4, {"MSFT"}},
        {"IBM GE BANK OF AM", 7, {"BAC"}},
        {"MSFT,", 5, {}},
        {"MSFT ", 0, {"MSFT"}},
        {"", 0, {}},
        {",,,", 3, {}},
        {"A B C D E F G H MICROSOFT", 16, {"MSFT"}},
    };
    const CompanyNames names = Known();
    for (const Entry& entry : entries) {
        const NameOffer offer = OfferNames(names, entry.text, 10);
        EXPECT_EQ(Tickers(offer.rows), entry.found) << entry.text;
        if (!entry.found.empty()) {
            EXPECT_EQ(offer.start, entry.start) << entry.text;
        }
    }
}

} // namespace
} // namespace tallowmere
