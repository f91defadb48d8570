#include "app/engine/BrowserPane.h"

#include "app/base/PortalAddress.h"
#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "app/engine/EngineProfile.h"
#include "app/engine/FindBar.h"
#include "app/engine/LocationLine.h"
#include "app/engine/PageQuestion.h"
#include "app/engine/PaneNotice.h"
#include "app/engine/PanePage.h"
#include "app/engine/UserInput.h"
#include "core/links/load_errors.h"
#include "core/links/web_address.h"
#include "core/pages/passage.h"
#include "core/pages/shown_address.h"
#include "core/portal/generated_pages.h"

#include <QEventLoop>
#include <QMenu>
#include <QNetworkInformation>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <QWebEngineFindTextResult>
#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <algorithm>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr double kZoomStep = 1.1;
constexpr double kZoomMinimum = 0.25;
constexpr double kZoomMaximum = 5;
constexpr int kProgressMaximum = 100;
constexpr auto kStartPatience = std::chrono::seconds(1);
constexpr auto kLongestWait = std::chrono::minutes(1);

bool IsForeign(const QUrl& url) {
    return !url.isEmpty() && PassageOf(FromQt(url.scheme()), {}) != Passage::Shown;
}

} // namespace

BrowserPane::BrowserPane(EngineProfile& profile, Prompts& prompts, QWidget* parent)
    : QWidget(parent), m_profile(profile), m_prompts(prompts), m_notice(new PaneNotice(this)),
      m_findBar(new FindBar(this)), m_location(new LocationLine(this)),
      m_question(new PageQuestion(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_notice, 1);
    layout->addWidget(m_findBar);
    layout->addWidget(m_location);
    m_notice->hide();
    connect(&profile, &EngineProfile::PageWanted, m_question, &PageQuestion::EndAwaited);
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

void BrowserPane::AddShortcuts() {
    const auto add = [this](const QKeySequence& keys, auto method) {
        auto* shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, method);
    };
    add(QKeySequence::Find, &BrowserPane::Find);
    add(QKeySequence(u"Ctrl++"_s), &BrowserPane::ZoomIn);
    add(QKeySequence(u"Ctrl+="_s), &BrowserPane::ZoomIn);
    add(QKeySequence(u"Ctrl+-"_s), &BrowserPane::ZoomOut);
    add(QKeySequence(u"Ctrl+0"_s), &BrowserPane::ZoomReset);
}

void BrowserPane::EnsurePage() {
    if (m_page)
        return;
    m_page = new PanePage(m_profile, m_prompts);
    m_view = new QWebEngineView(m_page, this);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    auto* input = new UserInput(m_view);
    m_page->SetUserInput(input);
    // A page may make its boxes later than it is complete, but before somebody types into them.
    connect(input, &UserInput::Happened, this, &BrowserPane::LookForPassword);
    static_cast<QVBoxLayout*>(layout())->insertWidget(0, m_view, 1);
    connect(m_view, &QWidget::customContextMenuRequested, this, &BrowserPane::ShowContextMenu);
    if (m_hasLocation)
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
        ShowLocation();
        if (m_isBusy)
            Q_EMIT ProgressChange(progress, kProgressMaximum);
    });
    connect(m_page, &QWebEnginePage::urlChanged, this, &BrowserPane::OnCommit);
    connect(m_page, &QWebEnginePage::linkHovered, this, [this](const QString& url) {
        // Off the link, the line says again where the pane is, or what it is doing.
        if (!url.isEmpty())
            Q_EMIT StatusTextChange(TextOf(QUrl(url)));
        else if (!m_isBusy)
            Q_EMIT StatusTextChange(LocationURL());
    });
    connect(m_page, &QWebEnginePage::renderProcessTerminated, this,
            [this](QWebEnginePage::RenderProcessTerminationStatus status) {
                if (status != QWebEnginePage::NormalTerminationStatus)
                    OnCrash();
            });
    connect(m_findBar, &FindBar::Wanted, m_page, [this](const QString& text, bool isBackward) {
        m_page->findText(text,
                         isBackward ? QWebEnginePage::FindBackward : QWebEnginePage::FindFlags(),
                         [bar = QPointer(m_findBar)](const QWebEngineFindTextResult& result) {
                             if (bar)
                                 bar->ShowMatch(result.activeMatch(), result.numberOfMatches());
                         });
    });
    connect(m_findBar, &FindBar::Closed, m_view, [this] { m_view->setFocus(); });
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
    const std::string page(
        GeneratedPageIn(m_profile.ProgramFolder().toStdString(), address.toStdString()));
    const QUrl url = page.empty() ? UrlFromAddress(address) : PortalAddress::Page(page);
    const bool isWeb = url.isValid() && IsWebUrl(url) && !url.host().isEmpty();
    if (page.empty() && !isWeb && !PortalAddress::IsHelp(url) && url != QUrl(u"about:blank"_s)) {
        Refuse(address);
        return;
    }
    EnsurePage();
    EndQuestions();
    m_page->BeginAnew();
    m_page->Leave();
    ShowPage();
    m_pendingAddress = address;
    m_isAsBuilt = false;
    Begin(address);
    m_isStartAwaited = true;
    m_requested = url;
    m_page->load(url);
}

