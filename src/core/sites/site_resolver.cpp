#include "core/sites/site_resolver.h"

#include "core/links/address.h"
#include "core/quotes/symbol_dialect.h"
#include "core/text/bytes.h"

#include <set>

namespace tallowmere {

namespace {

/// The tickers of a list, upper case and joined by commas; they came joined by blanks or pluses.
std::string CommaList(std::string_view value) {
    const std::string blanks = ReplaceAll(value, "+", " ");
    std::string list;
    for (const auto piece : Split(blanks, ' '))
        if (!piece.empty())
            list += (list.empty() ? "" : ",") + PercentEncode(ToUpper(piece));
    return list;
}

std::string PortalSpelling(std::string_view ticker) {
    const std::string own = OwnSymbol(ticker);
    return ToDialect(own, Dialect::Yahoo).value_or(own);
}

std::string FieldValue(std::string_view field, std::string_view value) {
    if (field == "upper")
        return PercentEncode(ToUpper(value));
    if (field == "lower")
        return PercentEncode(ToLower(value));
    if (field == "first")
        return PercentEncode(FormsOf(value).first);
    return field == "yahoo" ? PercentEncode(PortalSpelling(value)) : CommaList(value);
}

std::string TargetOf(std::string_view key, const TodayTable& today) {
    const auto target = today.addresses.find(key);
    return target == today.addresses.end() ? std::string() : target->second;
}

} // namespace

std::string FillToday(std::string_view addressTemplate, std::string_view value) {
    std::string address;
    Cursor rest(addressTemplate);
    std::string_view piece;
    while (rest.ReadUpTo("{", piece)) {
        address += piece;
        std::string_view field;
        if (rest.ReadUpTo("}", field))
            address += FieldValue(field, value);
    }
    address += rest.Rest();
    return address;
}

SiteResolver::SiteResolver(const SiteTable& sites, const MenuTable& menus, const TodayTable& today,
                           std::span<const SiteTable> earlier)
    : m_quotePage(TargetOf("quote_page", today)), m_outside(TargetOf(kOutsideKey, today)) {
    const std::vector<TodayRow> rows = TodayRows(sites, menus);
    for (const TodayRow& row : rows)
        Add(row, today);
    if (earlier.empty())
        return;
    std::set<std::pair<bool, std::string>> known;
    for (const TodayRow& row : rows)
        known.emplace(row.isRead, row.address);
    for (const SiteTable& table : earlier)
        for (const TodayRow& row : TodayRows(table, menus))
            if (known.emplace(row.isRead, row.address).second)
                Add(row, today);
}

void SiteResolver::Add(const TodayRow& row, const TodayTable& today) {
    const std::string target = TargetOf(row.key, today);
    if (target.empty() || row.address.empty())
        return;
    (row.isRead ? m_reads : m_pages).Add(row.address, m_targets.size());
    m_targets.push_back(target);
}

std::optional<std::string> SiteResolver::InPlaceOfPortal(std::string_view ticker) const {
    const std::string& target = ticker.empty() ? m_outside : m_quotePage;
    if (target.empty() || target == kPortalTarget)
        return std::nullopt;
    return FillToday(target, ticker);
}

std::optional<std::string> SiteResolver::Resolve(std::string_view address, AddressUse use) const {
    auto hit = use == AddressUse::Reading ? m_reads.Find(address) : std::nullopt;
    if (!hit)
        hit = m_pages.Find(address);
    if (!hit)
        return std::nullopt;
    const std::string& target = m_targets[hit->id];
    if (target != kPortalTarget)
        return FillToday(target, hit->value);
    if (use == AddressUse::Outside)
        return InPlaceOfPortal(hit->value);
    const auto schemeEnd = address.find("://");
    const bool hasScheme =
        schemeEnd != std::string_view::npos && schemeEnd < address.find_first_of("/?#");
    return "portal://" + std::string(hasScheme ? address.substr(schemeEnd + 3) : address);
}

} // namespace tallowmere
