#include "core/portal/live_portal.h"
#include "core/sites/site_table.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace tallowmere;

constexpr std::int64_t kNow = 1795208460;
constexpr std::size_t kLongestInput = 1024;
constexpr std::size_t kLongestAddress = 64;

constexpr std::string_view kSources = R"(
[sources.a]
name = "A"
format = "cnbc"
request = "https://a.example/{symbols}"
batch = 1000
gives = ["quote"]
[sources.b]
name = "B"
format = "yahoo-spark"
request = "https://b.example/{symbols}"
batch = 1000
gives = ["year", "five-days", "day"]
)";

/// Whether a page holds no script but that of the ticker strip.
bool HasOnlyOwnScripts(std::string_view page) {
    for (auto at = page.find("<script"); at != page.npos; at = page.find("<script", at + 1))
        if (!page.substr(at).starts_with("<script>\nconst run ="))
            return false;
    return true;
}

} // namespace

// The first line of the input is an address, the rest what every source answers. Whatever they
// are, the page is whole, passes no tag on, and needs no more than the sources may be asked for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const SiteTable sites =
        SiteTable::Parse("[hosts]\ndefault = \"d\"\nquote = \"q\"\nbiz = \"b/f\"\n", "sites.toml");
    static const SourceTable sources = ReadSourceTable(kSources, "sources.toml");
    static const LivePortal portal(sites, {"lists", "lists"});

    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto line = std::min(input.find('\n'), input.size());
    // Every symbol of an address gives a row or more of a page, and longer pages show nothing else.
    if (size > kLongestInput || line > kLongestAddress)
        return 0;
    const std::string_view address = input.substr(0, line);
    const auto slash = std::min(address.find('/'), address.size());
    SourceSchedule schedule(sources);
    for (const WantedPrices& wanted :
         portal.Needs(address.substr(0, slash), address.substr(slash))) {
        if (wanted.symbols.empty() || wanted.symbols.size() > 2000)
            std::abort();
        schedule.Want(wanted.span, wanted.symbols, kNow);
    }
    const std::string body(input.substr(std::min(line + 1, input.size())));
    while (const auto request = schedule.Next(kNow))
        schedule.Answer(request->id, {200, "application/json", "", body}, kNow);
    if (schedule.IsBusy())
        std::abort();
    const PortalAnswer answer =
        portal.Answer(address.substr(0, slash), address.substr(slash), schedule, kNow + 60);
    if (answer.body.empty() || !HasOnlyOwnScripts(answer.body) ||
        answer.body.find('\0') != std::string::npos)
        std::abort();
    return 0;
}
