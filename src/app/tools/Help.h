#pragma once

#include "app/base/Services.h"

#include <QObject>

namespace tallowmere {

class frmMain;
class PaneDeck;
class SeparateBrowser;

/// The user guide, what the program says about itself, and reports to its makers.
class Help : public QObject {
    Q_OBJECT
public:
    Help(frmMain& form, const Services& services, PaneDeck& panes, SeparateBrowser& outside);

    /// Opens the user guide in `Web`.
    void Open();

    /// Tells the versions of the program and its engine.
    void About();

    /// Begins a mail about a problem.
    void Report();

private:
    Services m_services;
    PaneDeck& m_panes;
    SeparateBrowser& m_outside;
};

} // namespace tallowmere
