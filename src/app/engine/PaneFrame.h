#pragma once

#include "core/pages/page_zoom.h"
#include "core/pages/saved_page.h"

#include <QWidget>

#include <functional>
#include <string>

class QPageLayout;
class QUrl;
class QWebEngineFullScreenRequest;

namespace tallowmere {

class FindBar;
class FindText;
class LocationLine;
class PageQuestion;
class PageView;
class PaneNotice;
class PasswordLookout;
class SiteZooms;
class SourcePages;

/// What a pane is made of: the view of its page or what is told in its place, the bar for searching
/// it, the line that says where it is, and the sheet on which the page speaks.
class PaneFrame : public QWidget {
    Q_OBJECT
public:
    /// What all panes share: `zooms` knows how large the pages of each site are shown, `sources`
    /// keeps the sources that are, and `finding` is the text to search for.
    PaneFrame(SiteZooms& zooms, SourcePages& sources, FindText& finding, QWidget* parent);

    /// Leaves out the line that says where the pane is; for a strip without room for it.
    /// Without it no page of the strip asks anything either: there is no room for that.
    void LeaveOutLocation() { m_hasLocation = false; }

    /// Puts a line above the page; it goes when it is deleted.
    void SetHeader(QWidget* header);
    /// Scrolls the page to one of its frames, counted from 0.
    void ShowPart(int index);
    /// Calls `tell`, as long as `receiver` is there, with the part of the page, 0 to 1, that lies
    /// above what is in view, whenever that has changed.
    void OnScroll(const QObject* receiver, std::function<void(double)> tell) const;

    /// Whether a page is shown that can be printed and saved.
    bool HasPage() const;
    /// The title of that page; empty when it has none.
    QString Title() const;
    /// Gives that page as a PDF document on paper of that layout; empty bytes when the engine
    /// could not make it. `receive` is called later.
    void WritePdf(const QPageLayout& layout, std::function<void(const QByteArray&)> receive);
    /// Saves that page with what it consists of; the profile tells what came of it.
    void SaveTo(const QString& path, SavedForm form) const;

    /// Keeps the source of that page, under the name `address`, as a page that panes can show, and
    /// gives the address of it. `receive` is called later, and not when there is no page.
    void KeepSource(const QString& address, std::function<void(const QString&)> receive);

    /// Gives the keys to the page.
    void FocusPage();
    /// Ends that the page fills the screen.
    void EndFill();
    /// Whether the user is typing into the search bar.
    bool IsFinding() const;
    /// Opens the search bar.
    void Find();
    /// Searches on for the text that was searched for last, in whichever pane; opens the bar when
    /// there is none.
    void FindNext() { FindOn(false); }
    void FindPrevious() { FindOn(true); }
    /// Shows the page, and all others of its site, larger or smaller from now on.
    void ZoomIn();
    void ZoomOut();
    void ZoomReset();

Q_SIGNALS:
    /// The user wants the page to fill the screen; so says the engine, which `host` in the page
    /// asked. Without a receiver that grants it, it does not.
    void FillWanted(const QString& host, bool* isGranted);
    /// A page that filled the screen does so no more.
    void FillOver();

protected:
    bool HasLocation() const { return m_hasLocation; }
    bool IsPageShown() const;
    void SetView(PageView* view);
    /// Shows the view in the place of whatever is told.
    void ShowView();
    void HideView();
    /// Says where the pane is: `url` as the engine has it, `built` what led there.
    void ShowPlace(const QUrl& url, const QString& built);

    PageView* m_view = nullptr;
    PaneNotice* m_notice;
    FindBar* m_findBar;
    PasswordLookout* m_passwords;
    PageQuestion* m_question;

private:
    void FindOn(bool isBackward);
    void OnFill(QWebEngineFullScreenRequest request);
    void UseZoomOf(const QUrl& page);
    void ReadZoom();
    void Zoom(void (PageZoom::*change)());
    void TurnZoom(int angle);

    SiteZooms& m_zooms;
    SourcePages& m_sources;
    LocationLine* m_location;
    bool m_hasLocation = true;
    bool m_isLocated = false; ///< there is something to say in that line
    bool m_isFilling = false; ///< the page fills the screen
    std::string m_site;       ///< of the page, empty for none
    PageZoom m_zoom;
    int m_angle = 0; ///< of the wheel, less than a step
};

} // namespace tallowmere
