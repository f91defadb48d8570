#pragma once

#include <QDialog>

#include <array>

class QCalendarWidget;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace tallowmere {

class TextListBox;

/// The dialog of the daily reminders: its controls under their names.
class frmRemind : public QDialog {
    Q_OBJECT
public:
    explicit frmRemind(QWidget* parent);

    QCalendarWidget* MonthView1;
    QPlainTextEdit* Text1;
    TextListBox* List1;
    QLabel* Label1;
    std::array<QPushButton*, 3> Command1{}; ///< 0 clear all, 1 clear the current one, 2 save

    /// Makes the days stand out in the calendar, and no others.
    void MarkDays(const QList<QDate>& days);

Q_SIGNALS:
    /// A mouse button went down anywhere on the calendar; what it does there comes afterwards.
    void CalendarPressed();
    /// The focus entered the summary list. With the mouse a press on one of its lines follows, and
    /// then its release.
    void SummaryEntered(bool isByMouse);
    void SummaryReleased();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool IsInCalendar(const QObject* object) const;
    void Arrange();
};

} // namespace tallowmere
