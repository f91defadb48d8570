#include "app/market/TickerStrip.h"

#include "app/base/QtText.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/Graphics.h"
#include "app/forms/frmMain.h"
#include "core/shell/conversion.h"
#include "core/shell/setting_keys.h"
#include "core/shell/settings_store.h"
#include "core/sites/site_table.h"
#include "core/text/bytes.h"

#include <QEvent>

namespace tallowmere {

namespace {

constexpr std::string_view kPath = "/javaticker.html";
/// More would take minutes to pass by.
constexpr qsizetype kMostTickers = 200;
/// Whoever goes through several portfolios has the strip follow once.
constexpr int kFollowMilliseconds = 400;

} // namespace

TickerStrip::TickerStrip(frmMain& form, SettingsStore& settings, const SiteTable& sites)
    : QObject(&form), m_form(form), m_settings(settings), m_sites(sites) {
    m_listChanged.setSingleShot(true);
    m_listChanged.setInterval(kFollowMilliseconds);
    connect(&m_listChanged, &QTimer::timeout, this, &TickerStrip::FollowList);
    form.installEventFilter(this);
    const auto changed = [this] { m_listChanged.start(); };
    const QAbstractItemModel* list = form.List1->model();
    connect(list, &QAbstractItemModel::modelReset, this, changed);
    connect(list, &QAbstractItemModel::layoutChanged, this, changed);
    connect(list, &QAbstractItemModel::rowsInserted, this, changed);
    connect(list, &QAbstractItemModel::rowsRemoved, this, changed);
}

// The engine does not know that a window is minimised, and would draw on.
bool TickerStrip::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowStateChange)
        m_form.WebTick->setVisible(!m_form.isMinimized());
    return QObject::eventFilter(watched, event);
}

void TickerStrip::Start() {
    if (ToBoolean(UsableSetting(m_settings, kSettingsSection, "WSCTick")))
        Show(true);
}

void TickerStrip::Show(bool shown) {
    m_isShown = shown;
    m_form.ShowTicker(shown);
    if (shown) {
        m_form.WebTick->Navigate(ToQt(m_sites.Address("stream_ticker", kPath)));
        return;
    }
    m_form.WebTick->EndPage();
    m_shownTickers.reset();
}

void TickerStrip::Switch(bool shown) {
    m_settings.SaveSetting(kSettingsSection, "WSCTick", FromBoolean(shown));
    Show(shown);
}

std::string TickerStrip::WithTickers(const std::string& path) {
    if (!path.ends_with(kPath))
        return path;
    m_shownTickers = Tickers();
    return path + "?s=" + *m_shownTickers + (HasGraphicsCard() ? "" : "&rest=1");
}

std::string TickerStrip::Tickers() const {
    QStringList tickers = m_form.List1->Items();
    tickers.resize(std::min(kMostTickers, tickers.size()));
    std::string joined;
    for (const QString& ticker : std::as_const(tickers)) {
        if (!joined.empty())
            joined += '+';
        joined += PercentEncode(FromQt(ticker));
    }
    return joined;
}

void TickerStrip::FollowList() {
    if (m_isShown && m_shownTickers && *m_shownTickers != Tickers())
        m_form.WebTick->Refresh();
}

} // namespace tallowmere
