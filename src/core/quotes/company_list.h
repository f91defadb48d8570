#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Which company a ticker stands for: the list that the regulator publishes, and how seldom it is
/// asked for.
namespace tallowmere {

/// A ticker, in the program's form, and the name of its company.
struct NamedTicker {
    std::string ticker;
    std::string name;

    bool operator==(const NamedTicker&) const = default;
};

/// The most companies of a list that are taken; there are some 10,000.
inline constexpr std::size_t kMostCompanies = 50'000;

/// A ticker in any spelling and a name of strangers made fit to be shown; without a ticker when one
/// of them is of no use.
NamedTicker ShownName(std::string_view ticker, std::string_view name);

/// Where the list is published. Its server answers only a program that says whom to write to.
struct CompanySource {
    std::string name;    ///< as people know it
    std::string request; ///< the address
    std::string userAgent;
    std::string contact; ///< the user's name and mail address; nothing is asked while it is empty
    bool enabled = true;
    int minInterval = 7 * 86400; ///< seconds between two lists, a week at least
    int timeout = 60;            ///< seconds until a request counts as failed

    /// What the program calls itself there; `general` is what it calls itself elsewhere.
    std::string Agent(const std::string& general) const {
        return (userAgent.empty() ? general : userAgent) + " " + contact;
    }
};

/// The list as it is kept in the profile.
struct KeptCompanies {
    std::int64_t askedAt = 0;           ///< when it was asked for last, epoch seconds, 0 for never
    std::int64_t receivedAt = 0;        ///< when it came, 0 for never
    std::vector<NamedTicker> companies; ///< the largest first
};

/// Whether the list is to be asked for at `now` (epoch seconds): when the user has filled in the
/// contact, and the last list is older than it may be. What failed is tried again after a day.
bool IsCompanyListDue(const CompanySource& source, const KeptCompanies& kept, std::int64_t now);

/// The companies of the published list, an object of rows
/// {"cik_str": 789019, "ticker": "MSFT", "title": "MICROSOFT CORP"} by their rank (as described at
/// sec.gov/search-filings/edgar-search-assistance/accessing-edgar-data). Rows that are wrong are
/// left out, and so are the smallest of far too many; none of a text that is no such list.
std::vector<NamedTicker> ReadCompanyList(std::string_view json);

/// The names of the market that ships: lines of "ticker|name|...", those with a "#" left out.
std::vector<NamedTicker> ReadShippedNames(std::string_view text);

/// The text of a list, and the list of such a text; an empty one of a text that is damaged.
std::string WriteKeptCompanies(const KeptCompanies& kept);
KeptCompanies ReadKeptCompanies(std::string_view text);

} // namespace tallowmere
