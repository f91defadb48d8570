#include "app/market/ClubLogin.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/base/TransferControl.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/links/Accounts.h"
#include "core/sites/site_table.h"

#include <QPointer>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kClubLink = 189;

} // namespace

ClubLogin::ClubLogin(frmMain& form, const SiteTable& sites, Prompts& prompts,
                     const Accounts& accounts, TransferControl& tmNet)
    : QObject(&form), m_form(form), m_sites(sites), m_prompts(prompts), m_accounts(accounts),
      m_tmNet(tmNet) {}

void ClubLogin::Check() {
    if (!m_accounts.clubMember)
        return;
    const QPointer<ClubLogin> alive(this);
    const QString members = ToQt(m_sites.Address("club_members", "/members/"));
    m_form.Web->Navigate(members);
    m_form.Web->WaitWhileBusy();
    if (!alive)
        return;
    const QByteArray page = m_tmNet.OpenURL(members);
    if (!alive)
        return;
    if (page.contains("401 Authorization Required"))
        m_prompts.Message(
            u"Sorry, your login information for Society Anonyme was incorrect. If you wish to try "
            "again, u must restart Tallowmere, otherwise uncheck the Societe Anonyme box in setup "
            "if you are not a member."_s,
            MessageTitle());
    else
        m_form.lbllink[kClubLink]->SetCaption(u"Discussion Groups"_s);
}

} // namespace tallowmere
