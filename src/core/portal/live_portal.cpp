#include "core/portal/live_portal.h"

#include "core/links/index_query.h"
#include "core/portal/live_view.h"
#include "core/portal/portal_pages.h"
#include "core/text/bytes.h"

#include <map>
#include <set>

namespace tallowmere {

namespace {

/// No page makes the sources answer for more symbols than the portfolios of a person hold.
constexpr std::size_t kMostSymbols = 2000;

/// A market that knows every symbol and notes which ones a page asks for: the pages themselves
/// thus say what they need.
class NotingView : public MarketView {
public:
    explicit NotingView(const std::vector<std::string>& strip) : m_strip(strip) {}

    std::optional<ShownQuote> Find(std::string_view symbol) const override {
        Note(PriceSpan::Quote, symbol);
        ShownQuote quote;
        quote.symbol = ToUpper(symbol);
        return quote;
    }

    Chart ChartOf(std::string_view symbol, Period period) const override {
        Note(SpanOf(period), symbol);
        return {};
    }

    std::vector<std::string> StripSymbols() const override { return m_strip; }
    std::string Missing(std::string_view) const override { return {}; }
    std::string HomePage(const ShownQuote&) const override { return {}; }
    PageFrame Frame() const override { return {}; }

    std::vector<WantedPrices> Noted() const {
        std::vector<WantedPrices> wanted;
        for (const auto& [span, symbols] : m_symbols)
            wanted.push_back({span, symbols});
        return wanted;
    }

private:
    void Note(PriceSpan span, std::string_view symbol) const {
        std::string own = OwnSymbol(symbol);
        if (!own.empty() && m_seen.size() < kMostSymbols && m_seen.emplace(span, own).second)
            m_symbols[span].push_back(std::move(own));
    }

    const std::vector<std::string>& m_strip;
    mutable std::set<std::pair<PriceSpan, std::string>> m_seen;
    mutable std::map<PriceSpan, std::vector<std::string>> m_symbols;
};

} // namespace

LivePortal::LivePortal(const SiteTable& sites, PortalTexts texts)
    : m_sites(sites), m_texts(std::move(texts)) {
    SetStripTickers({});
}

void LivePortal::SetStripTickers(const std::vector<std::string>& tickers) {
    m_strip.clear();
    for (const IndexRow& row : IndexTable())
        m_strip.push_back(ToUpper(row.symbol));
    m_strip.insert(m_strip.end(), tickers.begin(), tickers.end());
}

std::vector<WantedPrices> LivePortal::Needs(std::string_view host,
                                            std::string_view pathAndQuery) const {
    const NotingView market(m_strip);
    Page(market, PortalRequest(host, pathAndQuery));
    return market.Noted();
}

bool LivePortal::LoadsItself(std::string_view pathAndQuery) {
    return PortalRequest({}, pathAndQuery).path == kTickerStripPath;
}

PortalAnswer LivePortal::Answer(std::string_view host, std::string_view pathAndQuery,
                                const SourceSchedule& quotes, std::int64_t now,
                                bool isAsked) const {
    return Page(LiveView(quotes, m_sites, m_strip, now, isAsked),
                PortalRequest(host, pathAndQuery));
}

PortalAnswer LivePortal::Page(const MarketView& market, const PortalRequest& request) const {
    if (auto answer = AnswerProgram(market, request, m_sites, m_texts))
        return std::move(*answer);
    if (request.path == "/q")
        if (auto quotes = AnswerQuotes(market, request))
            return HtmlAnswer(std::move(*quotes));
    return HtmlAnswer(UnknownPage(market, request,
                                  "The portal that is built into the program has no such page."));
}

} // namespace tallowmere
