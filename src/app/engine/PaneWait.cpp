#include "app/engine/PaneWait.h"

#include "app/engine/BrowserPane.h"

#include <QEventLoop>
#include <QTimer>

namespace tallowmere {

namespace {
constexpr auto kLongestWait = std::chrono::minutes(1);
}

void WaitWhileBusy(BrowserPane& pane) {
    if (!pane.Busy())
        return;
    QEventLoop loop;
    QObject::connect(&pane, &BrowserPane::DocumentComplete, &loop, [&pane, &loop] {
        if (!pane.Busy())
            loop.quit();
    });
    QObject::connect(&pane, &QObject::destroyed, &loop, &QEventLoop::quit);
    QTimer::singleShot(kLongestWait, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace tallowmere
