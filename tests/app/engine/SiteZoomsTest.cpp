#include "app/engine/SiteZooms.h"

#include "app/engine/BrowserPane.h"
#include "core/shell/settings_store.h"
#include "core/text/files.h"
#include "support/PaneBench.h"
#include "support/WebTest.h"

#include <QWheelEvent>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// A pane whose sizes are kept in a settings file.
struct ZoomBench : PaneBench {
    explicit ZoomBench(SettingsStore* settings = nullptr) {
        if (settings)
            profile.Zooms().KeepIn(*settings);
    }
    QString Here(const QString& path) const { return server.Address(path); }
    /// The same server as another site.
    QString There(const QString& path) const {
        return Here(path).replace(u"127.0.0.1"_s, u"localhost"_s);
    }
    double FactorOf(const BrowserPane& of) const {
        return of.findChild<QWebEngineView*>()->zoomFactor();
    }
    double Factor() const { return FactorOf(pane); }
    void Turn(int angle, Qt::KeyboardModifiers modifiers) {
        QWidget* widget = pane.findChild<QWebEngineView*>()->focusProxy();
        QWheelEvent turn({50, 50}, widget->mapToGlobal(QPointF(50, 50)), {}, {0, angle}, {},
                         modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &turn);
    }
};

} // namespace

class SiteZoomsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void TheSizeBelongsToTheSite() {
        ZoomBench bench;
        QVERIFY(bench.Show(bench.Here(u"/a"_s)));
        bench.pane.ZoomIn();
        QCOMPARE(bench.Factor(), 1.1);
        const QString linked = u"http://"_s + bench.Here(u"/b"_s);
        bench.server.Serve(u"/link"_s, "<title>link</title><body style='margin:0'><a href='" +
                                           linked.toLatin1() +
                                           "' style='display:block;height:300px'>b</a>");
        QVERIFY(bench.Show(bench.There(u"/link"_s)));
        QTRY_COMPARE(bench.Factor(), 1.0);
        bench.pane.ZoomOut();
        bench.pane.ZoomOut();
        QCOMPARE(bench.Factor(), 0.83);
        bench.ClickPage();
        QTRY_COMPARE(bench.pane.LocationURL(), linked);
        QTRY_COMPARE(bench.Factor(), 1.1);
        QTRY_VERIFY(!bench.pane.Busy());
        bench.pane.GoBack();
        QTRY_COMPARE(bench.pane.LocationURL(), bench.There(u"/link"_s));
        QTRY_COMPARE(bench.Factor(), 0.83);
    }

    void AllPanesShowASiteInTheSameSize() {
        ZoomBench bench;
        BrowserPane other(bench.profile, bench.prompts);
        BrowserPane strip(bench.profile, bench.prompts);
        strip.LeaveOutLocation();
        for (BrowserPane* pane : {&bench.pane, &other, &strip}) {
            pane->Navigate(bench.Here(u"/a"_s));
            QTRY_VERIFY(!pane->Busy());
        }
        other.ZoomIn();
        QCOMPARE(bench.FactorOf(other), 1.1);
        QCOMPARE(bench.Factor(), 1.1);
        QCOMPARE(bench.FactorOf(strip), 1.0);
        bench.pane.ZoomReset();
        QCOMPARE(bench.FactorOf(other), 1.0);
    }

    void PagesOfTheProgramAreOneSite() {
        ZoomBench bench;
        for (const QString& name : {u"/report.html"_s, u"/two.mlnk"_s})
            WriteWholeFile((bench.folder.path() + name).toStdString(), "<title>own</title>");
        QVERIFY(bench.Show(bench.folder.path() + u"/report.html"_s));
        bench.pane.ZoomIn();
        QVERIFY(bench.Show(bench.Here(u"/a"_s)));
        QTRY_COMPARE(bench.Factor(), 1.0);
        QVERIFY(bench.Show(bench.folder.path() + u"/two.mlnk"_s));
        QTRY_COMPARE(bench.Factor(), 1.1);
    }

    void ItIsKeptInTheSettings() {
        const QTemporaryDir folder;
        SettingsStore settings((folder.path() + u"/settings.ini"_s).toStdString());
        const auto kept = [&] { return settings.FindSetting("Zoom", "Sites"); };
        {
            ZoomBench bench(&settings);
            QVERIFY(bench.Show(bench.Here(u"/a"_s)));
            bench.pane.ZoomIn();
            bench.pane.ZoomIn();
            QCOMPARE(kept(), "127.0.0.1 121|");
        }
        ZoomBench bench(&settings);
        QVERIFY(bench.Show(bench.Here(u"/a"_s)));
        QTRY_COMPARE(bench.Factor(), 1.21);
        bench.pane.ZoomOut();
        bench.pane.ZoomOut();
        QCOMPARE(bench.Factor(), 1.0);
        QVERIFY(!kept());
        // What can be no size is the usual one.
        for (const char* damage : {"127.0.0.1 1e9|", "127.0.0.1 0|", "rubbish", "127.0.0.1|121"}) {
            settings.SaveSetting("Zoom", "Sites", damage);
            QVERIFY(bench.Show(bench.There(u"/a"_s)));
            QVERIFY(bench.Show(bench.Here(u"/a"_s)));
            QTRY_COMPARE(bench.Factor(), 1.0);
        }
    }

    void TheWheelWithTheKeyHeldGoesTheSameSteps() {
        ZoomBench bench;
        QVERIFY(bench.Show(bench.Here(u"/a"_s)));
        QVERIFY(AwaitPaint(*bench.Page()));
        bench.Turn(120, Qt::ControlModifier);
        QCOMPARE(bench.Factor(), 1.1);
        bench.Turn(60, Qt::ControlModifier);
        QCOMPARE(bench.Factor(), 1.1);
        bench.Turn(60, Qt::ControlModifier);
        QCOMPARE(bench.Factor(), 1.21);
        bench.Turn(-240, Qt::ControlModifier);
        QCOMPARE(bench.Factor(), 1.0);
        bench.Turn(120, Qt::NoModifier);
        QCOMPARE(bench.Factor(), 1.0);
    }
};

TALLOWMERE_WEB_TEST_MAIN(SiteZoomsTest)
#include "SiteZoomsTest.moc"
