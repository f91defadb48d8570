#include "app/portfolio/Portfolios.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "core/portfolio/keyed_store.h"
#include "core/portfolio/ticker_list.h"
#include "core/shell/area_colors.h"
#include "core/shell/settings_store.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

std::string NumberedKey(std::string_view prefix, int number) {
    return std::string(prefix) + std::to_string(number);
}

} // namespace

Portfolios::Portfolios(frmMain& form, SettingsStore& settings, Prompts& prompts,
                       const std::filesystem::path& programFolder)
    : QObject(&form), m_form(form), m_settings(settings), m_prompts(prompts),
      m_programFolder(programFolder) {
    ConnectControls();
}

void Portfolios::ConnectControls() {
    for (int n = 1; n <= kPortfolioCount; ++n) {
        const auto select = [this, n] { SelectPortfolio(n); };
        connect(m_form.lblListNum.at(static_cast<std::size_t>(n)), &Chip::clicked, this, select);
        connect(m_form.menus->selectPortfolio.at(static_cast<std::size_t>(n)), &QAction::triggered,
                this, select);
    }
    connect(m_form.Label1, &Chip::clicked, this, &Portfolios::RemoveSelectedTicker);
    connect(m_form.Label1, &Chip::DoubleClicked, this, &Portfolios::ClearList);
    connect(m_form.menus->clearList, &QAction::triggered, this, &Portfolios::ClearList);
    connect(m_form.menus->mnuDeleteTick, &QAction::triggered, this,
            &Portfolios::RemoveSelectedTicker);
}

std::string Portfolios::StoredList(int number) const {
    return m_settings.GetSetting("Settings", NumberedKey("Stocks", number), "");
}

void Portfolios::StoreList(int number, std::string_view tickers) {
    m_settings.SaveSetting("Settings", NumberedKey("Stocks", number), tickers);
}

void Portfolios::StoreMove(int target, const std::string& kept, const std::string& moved) {
    if (target == m_current)
        return StoreList(target, kept + moved);
    m_settings.SaveSettings("Settings",
                            {{NumberedKey("Stocks", m_current), kept},
                             {NumberedKey("Stocks", target), StoredList(target).append(moved)}});
}

QString Portfolios::PortfolioName(int number) const {
    return ToQt(m_settings.GetSetting("Settings", NumberedKey("PortName", number),
                                      NumberedKey("Portfolio #", number)));
}

void Portfolios::SetPorts() {
    const MainMenus& menus = *m_form.menus;
    for (int n = 1; n <= kPortfolioCount; ++n) {
        const auto at = static_cast<std::size_t>(n);
        const QString caption = MenuCaption(PortfolioName(n));
        for (QAction* item : {menus.mnuCopyPort.items[at], menus.mnuMovePort.items[at],
                              menus.mnuMoveAllPort.items[at], menus.mnuCopyAllPort.items[at],
                              menus.selectPortfolio[at]})
            item->setText(caption);
        m_form.lblListNum[at]->setToolTip(PortfolioName(n));
    }
}

void Portfolios::SelectPortfolio(int number) {
    const int outgoing = m_current;
    const QStringList items = m_form.List1->Items();
    // A list that was emptied by hand keeps its stored value; only clearing writes an empty one.
    if (!items.isEmpty())
        SaveCurrentList();
    if (outgoing > 0)
        m_rememberedSelection.at(static_cast<std::size_t>(outgoing)) = m_form.List1->ListIndex();
    m_current = number;
    PaintNumbers();

    QStringList tickers;
    for (const std::string& ticker : SplitTickerList(StoredList(number)))
        tickers << ToQt(ticker);
    m_form.List1->SetItems(tickers);
    const int remembered = m_rememberedSelection.at(static_cast<std::size_t>(number));
    m_form.List1->SetListIndex(remembered < tickers.size() ? remembered : -1);
    m_form.lblPort->SetCaption(PortfolioName(number));
}

void Portfolios::PaintNumbers() {
    const ColorPair colors = ReadAreaColors(m_settings).Of("PN");
    for (int n = 1; n <= kPortfolioCount; ++n) {
        const bool current = n == m_current;
        m_form.lblListNum[static_cast<std::size_t>(n)]->SetColors(current ? Swapped(colors)
                                                                          : colors);
    }
    m_form.lblPort->SetColors(colors);
}

void Portfolios::SeedFirstStart() {
    if (m_current != 1 || m_form.List1->Count() > 0)
        return;
    m_form.List1->AddItems({u"AOL"_s, u"YHOO"_s, u"MSFT"_s});
    SaveCurrentList();
}

void Portfolios::SaveCurrentList() {
    StoreList(m_current, JoinTickerList(ListedTickers()));
}

std::vector<std::string> Portfolios::ListedTickers() const {
    std::vector<std::string> tickers;
    for (const QString& item : m_form.List1->Items())
        tickers.push_back(FromQt(item));
    return tickers;
}

std::string Portfolios::OtherLists() const {
    std::string lists;
    for (int n = 1; n <= kPortfolioCount; ++n) {
        if (n != m_current)
            lists += StoredList(n);
    }
    return lists;
}

void Portfolios::RemoveSelectedTicker() {
    const int index = m_form.List1->ListIndex();
    const std::string ticker = FromQt(m_form.List1->SelectedText());
    if (index >= 0)
        m_form.List1->RemoveItem(index);
    SaveCurrentList();
    if (index >= 0)
        RemoveNotes(m_programFolder, TickersFoundNowhere({ticker}, OtherLists()), kTickerNotesFile);
}

void Portfolios::ClearList() {
    if (!m_prompts.Ask(u"Clear Stock List?"_s, u"Clear Stocks"_s))
        return;
    const std::vector<std::string> tickers = ListedTickers();
    StoreList(m_current, "");
    m_form.List1->Clear();
    RemoveNotes(m_programFolder, TickersFoundNowhere(tickers, OtherLists()), kTickerNotesFile);
}

} // namespace tallowmere
