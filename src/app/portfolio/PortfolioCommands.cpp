#include "app/portfolio/PortfolioCommands.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/portfolio/Portfolios.h"
#include "app/portfolio/TickerModel.h"
#include "core/portfolio/portfolio_text.h"
#include "core/portfolio/ticker_list.h"
#include "core/shell/conversion.h"
#include "core/shell/undo_recorder.h"

#include <QClipboard>
#include <QGuiApplication>

namespace tallowmere {

using namespace Qt::StringLiterals;

PortfolioCommands::PortfolioCommands(frmMain& form, SettingsStore& settings, UndoRecorder& undo,
                                     Prompts& prompts, Portfolios& portfolios)
    : QObject(&form), m_form(form), m_settings(settings), m_undo(undo), m_prompts(prompts),
      m_portfolios(portfolios) {
    const MainMenus& menus = *form.menus;
    connect(menus.mnuCopyAll, &QAction::triggered, this, &PortfolioCommands::CopyAllLists);
    connect(menus.mnuCopyIt, &QAction::triggered, this, &PortfolioCommands::CopyList);
    ConnectTargets(menus.mnuCopyPort, &PortfolioCommands::CopyTicker);
    ConnectTargets(menus.mnuMovePort, &PortfolioCommands::MoveTicker);
    ConnectTargets(menus.mnuCopyAllPort, &PortfolioCommands::CopyPortfolio);
    ConnectTargets(menus.mnuMoveAllPort, &PortfolioCommands::MovePortfolio);
    connect(menus.mnuPortOpt[1], &QAction::triggered, this, &PortfolioCommands::Rename);
    connect(menus.mnuPortOpt[3], &QAction::triggered, this, &PortfolioCommands::SwitchLabels);
    for (std::size_t n = 1; n <= kPortfolioCount; ++n)
        ConnectOptions(form.lblListNum[n]);
    ConnectOptions(form.lblPort);
}

void PortfolioCommands::ConnectTargets(const PortfolioMenu& menu,
                                       void (PortfolioCommands::*command)(int)) {
    for (int n = 1; n <= kPortfolioCount; ++n)
        connect(menu.items[static_cast<std::size_t>(n)], &QAction::triggered, this,
                [=, this] { (this->*command)(n); });
}

void PortfolioCommands::ConnectOptions(Chip* label) {
    connect(label, &Chip::MouseUp, this, [this](Qt::MouseButton button) {
        if (button == Qt::RightButton)
            m_form.PopUp(m_form.menus->mnuPortOptions);
    });
    connect(label, &Chip::MenuKey, this, [this] { m_form.PopUp(m_form.menus->mnuPortOptions); });
}

std::string PortfolioCommands::CurrentList() const {
    return m_portfolios.StoredList(m_portfolios.Current());
}

std::string PortfolioCommands::To(int target) const {
    return " to " + FromQt(m_portfolios.PortfolioName(target));
}

void PortfolioCommands::Append(int target, std::string_view tickers) {
    m_portfolios.List().Store(target, m_portfolios.StoredList(target).append(tickers));
}

void PortfolioCommands::CopyAllLists() {
    QGuiApplication::clipboard()->setText(ToQt(AllPortfoliosText(LoadPortfolios(m_settings))));
}

void PortfolioCommands::CopyList() {
    const std::string list = CurrentList();
    if (!list.empty())
        QGuiApplication::clipboard()->setText(ToQt(PortfolioText(list)));
}

void PortfolioCommands::CopyTicker(int target) {
    const std::string ticker = FromQt(m_form.List1->SelectedText());
    m_undo.Run("Copy " + ticker + To(target), [&] { Append(target, ticker + "|"); });
}

void PortfolioCommands::MoveTicker(int target) {
    const std::string ticker = FromQt(m_form.List1->SelectedText());
    const int index = m_form.List1->ListIndex();
    std::vector<std::string> kept = m_portfolios.ListedTickers();
    if (index >= 0)
        kept.erase(kept.begin() + index);
    m_portfolios.SaveUnwritten();
    m_undo.Run("Move " + ticker + To(target),
               [&] { m_portfolios.List().StoreMove(target, JoinTickerList(kept), ticker + "|"); });
    if (index < 0)
        return;
    m_portfolios.List().TakeOut(index);
    m_form.List1->SetListIndex(-1);
}

void PortfolioCommands::CopyPortfolio(int target) {
    m_undo.Run("Copy Portfolio" + To(target), [&] { Append(target, CurrentList()); });
}

void PortfolioCommands::MovePortfolio(int target) {
    m_undo.Run("Move Portfolio" + To(target),
               [&] { m_portfolios.List().StoreMove(target, "", CurrentList()); });
    m_portfolios.List().Clear();
}

void PortfolioCommands::Rename() {
    const int number = m_portfolios.Current();
    const auto name = m_prompts.Input(
        u"Enter a new name for portfolio #"_s + QString::number(number), u"Rename Portfolio"_s, {});
    if (!name || name->trimmed().isEmpty())
        return;
    m_undo.Run("Rename Portfolio", [&] {
        m_settings.SaveSetting("Settings", "PortName" + std::to_string(number), FromQt(*name));
    });
    m_portfolios.ShowName();
    m_portfolios.SetPorts();
}

void PortfolioCommands::SwitchLabels() {
    const bool shown = m_form.lblPort->isHidden();
    m_settings.SaveSetting("Settings", "PortLabels", FromBoolean(shown));
    m_form.ShowPortfolioLabel(shown);
    m_form.LayOut();
}

} // namespace tallowmere
