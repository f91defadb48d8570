#include "app/engine/BrowserPane.h"

#include "app/base/PortalAddress.h"
#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "app/engine/EngineProfile.h"
#include "app/engine/FindBar.h"
#include "app/engine/PageQuestion.h"
#include "app/engine/PageReader.h"
#include "app/engine/PageView.h"
#include "app/engine/PaneNotice.h"
#include "app/engine/PanePage.h"
#include "app/engine/PasswordLookout.h"
#include "app/engine/UserInput.h"
#include "core/links/load_errors.h"

#include <QScopedValueRollback>
#include <QTimer>
#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kProgressMaximum = 100;
constexpr auto kStartPatience = std::chrono::seconds(1);

} // namespace

BrowserPane::BrowserPane(EngineProfile& profile, Prompts& prompts, QWidget* parent)
    : PaneFrame(profile.Zooms(), profile.Sources(), profile.Finding(), parent), m_profile(profile),
      m_prompts(prompts), m_place(profile, *m_notice) {
    connect(&profile, &EngineProfile::PageWanted, m_question, &PageQuestion::EndAwaited);
    connect(m_passwords, &PasswordLookout::Found, this, &BrowserPane::ShowLocation);
    connect(&profile.Access().Https(), &HttpsHosts::FoundPlain, this, [this](const QString& host) {
        if (AskPlainly(host))
            return;
        AskPartsPlainly(host);
        // What is asked for before it stands in the page is found there in the end.
        if (m_isBusy)
            m_plainHosts << host;
    });
    connect(m_notice, &PaneNotice::TryAgain, this, &BrowserPane::Refresh);
    connect(m_notice, &PaneNotice::AsBuilt, this, &BrowserPane::LoadAsBuilt);
    connect(m_notice, &PaneNotice::AddressChosen, this, &BrowserPane::Navigate);
}

BrowserPane::~BrowserPane() {
    m_question->EndAll();
    delete m_view;
    if (m_page)
        m_page->End();
}

void BrowserPane::EnsurePage() {
    if (m_page)
        return;
    m_page = new PanePage(m_profile, m_prompts);
    m_place.SetPage(m_page);
    SetView(new PageView(*m_page, *m_findBar, this));
    // A page may make its boxes later than it is complete, but before somebody types into them.
    connect(m_view, &PageView::SiteDataWanted, &m_profile, &EngineProfile::SiteDataWanted);
    connect(&m_view->Input(), &UserInput::Happened, this,
            [this] { m_passwords->Look(*m_page, m_place.Real()); });
    if (HasLocation())
        m_page->SetQuestion(m_question);
    connect(m_page, &PanePage::Stormed, this, &BrowserPane::OnStorm);
    connect(m_page, &PanePage::Starting, this, &BrowserPane::OnPageStarting);
    connect(m_page, &PanePage::Refused, this, [this](const QUrl& url, bool isWholePage) {
        const QString address = LineStart(url.toString());
        // A frame of the page does not take the page's place by what it may not open.
        if (isWholePage)
            Refuse(address);
        else
            Q_EMIT StatusTextChange(tr("Not opened: %1").arg(address));
    });
    connect(m_page, &PanePage::WindowWanted, this, &BrowserPane::OnWindowWanted);
    connect(m_page, &QWebEnginePage::loadingChanged, this, &BrowserPane::OnLoading);
    connect(m_page, &QWebEnginePage::loadProgress, this, [this](int progress) {
        if (const QUrl url = m_place.Real(); url.scheme() == u"https")
            m_profile.Access().Https().NoteSecure(url.host());
        ShowLocation();
        if (m_isBusy)
            Q_EMIT ProgressChange(progress, kProgressMaximum);
    });
    connect(m_page, &QWebEnginePage::urlChanged, this, &BrowserPane::OnCommit);
    connect(m_page, &QWebEnginePage::linkHovered, this, [this](const QString& url) {
        // Off the link, the line says again where the pane is, or what it is doing.
        if (!url.isEmpty())
            Q_EMIT StatusTextChange(m_profile.AddressOf(QUrl(url)));
        else if (!m_isBusy)
            Q_EMIT StatusTextChange(LocationURL());
    });
    connect(m_page, &PanePage::Crashed, this, &BrowserPane::OnCrash);
    connect(m_page, &QWebEnginePage::titleChanged, this, &BrowserPane::TitleChanged);
}

