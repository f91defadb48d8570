#include "app/market/TickerStrip.h"

#include "app/engine/BrowserPane.h"
#include "app/engine/Graphics.h"
#include "app/engine/PanePage.h"
#include "app/portfolio/Portfolios.h"
#include "app/portfolio/TickerModel.h"
#include "core/portal/html_page.h"
#include "support/Await.h"
#include "support/LoopbackServer.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QRegularExpression>
#include <QWebEngineView>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class TickerStripTest : public QObject {
    Q_OBJECT
private:
    struct Window : TestSession {
        Window() {
            Store("First", "OK");
            Store("Stocks1", "AOL|BRK.B|");
            Store("Stocks2", "GE|");
            Store("WSCTick", "True");
            Start();
        }
        qsizetype Asked(const QString& tickers) {
            return asked.count(u"h.example/javaticker.html?s="_s + tickers +
                               (HasGraphicsCard() ? u""_s : u"&rest=1"_s));
        }
    };

private Q_SLOTS:
    void ItRunsTheTickersOfThePortfolio() {
        Window window;
        QTRY_COMPARE(window.Asked(u"AOL+BRK.B"_s), 1);
    }

    void ItFollowsASwitchedPortfolioAndAnEnteredTicker() {
        Window window;
        QTRY_COMPARE(window.Asked(u"AOL+BRK.B"_s), 1);
        QTRY_VERIFY(!window.Form().WebTick->Busy());
        window.Form().lblListNum[2]->click();
        QTRY_COMPARE(window.Asked(u"GE"_s), 1);
        QTRY_VERIFY(!window.Form().WebTick->Busy());
        window.Enter(u"ko, t&t"_s);
        QTRY_COMPARE(window.Asked(u"GE+KO+T%26T"_s), 1);
        QCOMPARE(window.Asked(u"AOL+BRK.B"_s), 1);
    }

    void ThereAndBackAgainAsksNothing() {
        Window window;
        QTRY_COMPARE(window.Asked(u"AOL+BRK.B"_s), 1);
        QTRY_VERIFY(!window.Form().WebTick->Busy());
        window.Form().lblListNum[2]->click();
        window.Form().lblListNum[1]->click();
        // A later change is followed; nothing was asked for in between.
        window.Enter(u"ko"_s);
        QTRY_COMPARE(window.Asked(u"AOL+BRK.B+KO"_s), 1);
        QCOMPARE(window.Asked(u"GE"_s), 0);
        QCOMPARE(window.Asked(u"AOL+BRK.B"_s), 1);
    }

    void SwitchedOffItAsksForNothingMoreAndKeepsNoPage() {
        LoopbackServer server;
        server.Serve(u"/javaticker.html"_s,
                     QByteArray("<html><script>setInterval(() => fetch('/tick'), 20)</script>"));
        TestSession session(server.Address({}), WebMode::Direct);
        session.Store("First", "OK");
        session.Store("WSCTick", "True");
        session.Start();
        QVERIFY(Await([&] { return server.CountOf(u"/tick"_s) > 2; }));
        session->Ticker().Switch(false);
        QVERIFY(session.Form().fraTick->isHidden());
        QVERIFY(!session.Form().WebTick->findChild<QWebEngineView*>());
        QVERIFY(session.Form().WebTick->LocationURL().isEmpty());
        QCOMPARE(session.Stored("WSCTick"), u"False"_s);
        // What is on its way may still arrive while a page of the main pane is loaded from one end
        // to the other; after that there is not a word from the strip.
        session.Form().Web->Navigate(server.Address(u"/first"_s));
        QVERIFY(Await([&] { return server.CountOf(u"/first"_s) == 1; }));
        QVERIFY(Await([&] { return !session.Form().Web->Busy(); }));
        const qsizetype before = server.CountOf(u"/tick"_s);
        for (int page = 0; page < 5; ++page) {
            session.Form().Web->Navigate(server.Address(u"/%1"_s.arg(page)));
            QVERIFY(Await([&] { return !session.Form().Web->Busy(); }));
        }
        QCOMPARE(server.CountOf(u"/tick"_s), before);
        // A ticker that is entered meanwhile wakes nothing up.
        session.Enter(u"ko"_s);
        session->Ticker().Switch(true);
        QVERIFY(Await([&] { return server.CountOf(u"/tick"_s) > before; }));
        QCOMPARE(server.CountOf(u"/javaticker.html"_s), 2);
    }

    void NoMoreThanTwoHundredTickersRunBy() {
        Window window;
        std::vector<std::string> tickers;
        for (int i = 1; i <= 201; ++i)
            tickers.push_back("T" + std::to_string(i));
        QTRY_COMPARE(window.Asked(u"AOL+BRK.B"_s), 1);
        QTRY_VERIFY(!window.Form().WebTick->Busy());
        window->Ports().List().Clear();
        window->Ports().List().Append(tickers);
        QTRY_COMPARE(window.Asked(window.Form().List1->Items().first(200).join(u'+')), 1);
    }

    void ItMovesByWholePixelsOrByWholeEntriesAndOnlyWhileSomebodySeesIt_data() {
        QTest::addColumn<bool>("rests");
        QTest::newRow("running") << false;
        QTest::newRow("resting") << true;
    }
    void ItMovesByWholePixelsOrByWholeEntriesAndOnlyWhileSomebodySeesIt() {
        QFETCH(const bool, rests);
        std::string entries;
        for (int n = 0; n < 30; ++n)
            entries += "<span>entry " + std::to_string(n) + "</span>";
        LoopbackServer server;
        server.Serve(u"/javaticker.html"_s, QByteArray::fromStdString(HtmlStrip(
                                                {}, "Ticker", entries, 15,
                                                rests ? StripPace::Resting : StripPace::Running)));
        TestSession session(server.Address({}), WebMode::Direct);
        session.Store("First", "OK");
        session.Store("WSCTick", "True");
        session.Start();
        BrowserPane& strip = *session.Form().WebTick;
        QTRY_VERIFY(strip.findChild<QWebEngineView*>());
        QWebEnginePage* page = strip.findChild<QWebEngineView*>()->page();
        const auto value = [&](const QString& expression) {
            QVariant result;
            page->runJavaScript(expression, [&](const QVariant& given) { result = given; });
            [[maybe_unused]] const bool isThere = Await([&] { return result.isValid(); });
            return result;
        };
        QTRY_VERIFY(value(u"document.querySelector('.run') !== null"_s).toBool());
        const auto places = [&](int count) {
            QSet<int> seen;
            while (seen.size() < count) {
                const QString place =
                    value(u"document.querySelector('.run').style.transform + ' '"_s).toString();
                const QRegularExpressionMatch match =
                    QRegularExpression(u"^translateX\\(-?(\\d+)px\\) $"_s).match(place);
                // Not moved yet, which is no offset, or moved by something else; newer engines
                // write no sign before a zero.
                if (!match.hasMatch() && place != u" "_s)
                    return QSet<int>();
                if (match.hasMatch())
                    seen << match.captured(1).toInt();
            }
            return seen;
        };
        const QSet<int> seen = places(4);
        QVERIFY(!seen.isEmpty());
        if (rests) {
            const QVariantList starts =
                value(u"[...document.querySelectorAll('.run > :first-child > span')].map("
                      "entry => entry.offsetLeft)"_s)
                    .toList();
            QCOMPARE(starts.size(), 30);
            for (const int place : seen)
                QVERIFY(starts.contains(place + starts[0].toInt()));
        }
        // Minimised, it is not there to be drawn.
        session.Form().showMinimized();
        QTRY_VERIFY(value(u"document.hidden"_s).toBool());
        session.Form().showNormal();
        QTRY_VERIFY(!value(u"document.hidden"_s).toBool());
        places(2);
    }

    void ASymbolOpensItsPageInTheMainPane() {
        Window window;
        window.portal = [](const std::string&, const std::string& path) {
            return PortalAnswer{"text/html",
                                path.starts_with("/javaticker.html")
                                    ? "<a target=_blank href=\"http://h.example/quote\" "
                                      "style=\"position:fixed;inset:0\">AOL</a>"
                                    : "<title>quote</title>"};
        };
        window.Start();
        QTRY_VERIFY(window.asked.filter(u"javaticker"_s).size() >= 1);
        QTRY_VERIFY(!window.Form().WebTick->Busy() && !window.Form().Web->Busy());
        const auto click = [&] {
            for (QWidget* target : window.Form().WebTick->findChildren<QWidget*>())
                if (target->objectName().isEmpty() && target->inherits("QQuickWidget"))
                    QTest::mouseClick(target, Qt::LeftButton, {}, target->rect().center());
            return window.Form().Web->LocationURL() == u"h.example/quote"_s ||
                   window.Form().Web->LocationURL() == u"http://h.example/quote"_s;
        };
        QTRY_VERIFY(click());
    }
};

TALLOWMERE_WEB_TEST_MAIN(TickerStripTest)
#include "TickerStripTest.moc"
