#include "core/portal/live_view.h"

#include "core/links/web_address.h"
#include "core/quotes/quote_age.h"
#include "core/quotes/time_text.h"
#include "core/text/bytes.h"

#include <algorithm>
#include <set>

namespace tallowmere {

namespace {

constexpr std::int64_t kThreeMonths = 92 * 86400;

std::string_view TitleOf(Period period) {
    switch (period) {
    case Period::Year:
        return " 1 year";
    case Period::ThreeMonths:
        return " 3 months";
    case Period::FiveDays:
        return " 5 days";
    case Period::Day:
        break;
    }
    return " 1 day";
}

/// Whether a source was asked, and did not answer as it should.
bool HasFailed(const SourceReport& report) {
    return report.enabled && report.lastFailure && *report.lastFailure != SourceFailure::Empty;
}

int HalfOfMonth(const NewYorkClock& clock) {
    return clock.day < 15 ? 0 : 1;
}

/// The text under the first price of a month, a day or an even hour; empty where none belongs.
std::string LabelAt(Period period, const NewYorkClock& before, const NewYorkClock& clock) {
    switch (period) {
    case Period::Year:
        return before.month == clock.month ? "" : std::string(MonthName(clock.month));
    case Period::ThreeMonths:
        return before.month == clock.month && HalfOfMonth(before) == HalfOfMonth(clock)
                   ? ""
                   : std::string(MonthName(clock.month)) + " " + std::to_string(clock.day);
    case Period::FiveDays:
        return before.day == clock.day ? "" : std::string(WeekdayName(clock.weekday));
    case Period::Day:
        break;
    }
    return before.hour == clock.hour || clock.hour % 2 != 0 ? ""
                                                            : std::to_string(clock.hour) + ":00";
}

/// A price's time and source, and whether it is what it should be at `now`.
template <typename Value>
std::string Origin(const Kept<Value>& kept, std::int64_t time, Freshness worth, std::int64_t now) {
    std::string text = time == 0 ? "time not said" : ShowTime(time);
    text.append(", ").append(kept.value->source);
    if (kept.stale)
        text += ", stale since " + ShowTime(kept.receivedAt);
    else if (worth == Freshness::Old)
        text += ", stale: " + AgeText(time, now) + " old";
    return text;
}

} // namespace

PriceSpan SpanOf(Period period) {
    switch (period) {
    case Period::FiveDays:
        return PriceSpan::FiveDays;
    case Period::Day:
        return PriceSpan::Day;
    default:
        return PriceSpan::Year;
    }
}

std::optional<ShownQuote> LiveView::Find(std::string_view symbol) const {
    const auto kept = m_quotes.FindQuote(symbol);
    if (kept.value == nullptr)
        return std::nullopt;
    const Quote& quote = *kept.value;
    ShownQuote shown;
    shown.symbol = ToUpper(symbol);
    const auto known = IndexName(quote.symbol);
    shown.name = known.empty() ? quote.name : std::string(known);
    shown.isIndex = IsIndexSymbol(quote.symbol);
    shown.last = quote.last;
    shown.change = quote.change;
    shown.percent = quote.changePercent;
    shown.previous = quote.previousClose;
    shown.open = quote.open;
    shown.dayLow = quote.low;
    shown.dayHigh = quote.high;
    shown.volume = quote.volume;
    if (const auto year = m_quotes.FindSeries(PriceSpan::Year, symbol); year.value != nullptr) {
        const auto [low, high] =
            std::minmax_element(year.value->closes.begin(), year.value->closes.end());
        shown.yearLow = std::min(*low, quote.low.value_or(*low));
        shown.yearHigh = std::max(*high, quote.high.value_or(*high));
        if (year.value->source != quote.source)
            shown.rangeSource = year.value->source;
    }
    const Freshness worth = FreshnessOf(quote.symbol, quote.time, m_now);
    if (kept.stale || worth != Freshness::Current)
        shown.age = quote.time == 0 ? "no time" : AgeText(quote.time, m_now);
    shown.when = Origin(kept, quote.time, worth, m_now);
    // An age says more than that there may be one.
    if (quote.delayed && shown.age.empty())
        shown.when += ", may be delayed";
    if (quote.doubtful)
        shown.when += ", doubtful: moved by half or more";
    shown.stamp = "(" + shown.when +
                  (shown.rangeSource.empty() ? "" : "; 52-week range: " + shown.rangeSource) + ")";
    return shown;
}

Chart LiveView::ChartOf(std::string_view symbol, Period period) const {
    Chart chart;
    chart.title = ToUpper(symbol) + std::string(TitleOf(period));
    const auto kept = m_quotes.FindSeries(SpanOf(period), symbol);
    if (kept.value == nullptr) {
        chart.note = WhyMissing(SpanOf(period), symbol);
        return chart;
    }
    const PriceSeries& series = *kept.value;
    const auto start = period == Period::ThreeMonths ? series.times.back() - kThreeMonths : 0;
    std::vector<std::pair<std::size_t, std::string>> labels;
    NewYorkClock before{};
    for (std::size_t i = 0; i < series.times.size(); ++i) {
        if (series.times[i] < start)
            continue;
        const NewYorkClock clock = AtNewYork(series.times[i]);
        if (auto label = LabelAt(period, before, clock); !label.empty())
            labels.emplace_back(chart.values.size(), std::move(label));
        chart.values.push_back(series.closes[i]);
        before = clock;
    }
    const double steps = std::max(1.0, static_cast<double>(chart.values.size()) - 1);
    for (auto& [at, text] : labels)
        chart.labels.push_back({static_cast<double>(at) / steps, std::move(text)});
    chart.note = Origin(kept, series.times.back(), FreshnessOf(series, m_now), m_now);
    return chart;
}

std::string LiveView::Missing(std::string_view symbol) const {
    return WhyMissing(PriceSpan::Quote, symbol);
}

std::string LiveView::WhyMissing(PriceSpan span, std::string_view symbol) const {
    if (m_quotes.IsPending(span, symbol))
        return "The sources have not answered yet.";
    if (!m_isAsked)
        return "The sources were not asked: a page of the web led here.";
    const auto reports = m_quotes.Reports(m_now);
    const bool hasAny = std::any_of(reports.begin(), reports.end(), [](const SourceReport& report) {
        return report.enabled && !HasFailed(report) && (report.lastGood != 0 || report.lastFailure);
    });
    return hasAny ? "No source that can be reached has this ticker."
                  : "No source of quotes can be reached.";
}

std::string LiveView::HomePage(const ShownQuote& quote) const {
    // No source names the company's site; a search for it leads there.
    return "https://duckduckgo.com/?q=" +
           PercentEncode((quote.name.empty() ? quote.symbol : quote.name) +
                         " investor relations official site");
}

std::string LiveView::LinkTo(std::string_view path) const {
    const std::string_view site = path.starts_with("/q") ? "quote" : "biz";
    return WithScheme(m_sites.Address(site, path));
}

PageFrame LiveView::Frame() const {
    std::string note = "Quotes of outside sources; each says its source and its time.";
    if (!m_isAsked)
        note += " A page of the web led here, so that only quotes at hand are shown.";
    std::string failed;
    std::string silent; // since the start
    std::set<std::string> named;
    for (const SourceReport& report : m_quotes.Reports(m_now)) {
        // Two rows may be about one source.
        if (!HasFailed(report) || !named.insert(report.name).second)
            continue;
        if (report.lastGood == 0)
            silent += (silent.empty() ? "" : ", ") + report.name;
        else
            failed += report.name + " (last answer " + ShowTime(report.lastGood) + "); ";
    }
    if (!silent.empty())
        failed += silent + " (no answer since the start)";
    else if (!failed.empty())
        failed.resize(failed.size() - 2);
    if (!failed.empty())
        note += " Could not be reached: " + failed + ".";
    return {"", note, failed.empty() ? "Quorvane" : "Some sources cannot be reached", "Quorvane"};
}

} // namespace tallowmere
