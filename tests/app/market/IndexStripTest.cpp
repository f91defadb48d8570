#include "app/market/IndexStrip.h"
#include "app/engine/BrowserPane.h"
#include "support/Navigations.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

using namespace tallowmere;
using namespace Qt::StringLiterals;

class IndexStripTest : public QObject {
    Q_OBJECT
private:
    static std::string Row(const char* symbol, const char* value, const char* change) {
        return std::string("<tr><td nowrap><a href=\"/q?s=") + symbol + "&d=t\">" + symbol +
               "</a></td><td nowrap>4:00PM</td><td nowrap><b>" + value + "</b></td><td nowrap>" +
               change + "</td></tr>\n";
    }
    static std::string Page(const char* value) {
        return "<html><table>" + Row("^NYA", value, "+1.50") +
               Row("^SPC", "5,900.10", "<font color=ff0020>-3.25</font>") +
               Row("^OEX", "2,800.00", "0.00") + Row("^TYX", "4.55", "+0.01") +
               Row("^DJI", "44,000.00", "+100.00") + Row("^IXIC", "19,000.00", "-50.00") +
               "</table><p>Quotes delayed 15 minutes</p></html>";
    }
    struct Window : TestSession {
        Window() {
            Store("First", "OK");
            portal = [this](const std::string&, const std::string&) {
                return PortalAnswer{"text/html", page};
            };
            Start();
            Form().Web->Stop();
            asked.clear();
        }
        std::string page = Page("19,500.25");
        QStringList Texts() {
            QStringList texts;
            for (int panel = 1; panel <= 6; ++panel)
                texts << Form().SpooBar->PanelText(panel);
            return texts;
        }
        qsizetype Fetches() const {
            return asked.count(u"h.example/q?s=%5Enya+%5Espc+%5Eoex+%5Etyx+%5Edji+%5Eixic"_s);
        }
    };

private Q_SLOTS:
    void ATickFillsTheSixPanels() {
        Window window;
        window->Strip().Tick();
        QCOMPARE(window.Texts(),
                 (QStringList{u"NYSE : 19,500.25 +1.50"_s, u"S&P 500 : 5,900.10 -3.25"_s,
                              u"S&P 100 : 2,800.00 0.00"_s, u"30Y-TSY : 4.55 +0.01"_s,
                              u"DJIA : 44,000.00 +100.00"_s, u"NAS/NMS : 19,000.00 -50.00"_s}));
        QCOMPARE(window->Strip().Timer1.interval(), 60000);
    }

    void FetchesLieMoreThan200SecondsApart() {
        Window window;
        window->Strip().Tick();
        QCOMPARE(window.Fetches(), 1);
        const QDateTime first = window.clock.now;
        window.clock.now = first.addSecs(60);
        window->Strip().Tick();
        window.clock.now = first.addSecs(200);
        window->Strip().Tick();
        QCOMPARE(window.Fetches(), 1);
        window.clock.now = first.addSecs(201);
        window->Strip().Tick();
        QCOMPARE(window.Fetches(), 2);
    }

    void AfterMidnightTheMarkHasToBePassedAgain() {
        Window window;
        window->Strip().Tick();
        window.clock.now = QDateTime(QDate(2026, 11, 22), QTime(9, 0));
        window->Strip().Tick();
        QCOMPARE(window.Fetches(), 1);
        window.clock.now = QDateTime(QDate(2026, 11, 22), QTime(10, 3, 21));
        window->Strip().Tick();
        QCOMPARE(window.Fetches(), 2);
    }

    void AMissingRowLeavesItsPanelAndTheLaterOnes() {
        Window window;
        window->Strip().Tick();
        const QStringList before = window.Texts();
        window.page = Page("20,000.00");
        window.page.replace(window.page.find("^OEX&d=t"), 4, "^XXX");
        window.clock.now = window.clock.now.addSecs(201);
        window->Strip().Tick();
        QStringList expected = before;
        expected[0] = u"NYSE : 20,000.00 +1.50"_s;
        QCOMPARE(window.Texts(), expected);
    }

    void AFailedFetchKeepsTheTexts() {
        Window window;
        window->Strip().Tick();
        const QStringList before = window.Texts();
        window.page.clear();
        window.clock.now = window.clock.now.addSecs(500);
        window->Strip().Tick();
        QCOMPARE(window.Texts(), before);
        QVERIFY(window.prompts.messages.isEmpty());
    }

    void AClickOpensTheDetailsInTheFirstPane() {
        Window window;
        window.Form().WebB->show();
        window.Form().Web->hide();
        Navigations navigations(window.Form());
        QTest::mouseClick(window.Form().SpooBar, Qt::LeftButton, {}, QPoint(5, 5));
        QCOMPARE(navigations,
                 QStringList{u"Web: h.example/q?s=^nya+^spc+^oex+^tyx+^dji+^ixic&d=t"_s});
        QVERIFY(!window.Form().Web->isHidden());
        QVERIFY(window.Form().WebB->isHidden());
        QCOMPARE(window.Fetches(), 0);
    }

    void EveryPanelHasItsToolTip() {
        Window window;
        for (int panel = 1; panel <= 6; ++panel) {
            const auto* label =
                window.Form().findChild<QLabel*>(u"SpooBar"_s + QString::number(panel));
            QVERIFY(label);
            QCOMPARE(label->toolTip(), u"Indexes retrieved from Yahoo! Finanace"_s);
        }
    }

    void NoTextIsCutAtTheDefaultSize() {
        Window window;
        window->Strip().Tick();
        for (const int width : {565, 667, 1280}) {
            window.Form().resize(width, 567);
            QCoreApplication::processEvents();
            for (int panel = 1; panel <= 6; ++panel) {
                const auto* label =
                    window.Form().findChild<QLabel*>(u"SpooBar"_s + QString::number(panel));
                QVERIFY(label->width() >= label->fontMetrics().horizontalAdvance(label->text()));
                QVERIFY(window.Form().SpooBar->rect().contains(label->geometry()));
            }
        }
    }
};

TALLOWMERE_WEB_TEST_MAIN(IndexStripTest)
#include "IndexStripTest.moc"
