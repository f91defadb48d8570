#include "core/market/alert_book.h"

#include "core/quotes/number_text.h"
#include "core/quotes/symbol_dialect.h"

#include <algorithm>
#include <set>

namespace tallowmere {

std::string StandingWords(const AlertStanding& standing) {
    constexpr std::size_t kMostTold = 3;
    std::vector<std::string> parts;
    for (const FiredAlert& fired : standing.fired)
        parts.push_back("alert fired at " + PriceText(fired.price));
    for (const PriceAlert& alert : standing.armed)
        parts.push_back("alert " + RuleWords(alert));
    std::string words;
    for (std::size_t n = 0; n < std::min(parts.size(), kMostTold); ++n)
        words.append(n == 0 ? "" : ", ").append(parts[n]);
    if (parts.size() > kMostTold)
        words += " and " + std::to_string(parts.size() - kMostTold) + " more";
    return words;
}

AlertBook::AlertBook(AlertList list, std::vector<FiredAlert> log)
    : m_list(std::move(list)), m_log(std::move(log)) {
    for (std::size_t at = 0; at < m_list.alerts.size(); ++at) {
        m_byId[m_list.alerts[at].id] = at;
        m_bySymbol[OwnSymbol(m_list.alerts[at].ticker)].push_back(at);
    }
    for (std::size_t line = 0; line < m_log.size(); ++line)
        Note(line);
}

AlertBook::Rule AlertBook::RuleOf(const PriceAlert& alert) {
    return {OwnSymbol(alert.ticker), alert.kind, alert.limit};
}

void AlertBook::Note(std::size_t logLine) {
    m_firedById[m_log[logLine].alert.id] = logLine;
    m_firedByRule[RuleOf(m_log[logLine].alert)] = logLine;
}

const PriceAlert* AlertBook::Find(std::int64_t id) const {
    const auto found = m_byId.find(id);
    return found == m_byId.end() ? nullptr : &m_list.alerts[found->second];
}

const FiredAlert* AlertBook::FiredBy(std::int64_t id) const {
    const auto found = m_firedById.find(id);
    return found == m_firedById.end() ? nullptr : &m_log[found->second];
}

AlertStanding AlertBook::StandingOf(std::string_view ticker) const {
    AlertStanding standing;
    const auto found = m_bySymbol.find(OwnSymbol(ticker));
    if (found == m_bySymbol.end())
        return standing;
    for (const std::size_t at : found->second) {
        const PriceAlert& alert = m_list.alerts[at];
        if (const FiredAlert* fired = FiredBy(alert.id))
            standing.fired.push_back(*fired);
        else
            standing.armed.push_back(alert);
    }
    return standing;
}

std::vector<std::string> AlertBook::ArmedTickers() const {
    std::set<std::string> tickers;
    for (const PriceAlert& alert : m_list.alerts)
        if (!FiredBy(alert.id))
            tickers.insert(OwnSymbol(alert.ticker));
    return {tickers.begin(), tickers.end()};
}

std::vector<FiredAlert> AlertBook::Check(const std::vector<std::string>& symbols,
                                         const Reader& read, std::int64_t now) {
    std::vector<FiredAlert> fired;
    for (const std::string& symbol : symbols) {
        const auto found = m_bySymbol.find(OwnSymbol(symbol));
        if (found == m_bySymbol.end())
            continue;
        const auto price = read(found->first);
        for (const std::size_t at : found->second) {
            const PriceAlert& alert = m_list.alerts[at];
            if (!price || FiredBy(alert.id))
                continue;
            const auto last = m_firedByRule.find(RuleOf(alert));
            if (!Fires(alert, *price, last == m_firedByRule.end() ? nullptr : &m_log[last->second]))
                continue;
            m_log.push_back(Fired(alert, *price, now));
            Note(m_log.size() - 1);
            fired.push_back(m_log.back());
        }
    }
    return fired;
}

std::int64_t AlertBook::NewId(std::int64_t now) const {
    std::int64_t id = std::max<std::int64_t>(now, 1);
    for (const PriceAlert& alert : m_list.alerts)
        id = std::max(id, alert.id + 1);
    for (const FiredAlert& fired : m_log)
        id = std::max(id, fired.alert.id + 1);
    return id;
}

} // namespace tallowmere
