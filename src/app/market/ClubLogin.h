#pragma once

#include <QObject>

namespace tallowmere {

class Prompts;
class SiteTable;
class TransferControl;
class frmMain;
struct Accounts;

/// Lets a member of the discussion club in at the start: shows the members' page and, when it is
/// not refused, gives the club's link its caption.
class ClubLogin : public QObject {
    Q_OBJECT
public:
    ClubLogin(frmMain& form, const SiteTable& sites, Prompts& prompts, const Accounts& accounts,
              TransferControl& tmNet);

    /// Does nothing for who is no member. Returns when the page is there; the window, and this
    /// with it, may be gone by then.
    void Check();

private:
    frmMain& m_form;
    const SiteTable& m_sites;
    Prompts& m_prompts;
    const Accounts& m_accounts;
    TransferControl& m_tmNet;
};

} // namespace tallowmere
