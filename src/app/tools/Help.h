#pragma once

#include <QObject>

namespace tallowmere {

class Clock;
class PaneDeck;
class Prompts;
class SeparateBrowser;
class SiteTable;
class frmMain;

/// The user guide, what the program says about itself, and reports to its makers.
class Help : public QObject {
    Q_OBJECT
public:
    Help(frmMain& form, const SiteTable& sites, Prompts& prompts, const Clock& clock,
         PaneDeck& panes, SeparateBrowser& outside);

    /// Opens the user guide in `Web`.
    void Open();

    /// Tells the versions of the program and its engine.
    void About();

    /// Begins a mail about a problem.
    void Report();

private:
    const SiteTable& m_sites;
    Prompts& m_prompts;
    const Clock& m_clock;
    PaneDeck& m_panes;
    SeparateBrowser& m_outside;
};

} // namespace tallowmere
