#include "app/tools/ReminderWatch.h"

#include "app/base/DesktopNotice.h"
#include "app/forms/frmRemind.h"
#include "app/tools/DailyReminders.h"
#include "app/tools/ToolControllers.h"
#include "core/portfolio/keyed_store.h"
#include "core/tools/reminders.h"
#include "support/TestSession.h"

#include <QLabel>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// A session that starts on 2026-11-21, on a desktop without notices.
struct RemindedUser : TestSession {
    RemindedUser() {
        Store("First", "OK");
        Start();
        Watch().Notice().UseBus(QDBusConnection(u"no such connection"_s));
    }
    ReminderWatch& Watch() { return *(*this)->Controllers().tools.dueReminders; }
    frmRemind* Dialog() { return (*this)->Reminders().Dialog(); }
    void Remind(const char* day, const char* text) {
        ReplaceNote(Folder(), day, text, kRemindersFile);
    }
    QString Status() { return Form().WebStatus->text(); }
};

} // namespace

class ReminderWatchTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void OneTimerWaitsForMidnight() {
        RemindedUser user;
        QVERIFY(user.Watch().Midnight().isActive());
        QVERIFY(user.Watch().Midnight().isSingleShot());
        // From ten in the morning, and a little more.
        const std::chrono::milliseconds hours = std::chrono::hours(14);
        QVERIFY(user.Watch().Midnight().intervalAsDuration() >= hours);
        QVERIFY(user.Watch().Midnight().intervalAsDuration() < hours + std::chrono::minutes(1));
    }

    void AReminderComesDueWhenItsDayBegins() {
        RemindedUser user;
        user.Remind("11-22-2026", "sell\r\nall");
        user.Watch().Look();
        QVERIFY(!user.Dialog());
        user.clock.now = QDateTime(QDate(2026, 11, 22), QTime(0, 0, 2));
        user.Watch().Look();
        QVERIFY(user.Dialog());
        QCOMPARE(user.Status(), u"Reminder: sell"_s);
        user.Dialog()->reject();
        user.Watch().Look();
        QVERIFY(!user.Dialog());
    }

    void TheTimerWaitsForTheNextMidnightThen() {
        RemindedUser user;
        user.clock.now = QDateTime(QDate(2026, 11, 21), QTime(23, 59, 59));
        user.Watch().Look();
        QVERIFY(user.Watch().Midnight().intervalAsDuration() < std::chrono::minutes(1));
        user.clock.now = QDateTime(QDate(2026, 11, 22), QTime(0, 0, 1));
        user.Watch().Look();
        QVERIFY(user.Watch().Midnight().intervalAsDuration() > std::chrono::hours(23));
    }

    void WhoComesBackAfterDaysIsToldOfThem() {
        RemindedUser user;
        user.Remind("11-24-2026", "second");
        user.Remind("11-22-2026", "first");
        user.Remind("11-26-2026", "not yet");
        user.clock.now = QDateTime(QDate(2026, 11, 25), QTime(8, 0));
        // The system says that it has woken up.
        QVERIFY(QMetaObject::invokeMethod(&user.Watch(), "Sleeps", Q_ARG(bool, false)));
        QCOMPARE(user.Status(), u"Reminders: first (and 1 more)"_s);
    }

    void FallingAsleepIsNoReasonToLook() {
        RemindedUser user;
        user.Remind("11-22-2026", "first");
        user.clock.now = QDateTime(QDate(2026, 11, 22), QTime(8, 0));
        QVERIFY(QMetaObject::invokeMethod(&user.Watch(), "Sleeps", Q_ARG(bool, true)));
        QVERIFY(!user.Dialog());
    }

    void ComingBackToTheProgramIsOne() {
        RemindedUser user;
        user.Remind("11-22-2026", "first");
        user.clock.now = QDateTime(QDate(2026, 11, 22), QTime(8, 0));
        Q_EMIT qApp->applicationStateChanged(Qt::ApplicationActive);
        QVERIFY(user.Dialog());
    }

    void WhatTheStartToldIsNotToldAgain() {
        RemindedUser user;
        user.Remind("11-21-2026", "today");
        user.Start();
        user.Watch().Notice().UseBus(QDBusConnection(u"no such connection"_s));
        QVERIFY(user.Dialog());
        user.Dialog()->reject();
        user.Watch().Look();
        QVERIFY(!user.Dialog());
    }

    void AClickOnTheNoticeOpensTheReminders() {
        RemindedUser user;
        Q_EMIT user.Watch().Notice().Clicked();
        QVERIFY(user.Dialog());
    }

    void AWindowThatWaitsForAnAnswerIsNotCovered() {
        RemindedUser user;
        QDialog box(&user.Form());
        box.setModal(true);
        box.show();
        user.Remind("11-22-2026", "first");
        user.clock.now = QDateTime(QDate(2026, 11, 22), QTime(8, 0));
        user.Watch().Look();
        QVERIFY(!user.Dialog());
        QCOMPARE(user.Status(), u"Reminder: first"_s);
    }
};

QTEST_MAIN(ReminderWatchTest)
#include "ReminderWatchTest.moc"