void BrowserPane::EndQuestions() {
    m_question->EndAll();
    Q_EMIT m_profile.PageWanted();
}

void BrowserPane::Navigate(const QString& address) {
    if (address.trimmed().isEmpty())
        return;
    const int navigation = ++m_navigation;
    const QPointer<BrowserPane> guard(this);
    bool cancel = false;
    Q_EMIT BeforeNavigate2(address, &cancel);
    if (!guard || cancel || navigation != m_navigation)
        return;
    // The engine must not be sent elsewhere while it asks whether it may go on.
    if (m_isInPageHook)
        QMetaObject::invokeMethod(
            this, [this, address] { Load(address); }, Qt::QueuedConnection);
    else
        Load(address);
}

void BrowserPane::Load(const QString& address) {
    const QUrl url = m_profile.UrlOf(address);
    if (url.isEmpty()) {
        Refuse(address);
        return;
    }
    EnsurePage();
    m_isAskingPlainly = false;
    EndQuestions();
    m_page->BeginAnew();
    m_page->Leave();
    ShowPage();
    m_pendingAddress = address;
    m_isAsBuilt = false;
    Begin(address);
    m_isStartAwaited = true;
    m_placeBefore = m_page->CurrentPlace();
    m_requested = url;
    m_page->load(url);
}

void BrowserPane::LoadAsBuilt() {
    const QString address = m_notice->Address();
    m_profile.LetPass(UrlFromAddress(address));
    Load(address);
    m_isAsBuilt = true;
}

void BrowserPane::GoBack() {
    EndQuestions();
    if (m_notice->CoversIntactPage() && m_page && m_page->history()->count() > 0)
        ShowPage();
    else if (m_page)
        m_page->Walk().GoBack();
}

void BrowserPane::GoForward() {
    EndQuestions();
    if (m_page)
        m_page->Walk().GoForward();
}

void BrowserPane::GoTo(const HistoryEntry& entry) {
    EndQuestions();
    if (m_place.IsCovered(entry))
        ShowPage();
    else if (m_place.Has(entry))
        m_page->Walk().GoTo(entry.index);
}

void BrowserPane::Stop() {
    EndQuestions();
    if (!m_page || !m_isBusy)
        return;
    m_page->Walk().Interrupt();
    m_page->triggerAction(QWebEnginePage::Stop);
    // A load that the engine has not begun yet ends without a word from it.
    m_isStartAwaited = false;
    if (m_isBusy)
        End(false);
}

void BrowserPane::EndPage() {
    ++m_navigation;
    m_pendingAddress.clear();
    m_notice->Clear();
    if (m_isBusy)
        End(false);
    m_findBar->hide();
    m_place.SetPage(nullptr);
    delete std::exchange(m_view, nullptr);
    delete m_page;
}

void BrowserPane::Refresh() {
    EndQuestions();
    if (m_notice->HasLostPage()) {
        Load(m_notice->Address());
    } else if (m_page && m_notice->Why() != PaneNotice::Reason::Refusal) {
        // A stand-in is loaded again by its own address; the text stays that of the page.
        m_pendingAddress = LocationURL();
        m_page->triggerAction(QWebEnginePage::Reload);
    }
}

bool BrowserPane::AskPage(const std::function<void(QWebEnginePage&)>& ask) const {
    if (!m_page || !IsPageShown())
        return false;
    m_page->setLifecycleState(QWebEnginePage::LifecycleState::Active);
    ask(*m_page);
    return true;
}

void BrowserPane::Begin(const QString& address) {
    m_isBusy = true;
    Q_EMIT StatusTextChange(tr("Loading %1").arg(address));
    Q_EMIT ProgressChange(0, kProgressMaximum);
}

