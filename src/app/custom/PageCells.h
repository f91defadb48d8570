#pragma once

#include "app/custom/CellColumn.h"

#include <QObject>
#include <QPointer>

#include <filesystem>

namespace tallowmere {

class EngineProfile;
class PaneDeck;
class Prompts;
class frmMain;

/// Shows the pages of a multi-link in cells of their own, over `Web`, when a frame stays empty:
/// many sites refuse to be framed. As main pages they cannot refuse, and logins hold in them.
class PageCells : public QObject {
    Q_OBJECT
public:
    PageCells(frmMain& form, Prompts& prompts, const std::filesystem::path& programFolder,
              PaneDeck& panes, EngineProfile& profile);

    /// The cells while they are shown.
    CellColumn* Column() const { return m_column; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Complete(bool isLoaded);
    void ShowRecorded();
    std::filesystem::path DisplayPage() const;
    void Progress(int maximum);
    void Show(const QStringList& addresses);
    void Remove();

    frmMain& m_form;
    Prompts& m_prompts;
    std::filesystem::path m_programFolder;
    PaneDeck& m_panes;
    EngineProfile& m_profile;
    QPointer<CellColumn> m_column;
    bool m_loading = false;
};

} // namespace tallowmere