void BrowserPane::LoadAsBuilt() {
    const QString address = m_failedAddress;
    m_profile.LetPass(UrlFromAddress(address));
    Load(address);
    m_isAsBuilt = true;
}

void BrowserPane::GoBack() {
    EndQuestions();
    const bool isOverIntactPage = m_shown == Shown::Failure || m_shown == Shown::Refusal;
    if (isOverIntactPage && m_page && m_page->history()->count() > 0)
        ShowPage();
    else if (m_page)
        m_page->triggerAction(QWebEnginePage::Back);
}

void BrowserPane::GoForward() {
    EndQuestions();
    if (m_page)
        m_page->triggerAction(QWebEnginePage::Forward);
}

void BrowserPane::Stop() {
    EndQuestions();
    if (!m_page || !m_isBusy)
        return;
    m_page->triggerAction(QWebEnginePage::Stop);
    // A load that the engine has not begun yet ends without a word from it.
    m_isStartAwaited = false;
    if (m_isBusy)
        End(false);
}

void BrowserPane::EndPage() {
    ++m_navigation;
    m_pendingAddress.clear();
    m_failedAddress.clear();
    if (m_isBusy)
        End(false);
    m_notice->hide();
    m_findBar->hide();
    m_shown = Shown::Page;
    m_built = {};
    delete std::exchange(m_view, nullptr);
    delete m_page;
}

void BrowserPane::Refresh() {
    EndQuestions();
    if (m_shown == Shown::Failure || m_shown == Shown::Storm) {
        Load(QString(m_failedAddress));
    } else if (m_page && m_shown != Shown::Refusal) {
        // A stand-in is loaded again by its own address; the text stays that of the page.
        m_pendingAddress = LocationURL();
        m_page->triggerAction(QWebEnginePage::Reload);
    }
}

void BrowserPane::WaitWhileBusy() {
    if (!m_isBusy)
        return;
    QEventLoop loop;
    connect(this, &BrowserPane::DocumentComplete, &loop, [this, &loop] {
        if (!m_isBusy)
            loop.quit();
    });
    connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
    QTimer::singleShot(kLongestWait, &loop, &QEventLoop::quit);
    loop.exec();
}

QString BrowserPane::LocationURL() const {
    if (m_shown == Shown::Failure || m_shown == Shown::Storm)
        return m_failedAddress;
    if (!m_page || m_page->history()->count() == 0)
        return {};
    const QString built = m_built.OfCurrent(*m_page->history());
    return built.isEmpty() ? TextOf(m_page->url()) : built;
}

void BrowserPane::ReadText(std::function<void(const QString&)> receive) const {
    if (!m_page || m_shown != Shown::Page) {
        receive({});
        return;
    }
    m_page->toPlainText([guard = QPointer<const BrowserPane>(this),
                         receive = std::move(receive)](const QString& text) {
        if (guard)
            receive(text);
    });
}

