#pragma once

#include <functional>
#include <optional>

class QObject;
class QString;
class QWebEnginePage;

namespace tallowmere {

class BrowserPane;

/// What a page says about itself when asked. Each function asks at once; `then` is called later,
/// when the page has answered, and never when `owner`, or the pane, is gone by then. The scripts
/// run in a world that the page's own cannot reach.
class PageReader {
public:
    /// `then` takes the text of the page that a pane shows, an empty one when it shows none.
    static void ReadText(BrowserPane& pane, std::function<void(const QString&)> then);
    /// `then` takes where the smallest element is that holds all that the user marked in the page,
    /// as a selector of style sheets; an empty one when nothing is marked, or no page shown.
    static void ReadMark(BrowserPane& pane, std::function<void(const QString&)> then);
    /// `then` takes the text of the element there, none when the page has no such element. It is
    /// not called when no page is shown.
    static void ReadPart(BrowserPane& pane, const QString& part,
                         std::function<void(const std::optional<QString>&)> then);
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
