#include "app/portfolio/TickerCompletion.h"

#include "app/base/QtText.h"
#include "app/forms/ListBox.h"
#include "app/forms/frmMain.h"
#include "app/portfolio/TickerBox.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

bool IsEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

TickerCompletion::TickerCompletion(frmMain& form, TickerBox& box)
    : QObject(&form), m_form(form), m_box(box) {
    form.txtStock->installEventFilter(this);
    connect(form.txtStock, &QLineEdit::textChanged, this, &TickerCompletion::LookSoon);
}

void TickerCompletion::LookSoon() {
    if (m_looksSoon || !m_offer)
        return;
    m_looksSoon = true;
    QMetaObject::invokeMethod(this, &TickerCompletion::Look, Qt::QueuedConnection);
}

void TickerCompletion::Look() {
    if (!m_looksSoon)
        return;
    m_looksSoon = false;
    m_found = {};
    const QLineEdit& box = *m_form.txtStock;
    if (box.hasFocus())
        m_found = m_offer(FromQt(box.text().left(box.cursorPosition())));
    if (m_found.rows.empty())
        Hide();
    else
        Show();
}

void TickerCompletion::Show() {
    if (!m_list) {
        m_list = new TextListBox(u"lstNames"_s, tr("Tickers by Name"), &m_form);
        m_list->setFocusPolicy(Qt::NoFocus);
        m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_list->setTextElideMode(Qt::ElideRight);
        m_list->setFrameStyle(QFrame::Box | QFrame::Plain); // apart from the page below it
        connect(m_list, &QListView::clicked, this,
                [this](const QModelIndex& index) { Take(index.row()); });
    }
    QStringList rows;
    for (const NamedTicker& row : m_found.rows)
        rows << ToQt(row.ticker) + u"  "_s + ToQt(row.name);
    m_list->SetItems(rows);
    const QLineEdit& box = *m_form.txtStock;
    const QPoint corner = box.mapTo(&m_form, QPoint(0, box.height()));
    const int frame = 2 * m_list->frameWidth();
    const int wanted =
        m_list->sizeHintForColumn(0) + frame + m_list->fontMetrics().averageCharWidth();
    const int height = m_list->sizeHintForRow(0) * static_cast<int>(rows.size()) + frame;
    m_list->setGeometry(corner.x(), corner.y(),
                        std::min(std::max(wanted, box.width()), m_form.width() - corner.x()),
                        std::min(height, m_form.height() - corner.y()));
    if (m_list->isHidden())
        QCoreApplication::instance()->installEventFilter(this);
    m_list->show();
    m_list->raise();
}

void TickerCompletion::Hide() {
    m_looksSoon = false;
    if (!IsShown())
        return;
    QCoreApplication::instance()->removeEventFilter(this);
    m_list->hide();
}

bool TickerCompletion::IsShown() const {
    return m_list && !m_list->isHidden();
}

int TickerCompletion::OwnKey(const QEvent& event) const {
    const auto& press = static_cast<const QKeyEvent&>(event);
    if (!IsShown() || (press.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return 0;
    const int key = press.key();
    const bool isOwn = key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_Escape ||
                       (IsEnter(key) && m_list->ListIndex() >= 0);
    return isOwn ? key : 0;
}

void TickerCompletion::Press(int key) {
    if (key == Qt::Key_Down || key == Qt::Key_Up)
        Walk(key == Qt::Key_Down ? 1 : -1);
    else if (key == Qt::Key_Escape)
        Hide();
    else
        Take(m_list->ListIndex());
}

// Before the first row and behind the last one nothing is selected: Enter takes what was typed.
void TickerCompletion::Walk(int by) {
    const int places = m_list->Count() + 1;
    const int place = (m_list->ListIndex() + 1 + by + places) % places;
    m_list->SetListIndex(place - 1);
}

void TickerCompletion::Take(int row) {
    const NameOffer found = m_found;
    Hide();
    if (row < 0 || row >= static_cast<int>(found.rows.size()))
        return;
    QLineEdit& box = *m_form.txtStock;
    const QString before = box.text().left(box.cursorPosition());
    const QString kept = ToQt(FromQt(before).substr(0, found.start));
    const QString ticker = ToQt(found.rows[static_cast<std::size_t>(row)].ticker);
    box.setText(kept + ticker + box.text().mid(before.size()));
    m_box.EnterTickers();
    Hide();
}

bool TickerCompletion::eventFilter(QObject* watched, QEvent* event) {
    const bool isOfBox = watched == m_form.txtStock;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (isOfBox && OwnKey(*event)) {
            event->accept();
            return true;
        }
        break;
    case QEvent::KeyPress:
        if (const int key = isOfBox ? OwnKey(*event) : 0) {
            Press(key);
            return true;
        }
        if (isOfBox && IsEnter(static_cast<QKeyEvent*>(event)->key()))
            Hide();
        break;
    case QEvent::FocusOut:
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize:
        if (isOfBox)
            Hide();
        break;
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
        // A press on what takes no focus ends it, too.
        if (IsShown() && watched->isWidgetType() && watched != m_list &&
            !m_list->isAncestorOf(static_cast<QWidget*>(watched)))
            Hide();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tallowmere
