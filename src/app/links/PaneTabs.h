#pragma once

#include <QHash>
#include <QObject>

namespace tallowmere {

class BrowserPane;
class PaneDeck;
class frmMain;

/// A page that stands in a tab, or stood there when the program was closed.
struct TabPage {
    QString address;
    QString caption;
};

/// The panes beyond `Web` and `WebB`, and the row of tabs above all of them, which is there as long
/// as there is such a pane.
class PaneTabs : public QObject {
    Q_OBJECT
public:
    PaneTabs(frmMain& form, PaneDeck& deck);

    /// Opens an address in a further pane. Beyond the most that there may be it is told that there
    /// is no room.
    void Open(const QString& address, bool isInFront);
    /// The page of a pane that is empty yet is loaded when it is first shown; none when it has no
    /// address.
    void Await(BrowserPane* pane, const TabPage& page);
    /// Adds a tab whose page is loaded when it is first shown.
    void AddWaiting(const TabPage& page);
    /// Closes the pane in front, unless it is `Web` or `WebB`.
    void CloseFront();
    /// Brings the next or the previous tab to the front, around the ends.
    void Walk(int by);
    /// Brings the tab at a place of the row to the front, the first one when there is none.
    void ShowAt(int index);

    /// What a pane shows, or will show.
    TabPage PageOf(const BrowserPane* pane) const;
    /// The same of the further panes that hold something that can be loaded at the next start, in
    /// their order.
    QList<TabPage> Pages() const;
    /// Which tab is in front of a row of `Web`, `WebB` and those; the first when it is none of
    /// them.
    int KeptFrontIndex() const;
    /// Which tab of the row is in front.
    int FrontIndex() const;

    static constexpr int kMostTabs = 40;
    /// How many further panes there may still be.
    int Room() const;

private:
    BrowserPane* Add();
    bool IsKept(const BrowserPane* pane) const;
    void Close(BrowserPane* pane);
    QList<BrowserPane*> Row() const;
    QString CaptionOf(const BrowserPane* pane) const;
    void OnFront(BrowserPane* pane);
    void LoadWaiting(BrowserPane* pane);
    void ShowRow();

    frmMain& m_form;
    PaneDeck& m_deck;
    QHash<const BrowserPane*, TabPage> m_waiting; ///< pages that are to be loaded
};

} // namespace tallowmere
