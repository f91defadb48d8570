#pragma once

#include <QObject>

namespace tallowmere {

class LinkDispatch;
class LinkPanel;
class PaneDeck;
class frmMain;

/// Goes through the tickers of the list with one link, and through the links of an area with one
/// ticker, a page at each step.
class LinkWalk : public QObject {
    Q_OBJECT
public:
    LinkWalk(frmMain& form, PaneDeck& panes, const LinkDispatch& dispatch, LinkPanel& panel);

    /// Selects the next ticker, or the one before for -1, and opens the link that was used last for
    /// it. At the ends of the list it says so.
    void GoToTicker(int by);
    /// Opens the next link of the area of the link that was used last, or the one before for -1,
    /// for the selected ticker, or the first one when none is. At the ends of the area it says so.
    void GoToLink(int by);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool CanOpen(int link) const;

    frmMain& m_form;
    PaneDeck& m_panes;
    const LinkDispatch& m_dispatch;
    LinkPanel& m_panel;
};

} // namespace tallowmere
