#include "core/portal/portal_request.h"

#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::size_t kMostSymbols = 20'000;
constexpr std::size_t kLongestSymbol = 40;

} // namespace

PortalRequest::PortalRequest(std::string_view askedHost, std::string_view pathAndQuery)
    : host(ToLower(askedHost)), address(std::string(askedHost).append(pathAndQuery)) {
    const auto mark = std::min(pathAndQuery.find('?'), pathAndQuery.size());
    path = PercentDecode(pathAndQuery.substr(0, mark));
    if (!path.starts_with('/'))
        path.insert(0, 1, '/');
    query = pathAndQuery.substr(std::min(mark + 1, pathAndQuery.size()));
}

std::string PortalRequest::Parameter(std::string_view name) const {
    const std::string sought = ToLower(name);
    for (const std::string_view part : Split(query, '&')) {
        const auto mark = std::min(part.find('='), part.size());
        if (ToLower(part.substr(0, mark)) == sought)
            return PercentDecode(part.substr(std::min(mark + 1, part.size())));
    }
    return {};
}

std::vector<std::string> SymbolsOf(std::string_view list) {
    std::vector<std::string> symbols;
    std::size_t end = 0;
    for (std::size_t at = 0; at < list.size() && symbols.size() < kMostSymbols; at = end + 1) {
        end = std::min(list.find_first_of(" +,", at), list.size());
        if (end > at)
            symbols.push_back(ToUpper(list.substr(at, std::min(end - at, kLongestSymbol))));
    }
    return symbols;
}

} // namespace tallowmere
