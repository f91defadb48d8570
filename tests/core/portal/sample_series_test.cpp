#include "core/portal/sample_series.h"

#include "core/portal/sample_figures.h"
#include "shipped_files.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

// A Saturday; the last trading day is the day before.
constexpr Date kSaturday{2026, 11, 21};

SampleMarket Shipped() {
    return SampleMarket::Parse(ShippedFile("sample_market.txt"));
}

TEST(SampleSeries, EndsEveryPeriodAtTheLastClose) {
    const SampleMarket market = Shipped();
    for (const SampleQuote& quote : market.Quotes()) {
        for (const Period period :
             {Period::Year, Period::ThreeMonths, Period::FiveDays, Period::Day})
            EXPECT_NEAR(SampleChart(quote, period, kSaturday).values.back(), quote.closes.back(),
                        1e-6)
                << quote.symbol;
    }
}

TEST(SampleSeries, JoinsTheDaysAtTheirCloses) {
    const SampleQuote quote{"T", "", {10, 11, 12, 13, 14, 15, 16}, 1};
    const Chart chart = SampleChart(quote, Period::FiveDays, kSaturday);
    ASSERT_EQ(chart.values.size(), 5U * 26);
    for (std::size_t day = 0; day < 5; ++day) {
        EXPECT_NEAR(chart.values[day * 26], 11.0 + static_cast<double>(day), 1e-9);
        EXPECT_NEAR(chart.values[day * 26 + 25], 12.0 + static_cast<double>(day), 1e-9);
    }
}

TEST(SampleSeries, IsTheSameEveryTime) {
    const SampleMarket market = Shipped();
    const SampleQuote& quote = *market.Find("MSFT");
    EXPECT_EQ(SampleDay(quote), SampleDay(quote));
    EXPECT_NE(SampleDay(quote), SampleDay(*market.Find("IBM")));
}

TEST(SampleSeries, LabelsDaysThatTrade) {
    const SampleQuote quote{"T", "", {1, 2}, 1};
    std::string text;
    for (const ChartLabel& label : SampleChart(quote, Period::FiveDays, kSaturday).labels)
        text += label.text + " ";
    EXPECT_EQ(text, "Mon Tue Wed Thu Fri ");
    EXPECT_EQ(LastTradingDayText(kSaturday), "Nov 20");
    EXPECT_EQ(LastTradingDayText({2026, 11, 22}), "Nov 20");
    EXPECT_EQ(LastTradingDayText({2026, 11, 23}), "Nov 23");
    EXPECT_EQ(LastTradingDayText({2026, 1, 1}), "Jan 1");
}

TEST(SampleSeries, LabelsEveryMonthOfAYear) {
    const SampleQuote quote{"T", "", {1, 2}, 1};
    const auto labels = SampleChart(quote, Period::Year, kSaturday).labels;
    ASSERT_EQ(labels.size(), 12U);
    EXPECT_EQ(labels.front().text, "Dec");
    EXPECT_EQ(labels.back().text, "Nov");
    EXPECT_NEAR(labels.back().at, 1 - 19.0 / 365, 1e-9);
}

TEST(SampleFigures, AgreeWithEachOther) {
    const SampleMarket market = Shipped();
    for (const SampleQuote& quote : market.Quotes()) {
        const SampleFigures figures = FiguresOf(quote);
        EXPECT_DOUBLE_EQ(figures.last, figures.previous + figures.change) << quote.symbol;
        EXPECT_NEAR(figures.change / figures.previous * 100, figures.percent, 1e-9);
        EXPECT_LE(figures.yearLow, figures.dayLow);
        EXPECT_LE(figures.dayLow, figures.last);
        EXPECT_LE(figures.last, figures.dayHigh);
        EXPECT_LE(figures.dayHigh, figures.yearHigh);
        EXPECT_EQ(figures.volume > 0, quote.shares > 0);
        EXPECT_NEAR(figures.earnings * figures.priceEarnings, quote.shares > 0 ? figures.last : 0,
                    1e-6);
    }
}

} // namespace
} // namespace tallowmere
