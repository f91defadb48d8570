#pragma once

#include <QObject>
#include <QTimer>

namespace tallowmere {

class Prompts;
class SiteTable;
class TransferControl;
class frmMain;
struct Accounts;

/// Lets a member of the discussion club in at the start: shows the members' page and, when it is
/// not refused, gives the club's link its caption. The start goes on meanwhile; what has to come
/// after the club waits for the signals, which come within half a minute, however long the club
/// says nothing.
class ClubLogin : public QObject {
    Q_OBJECT
public:
    ClubLogin(frmMain& form, const SiteTable& sites, Prompts& prompts, const Accounts& accounts,
              TransferControl& tmNet);

    /// Sends the main pane to the members' page and returns. Gives false for who is no member;
    /// nothing happens then, and no signal comes.
    bool Begin();

Q_SIGNALS:
    /// The members' page is there, or is no longer waited for; once. `isPaneFree` is false when the
    /// user sent the pane elsewhere meanwhile.
    void PageOver(bool isPaneFree);
    /// The check is over, and what there was to say is said; once.
    void Over();

private:
    void OnPageEnded();
    void EndPageWait();
    void Ask();
    void OnAnswer();
    void Conclude(const QByteArray& page);
    void Leave();

    frmMain& m_form;
    const SiteTable& m_sites;
    Prompts& m_prompts;
    const Accounts& m_accounts;
    TransferControl& m_tmNet;
    QString m_address;
    QTimer m_patience;
    enum class State { Idle, Page, Answer } m_state = State::Idle;
    bool m_isPaneFree = true;
};

} // namespace tallowmere
