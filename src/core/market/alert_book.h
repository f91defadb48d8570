#pragma once

#include "core/market/alert_store.h"

#include <functional>
#include <map>
#include <tuple>
#include <unordered_map>

namespace tallowmere {

/// How the alerts of a ticker stand.
struct AlertStanding {
    std::vector<PriceAlert> armed;
    std::vector<FiredAlert> fired; ///< of alerts that rest since
};

/// What is said of a ticker with alerts: "alert at or above 450.00", "alert fired at 451.20";
/// empty without any.
std::string StandingWords(const AlertStanding& standing);

/// The alerts and what fired: finds those that wait for a price, and remembers which ones it fired.
class AlertBook {
public:
    AlertBook() = default;
    AlertBook(AlertList list, std::vector<FiredAlert> log);

    const AlertList& List() const { return m_list; }
    /// What fired, oldest first.
    const std::vector<FiredAlert>& Log() const { return m_log; }

    /// The alert of that id, null when there is none.
    const PriceAlert* Find(std::int64_t id) const;

    /// What fired an alert since it was set or reset; null while it is armed.
    const FiredAlert* FiredBy(std::int64_t id) const;

    /// How the alerts of a ticker, in any spelling, stand.
    AlertStanding StandingOf(std::string_view ticker) const;

    /// The tickers of all armed alerts, each once.
    std::vector<std::string> ArmedTickers() const;

    /// Looks at the armed alerts of these symbols (in any spelling); gives those that the
    /// price of their ticker fires at `now`, and notes that they fired. Linear in the symbols.
    using Reader = std::function<std::optional<ListedPrice>(const std::string& ticker)>;
    std::vector<FiredAlert> Check(const std::vector<std::string>& symbols, const Reader& read,
                                  std::int64_t now);

    /// An id for an alert that is set or reset at `now`, which no alert has or had.
    std::int64_t NewId(std::int64_t now) const;

private:
    using Rule = std::tuple<std::string, AlertKind, double>;

    static Rule RuleOf(const PriceAlert& alert);
    void Note(std::size_t logLine);

    AlertList m_list;
    std::vector<FiredAlert> m_log;
    std::unordered_map<std::int64_t, std::size_t> m_byId;
    std::unordered_map<std::string, std::vector<std::size_t>> m_bySymbol;
    std::unordered_map<std::int64_t, std::size_t> m_firedById; ///< lines of the log
    std::map<Rule, std::size_t> m_firedByRule;                 ///< the last line of each
};

} // namespace tallowmere
