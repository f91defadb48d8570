#include "app/base/DesktopNotice.h"

#include "support/TestBus.h"

#include <QSignalSpy>
#include <QTest>
#include <QVariantMap>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// Stands in for the desktop's own service.
class Desktop : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    QStringList shown;
    QList<uint> replaced;

public Q_SLOTS:
    uint Notify(const QString& program, uint replaces, const QString&, const QString& title,
                const QString& text, const QStringList& actions, const QVariantMap&, int) {
        shown << program + u'/' + title + u'/' + text + u'/' + actions.value(0);
        replaced << replaces;
        return 7;
    }

Q_SIGNALS:
    void ActionInvoked(uint id, const QString& action);
};

struct Bench {
    Bench() {
        QDBusConnection bus = daemon.Connect(u"desktop"_s);
        bus.registerObject(u"/org/freedesktop/Notifications"_s, &desktop,
                           QDBusConnection::ExportAllContents);
        isReady = bus.registerService(u"org.freedesktop.Notifications"_s);
        notice.UseBus(daemon.Connect(u"program"_s));
    }
    TestBus daemon;
    Desktop desktop;
    DesktopNotice notice{nullptr};
    bool isReady = false;
    int failures = 0;
    void Show(const QString& title) {
        notice.Show(title, u"text"_s, [this] { ++failures; });
    }
};

} // namespace

class DesktopNoticeTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        if (!TestBus::IsThere())
            QSKIP("there is no dbus-daemon");
    }

    void ANoticeIsShownByTheDesktopAndTheNextOneTakesItsPlace() {
        Bench bench;
        QVERIFY(bench.isReady);
        bench.Show(u"<b>one</b>"_s);
        QTRY_COMPARE(bench.desktop.shown, QStringList{u"Tallowmere/<b>one</b>/text/default"_s});
        // The answer to the first is there before that to the second.
        QSignalSpy clicked(&bench.notice, &DesktopNotice::Clicked);
        QTRY_VERIFY((Q_EMIT bench.desktop.ActionInvoked(7, u"default"_s), !clicked.isEmpty()));
        bench.Show(u"two"_s);
        QTRY_COMPARE(bench.desktop.replaced, (QList<uint>{0, 7}));
        QCOMPARE(bench.failures, 0);
    }

    void AClickOnAnotherNoticeAndAnotherActionDoNotCount() {
        Bench bench;
        QSignalSpy clicked(&bench.notice, &DesktopNotice::Clicked);
        bench.Show(u"one"_s);
        QTRY_VERIFY((Q_EMIT bench.desktop.ActionInvoked(7, u"default"_s), !clicked.isEmpty()));
        // A second notice, so that what was sent for the first has come before its answer.
        bench.Show(u"two"_s);
        QTRY_COMPARE(bench.desktop.shown.size(), 2);
        bench.Show(u"three"_s);
        QTRY_COMPARE(bench.desktop.shown.size(), 3);
        clicked.clear();
        Q_EMIT bench.desktop.ActionInvoked(8, u"default"_s);
        Q_EMIT bench.desktop.ActionInvoked(7, u"other"_s);
        Q_EMIT bench.desktop.ActionInvoked(7, u"default"_s);
        QTRY_COMPARE(clicked.size(), 1);
    }

    void WithoutAServiceItFails() {
        Bench bench;
        bench.daemon.Connect(u"desktop"_s).unregisterService(u"org.freedesktop.Notifications"_s);
        bench.Show(u"one"_s);
        QTRY_COMPARE(bench.failures, 1);
    }

    void WithoutABusItFailsAtOnce() {
        DesktopNotice notice(nullptr);
        notice.UseBus(QDBusConnection(u"no such connection"_s));
        bool isTold = false;
        notice.Show(u"one"_s, u"text"_s, [&] { isTold = true; });
        QVERIFY(isTold);
    }
};

QTEST_MAIN(DesktopNoticeTest)
#include "DesktopNoticeTest.moc"
