#pragma once

#include "app/forms/frmDownloads.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <string>

namespace tallowmere {

class Download;
class DownloadList;
class Prompts;
class frmMain;

/// The window "Downloads": shows the list of files that are saved, and what the user does about
/// them; and asks before the program ends while one is being saved. The window is made when it is
/// first wanted.
class DownloadWindow : public QObject {
    Q_OBJECT
public:
    DownloadWindow(frmMain& form, Prompts& prompts, DownloadList& downloads);

    /// Opens the window, or brings it to the front.
    void Show();

    /// The window while it is open.
    frmDownloads* Window() const { return m_window; }

private:
    void Connect();
    void AddRow(Download* download, int index);
    void ShowRow(Download& download);
    void ShowRunning();
    void ShowButtons();
    Download* Selected() const;
    void Open();
    void ShowInFolder();
    void Delete();
    void Tell(const QString& message);
    void BeforeClose(bool* mayClose);

    frmMain& m_form;
    Prompts& m_prompts;
    DownloadList& m_downloads;
    QPointer<frmDownloads> m_window;
    QHash<Download*, QTreeWidgetItem*> m_rows; ///< of the window
    std::string m_why;                         ///< the selected file is not opened
    QTimer m_second;                           ///< speeds and times go on when nothing arrives
};

} // namespace tallowmere
