#include "app/tools/EngineNotice.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/EngineVersion.h"
#include "support/Navigations.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QFile>
#include <QLabel>
#include <QToolBar>
#include <QToolButton>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class EngineNoticeTest : public QObject {
    Q_OBJECT
private:
    struct Window : TestSession {
        Window() { Store("First", "OK"); }
        /// The line as it is shown after a start in a year, or null.
        QToolBar* StartIn(int year) {
            clock.now = QDateTime(QDate(year, 1, 1), QTime(12, 0));
            Start().Controllers().tools.engine->Tell();
            return Bar();
        }
        QToolBar* Bar() { return Form().findChild<QToolBar*>(u"EngineNotice"_s); }
        void Click(const QString& caption) {
            for (QToolButton* button : Bar()->findChildren<QToolButton*>())
                if (button->text() == caption)
                    QTest::mouseClick(button, Qt::LeftButton);
        }
    };

private Q_SLOTS:
    void ACurrentEngineIsWorthNoWord() {
        Window window;
        QVERIFY(!window.StartIn(2010));
    }

    void AnOldEngineIsToldInOneLineThatLeadsToWhatHelps() {
        Window window;
        const QToolBar* bar = window.StartIn(2040);
        QVERIFY(bar);
        QTRY_VERIFY(bar->isVisible());
        const auto* label = bar->findChild<QLabel*>();
        QTRY_VERIFY(label->width() > bar->width() / 2);
        const QString line = label->text();
        QVERIFY2(line.contains(QString::fromLatin1(EngineVersion::SecurityPatch())) &&
                     !line.contains(u'\n'),
                 qPrintable(line));
        QVERIFY(window.prompts.messages.isEmpty());
        Navigations navigations(window.Form());
        window.Click(u"What to do"_s);
        QCOMPARE(static_cast<const QStringList&>(navigations),
                 QStringList{u"Web: portal://help/index.html#engine"_s});
        QFile guide(QStringLiteral(TALLOWMERE_SOURCE_DIR "/data/help/index.html"));
        QVERIFY(guide.open(QIODevice::ReadOnly) && guide.readAll().contains("id=\"engine\""));
    }

    void WavedAwayItStaysAwayForThatEngine() {
        Window window;
        QVERIFY(window.StartIn(2040));
        window.Click(u"Do not say it again"_s);
        QTRY_VERIFY(!window.Bar());
        QCOMPARE(window.Stored("OldEngine"), QString::fromLatin1(EngineVersion::SecurityPatch()));
        QVERIFY(!window.StartIn(2041));
        window.End();
        window.Store("OldEngine", "90.0.1.2");
        QVERIFY(window.StartIn(2041));
    }
};

TALLOWMERE_WEB_TEST_MAIN(EngineNoticeTest)
#include "EngineNoticeTest.moc"
