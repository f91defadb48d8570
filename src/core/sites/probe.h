#pragma once

#include "core/links/menu_table.h"
#include "core/quotes/source_table.h"
#include "core/sites/site_table.h"
#include "core/sites/today_table.h"

#include <optional>
#include <string>
#include <vector>

/// Whether the addresses of the tables still lead to what they are meant for: what to ask, and what
/// to make of the answers.
namespace tallowmere {

/// An address that is asked once.
struct Probe {
    std::string rows; ///< of the tables that lead there: "links.3, menus.mnuCals.1"
    std::string address;
    std::string userAgent;
    int timeout = 20;                   ///< seconds
    std::optional<SourceRow> source{};  ///< of quotes; none for a page
    std::vector<std::string> symbols{}; ///< that the source is asked for
};

/// What came back. A status of 0 means that there was no answer.
struct ProbeAnswer {
    SourceResponse response;
    std::string finalAddress; ///< after redirects
    std::string error;        ///< in words, when there was no answer
};

enum class Judgement : std::uint8_t {
    Good,
    Doubtful, ///< a person has to look
    Bad
};

struct Verdict {
    Judgement judgement;
    std::string text; ///< why, or what is worth knowing
};

/// The pages that the table of sites leads to today, and the fixed pages of the menus, for one well
/// known ticker; each address once.
std::vector<Probe> SiteProbes(const SiteTable& sites, const MenuTable& menus,
                              const TodayTable& today, std::string_view userAgent);

/// A question to every source that is switched on.
std::vector<Probe> SourceProbes(const SourceTable& sources, std::int64_t now);

/// What to make of an answer that came at `now`.
Verdict Judge(const Probe& probe, const ProbeAnswer& answer, std::int64_t now);

/// A line of the report, without its end.
std::string ReportLine(const Probe& probe, const Verdict& verdict);

} // namespace tallowmere
