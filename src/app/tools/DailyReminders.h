#pragma once

#include "core/text/date.h"

#include <QDate>
#include <QObject>

#include <filesystem>

#include <optional>
#include <vector>

namespace tallowmere {

class Clock;
class LinkDispatch;
class Prompts;
class UndoRecorder;
class frmMain;
class frmRemind;

/// The daily reminders: the dialog, and the look at the start whether there is one for today.
class DailyReminders : public QObject {
    Q_OBJECT
public:
    DailyReminders(frmMain& form, UndoRecorder& undo, Prompts& prompts, const Clock& clock,
                   const std::filesystem::path& programFolder, LinkDispatch& dispatch);

    /// Opens the dialog when there is a reminder for today.
    void CheckReminders();

    /// Opens the dialog on today; there is never more than one.
    void Open();

    /// Fills the summary from the store and marks its days in the calendar.
    void GetAppts();

    /// Saves the text of the shown day if it was edited.
    void SetRemind();

    /// The dialog while it is open.
    frmRemind* Dialog() const { return m_dialog; }

private:
    void Connect();
    void ShowDay(const QDate& day);
    void StoreText();
    void EnterSummary(bool isByMouse);
    void ChooseLine();
    void ClearAll();
    void ClearCurrent();
    std::string Notes(std::string_view operation) const;
    std::string Content();
    bool Replace(std::string_view text);
    void TellUnsaved() const;

    frmMain& m_form;
    UndoRecorder& m_undo;
    Prompts& m_prompts;
    const Clock& m_clock;
    std::filesystem::path m_programFolder;
    frmRemind* m_dialog = nullptr;
    QDate m_day; ///< the day whose text is shown
    bool m_isChanged = false;
    bool m_isUnreadableTold = false;
    bool m_isSummaryStale = false;
    std::vector<std::optional<Date>> m_days; ///< of the lines of the summary
};

} // namespace tallowmere
