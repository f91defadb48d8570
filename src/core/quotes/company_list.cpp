#include "core/quotes/company_list.h"

#include "core/finder/finder_line.h"
#include "core/quotes/source_text.h"
#include "core/quotes/symbol_dialect.h"
#include "core/text/bytes.h"
#include "core/text/plain_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>

namespace tallowmere {

namespace {

using nlohmann::json;

constexpr std::int64_t kAfterFailure = 86400;
constexpr std::size_t kLongestName = 100; // in bytes

} // namespace

NamedTicker ShownName(std::string_view ticker, std::string_view name) {
    NamedTicker row;
    if (!MayBeTicker(Trim(ticker)))
        return row;
    row.name = Trim(FrontOf(WithoutHiddenCharacters(name, '?'), kLongestName));
    if (!row.name.empty())
        row.ticker = OwnSymbol(ticker);
    return row;
}

bool IsCompanyListDue(const CompanySource& source, const KeptCompanies& kept, std::int64_t now) {
    if (!source.enabled || source.request.empty() || Trim(source.contact).empty())
        return false;
    const bool cameThen = kept.receivedAt == kept.askedAt;
    const std::int64_t rest = cameThen ? source.minInterval : kAfterFailure;
    // A clock that was wrong when it was asked must not put it off for years.
    return kept.askedAt == 0 || now < kept.askedAt || now - kept.askedAt >= rest;
}

std::vector<NamedTicker> ReadCompanyList(std::string_view text) {
    const auto list = ReadJson(text);
    if (!list || !list->is_object())
        return {};
    std::vector<std::pair<std::size_t, NamedTicker>> ranked;
    for (const auto& [key, value] : list->items()) {
        std::size_t rank = 0;
        const char* const end = key.data() + key.size();
        const auto [stop, error] = std::from_chars(key.data(), end, rank);
        if (error != std::errc() || stop != end)
            continue;
        NamedTicker row = ShownName(TextAt(value, "ticker"), TextAt(value, "title"));
        if (!row.ticker.empty())
            ranked.emplace_back(rank, std::move(row));
    }
    std::ranges::sort(ranked, {}, [](const auto& entry) { return entry.first; });
    std::vector<NamedTicker> companies;
    for (auto& [rank, row] : ranked)
        if (companies.size() < kMostCompanies)
            companies.push_back(std::move(row));
    return companies;
}

std::vector<NamedTicker> ReadShippedNames(std::string_view text) {
    std::vector<NamedTicker> names;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        const std::size_t bar = line.find('|');
        if (line.starts_with('#') || bar == std::string_view::npos)
            continue;
        const std::string_view name = line.substr(bar + 1, line.find('|', bar + 1) - bar - 1);
        NamedTicker row = ShownName(line.substr(0, bar), name);
        if (!row.ticker.empty())
            names.push_back(std::move(row));
    }
    return names;
}

std::string WriteKeptCompanies(const KeptCompanies& kept) {
    json rows = json::array();
    for (const NamedTicker& row : kept.companies)
        rows.push_back({row.ticker, row.name});
    const json text = {
        {"asked", kept.askedAt}, {"received", kept.receivedAt}, {"companies", std::move(rows)}};
    return text.dump(-1, ' ', false, json::error_handler_t::replace) + "\n";
}

KeptCompanies ReadKeptCompanies(std::string_view text) {
    KeptCompanies kept;
    const auto found = ReadJson(text);
    const json* rows = found ? Member(*found, "companies") : nullptr;
    if (!rows || !rows->is_array() || rows->size() > kMostCompanies)
        return kept;
    kept.askedAt = SecondsAt(*found, "asked");
    kept.receivedAt = SecondsAt(*found, "received");
    for (const json& pair : *rows) {
        if (!pair.is_array() || pair.size() != 2 || !pair[0].is_string() || !pair[1].is_string())
            continue;
        NamedTicker row = ShownName(pair[0].get<std::string>(), pair[1].get<std::string>());
        if (!row.ticker.empty())
            kept.companies.push_back(std::move(row));
    }
    return kept;
}

} // namespace tallowmere