void BrowserPane::End(bool isLoaded) {
    m_isBusy = false;
    m_pendingAddress.clear();
    m_passwords->Forget();
    for (const QString& host : std::exchange(m_plainHosts, {}))
        if (isLoaded)
            AskPartsPlainly(host);
    ShowLocation();
    if (m_page)
        m_passwords->Look(*m_page, m_place.Real());
    Q_EMIT StatusTextChange(LocationURL());
    Q_EMIT ProgressChange(0, 0);
    Q_EMIT DocumentComplete(isLoaded);
}

void BrowserPane::OnLoading(const QWebEngineLoadingInfo& info) {
    switch (info.status()) {
    case QWebEngineLoadingInfo::LoadStartedStatus:
        m_isStartAwaited = false;
        m_isAskingPlainly = false;
        ShowPage();
        if (!m_isBusy)
            Begin(m_profile.AddressOf(info.url()));
        break;
    case QWebEngineLoadingInfo::LoadSucceededStatus:
        // The engine is late here, too: the page before is complete, the next one not yet begun.
        if (m_isStartAwaited && m_page->CurrentPlace() == m_placeBefore)
            break;
        ShowPage();
        OnCommit();
        End(true);
        break;
    case QWebEngineLoadingInfo::LoadStoppedStatus:
        // The engine is late: that was the load before, in whose place another one is to begin.
        if (m_isStartAwaited)
            LoadAgainUnlessBegun();
        else if (!m_isAskingPlainly)
            End(false);
        break;
    case QWebEngineLoadingInfo::LoadFailedStatus:
        // What was refused or became a mail is no page that failed.
        if (PanePage::IsForeign(info.url())) {
            if (m_isBusy)
                End(false);
            break;
        }
        // The page that comes with a status such as 404 is the site's own, and is shown.
        if (info.errorDomain() == QWebEngineLoadingInfo::HttpStatusCodeDomain) {
            OnCommit();
            TellOfEmptyAnswer(info.errorCode());
            End(true);
        } else {
            OnFailure(info.url(), info.errorString());
        }
        break;
    }
}

// A page of this pane's own arrived: from now on its address has the text that asked for it.
void BrowserPane::OnCommit() {
    if (!m_pendingAddress.isEmpty())
        m_place.Note(m_pendingAddress);
    ShowLocation();
}

void BrowserPane::OnPageStarting(const QUrl& url, bool* cancel) {
    const QScopedValueRollback<bool> inHook(m_isInPageHook, true);
    const QString address = m_profile.AddressOf(url);
    const int navigation = ++m_navigation;
    Q_EMIT BeforeNavigate2(address, cancel);
    *cancel = *cancel || navigation != m_navigation;
    if (!*cancel) {
        m_pendingAddress.clear();
        Begin(address);
    }
}

void BrowserPane::OnWindowWanted(const QUrl& url, bool isInFront) {
    BrowserPane* target = m_newWindowTarget ? m_newWindowTarget.data() : this;
    const QString address = m_profile.AddressOf(url);
    const bool isOffered = target == this && m_offersWindows && !address.isEmpty();
    const auto open = [=] {
        if (isOffered)
            Q_EMIT target->PaneWanted(address, isInFront);
        else
            target->Navigate(address);
    };
    QMetaObject::invokeMethod(target, open, Qt::QueuedConnection);
}

QString BrowserPane::Title() const {
    return LocationURL().isEmpty() ? QString() : PaneFrame::Title();
}

// The address that was built says http; only the way to it is tried by https first. What a form
// holds is not sent a second time.
bool BrowserPane::AskPlainly(const QString& host) {
    if (!m_isBusy || !m_page || m_page->IsSendingForm() || m_page->Wanted().host() != host)
        return false;
    QUrl plain = m_page->Wanted();
    plain.setScheme(u"http"_s);
    const QString address =
        m_pendingAddress.isEmpty() ? m_profile.AddressOf(plain) : m_pendingAddress;
    m_isAskingPlainly = true;
    // The engine may be in the middle of telling that the load failed.
    QMetaObject::invokeMethod(
        this,
        [this, address, navigation = m_navigation, isAsBuilt = m_isAsBuilt] {
            if (navigation != m_navigation)
                return;
            if (isAsBuilt)
                m_profile.LetPass(UrlFromAddress(address));
            Load(address);
            m_isAsBuilt = isAsBuilt;
            m_isAskingPlainly = true;
            LoadAgainUnlessBegun();
        },
        Qt::QueuedConnection);
    return true;
}

