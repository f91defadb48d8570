#include "app/forms/frmRemind.h"

#include "app/forms/ListBox.h"

#include <QBoxLayout>
#include <QCalendarWidget>
#include <QFocusEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextCharFormat>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

struct ButtonRow {
    const char* caption;
    const char* accessibleName;
};

// clang-format off
constexpr std::array<ButtonRow, 3> kButtons{{
    {"Clear &All Reminders",    "Clear All Reminders"},
    {"&Clear Current Reminder", "Clear Current Reminder"},
    {"&Save && Exit",           "Save & Exit"},
}};
// clang-format on

constexpr int kSummaryCharacters = 50; ///< of a line that are in view at once
constexpr int kSummaryLines = 7;

} // namespace

frmRemind::frmRemind(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmRemind"_s);
    setWindowTitle(u"Daily Reminders"_s);

    MonthView1 = new QCalendarWidget(this);
    MonthView1->setObjectName(u"MonthView1"_s);
    MonthView1->setAccessibleName(u"Day"_s);
    MonthView1->setGridVisible(true);
    MonthView1->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    MonthView1->setDateRange(QDate(1, 1, 1), QDate(9999, 12, 31));
    // The calendar gives its parts no names that could be read out.
    struct Part {
        QLatin1StringView object, name;
    };
    constexpr Part kParts[] = {{"qt_calendar_prevmonth"_L1, "Previous month"_L1},
                               {"qt_calendar_nextmonth"_L1, "Next month"_L1},
                               {"qt_calendar_yearedit"_L1, "Year"_L1},
                               {"qt_calendar_calendarview"_L1, "Days"_L1}};
    for (const Part& part : kParts)
        if (auto* widget = MonthView1->findChild<QWidget*>(part.object))
            widget->setAccessibleName(part.name);
    for (QWidget* part : MonthView1->findChildren<QWidget*>())
        part->installEventFilter(this);

    Text1 = new QPlainTextEdit(this);
    Text1->setObjectName(u"Text1"_s);
    Text1->setAccessibleName(u"Reminder"_s);
    Text1->setTabChangesFocus(true);

    List1 = new TextListBox(u"List1"_s, u"Summary of Reminders"_s, this);
    List1->setTextElideMode(Qt::ElideRight);
    List1->installEventFilter(this);
    List1->viewport()->installEventFilter(this);
    Label1 = new QLabel(this);
    Label1->setObjectName(u"Label1"_s);

    for (std::size_t i = 0; i < kButtons.size(); ++i) {
        auto* button = new QPushButton(QString::fromLatin1(kButtons[i].caption), this);
        button->setObjectName(u"Command1"_s + QString::number(i));
        button->setAccessibleName(QString::fromLatin1(kButtons[i].accessibleName));
        button->setAutoDefault(false);
        Command1[i] = button;
    }
    Command1[2]->setDefault(true);
    Arrange();
    Text1->setFocus();
}

void frmRemind::Arrange() {
    const QFontMetrics metrics(font());
    auto* textLabel = new QLabel(u"Reminder :"_s, this);
    textLabel->setBuddy(Text1);
    auto* listLabel = new QLabel(u"Summary of Reminders :"_s, this);
    listLabel->setBuddy(List1);
    Text1->setMinimumWidth(metrics.averageCharWidth() * kSummaryCharacters);
    List1->setMinimumHeight(metrics.lineSpacing() * kSummaryLines);

    auto* text = new QVBoxLayout;
    text->addWidget(textLabel);
    text->addWidget(Text1, 1);
    auto* day = new QHBoxLayout;
    day->addWidget(MonthView1);
    day->addLayout(text, 1);
    auto* heading = new QHBoxLayout;
    heading->addWidget(listLabel);
    heading->addWidget(Label1);
    heading->addStretch(1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Command1[0]);
    buttons->addWidget(Command1[1]);
    buttons->addStretch(1);
    buttons->addWidget(Command1[2]);

    auto* all = new QVBoxLayout(this);
    all->addLayout(day);
    all->addLayout(heading);
    all->addWidget(List1, 1);
    all->addLayout(buttons);
}

void frmRemind::MarkDays(const QList<QDate>& days) {
    QTextCharFormat marked;
    marked.setFontWeight(QFont::Bold);
    marked.setFontUnderline(true);
    QColor background = palette().color(QPalette::Highlight);
    background.setAlphaF(0.3F);
    marked.setBackground(background);
    MonthView1->setDateTextFormat({}, {});
    for (const QDate& day : days)
        MonthView1->setDateTextFormat(day, marked);
}

bool frmRemind::IsInCalendar(const QObject* object) const {
    while (object && object != MonthView1)
        object = object->parent();
    return object;
}

bool frmRemind::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && IsInCalendar(watched))
        Q_EMIT CalendarPressed();
    else if (event->type() == QEvent::FocusIn && watched == List1)
        Q_EMIT SummaryEntered(static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason);
    else if (event->type() == QEvent::MouseButtonRelease && watched == List1->viewport())
        Q_EMIT SummaryReleased();
    return QDialog::eventFilter(watched, event);
}

} // namespace tallowmere
