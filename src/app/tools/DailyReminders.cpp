#include "app/tools/DailyReminders.h"

#include "app/base/Clock.h"
#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/forms/frmRemind.h"
#include "app/links/LinkDispatch.h"
#include "core/portfolio/keyed_store.h"
#include "core/shell/undo_recorder.h"
#include "core/text/bytes.h"
#include "core/text/runtime_error.h"
#include "core/tools/reminders.h"

#include <QCalendarWidget>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

QDate ToQt(Date day) {
    return {day.year, day.month, day.day};
}

Date FromQt(const QDate& day) {
    return {day.year(), day.month(), day.day()};
}

} // namespace

DailyReminders::DailyReminders(frmMain& form, UndoRecorder& undo, Prompts& prompts,
                               const Clock& clock, const std::filesystem::path& programFolder,
                               LinkDispatch& dispatch)
    : QObject(&form), m_form(form), m_undo(undo), m_prompts(prompts), m_clock(clock),
      m_programFolder(programFolder) {
    connect(&dispatch, &LinkDispatch::RemindersRequested, this, &DailyReminders::Open);
}

void DailyReminders::CheckReminders() {
    if (HasReminder(Content(), m_clock.Today()))
        Open();
}

void DailyReminders::Open() {
    if (m_dialog)
        return;
    m_dialog = new frmRemind(&m_form);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    const QDate today = m_clock.Now().date();
    m_dialog->MonthView1->setSelectedDate(today);
    ShowDay(today);
    Connect();
    GetAppts();
    m_dialog->setModal(true);
    m_dialog->show();
}

void DailyReminders::Connect() {
    connect(m_dialog, &frmRemind::CalendarPressed, this, &DailyReminders::SetRemind);
    // Another day can be chosen by keyboard too, without a press before it.
    connect(m_dialog->MonthView1, &QCalendarWidget::selectionChanged, this, [this] {
        SetRemind();
        ShowDay(m_dialog->MonthView1->selectedDate());
    });
    connect(m_dialog->MonthView1, &QCalendarWidget::clicked, this, &DailyReminders::ShowDay);
    connect(m_dialog, &frmRemind::SummaryEntered, this, &DailyReminders::EnterSummary);
    connect(m_dialog, &frmRemind::SummaryReleased, this, [this] {
        if (m_isSummaryStale)
            GetAppts();
    });
    connect(m_dialog->List1, &ListBox::Clicked, this, &DailyReminders::ChooseLine);
    connect(m_dialog->Text1, &QPlainTextEdit::textChanged, this, [this] { m_isChanged = true; });
    connect(m_dialog->Command1[0], &QPushButton::clicked, this, &DailyReminders::ClearAll);
    connect(m_dialog->Command1[1], &QPushButton::clicked, this, &DailyReminders::ClearCurrent);
    connect(m_dialog->Command1[2], &QPushButton::clicked, m_dialog, &QDialog::accept);
    connect(m_dialog, &QDialog::finished, this, [this] {
        SetRemind();
        m_dialog = nullptr; // it deletes itself
    });
}

void DailyReminders::GetAppts() {
    m_isSummaryStale = false;
    const ReminderSummary summary = Summarize(Content());
    QStringList lines;
    for (const std::string& line : summary.lines)
        lines << ToQt(line);
    m_days = summary.days;
    const bool wasChosen = m_dialog->List1->ListIndex() >= 0;
    m_dialog->List1->SetItems(lines);
    const auto line = std::find(m_days.begin(), m_days.end(), FromQt(m_day));
    if (wasChosen && line != m_days.end())
        m_dialog->List1->SetListIndex(static_cast<int>(line - m_days.begin()));
    m_dialog->Label1->setText(ToQt(summary.count));
    QList<QDate> marked;
    for (const std::optional<Date>& day : m_days)
        if (day)
            marked << ToQt(*day);
    m_dialog->MarkDays(marked);
}

void DailyReminders::SetRemind() {
    if (!m_isChanged)
        return;
    StoreText();
    GetAppts();
}

void DailyReminders::StoreText() {
    const std::string text = ReplaceAll(FromQt(m_dialog->Text1->toPlainText()), "\n", "\r\n");
    const std::string_view trimmed = Trim(text);
    const std::string storable = StorableNote(trimmed);
    m_isChanged = false;
    if (Replace(storable) && storable != trimmed)
        m_prompts.Message(tallowmere::ToQt(kBarsParted), MessageTitle());
}

void DailyReminders::ShowDay(const QDate& day) {
    m_day = day;
    m_dialog->Text1->setPlainText(ToQt(Notes("GET")));
    m_isChanged = false;
}

// A saved record moves to the end of the store. While a mouse button is down on a line of the
// summary the lines stay as they are, or the press would hit another day than the one under the
// pointer.
void DailyReminders::EnterSummary(bool isByMouse) {
    if (!m_isChanged)
        return;
    StoreText();
    if (isByMouse)
        m_isSummaryStale = true;
    else
        GetAppts();
}

void DailyReminders::ChooseLine() {
    const int line = m_dialog->List1->ListIndex();
    if (line < 0 || !m_days[static_cast<std::size_t>(line)])
        return;
    const QDate day = ToQt(*m_days[static_cast<std::size_t>(line)]);
    const QSignalBlocker quiet(m_dialog->MonthView1);
    m_dialog->MonthView1->setSelectedDate(day);
    ShowDay(day);
}

void DailyReminders::ClearAll() {
    m_undo.Run("Clear All Reminders", [this] {
        Notes("KILL");
        m_undo.TellRemoved("All reminders removed.");
    });
    if (!Content().empty())
        TellUnsaved();
    m_dialog->Text1->clear();
    GetAppts();
}

void DailyReminders::ClearCurrent() {
    Replace({});
    m_dialog->Text1->clear();
    GetAppts();
}

/// Makes a text the reminder of the shown day; false when it could not be saved, which is told.
bool DailyReminders::Replace(std::string_view text) {
    try {
        const std::string words = ReminderWords(FromQt(m_day));
        m_undo.Run(words, [&] {
            ReplaceNote(m_programFolder, DayKey(FromQt(m_day)), text, kRemindersFile);
            if (text.empty())
                m_undo.TellRemoved(words + " removed.");
        });
        return true;
    } catch (const RuntimeError&) {
        TellUnsaved();
        return false;
    }
}

void DailyReminders::TellUnsaved() const {
    m_prompts.Message(
        u"The reminders could not be saved. The disk may be full, or their file not be "
        "writable."_s,
        MessageTitle());
}

/// Performs an operation on the record of the shown day.
std::string DailyReminders::Notes(std::string_view operation) const {
    std::string result;
    TickerNotes(m_programFolder, result, operation, DayKey(FromQt(m_day)), {}, kRemindersFile);
    return result;
}

/// The content of the store. One that cannot be read is told once, and has no reminders.
std::string DailyReminders::Content() {
    try {
        return ReadStore(m_programFolder, kRemindersFile);
    } catch (const RuntimeError& error) {
        if (!std::exchange(m_isUnreadableTold, true))
            m_prompts.Message(u"The reminders cannot be shown.\n"_s +
                                  tallowmere::ToQt(error.what()),
                              MessageTitle());
        return {};
    }
}

} // namespace tallowmere
