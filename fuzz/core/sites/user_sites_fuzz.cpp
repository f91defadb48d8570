#include "core/sites/user_sites.h"
#include "core/text/runtime_error.h"
#include "core/text/toml_edit.h"

#include <algorithm>
#include <cstdlib>

using namespace tallowmere;

namespace {

constexpr std::string_view kAddress = "https://today.example/{upper}";

const SiteTable& Shipped() {
    static const SiteTable shipped =
        SiteTable::Parse("[hosts]\ndefault = \"d.example\"\nquote = \"q.example\"\n", "s");
    return shipped;
}

/// A row that was written is read again, one that was taken out is not, and neither changes more.
void CheckEdits(std::string_view text, const OverriddenSites& before) {
    try {
        const std::string with = SetTomlRow(text, "links", "3", kAddress);
        const OverriddenSites after = OverrideSites(Shipped(), {}, with, "f");
        if (after.today.addresses.find("3")->second != kAddress ||
            after.sites.Hosts() != before.sites.Hosts())
            std::abort();
        const std::string without = RemoveTomlRow(with, "links", "3");
        if (OverrideSites(Shipped(), {}, without, "f").today.addresses.contains("3"))
            std::abort();
    } catch (const RuntimeError&) {
        return; // what cannot be changed without damage is refused
    }
}

/// Every problem is told by its line in the file, in their order.
void CheckProblems(std::string_view text, const OverriddenSites& sites) {
    const auto lines = std::count(text.begin(), text.end(), '\n') + 2;
    long before = 0;
    for (const std::string& problem : sites.problems) {
        if (!problem.starts_with("f:"))
            std::abort();
        const long line = std::strtol(problem.c_str() + 2, nullptr, 10);
        if (line < before || line < 1 || line > lines)
            std::abort();
        before = line;
    }
}

/// What a user leaves out stays as it was shipped.
void CheckShipped(const OverriddenSites& over) {
    if (over.sites.Host("quote").empty() || over.sites.Host("default").empty())
        std::abort();
    if (!over.isReadable && over.sites.Hosts() != Shipped().Hosts())
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Each wrong line is one more reading of the whole.
    constexpr std::size_t kLongest = 400;
    const std::string_view text(reinterpret_cast<const char*>(data), std::min(size, kLongest));
    const OverriddenSites sites = OverrideSites(Shipped(), {}, text, "f");
    if (!sites.isReadable && sites.problems.empty())
        std::abort();
    CheckProblems(text, sites);
    CheckShipped(sites);
    CheckEdits(text, sites);
    return 0;
}
