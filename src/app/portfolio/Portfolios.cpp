#include "app/portfolio/Portfolios.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/UndoBar.h"
#include "app/forms/frmMain.h"
#include "core/portfolio/keyed_store.h"
#include "core/portfolio/ticker_list.h"
#include "core/portfolio/undo_words.h"
#include "core/shell/area_colors.h"
#include "core/shell/undo_recorder.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

std::string NumberedKey(std::string_view prefix, int number) {
    return std::string(prefix) + std::to_string(number);
}

} // namespace

Portfolios::Portfolios(frmMain& form, SettingsStore& settings, UndoRecorder& undo, Prompts& prompts,
                       const std::filesystem::path& programFolder)
    : QObject(&form), m_form(form), m_settings(settings), m_undo(undo), m_prompts(prompts),
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

void Portfolios::ShowName() {
    const QString name = PortfolioName(m_current);
    m_form.lblPort->SetCaption(name);
    m_form.menus->portfolioHeading->setText(u"#"_s + QString::number(m_current) + u": "_s +
                                            MenuCaption(name));
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
    if (!items.isEmpty()) {
        SaveUnwritten();
        SaveCurrentList();
    }
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
    ShowName();
    Q_EMIT Selected();
}

void Portfolios::PaintNumbers() {
    const ColorPair colors = ReadAreaColors(m_settings).Of("PN");
    for (int n = 1; n <= kPortfolioCount; ++n) {
        const bool current = n == m_current;
        Chip* number = m_form.lblListNum[static_cast<std::size_t>(n)];
        number->SetColors(current ? Swapped(colors) : colors);
        // The colours say it to those who see them.
        number->setAccessibleDescription(current ? u"Portfolio number, current"_s
                                                 : u"Portfolio number"_s);
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

void Portfolios::SaveUnwritten() {
    const std::vector<std::string> listed = ListedTickers();
    const std::vector<std::string> stored = SplitTickerList(StoredList(m_current));
    if (listed.empty() || JoinTickerList(listed) == JoinTickerList(stored))
        return;
    m_undo.Run(ListChangeCaption(stored, listed), [this] { SaveCurrentList(); });
}

void Portfolios::AddTickers(const std::vector<std::string>& tickers) {
    SaveUnwritten();
    QStringList added;
    for (const std::string& ticker : tickers)
        added << ToQt(ticker);
    m_form.List1->AddItems(added);
    m_undo.Run(AddCaption(tickers), [this] { SaveCurrentList(); });
}

void Portfolios::Reload() {
    SetPorts();
    ShowName();
    const QStringList shown = m_form.List1->Items();
    QStringList tickers;
    for (const std::string& ticker : SplitTickerList(StoredList(m_current)))
        tickers << ToQt(ticker);
    if (tickers == shown)
        return;
    const int index = m_form.List1->ListIndex();
    const QString selected = m_form.List1->SelectedText();
    const auto differs =
        std::mismatch(tickers.cbegin(), tickers.cend(), shown.cbegin(), shown.cend()).first -
        tickers.cbegin();
    m_form.List1->SetItems(tickers);
    if (tickers.size() > shown.size())
        m_form.List1->SetListIndex(static_cast<int>(differs));
    else
        m_form.List1->SetListIndex(
            tickers.value(index) == selected ? index : static_cast<int>(tickers.indexOf(selected)));
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
    SaveUnwritten();
    if (index >= 0)
        m_form.List1->RemoveItem(index);
    m_undo.Run("Delete " + ticker, [&] {
        SaveCurrentList();
        if (index < 0)
            return;
        const auto alone = TickersFoundNowhere({ticker}, OtherLists());
        const bool hadNote = !alone.empty() && HasNote(m_programFolder, ticker, kTickerNotesFile);
        RemoveNotes(m_programFolder, alone, kTickerNotesFile);
        m_undo.TellRemoved(TickerRemoved(ticker, hadNote));
    });
}

void Portfolios::ClearList() {
    const std::vector<std::string> tickers = ListedTickers();
    const std::string name = FromQt(PortfolioName(m_current));
    const bool clears = m_prompts.Ask(ToQt(ClearQuestion(tickers.size(), m_current, name)),
                                      u"Clear Stocks"_s, Prompts::Answer::No);
    if (!clears) {
        // Of two clicks the first has removed a ticker, which can still be brought back.
        m_form.undoBar->Stay();
        return;
    }
    SaveUnwritten();
    m_undo.Run("Clear Ticker List", [&] {
        StoreList(m_current, "");
        RemoveNotes(m_programFolder, TickersFoundNowhere(tickers, OtherLists()), kTickerNotesFile);
        m_undo.TellRemoved(TickersRemoved(tickers.size(), name));
    });
    m_form.List1->Clear();
}

} // namespace tallowmere
