#pragma once

#include "support/Await.h"

#include <QVariant>
#include <QWebEnginePage>

#include <memory>

namespace tallowmere {

/// Waits until the page has been painted, for two seconds at most; whether it has. A click on a
/// page that was not painted yet hits nothing.
inline bool AwaitPaint(QWebEnginePage& page) {
    page.runJavaScript(QStringLiteral(
        "requestAnimationFrame(() => requestAnimationFrame(() => { document.painted = true }))"));
    // An answer may come when nobody waits for it any more.
    const auto isPainted = std::make_shared<bool>(false);
    return Await(
        [&] {
            page.runJavaScript(
                QStringLiteral("!!document.painted"),
                [isPainted](const QVariant& is) { *isPainted = *isPainted || is.toBool(); });
            return *isPainted;
        },
        std::chrono::seconds(2));
}

} // namespace tallowmere
