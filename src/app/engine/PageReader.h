#pragma once

#include <functional>

class QObject;
class QString;
class QWebEnginePage;

namespace tallowmere {

/// What a page says about itself when asked. Each function asks at once; `then` is called later,
/// when the page has answered, and never when `owner` or the page is gone by then. The scripts run
/// in a world that the page's own cannot reach.
class PageReader {
public:
    /// `then` takes the page's text.
    static void ReadText(QWebEnginePage& page, const QObject* owner,
                         std::function<void(const QString&)> then);
    /// `then` is called when the page has no content at all.
    static void IfEmpty(QWebEnginePage& page, const QObject* owner, std::function<void()> then);
    /// `then` is called when the page has frames that hold nothing: sites refused to be framed, or
    /// could not be reached. To be asked when the page is complete.
    static void IfFramesAreEmpty(QWebEnginePage& page, const QObject* owner,
                                 std::function<void()> then);
    /// Brings a frame of the page into view, counted from 0.
    static void ScrollToFrame(QWebEnginePage& page, int index);
    /// Has the frames of the page that come from `host` by http loaded again, each once; `then` is
    /// called when there are pictures, scripts or styles of it, which come only with the whole
    /// page.
    static void AskForPartsAgain(QWebEnginePage& page, const QObject* owner, const QString& host,
                                 std::function<void()> then);
    /// `then` is told whether the page has a box for a password, also in a frame of its own site.
    static void AskForPasswordBox(QWebEnginePage& page, const QObject* owner,
                                  std::function<void(bool)> then);
};

} // namespace tallowmere
