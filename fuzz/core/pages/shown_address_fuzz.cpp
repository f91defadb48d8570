#include "core/pages/shown_address.h"

#include "core/links/web_address.h"
#include "core/pages/plain_text_check.h"
#include "core/text/bytes.h"

#include <cstddef>
#include <string>

namespace {

using namespace tallowmere;

constexpr std::size_t kLongest = 2000;

std::string Joined(const ShownAddress& shown) {
    return shown.scheme + shown.host + shown.rest;
}

void CheckParts(std::string_view address, const ShownAddress& shown) {
    const std::string all = Joined(shown);
    Demand(IsPlain(all) && all.size() <= kLongest);
    // Nothing is safer than its scheme.
    Demand((shown.safety == Safety::Encrypted) == (shown.scheme == "https://"));
    Demand((shown.safety == Safety::Open) == (shown.scheme == "http://"));
    Demand(shown.host.empty() || shown.scheme.ends_with("://"));
    // No name and no path pass for a host, and none is made up.
    Demand(shown.host.find_first_of("@/\\?#") == std::string::npos);
    Demand(shown.host.empty() || shown.rest.empty() ||
           std::string_view("/\\?#").find(shown.rest[0]) != std::string_view::npos);
    if (IsPlain(address)) {
        Demand(Contains(ToLower(address), shown.host) && Contains(address, shown.rest));
        Demand(ToLower(Trim(address)).starts_with(shown.scheme));
    }
}

bool IsSame(const ShownAddress& a, const ShownAddress& b) {
    return a.safety == b.safety && a.scheme == b.scheme && a.host == b.host && a.rest == b.rest;
}

/// Whatever stands before the host or behind it, however long, the host is the one that it was.
void CheckHost(std::string_view scheme, std::string_view behind, const ShownAddress& shown) {
    static const std::string padding(2 * kLongest, 'a');
    for (const std::string& user : {std::string("bank.example@"), padding + "@"}) {
        const ShownAddress other =
            ShowAddress(std::string(scheme) + "://" + user + std::string(behind));
        Demand(other.safety == shown.safety && other.scheme == shown.scheme &&
               other.host == shown.host);
    }
    const ShownAddress longer =
        ShowAddress(std::string(scheme) + "://" + std::string(behind) + "/" + padding);
    Demand(longer.scheme == shown.scheme && longer.host == shown.host);
}

} // namespace

// The input is a built address and, behind a line end, where the pane really is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto line = std::min(input.find('\n'), input.size());
    const std::string_view built = input.substr(0, line);
    const std::string_view real = input.substr(std::min(line + 1, input.size()));
    for (const std::string_view address : {built, real})
        CheckParts(address, ShowAddress(address));

    const ShownAddress shown = ShowAddress(real);
    const std::string_view plain = IsPlain(real) ? Trim(real) : std::string_view();
    if (const auto at = plain.find("://"); at != plain.npos && !shown.host.empty())
        CheckHost(plain.substr(0, at), plain.substr(at + 3), shown);

    const bool stands = StandsForAnother(built, real);
    const ShownAddress wanted = ShowAddress(WithScheme(built));
    // Nobody is led to another host, or onto the open road, without being told.
    if (!Trim(built).empty() && (wanted.host != shown.host || wanted.scheme != shown.scheme))
        Demand(stands);
    if (Trim(built).empty() || IsSame(wanted, shown))
        Demand(!stands);
    return 0;
}
