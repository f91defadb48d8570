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
using namespace std::chrono_literals;

namespace {

constexpr int kClubLink = 189;
constexpr auto kPagePatience = 10s;
constexpr auto kAnswerPatience = 15s;

} // namespace

ClubLogin::ClubLogin(frmMain& form, const SiteTable& sites, Prompts& prompts,
                     const Accounts& accounts, TransferControl& tmNet)
    : QObject(&form), m_form(form), m_sites(sites), m_prompts(prompts), m_accounts(accounts),
      m_tmNet(tmNet), m_patience(this) {
    m_patience.setSingleShot(true);
    connect(&form, &frmMain::Closing, this, &ClubLogin::Leave);
}

bool ClubLogin::Begin() {
    if (!m_accounts.clubMember)
        return false;
    m_address = ToQt(m_sites.Address("club_members", "/members/"));
    m_form.Web->Navigate(m_address);
    m_state = State::Page;
    connect(m_form.Web, &BrowserPane::BeforeNavigate2, this, [this] {
        if (!m_form.Web->IsPagesOwnWish())
            m_isPaneFree = false;
    });
    // The pane may go on to a further page by itself: it is looked at when that has begun.
    connect(m_form.Web, &BrowserPane::DocumentComplete, this, &ClubLogin::OnPageEnded,
            Qt::QueuedConnection);
    connect(&m_patience, &QTimer::timeout, this, &ClubLogin::EndPageWait);
    m_patience.start(kPagePatience);
    if (!m_form.Web->Busy())
        QMetaObject::invokeMethod(this, &ClubLogin::OnPageEnded, Qt::QueuedConnection);
    return true;
}

void ClubLogin::OnPageEnded() {
    if (m_state == State::Page && (!m_form.Web->Busy() || !m_isPaneFree))
        EndPageWait();
}

void ClubLogin::EndPageWait() {
    m_state = State::Answer;
    disconnect(m_form.Web, nullptr, this, nullptr);
    m_patience.disconnect(this);
    const QPointer<ClubLogin> alive(this);
    Q_EMIT PageOver(m_isPaneFree);
    if (alive)
        Ask();
}

void ClubLogin::Ask() {
    if (m_state != State::Answer)
        return;
    if (m_tmNet.IsBusy()) {
        connect(&m_tmNet, &TransferControl::Finished, this, &ClubLogin::Ask,
                static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
        return;
    }
    connect(&m_tmNet, &TransferControl::Finished, this, &ClubLogin::OnAnswer,
            Qt::SingleShotConnection);
    connect(&m_patience, &QTimer::timeout, &m_tmNet, &TransferControl::Cancel);
    m_patience.start(kAnswerPatience);
    m_tmNet.Open(m_address);
}

// The transfer is not over before this returns; what follows may take as long as the user likes.
void ClubLogin::OnAnswer() {
    m_patience.stop();
    const QByteArray page = m_tmNet.GetChunk(TransferControl::kSizeLimit);
    QMetaObject::invokeMethod(
        this, [this, page] { Conclude(page); }, Qt::QueuedConnection);
}

// An answer that never came refuses nobody.
void ClubLogin::Conclude(const QByteArray& page) {
    if (std::exchange(m_state, State::Idle) != State::Answer)
        return;
    const QPointer<ClubLogin> alive(this);
    if (page.contains("401 Authorization Required"))
        m_prompts.Message(
            u"Sorry, your login information for Society Anonyme was incorrect. If you wish to try "
            "again, u must restart Tallowmere, otherwise uncheck the Societe Anonyme box in setup "
            "if you are not a member."_s,
            MessageTitle());
    else
        m_form.lbllink[kClubLink]->SetCaption(u"Discussion Groups"_s);
    if (alive)
        Q_EMIT Over();
}

void ClubLogin::Leave() {
    m_state = State::Idle;
    m_patience.stop();
    disconnect(m_form.Web, nullptr, this, nullptr);
}

} // namespace tallowmere