// Frames that got no answer are asked for again; a page whose pictures, scripts or styles are
// missing has to be loaded again as a whole.
void BrowserPane::AskPartsPlainly(const QString& host) {
    if (!m_page || !IsPageShown())
        return;
    PageReader::AskForPartsAgain(*m_page, this, host, [this, navigation = m_navigation] {
        if (m_navigation == navigation)
            Refresh();
    });
}

// The engine may have stopped the new load with the old one, before it began.
void BrowserPane::LoadAgainUnlessBegun() {
    QTimer::singleShot(kStartPatience, m_page, [this, url = m_requested] {
        if (m_isStartAwaited && url == m_requested)
            m_page->load(url);
    });
}

void BrowserPane::OnFailure(const QUrl& url, const QString& error) {
    if (!m_isAskingPlainly)
        m_profile.Access().Https().NoteFailure(m_page->Wanted().host(), error);
    // That was the try by https, which is given up, or has just been.
    if (m_isAskingPlainly)
        return;
    const QString built = m_pendingAddress.isEmpty() ? m_place.OfRequest(url) : m_pendingAddress;
    TellOfFailure(tr("This page cannot be shown"),
                  QString::fromStdString(LoadErrorText(error.toStdString())), url,
                  built.isEmpty() ? m_profile.AddressOf(url) : built);
    End(false);
}

// `url` is where the engine was when it failed, `address` what led there.
void BrowserPane::TellOfFailure(const QString& title, const QString& text, const QUrl& url,
                                const QString& address) {
    const QUrl built = UrlFromAddress(address);
    const auto today = m_profile.Access().ResolveByTables(built, AddressUse::Page);
    const bool isLed = today && IsWebUrl(*today) && !m_isAsBuilt;
    const QUrl tried = isLed && url == built ? *today : url;
    m_notice->TellOfFailure(title, text, isLed ? m_profile.AddressOf(tried) : address,
                            isLed ? address : QString());
    HidePage();
}

void BrowserPane::TellOfEmptyAnswer(int status) {
    PageReader::IfEmpty(*m_page, this, [this, status, address = LocationURL()] {
        if (!m_isBusy)
            TellOfFailure(tr("This page is empty"),
                          tr("The server answered with status %1 and no page.").arg(status),
                          m_page->url(), address);
    });
}

// Nothing but the end of its process stops a script that asks in a loop without end.
void BrowserPane::OnStorm() {
    m_notice->TellOfStorm(LocationURL());
    GiveUpPage();
    m_page->setLifecycleState(QWebEnginePage::LifecycleState::Discarded);
}

void BrowserPane::OnCrash() {
    const bool wasLoading = !m_pendingAddress.isEmpty();
    m_notice->TellOfCrash(wasLoading ? m_pendingAddress : LocationURL(), wasLoading);
    GiveUpPage();
}

// The page is over, with all that it asked and loaded.
void BrowserPane::GiveUpPage() {
    m_question->EndAll();
    HidePage();
    if (m_isBusy)
        End(false);
}

void BrowserPane::Refuse(const QString& address) {
    m_notice->TellOfRefusal(address);
    HidePage();
}

void BrowserPane::HidePage() {
    HideView();
    ShowLocation();
}

void BrowserPane::ShowPage() {
    ShowView();
    ShowLocation();
}

void BrowserPane::ShowLocation() {
    ShowPlace(m_place.Real(), LocationURL());
}

void BrowserPane::HoldFramesOf(const QUrl& url) {
    m_page->HoldFramesOf(url);
}

void BrowserPane::WhenFramesAreEmpty(std::function<void()> then) {
    if (m_page)
        PageReader::IfFramesAreEmpty(*m_page, this,
                                     [this, navigation = m_navigation, then = std::move(then)] {
                                         if (m_navigation == navigation)
                                             then();
                                     });
}

} // namespace tallowmere
