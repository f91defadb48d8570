#include "app/tools/ReminderWatch.h"

#include "app/base/Clock.h"
#include "app/base/DesktopNotice.h"
#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "app/tools/DailyReminders.h"
#include "core/portfolio/keyed_store.h"
#include "core/text/runtime_error.h"
#include "core/tools/reminders.h"

#include <QApplication>
#include <QtDBus/QDBusConnection>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

/// The timer is exact to a second: better late than a second too early.
constexpr std::chrono::seconds kMargin{2};

std::string Content(const std::filesystem::path& folder) {
    try {
        return ReadStore(folder, kRemindersFile);
    } catch (const RuntimeError&) {
        return {}; // the window of the reminders says that their file cannot be read
    }
}

} // namespace

ReminderWatch::ReminderWatch(frmMain& form, const Clock& clock, std::filesystem::path programFolder,
                             DailyReminders& reminders, PaneDeck& panes)
    : QObject(&form), m_form(form), m_clock(clock), m_programFolder(std::move(programFolder)),
      m_reminders(reminders), m_panes(panes), m_notice(new DesktopNotice(this)) {
    m_midnight.setSingleShot(true);
    m_midnight.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_midnight, &QTimer::timeout, this, &ReminderWatch::Look);
    connect(m_notice, &DesktopNotice::Clicked, this, &ReminderWatch::OpenReminders);
    connect(qApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState state) {
                if (state == Qt::ApplicationActive && m_midnight.isActive())
                    Look();
            });
}

void ReminderWatch::Start() {
    m_lookedAt = m_clock.Today();
    Await();
    // The first page does not wait for the system's bus.
    QTimer::singleShot(0, this, [this] {
        QDBusConnection::systemBus().connect(
            u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
            u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s, this, SLOT(Sleeps(bool)));
    });
}

void ReminderWatch::Sleeps(bool begins) {
    if (!begins)
        Look();
}

void ReminderWatch::Await() {
    const QDateTime now = m_clock.Now();
    const QDateTime midnight = now.date().addDays(1).startOfDay(now.timeZone());
    m_midnight.start(std::chrono::milliseconds(now.msecsTo(midnight)) + kMargin);
}

// After a clock was put back its days come anew.
void ReminderWatch::Look() {
    const Date today = m_clock.Today();
    const std::string content = Content(m_programFolder);
    const std::string words = DueWords(RemindersSince(content, m_lookedAt, today));
    m_lookedAt = today;
    Await();
    if (!words.empty())
        Tell(LineStart(ToQt(words)));
}

// The window of the reminders would be in the way of whoever is typing: it waits for a click on the
// notice, and opens by itself only where the desktop has no notices.
void ReminderWatch::Tell(const QString& words) {
    m_panes.ShowLastingStatus(words);
    m_notice->Show(words, u"Click to open the daily reminders."_s, [this] {
        if (!QApplication::activeModalWidget())
            m_reminders.Open();
    });
}

void ReminderWatch::OpenReminders() {
    m_form.raise();
    m_form.activateWindow();
    if (!QApplication::activeModalWidget())
        m_reminders.Open();
}

} // namespace tallowmere
