#include "links/site_resolver.h"

#include "links/address.h"
#include "text/bytes.h"
#include "webdata/symbol_dialect.h"

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
    return address.append(rest.Rest());
}

SiteResolver::SiteResolver(const SiteTable& sites, const MenuTable& menus,
                           const TodayTable& today) {
    for (const TodayRow& row : TodayRows(sites, menus)) {
        const auto target = today.addresses.find(row.key);
        if (target == today.addresses.end() || target->second.empty() || row.address.empty())
            continue;
        (row.isRead ? m_reads : m_pages).Add(row.address, m_targets.size());
        m_targets.push_back(target->second);
    }
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
    const auto schemeEnd = address.find("://");
    const bool hasScheme =
        schemeEnd != std::string_view::npos && schemeEnd < address.find_first_of("/?#");
    return "portal://" + std::string(hasScheme ? address.substr(schemeEnd + 3) : address);
}

} // namespace tallowmere
