#pragma once

#include "app/base/MainState.h"
#include "app/base/Services.h"

#include <QObject>

namespace tallowmere {

class BrowserPane;
class frmMain;
class SeparateBrowser;

/// The panes of the main window as one deck: which is in front, and what happens before a page
/// loads.
class PaneDeck : public QObject {
    Q_OBJECT
public:
    PaneDeck(frmMain& form, MainState& state, const Services& services, SeparateBrowser& outside);

    /// Loads an address into `Web` and brings it to the front, unless the page is to open in a
    /// separate browser.
    void Navigate(const QString& address);

    /// The same for a broker's page in `WebB`.
    void NavigateSecond(const QString& address);

    /// Brings one of the two panes to the front.
    void ShowFirst();
    void ShowSecond();

    /// The pane in front.
    BrowserPane* Front() const;

    /// Shows a text in the status line.
    void ShowStatus(const QString& text);

    /// Draws the progress bar; 0 of anything empties it.
    void ShowProgress(int progress, int maximum);

Q_SIGNALS:
    /// A page is about to load: the edge panels make room.
    void BrowsingStarts();

private:
    void BeforeFirst(const QString& address, bool* cancel);
    void BeforeEither(const QString& address, bool* cancel);

    frmMain& m_form;
    MainState& m_state;
    Services m_services;
    SeparateBrowser& m_outside;
};

} // namespace tallowmere