// The text that stands for an address which the engine named.
QString BrowserPane::TextOf(const QUrl& url) const {
    if (PortalAddress::IsPage(url))
        return m_profile.ProgramFolder() + url.path(QUrl::FullyDecoded);
    return QString::fromLatin1(WebAccess::AsBuilt(url).toEncoded());
}

void BrowserPane::Begin(const QString& address) {
    m_isBusy = true;
    Q_EMIT StatusTextChange(tr("Loading %1").arg(address));
    Q_EMIT ProgressChange(0, kProgressMaximum);
}

void BrowserPane::End(bool isLoaded) {
    m_isBusy = false;
    m_pendingAddress.clear();
    // Of an earlier page nothing is known any more, and its answer may never come.
    m_isLooking = false;
    m_passwordUrl.clear();
    ShowLocation();
    LookForPassword();
    Q_EMIT StatusTextChange(LocationURL());
    Q_EMIT ProgressChange(0, 0);
    Q_EMIT DocumentComplete(isLoaded);
}

void BrowserPane::OnLoading(const QWebEngineLoadingInfo& info) {
    switch (info.status()) {
    case QWebEngineLoadingInfo::LoadStartedStatus:
        m_isStartAwaited = false;
        ShowPage();
        if (!m_isBusy)
            Begin(TextOf(info.url()));
        break;
    case QWebEngineLoadingInfo::LoadSucceededStatus:
        ShowPage();
        OnCommit();
        End(true);
        break;
    case QWebEngineLoadingInfo::LoadStoppedStatus:
        // The engine is late: that was the load before, in whose place another one is to begin.
        if (!m_isStartAwaited)
            End(false);
        else
            QTimer::singleShot(kStartPatience, m_page, [this, url = m_requested] {
                // Or it has stopped the new one with the old, before it began.
                if (m_isStartAwaited && url == m_requested)
                    m_page->load(url);
            });
        break;
    case QWebEngineLoadingInfo::LoadFailedStatus:
        // What was refused or became a mail is no page that failed.
        if (IsForeign(info.url())) {
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
    if (!m_pendingAddress.isEmpty()) {
        m_built.Note(*m_page->history(), m_pendingAddress);
        SetZoom(m_zoom);
    }
    ShowLocation();
}

void BrowserPane::OnPageStarting(const QUrl& url, bool* cancel) {
    const QScopedValueRollback<bool> inHook(m_isInPageHook, true);
    const QString address = TextOf(url);
    const int navigation = ++m_navigation;
    Q_EMIT BeforeNavigate2(address, cancel);
    *cancel = *cancel || navigation != m_navigation;
    if (!*cancel) {
        m_pendingAddress.clear();
        Begin(address);
    }
}

void BrowserPane::OnWindowWanted(const QUrl& url) {
    BrowserPane* target = m_newWindowTarget ? m_newWindowTarget.data() : this;
    const QString address = TextOf(url);
    QMetaObject::invokeMethod(
        target, [target, address] { target->Navigate(address); }, Qt::QueuedConnection);
}

void BrowserPane::OnFailure(const QUrl& url, const QString& error) {
    const QString built = m_pendingAddress.isEmpty() ? m_built.OfRequest(url) : m_pendingAddress;
    m_failedAddress = built.isEmpty() ? TextOf(url) : built;
    TellOfFailure(tr("This page cannot be shown"),
                  QString::fromStdString(LoadErrorText(error.toStdString())), url);
    AwaitNetwork();
    End(false);
}

// A page that failed is loaded again when the machine comes back to the network.
void BrowserPane::AwaitNetwork() {
    using Feature = QNetworkInformation::Feature;
    if (!QNetworkInformation::loadBackendByFeatures(Feature::Reachability))
        return;
    QNetworkInformation* network = QNetworkInformation::instance();
    network->disconnect(this);
    connect(network, &QNetworkInformation::reachabilityChanged, this,
            [this](QNetworkInformation::Reachability reachability) {
                if (reachability == QNetworkInformation::Reachability::Online &&
                    m_shown == Shown::Failure && !m_isBusy)
                    Refresh();
            });
}

// `url` is where the engine was when it failed.
void BrowserPane::TellOfFailure(const QString& title, const QString& text, const QUrl& url) {
    const QUrl built = UrlFromAddress(m_failedAddress);
    const auto today = m_profile.Access().Resolve(built, AddressUse::Page);
    const bool isLed = today && IsWebUrl(*today) && !m_isAsBuilt;
    const QUrl tried = isLed && url == built ? *today : url;
    m_shown = Shown::Failure;
    m_notice->Tell(title, text, isLed ? TextOf(tried) : m_failedAddress,
                   PaneNotice::Offer::TryAgainOrSearch, isLed ? m_failedAddress : QString());
    m_view->hide();
    m_notice->show();
    ShowLocation();
}

void BrowserPane::TellOfEmptyAnswer(int status) {
    const QString address = LocationURL();
    m_page->toHtml([guard = QPointer<BrowserPane>(this), status, address](const QString& html) {
        if (!guard || guard->m_isBusy || html != u"<html><head></head><body></body></html>")
            return;
        guard->m_failedAddress = address;
        guard->TellOfFailure(tr("This page is empty"),
                             tr("The server answered with status %1 and no page.").arg(status),
                             guard->m_page->url());
    });
}

// A script that asks without end never comes back from its loop: nothing but the end of its process
// stops it.
void BrowserPane::OnStorm() {
    m_question->EndAll();
    m_failedAddress = LocationURL();
    m_shown = Shown::Storm;
    m_notice->Tell(tr("This page was stopped"),
                   tr("It showed or asked something five times within ten seconds. \"Try again\" "
                      "loads it anew."),
                   m_failedAddress, PaneNotice::Offer::TryAgain);
    m_view->hide();
    m_notice->show();
    ShowLocation();
    if (m_isBusy)
        End(false);
    m_page->setLifecycleState(QWebEnginePage::LifecycleState::Discarded);
}

void BrowserPane::OnCrash() {
    m_question->EndAll();
    const QString address = m_pendingAddress.isEmpty() ? LocationURL() : m_pendingAddress;
    m_failedAddress = m_pendingAddress;
    m_shown = m_pendingAddress.isEmpty() ? Shown::Crash : Shown::Failure;
    m_notice->Tell(tr("This page crashed"),
                   tr("The program goes on. Refresh or \"Try again\" brings the page back."),
                   address, PaneNotice::Offer::TryAgain);
    m_view->hide();
    m_notice->show();
    ShowLocation();
    if (m_isBusy)
        End(false);
}

void BrowserPane::Refuse(const QString& address) {
    m_shown = Shown::Refusal;
    const bool isMeantForTheWeb = WithScheme(address.toStdString()).starts_with("http");
    m_notice->Tell(tr("This address is not shown"),
                   isMeantForTheWeb
                       ? tr("No site can have this name.")
                       : tr("Only pages of the web (http and https) and the program's own pages "
                            "are shown here."),
                   address, PaneNotice::Offer::Nothing);
    if (m_view)
        m_view->hide();
    m_notice->show();
    ShowLocation();
}

void BrowserPane::ShowPage() {
    m_shown = Shown::Page;
    m_notice->hide();
    m_view->show();
    ShowLocation();
}

// Where the page that is shown came from. The engine's own word for it is already that of the next
// page while this one still stands there.
QUrl BrowserPane::RealUrl() const {
    if (!m_page || m_page->history()->count() == 0)
        return {};
    return m_page->history()->currentItem().url();
}

QString BrowserPane::RealAddress() const {
    const QUrl url = RealUrl();
    if (m_shown != Shown::Page || !IsWebUrl(url))
        return LocationURL();
    return QString::fromLatin1(url.toEncoded(QUrl::RemoveUserInfo));
}

void BrowserPane::ShowLocation() {
    const QUrl url = RealUrl();
    const bool isShown =
        m_hasLocation && m_shown == Shown::Page && !url.isEmpty() && url != QUrl(u"about:blank"_s);
    m_location->setVisible(isShown);
    if (!isShown)
        return;
    ShownAddress address = ShowAddress(url.toEncoded().toStdString());
    const QString built = LocationURL();
    bool isAnother = StandsForAnother(UrlFromAddress(built).toEncoded().toStdString(),
                                      url.toEncoded().toStdString());
    if (url.scheme() == PortalAddress::Scheme()) {
        // The private scheme says nothing to anybody; a page of the folder is known by its name.
        const bool isOfTheFolder = PortalAddress::IsPage(url);
        address = {Safety::Own, {}, {}, isOfTheFolder ? FromQt(url.fileName()) : std::string()};
        isAnother = !isOfTheFolder && !PortalAddress::IsHelp(url);
    }
    m_location->Show(address, isAnother ? built : QString(), url == m_passwordUrl);
}

// What is typed into a page without encryption can be read on its way.
void BrowserPane::LookForPassword() {
    const QUrl url = RealUrl();
    if (m_isLooking || !m_page || url.scheme() != u"http" || url == m_passwordUrl)
        return;
    m_isLooking = true;
    const QString script =
        u"(function has(root) {"
        "  if (root.querySelector('input[type=password]')) return true;"
        "  for (const e of root.querySelectorAll('*')) {"
        "    if (e.shadowRoot && has(e.shadowRoot)) return true;"
        "    try { if (e.contentDocument && has(e.contentDocument)) return true }"
        "    catch (refusal) {}"
        "  }"
        "  return false"
        "})(document)"_s;
    m_page->runJavaScript(script, QWebEngineScript::ApplicationWorld,
                          [guard = QPointer(this), url](const QVariant& found) {
                              if (!guard)
                                  return;
                              guard->m_isLooking = false;
                              if (found.toBool())
                                  guard->m_passwordUrl = url;
                              guard->ShowLocation();
                          });
}

void BrowserPane::ShowContextMenu(QPoint position) {
    QMenu* menu = m_view->createStandardContextMenu();
    for (const auto action :
         {QWebEnginePage::ViewSource, QWebEnginePage::OpenLinkInNewWindow,
          QWebEnginePage::OpenLinkInNewTab, QWebEnginePage::OpenLinkInNewBackgroundTab})
        menu->removeAction(m_page->action(action));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(m_view->mapToGlobal(position));
}

// No message of the engine tells of every refusal; but a frame that got no page stays at the blank
// one that it began with, which, unlike a page of another site, may be looked at.
void BrowserPane::WhenFramesAreEmpty(std::function<void()> then) {
    if (!m_page)
        return;
    const QString script = u"Array.from(document.getElementsByTagName('iframe')).some(frame => {"
                           "  try { return frame.contentWindow.location.href === 'about:blank' }"
                           "  catch (refusal) { return false }"
                           "})"_s;
    m_page->runJavaScript(script, QWebEngineScript::ApplicationWorld,
                          [guard = QPointer(this), navigation = m_navigation,
                           then = std::move(then)](const QVariant& empty) {
                              if (guard && guard->m_navigation == navigation && empty.toBool())
                                  then();
                          });
}

void BrowserPane::Find() {
    if (m_page && m_shown == Shown::Page)
        m_findBar->Open();
}

void BrowserPane::ZoomIn() {
    SetZoom(m_zoom * kZoomStep);
}

void BrowserPane::ZoomOut() {
    SetZoom(m_zoom / kZoomStep);
}

void BrowserPane::ZoomReset() {
    SetZoom(1);
}

void BrowserPane::SetZoom(double factor) {
    m_zoom = std::clamp(factor, kZoomMinimum, kZoomMaximum);
    if (m_page)
        m_page->setZoomFactor(m_zoom);
}

} // namespace tallowmere
