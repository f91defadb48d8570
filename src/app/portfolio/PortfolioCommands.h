#pragma once

#include "app/base/MainState.h"
#include "app/base/Services.h"

#include <QObject>

namespace tallowmere {

class Chip;
class frmMain;
class Portfolios;
struct PortfolioMenu;

/// The commands that copy and move tickers between the portfolios, put lists on the clipboard,
/// rename a portfolio and show the portfolio label. Each writes the settings at once; none looks
/// for duplicates.
class PortfolioCommands : public QObject {
    Q_OBJECT
public:
    PortfolioCommands(frmMain& form, MainState& state, const Services& services,
                      Portfolios& portfolios);

private:
    void ConnectTargets(const PortfolioMenu& menu, void (PortfolioCommands::*command)(int));
    void ConnectOptions(Chip* label);

    void CopyAllLists();
    void CopyList();
    void CopyTicker(int target);
    void MoveTicker(int target);
    void CopyPortfolio(int target);
    void MovePortfolio(int target);
    void Rename();
    void SwitchLabels();

    std::string CurrentList() const;
    void Append(int target, std::string_view tickers);

    frmMain& m_form;
    MainState& m_state;
    Services m_services;
    Portfolios& m_portfolios;
};

} // namespace tallowmere
