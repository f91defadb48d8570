#include "core/links/portfolio_address.h"

#include "core/text/bytes.h"

namespace tallowmere {

namespace {

/// The tickers with an escaped blank between them.
std::string BlankSeparated(const std::vector<std::string>& tickers) {
    constexpr std::string_view kBlank = "%20";
    std::string list;
    for (const std::string& ticker : tickers)
        list.append(ticker).append(kBlank);
    if (list.size() > kBlank.size())
        list.resize(list.size() - kBlank.size());
    return list;
}

std::string PlusSeparated(const std::vector<std::string>& tickers) {
    return ReplaceAll(BlankSeparated(tickers), "%20", "+");
}

} // namespace

std::string QueryPortfolioAddress(std::string_view storedList, std::string_view viewCode,
                                  const SiteHosts& sites) {
    const auto last = storedList.find_last_not_of('|');
    const auto tickers = storedList.substr(0, last == std::string_view::npos ? 0 : last + 1);
    return sites.Address("quote", "/quotes?symbols=" + ReplaceAll(ToLower(tickers), "|", "+") +
                                      "&d=" + std::string(viewCode));
}

std::string SendAllAddress(const std::vector<std::string>& tickers, std::string_view site,
                           const SiteHosts& sites) {
    if (site == "lycos") {
        return sites.Address("sendall_lycos",
                             "/click?page=quote&company=" + BlankSeparated(tickers) + "&x=58&y=9");
    }
    if (site == "MSN") {
        return sites.Address("sendall_msn",
                             "/investor/charts/charting.asp?Symbol=" + PlusSeparated(tickers));
    }
    const std::string view(site);
    std::string query = (view == "quotes" ? "defview=FULL&symbol=" : "symbol=") +
                        (view == "charts" ? PlusSeparated(tickers) : BlankSeparated(tickers));
    if (view == "charts")
        query += "&period=3MONTH&charttype=HIST&othersymbols=";
    if (view == "quotes" || view == "charts" || view == "estimates" || view == "news")
        return sites.Address("sendall_portal_click", "/click?bfpage=" + view + "&" + query);
    return sites.Address("sendall_portal", "/investments/" + view + "/?" + query);
}

std::string StreamingPortfolioAddress(std::string_view userId, std::string_view password,
                                      const SiteHosts& sites) {
    return sites.Address("stream_applet",
                         "/moneynet/cgi-bin/applet.cgi?CUSTID=" + std::string(userId) +
                             "&PASSWORD=" + std::string(password));
}

std::string FindHomePage(std::string_view profilePage) {
    constexpr std::string_view kAttribute = "href=";
    const auto caption = profilePage.find(">Home Page</a>");
    if (caption == std::string_view::npos)
        return {};
    const auto before = profilePage.substr(0, caption);
    const auto attribute = before.rfind(kAttribute);
    if (attribute == std::string_view::npos)
        return {};
    const auto value = before.substr(attribute + kAttribute.size());
    return ReplaceAll(value.substr(0, value.find('>')), "\"", "");
}

} // namespace tallowmere
