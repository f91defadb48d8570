#include "core/sites/probe.h"

#include "core/links/web_address.h"
#include "core/sites/address_tree.h"
#include "core/sites/site_listing.h"
#include "core/text/bytes.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace tallowmere {

namespace {

constexpr std::string_view kTicker = "MSFT";

/// What a source may be asked for; the first that it has a spelling for is taken.
constexpr std::array<std::string_view, 3> kSymbols{"MSFT", "^SPC", "^TYX"};

constexpr std::array<int, 5> kRefusals{401, 403, 429, 503, 999};

std::string RowName(const std::string& key) {
    const auto [table, row] = PlaceOfRow(key);
    return table + "." + row;
}

std::string Number(double value) {
    std::string text = std::to_string(value);
    return text.substr(0, text.find('.') + 3);
}

std::string_view NameOf(SourceFailure failure) {
    switch (failure) {
    case SourceFailure::Unreachable:
        return "no usable answer";
    case SourceFailure::Blocked:
        return "the source refuses programs";
    case SourceFailure::Garbage:
        return "the answer has another shape than the source is known for";
    case SourceFailure::Empty:
        break;
    }
    return "the answer says nothing about what was asked";
}

Verdict JudgeSource(const Probe& probe, const ProbeAnswer& answer, std::int64_t now) {
    const PriceSpan span = probe.source->gives.front();
    const SourceAnswer read =
        ReadSourceAnswer(*probe.source, span, answer.response, probe.symbols, now);
    const std::string status = "status " + std::to_string(answer.response.status) + ": ";
    if (!read.quotes.empty())
        return {Judgement::Good,
                read.quotes.front().symbol + " " + Number(read.quotes.front().last)};
    if (!read.series.empty())
        return {Judgement::Good, read.series.front().symbol + ", " +
                                     std::to_string(read.series.front().closes.size()) + " prices"};
    const auto failure = read.failure.value_or(SourceFailure::Empty);
    return {failure == SourceFailure::Blocked ? Judgement::Doubtful : Judgement::Bad,
            status + std::string(NameOf(failure))};
}

Verdict JudgePage(const Probe& probe, const ProbeAnswer& answer) {
    const int status = answer.response.status;
    const std::string number = "status " + std::to_string(status);
    if (std::find(kRefusals.begin(), kRefusals.end(), status) != kRefusals.end())
        return {Judgement::Doubtful, number + ": refuses programs, to be looked at in a browser"};
    if (status < 200 || status > 299)
        return {Judgement::Bad, number};
    const auto [host, path] = SplitAddress(probe.address);
    const auto [finalHost, finalPath] = SplitAddress(answer.finalAddress);
    const std::string led = answer.finalAddress == probe.address ? "" : answer.finalAddress;
    if (path != "/" && finalPath == "/")
        return {Judgement::Doubtful, "leads to a front page: " + led};
    const std::string type = ToLower(answer.response.contentType);
    if (!type.empty() && !Contains(type, "html"))
        return {Judgement::Doubtful, "is no page but " + answer.response.contentType};
    return {Judgement::Good, led.empty() ? led : "leads to " + led};
}

} // namespace

std::vector<Probe> SiteProbes(const SiteTable& sites, const MenuTable& menus,
                              const TodayTable& today, std::string_view userAgent) {
    std::vector<Probe> probes;
    std::map<std::string, std::size_t> places;
    std::set<std::string> fixed;
    for (const auto& [item, address] : menus.All())
        fixed.insert(address);
    for (const ListedSite& site : ListSites(sites, menus, today, {}, kTicker, {})) {
        // Without a row only the fixed pages of the menus are addresses of today.
        if (!IsWebAddress(site.today) || (site.row.empty() && !fixed.contains(site.built)))
            continue;
        const auto [place, isNew] = places.emplace(site.today, probes.size());
        if (isNew)
            probes.push_back({RowName(site.key), site.today, std::string(userAgent)});
        else
            probes[place->second].rows += ", " + RowName(site.key);
    }
    return probes;
}

std::vector<Probe> SourceProbes(const SourceTable& sources, std::int64_t now) {
    std::vector<Probe> probes;
    for (const SourceRow& row : sources.rows) {
        const auto symbol =
            std::find_if(kSymbols.begin(), kSymbols.end(), [&](std::string_view own) {
                return ToDialect(own, row.SpelledIn()).has_value();
            });
        if (!row.enabled || row.gives.empty() || symbol == kSymbols.end())
            continue;
        const std::vector<std::string> symbols{std::string(*symbol)};
        probes.push_back(
            {"sources." + row.key, RequestAddress(row, row.gives.front(), symbols, now),
             row.userAgent.empty() ? sources.userAgent : row.userAgent, row.timeout, row, symbols});
    }
    return probes;
}

Verdict Judge(const Probe& probe, const ProbeAnswer& answer, std::int64_t now) {
    if (answer.response.status == 0)
        return {Judgement::Bad, "no answer: " + answer.error};
    return probe.source ? JudgeSource(probe, answer, now) : JudgePage(probe, answer);
}

std::string ReportLine(const Probe& probe, const Verdict& verdict) {
    constexpr std::array<std::string_view, 3> names{"good    ", "doubtful", "bad     "};
    std::string line(names.at(static_cast<std::size_t>(verdict.judgement)));
    line += "  " + probe.rows + "  " + probe.address;
    return verdict.text.empty() ? line : line + "  " + verdict.text;
}

} // namespace tallowmere
