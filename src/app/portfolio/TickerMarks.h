#pragma once

#include "app/forms/ListRoles.h"
#include "core/portfolio/keyed_store.h"
#include "core/text/files.h"

#include <QObject>

#include <functional>
#include <memory>

namespace tallowmere {

class TickerModel;
class frmMain;

/// The marks of the ticker list: which tickers have a note or an alert, and which no source of
/// quotes knows; and what their companies are called.
class TickerMarks : public QObject {
    Q_OBJECT
public:
    TickerMarks(frmMain& form, TickerModel& list, const std::filesystem::path& programFolder);

    /// Reads the notes again if their file changed, and shows the marks anew.
    void Refresh();

    /// Says of a ticker whether the sources have denied it; nothing is denied without it.
    using Unknown = std::function<bool(const std::string& ticker)>;
    void SetUnknown(Unknown isUnknown);

    /// Gives the name of a ticker's company, empty when it is not known; shown while the pointer
    /// rests on the ticker.
    using Names = std::function<std::string(const std::string& ticker)>;
    void SetNames(Names nameOf);
    /// The name, as that function gives it.
    std::string NameOf(const std::string& ticker) const {
        return m_nameOf ? m_nameOf(ticker) : std::string();
    }

    /// Says how the alerts of a ticker stand; none stands without it.
    using Alerts = std::function<ItemMark(const std::string& ticker)>;
    void SetAlerts(Alerts alerts);

private:
    ItemMark MarkOf(const QString& ticker) const;

    frmMain& m_form;
    TickerModel& m_list;
    std::filesystem::path m_programFolder;
    std::optional<FileStamp> m_stamp;
    std::unique_ptr<NoteIndex> m_notes;
    Unknown m_isUnknown;
    Names m_nameOf;
    Alerts m_alerts;
};

} // namespace tallowmere
