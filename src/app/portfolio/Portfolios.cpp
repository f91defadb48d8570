#include "app/portfolio/Portfolios.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/UndoBar.h"
#include "app/forms/frmMain.h"
#include "app/portfolio/TickerModel.h"
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
      m_programFolder(programFolder), m_list(new TickerModel(settings, undo, this)) {
    form.List1->setModel(m_list);
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

int Portfolios::Current() const {
    return m_list->Number();
}

std::string Portfolios::StoredList(int number) const {
    return m_list->Stored(number);
}

QString Portfolios::PortfolioName(int number) const {
    return ToQt(m_settings.GetSetting("Settings", NumberedKey("PortName", number),
                                      NumberedKey("Portfolio #", number)));
}

void Portfolios::ShowName() {
    const QString name = PortfolioName(Current());
    m_form.lblPort->SetCaption(name);
    m_form.menus->portfolioHeading->setText(u"#"_s + QString::number(Current()) + u": "_s +
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
    const int outgoing = Current();
    const int selected = m_form.List1->ListIndex();
    m_list->Show(number);
    if (outgoing > 0)
        m_rememberedSelection.at(static_cast<std::size_t>(outgoing)) = selected;
    PaintNumbers();
    const int remembered = m_rememberedSelection.at(static_cast<std::size_t>(number));
    m_form.List1->SetListIndex(remembered < m_list->rowCount() ? remembered : -1);
    ShowName();
    Q_EMIT Selected();
}

void Portfolios::PaintNumbers() {
    const ColorPair colors = ReadAreaColors(m_settings).Of("PN");
    for (int n = 1; n <= kPortfolioCount; ++n) {
        const bool current = n == Current();
        Chip* number = m_form.lblListNum[static_cast<std::size_t>(n)];
        number->SetColors(current ? Swapped(colors) : colors);
        // The colours say it to those who see them.
        number->setAccessibleDescription(current ? u"Portfolio number, current"_s
                                                 : u"Portfolio number"_s);
    }
    m_form.lblPort->SetColors(colors);
}

void Portfolios::SeedFirstStart() {
    if (Current() != 1 || m_form.List1->Count() > 0)
        return;
    m_list->Append({"AOL", "YHOO", "MSFT"});
    m_list->Write();
}

void Portfolios::SaveUnwritten() {
    m_list->WriteUnwritten();
}

void Portfolios::AddTickers(const std::vector<std::string>& tickers) {
    m_list->Add(tickers);
}

void Portfolios::Reload() {
    SetPorts();
    ShowName();
    const std::vector<std::string> shown = m_list->Tickers();
    const int index = m_form.List1->ListIndex();
    if (m_list->Reload())
        m_form.List1->SetListIndex(RowAfterReload(shown, m_list->Tickers(), index));
}

std::vector<std::string> Portfolios::ListedTickers() const {
    return m_list->Tickers();
}

std::string Portfolios::OtherLists() const {
    std::string lists;
    for (int n = 1; n <= kPortfolioCount; ++n) {
        if (n != Current())
            lists += StoredList(n);
    }
    return lists;
}

void Portfolios::RemoveSelectedTicker() {
    const int index = m_form.List1->ListIndex();
    const std::string ticker = FromQt(m_form.List1->SelectedText());
    SaveUnwritten();
    if (index >= 0) {
        m_list->TakeOut(index);
        m_form.List1->SetListIndex(-1);
    }
    m_undo.Run("Delete " + ticker, [&] {
        m_list->Write();
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
    const std::string name = FromQt(PortfolioName(Current()));
    const bool clears = m_prompts.Ask(ToQt(ClearQuestion(tickers.size(), Current(), name)),
                                      u"Clear Stocks"_s, Prompts::Answer::No);
    if (!clears) {
        // Of two clicks the first has removed a ticker, which can still be brought back.
        m_form.undoBar->Stay();
        return;
    }
    SaveUnwritten();
    m_undo.Run("Clear Ticker List", [&] {
        m_list->Store(Current(), "");
        RemoveNotes(m_programFolder, TickersFoundNowhere(tickers, OtherLists()), kTickerNotesFile);
        m_undo.TellRemoved(TickersRemoved(tickers.size(), name));
    });
    m_list->Clear();
}

} // namespace tallowmere
