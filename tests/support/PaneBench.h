#pragma once

#include "app/base/WebAccess.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/EngineProfile.h"
#include "app/engine/PaneNotice.h"
#include "app/engine/PanePage.h"
#include "support/Await.h"
#include "support/LoopbackServer.h"
#include "support/PaintedPage.h"
#include "support/TestPrompts.h"

#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QWebEngineView>

namespace tallowmere {

/// A pane on a fresh profile, beside a server that knows a few pages.
struct PaneBench {
    explicit PaneBench(WebMode mode = WebMode::Direct) : access(mode) {
        server.Serve(QStringLiteral("/a"),
                     "<title>a</title><body style='margin:0'>"
                     "<a href='/b?x=1' style='display:block;height:300px'>b</a>");
        server.Serve(QStringLiteral("/b"), "<title>b</title>");
        pane.resize(400, 300);
        pane.show();
        QObject::connect(&pane, &BrowserPane::BeforeNavigate2, &pane,
                         [this](const QString& address, bool* cancel) {
                             before << address;
                             *cancel = isCancelling;
                         });
    }

    /// Navigates and waits for the end of the load; false when there is none.
    bool Show(const QString& address) {
        pane.Navigate(address);
        return WaitForEnd();
    }
    bool WaitForEnd() {
        return Await([this] { return !pane.Busy(); });
    }
    PanePage* Page() { return profile.findChild<PanePage*>(); }
    QVariant Run(const QString& script) {
        QVariant result;
        bool isDone = false;
        Page()->runJavaScript(script, [&](const QVariant& value) {
            result = value;
            isDone = true;
        });
        [[maybe_unused]] const bool ran = Await([&] { return isDone; });
        return result;
    }
    /// A real click into the page; a page that was never clicked may not make history.
    void ClickPage() {
        QVERIFY(AwaitPaint(*Page()));
        QWidget* view = pane.findChild<QWebEngineView*>()->focusProxy();
        QTest::mouseClick(view, Qt::LeftButton, {}, {100, 100});
    }
    QString Title() { return Page()->title(); }
    bool HasNotice() { return pane.findChild<PaneNotice*>()->isVisible(); }
    QString NoticeText(const QString& label) { return pane.findChild<QLabel*>(label)->text(); }
    void ClickNotice(const QString& button) {
        QTest::mouseClick(pane.findChild<QPushButton*>(button), Qt::LeftButton);
    }

    LoopbackServer server;
    TestPrompts prompts;
    QTemporaryDir folder;
    WebAccess access;
    EngineProfile profile{folder.path() + QStringLiteral("/engine"), folder.path(), access,
                          prompts};
    BrowserPane pane{profile, prompts};
    QStringList before;
    bool isCancelling = false;
};

} // namespace tallowmere
