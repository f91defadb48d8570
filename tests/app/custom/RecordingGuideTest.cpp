#include "app/custom/RecordingGuide.h"

#include "app/custom/MultiLinks.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/RecorderBar.h"
#include "app/links/RecordingState.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QMenu>
#include <QToolButton>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class RecordingGuideTest : public QObject {
    Q_OBJECT
private:
    static constexpr int kRecord = 211;
    static constexpr int kQuote = 3;
    static constexpr int kBoard = 1;

    struct Window : TestSession {
        Window() {
            Store("First", "OK");
            Store("Stocks1", "MSFT|");
            Start();
            Form().List1->SetListIndex(0);
            Form().activateWindow();
        }
        RecorderBar* Bar() { return Form().findChild<RecorderBar*>(); }
        bool IsTold() { return Bar() && Bar()->isVisible(); }
        QToolButton* Button(const QString& name) { return Bar()->findChild<QToolButton*>(name); }
        QStringList Listed() {
            QStringList listed;
            for (const QAction* page : Button(u"RecorderPages"_s)->menu()->actions())
                listed << page->text();
            return listed;
        }
    };

private Q_SLOTS:
    void TheBarComesWithTheRecordingCountsItsPagesAndGoesWithIt() {
        Window window;
        QVERIFY(!window.Bar());
        window.ClickLink(kRecord);
        QVERIFY(window.IsTold());
        QCOMPARE(window.Bar()->Line(),
                 u"Recording: no page yet. Links that are about a ticker are recorded; ML ends."_s);
        QVERIFY(!window.Button(u"RecorderDiscard"_s)->isEnabled());
        window.ClickLink(kQuote);
        window.ClickLink(kBoard);
        QCOMPARE(window.Bar()->Line(), u"Recording: 2 pages. ML ends, Esc discards the last."_s);
        QCOMPARE(window.Listed().size(), 2);
        QVERIFY2(window.Listed().first().startsWith(u"1. "_s) &&
                     window.Listed().first().contains(u"h.example"_s),
                 qPrintable(window.Listed().first()));
        window.ClickLink(kRecord);
        QTRY_VERIFY(!window.Bar());
    }

    void TheBarMovesNothingThatMayBeClickedNext() {
        Window window;
        window.Form().resize(1280, 900);
        QCoreApplication::processEvents();
        const auto places = [&] {
            QList<QRect> result{window.Form().List1->geometry(), window.Form().SpooBar->geometry()};
            for (const Chip* link : window.Form().lbllink)
                result << QRect(link->mapTo(&window.Form(), QPoint()), link->size());
            return result;
        };
        const QList<QRect> before = places();
        window.ClickLink(kRecord);
        QCoreApplication::processEvents();
        QVERIFY(window.IsTold());
        QCOMPARE(places(), before);
        const QRect panes = window.Form().Web->geometry();
        QVERIFY(panes.contains(window.Bar()->geometry()));
        window.Form().resize(1000, 700);
        QCoreApplication::processEvents();
        QVERIFY(window.Form().Web->geometry().contains(window.Bar()->geometry()));
        QCOMPARE(window.Bar()->width(), window.Form().Web->width());
    }

    void EscapeDiscardsTheLastPage() {
        Window window;
        window.ClickLink(kRecord);
        window.ClickLink(kQuote);
        window.ClickLink(kBoard);
        const QString first = window.Listed().first();
        QVERIFY(QTest::qWaitForWindowActive(&window.Form()));
        QTest::keyClick(&window.Form(), Qt::Key_Escape);
        QCOMPARE(window.Bar()->Line(), u"Recording: 1 page. ML ends, Esc discards the last."_s);
        QCOMPARE(window.Listed(), QStringList{first});
        // What was discarded is in no page.
        QCOMPARE(window->Recorded().multiLinkPage.count(u"<IFRAME"_s), 1);
        QTest::mouseClick(window.Button(u"RecorderDiscard"_s), Qt::LeftButton);
        QVERIFY(window.Listed().isEmpty());
        QVERIFY(!window.Button(u"RecorderDiscard"_s)->isEnabled());
        QTest::keyClick(&window.Form(), Qt::Key_Escape);
        QVERIFY(window.IsTold());
    }

    void TheButtonEndsTheRecordingAsTheLinkDoes() {
        Window window;
        window.ClickLink(kRecord);
        window.ClickLink(kQuote);
        QTest::mouseClick(window.Button(u"RecorderEnd"_s), Qt::LeftButton);
        QVERIFY(!window->Recorded().templateMode);
        QTRY_VERIFY(!window.Bar());
        QVERIFY(std::filesystem::exists(window.Folder() / "multiweb.html"));
    }

    void LinksThatAreNotRecordedSayWhy() {
        Window window;
        const QString before = window.Link(45)->toolTip();
        window.ClickLink(kRecord);
        QVERIFY(!window.Link(45)->isEnabled());
        QCOMPARE(window.Link(45)->toolTip(),
                 u"Not while a multi-link is recorded: this is no page about a ticker"_s);
        QVERIFY(window.Link(kQuote)->toolTip() != window.Link(45)->toolTip());
        window.ClickLink(kRecord);
        QCOMPARE(window.Link(45)->toolTip(), before);
    }

    void WhoWantsNoToolTipsGetsNone() {
        Window window;
        window.Form().SetToolTips(false);
        window.ClickLink(kRecord);
        QCOMPARE(window.Link(45)->toolTip(), QString());
    }

    void AnAddressIsNoMarkupAndNoAccessKey() {
        Window window;
        window.ClickLink(kRecord);
        window.Form().Web->Navigate(u"h.example/<b>&x"_s);
        QCOMPARE(window.Listed(), QStringList{u"1. h.example/<b>&&x"_s});
    }
};

TALLOWMERE_WEB_TEST_MAIN(RecordingGuideTest)
#include "RecordingGuideTest.moc"
