#include "market/TickerStrip.h"

#include "forms/frmMain.h"
#include "links/BrowserPane.h"
#include "shell/QtText.h"
#include "shell/conversion.h"
#include "shell/setting_keys.h"
#include "text/bytes.h"

namespace tallowmere {

namespace {

constexpr std::string_view kPath = "/javaticker.html";
/// More would take minutes to pass by.
constexpr qsizetype kMostTickers = 200;

} // namespace

TickerStrip::TickerStrip(frmMain& form, MainState& state, const Services& services)
    : QObject(&form), m_form(form), m_state(state), m_services(services) {}

void TickerStrip::Show(bool shown) {
    m_state.tickerShown = shown;
    m_form.ShowTicker(shown);
    if (shown)
        m_form.WebTick->Navigate(ToQt(m_services.sites.Address("stream_ticker", kPath)));
    else
        m_form.WebTick->Stop();
}

void TickerStrip::Switch(bool shown) {
    m_services.settings.SaveSetting(kSettingsSection, "WSCTick", FromBoolean(shown));
    Show(shown);
}

std::string TickerStrip::WithTickers(const std::string& path) const {
    if (!path.ends_with(kPath))
        return path;
    std::string tickers;
    for (const QString& ticker : m_form.List1->Items().first(
             std::min(kMostTickers, static_cast<qsizetype>(m_form.List1->Count())))) {
        if (!tickers.empty())
            tickers += '+';
        tickers += PercentEncode(FromQt(ticker));
    }
    return path + "?s=" + tickers;
}

} // namespace tallowmere
