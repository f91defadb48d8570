#pragma once

#include <QObject>

namespace tallowmere {

class Chip;
struct PortfolioMenu;
class Portfolios;
class Prompts;
class SettingsStore;
class UndoRecorder;
class frmMain;

/// The commands that copy and move tickers between the portfolios, put lists on the clipboard,
/// rename a portfolio and show the portfolio label. Each writes the settings at once; none looks
/// for duplicates.
class PortfolioCommands : public QObject {
    Q_OBJECT
public:
    PortfolioCommands(frmMain& form, SettingsStore& settings, UndoRecorder& undo, Prompts& prompts,
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
    /// The end of a caption: " to " and the name of a portfolio.
    std::string To(int target) const;
    void Append(int target, std::string_view tickers);

    frmMain& m_form;
    SettingsStore& m_settings;
    UndoRecorder& m_undo;
    Prompts& m_prompts;
    Portfolios& m_portfolios;
};

} // namespace tallowmere
