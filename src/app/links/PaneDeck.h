#pragma once

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

    /// Opens the page of a start: `stored` is the letter of its pane and its address, and `usual`
    /// the address for the first pane when nothing was stored; an empty one opens nothing.
    void OpenStartPage(const QString& stored, const QString& usual);

    /// Puts a page that the program made into its folder and shows it in `Web`.
    void ShowGenerated(std::string_view name, std::string_view page);

    /// Whether the next page opens in a separate browser instead of a pane.
    bool OpensNextOutside() const { return m_opensNextOutside; }
    void OpenNextOutside(bool outside) { m_opensNextOutside = outside; }

    /// Brings one of the two panes to the front.
    void ShowFirst();
    void ShowSecond();

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

private:
    void BeforeFirst(const QString& address, bool* cancel);
    void BeforeEither(const QString& address, bool* cancel);
    void OnPaneStatus(const BrowserPane& pane, const QString& text);

    frmMain& m_form;
    RecordingState& m_recording;
    const SiteTable& m_sites;
    std::filesystem::path m_programFolder;
    SeparateBrowser& m_outside;
    bool m_opensNextOutside = false;
    bool m_isStatusLasting = false;
};

} // namespace tallowmere
