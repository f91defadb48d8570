#include "core/links/before_navigate.h"

#include "core/text/bytes.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tallowmere {

namespace {

constexpr std::string_view kLookupPath = "/scripts/stocklookup";
constexpr std::string_view kRedirectPath = "/moneynet/jtickredir.asp";

// The first symbol found wins, in this order.
// clang-format off
constexpr std::array<std::pair<std::string_view, std::string_view>, 6> kIndexSymbols{{
    {"$COMPQ", "?.IXIC"},
    {"$RUT",   "?.RUT"},
    {"$PSE",   "?.PSE"},
    {"$SPX",   "?.SPX"},
    {"$TRAN",  "?.DJT"},
    {"$INDU",  "?.DJI"},
}};
// clang-format on

} // namespace

std::optional<std::string> RewriteStockLookup(std::string_view address, const SiteHosts& sites) {
    const auto path = address.find(kLookupPath);
    if (path == std::string_view::npos)
        return std::nullopt;

    // The link to the lookup page sends its ticker in lower case.
    const std::string upper = ToUpper(address);
    const auto* symbol =
        std::find_if(kIndexSymbols.begin(), kIndexSymbols.end(),
                     [&](const auto& entry) { return Contains(upper, entry.first); });
    if (symbol != kIndexSymbols.end()) {
        return sites.Address("stream_redirect",
                             std::string(kRedirectPath) + "?symbol=" + std::string(symbol->second));
    }

    // Whatever stands before the path is the lookup host, written as the table of sites has it or
    // as the engine does, which changes the case and drops the usual port.
    const std::string redirect = sites.Address("stream_redirect", kRedirectPath);
    const auto schemeEnd = address.substr(0, path).find("://");
    std::string rewritten;
    if (schemeEnd != std::string_view::npos && !Contains(redirect, "://"))
        rewritten = address.substr(0, schemeEnd + 3);
    rewritten += redirect;
    rewritten += address.substr(path + kLookupPath.size());
    return rewritten;
}

std::string MultiLinkFrame(std::string_view address) {
    // A quote mark would end the attribute; an address means the same with its escape.
    return "<IFRAME height=\"100%\" width=\"100%\" SCROLLING=Yes SRC=\"" +
           ReplaceAll(address, "\"", "%22") + "\"></IFRAME>\r\n";
}

} // namespace tallowmere
