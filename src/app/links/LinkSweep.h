#pragma once

#include <QObject>
#include <QSet>
#include <QStringList>

namespace tallowmere {

class BrowserPane;
class LinkDispatch;
class LinkPanel;
class PaneDeck;
class PaneTabs;
class Prompts;
struct RecordingState;
class frmMain;

/// Opens the link that was used last for all tickers of the list, a tab each: a few pages load at a
/// time, the next one when one of them is there.
class LinkSweep : public QObject {
    Q_OBJECT
public:
    LinkSweep(frmMain& form, const RecordingState& recording, Prompts& prompts, PaneDeck& panes,
              const PaneTabs& tabs, const LinkDispatch& dispatch, LinkPanel& panel);

    /// Begins a sweep, or ends the one that is on: what is open by then stays.
    void Toggle();

    static constexpr int kAtOnce = 3;
    /// The most tabs that open without a question.
    static constexpr int kMostUnasked = 10;

private:
    void Begin();
    bool Agrees(int room) const;
    void GoOn();
    void OpenFor(const QString& ticker);
    void Await(BrowserPane* pane);
    void End(const QString& words);

    frmMain& m_form;
    const RecordingState& m_recording;
    Prompts& m_prompts;
    PaneDeck& m_panes;
    const PaneTabs& m_tabs;
    const LinkDispatch& m_dispatch;
    LinkPanel& m_panel;
    int m_link = 0;         ///< that is opened
    QStringList m_tickers;  ///< that it is opened for
    qsizetype m_opened = 0; ///< how many of them
    QSet<const BrowserPane*> m_loading;
    bool m_isOn = false;
    bool m_isOpening = false;
};

} // namespace tallowmere
