#pragma once

#include "core/links/page_place.h"

#include <QObject>

#include <filesystem>

namespace tallowmere {

class BrowserPane;
struct RecordingState;
class SeparateBrowser;
class SiteTable;
class frmMain;

/// The panes of the main window as one deck: which is in front, and what happens before a page
/// loads.
class PaneDeck : public QObject {
    Q_OBJECT
public:
    PaneDeck(frmMain& form, RecordingState& recording, const SiteTable& sites,
             const std::filesystem::path& programFolder, SeparateBrowser& outside);

    /// Loads an address into `Web` and brings it to the front, unless the page is to open in a
    /// separate browser.
    void Navigate(const QString& address);

    /// The same for a broker's page in `WebB`.
    void NavigateSecond(const QString& address);

    /// Loads an address in a place; what comes next opens in the pane again.
    void NavigateIn(PagePlace place, const QString& address);

    /// Opens the page of a start: `stored` is the letter of its pane and its address, and `usual`
    /// the address for the first pane when nothing was stored; an empty one opens nothing.
    void OpenStartPage(const QString& stored, const QString& usual);

    /// Puts a page that the program made into its folder and shows it in `Web`.
    void ShowGenerated(std::string_view name, std::string_view page);

    /// Whether the next page opens in a separate browser instead of a pane.
    bool OpensNextOutside() const { return m_next == PagePlace::Outside; }
    void OpenNextOutside(bool outside) { m_next = outside ? PagePlace::Outside : PagePlace::Pane; }
    /// Where the next page opens that a link or a menu leads to; then it is the pane again. What is
    /// recorded opens in no tab.
    PagePlace Next() const { return m_next; }
    void OpenNext(PagePlace place);

    /// Brings `Web`, `WebB` or any pane to the front.
    void ShowFirst();
    void ShowSecond();
    void Show(BrowserPane* pane);

    /// A further pane gets its part in what happens before a page loads and while it does.
    void Adopt(BrowserPane& pane);

    /// The pane in front.
    BrowserPane* Front() const;

    /// Shows a text in the status line.
    void ShowStatus(const QString& text);

    /// Shows a text that stays until a page begins to load or the pointer is over a link: what a
    /// pane says of where it rests does not replace it.
    void ShowLastingStatus(const QString& text);

    /// Draws the progress bar; 0 of anything empties it.
    void ShowProgress(int progress, int maximum);

Q_SIGNALS:
    /// A page is about to load; not while pages are recorded instead.
    void BrowsingStarts();
    /// A page was recorded instead.
    void Recorded();
    /// A page is to open in a further pane.
    void TabWanted(const QString& address, bool isInFront);
    /// There is a further pane.
    void Adopted(BrowserPane& pane);
    /// A page wants to fill the screen; who lets it sets `isGranted`.
    void FillWanted(BrowserPane* pane, const QString& host, bool* isGranted);
    /// It does so no more.
    void FillOver(BrowserPane* pane);
    /// Another pane is in front, or the same one again.
    void FrontChanged(BrowserPane* pane);

private:
    void Offer(BrowserPane& pane);
    bool OpenInTab(const QString& address);
    void OnPaneWanted(BrowserPane& pane, const QString& address, bool isInFront);
    void BeforeFirst(const QString& address, bool* cancel);
    void BeforeFurther(BrowserPane& pane, const QString& address, bool* cancel);
    void BeforeEither(const QString& address, bool* cancel);
    void OnPaneStatus(const BrowserPane& pane, const QString& text);

    frmMain& m_form;
    RecordingState& m_recording;
    const SiteTable& m_sites;
    std::filesystem::path m_programFolder;
    SeparateBrowser& m_outside;
    PagePlace m_next = PagePlace::Pane;
    bool m_isStatusLasting = false;
};

} // namespace tallowmere
