#include "app/links/SearchMenu.h"

#include "app/base/QtText.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace tallowmere {

using namespace Qt::StringLiterals;

SearchMenu::SearchMenu(const QString& caption, const Clock& clock, QWidget* parent)
    : QMenu(MenuCaption(caption), parent), m_clock(clock) {
    setAccessibleName(caption);
    // A long menu scrolls instead of spilling over the screen in columns.
    setStyleSheet(u"QMenu { menu-scrollable: 1; }"_s);
}

void SearchMenu::mouseReleaseEvent(QMouseEvent* event) {
    const QAction* item = actionAt(event->position().toPoint());
    if (item && item->isEnabled() && !item->isSeparator() && !item->menu())
        Q_EMIT Choosing(PlaceOfClick(event->button() == Qt::MiddleButton,
                                     event->modifiers().testFlag(Qt::ControlModifier),
                                     event->modifiers().testFlag(Qt::ShiftModifier)));
    QMenu::mouseReleaseEvent(event);
}

void SearchMenu::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter)
        Q_EMIT Choosing(PlaceOfClick(false, event->modifiers().testFlag(Qt::ControlModifier),
                                     event->modifiers().testFlag(Qt::ShiftModifier)));
    const Qt::KeyboardModifiers commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString typed = event->text();
    // A blank chooses the item in use unless it stands within what is typed.
    const bool isText = !typed.isEmpty() && typed[0].isPrint() && !(event->modifiers() & commands);
    const bool isSearch =
        isText && (typed != u" " || m_typed.IsUnderWay(m_clock.SecondsSinceMidnight()));
    if (isSearch)
        Search(typed);
    else
        QMenu::keyPressEvent(event);
}

void SearchMenu::Search(const QString& typed) {
    std::vector<std::string> captions;
    std::optional<std::size_t> current;
    for (const QAction* action : actions()) {
        if (action->isSeparator() || !action->isEnabled())
            continue;
        if (action == activeAction())
            current = captions.size();
        captions.push_back(FromQt(action->text().replace(u"&&"_s, u"&"_s)));
    }
    const auto found =
        m_typed.Type(FromQt(typed), m_clock.SecondsSinceMidnight(), captions, current);
    if (found)
        Select(*found);
}

// Only the menu's own keys move in it without opening submenus on the way.
void SearchMenu::Select(std::size_t position) {
    QKeyEvent home(QEvent::KeyPress, Qt::Key_Home, Qt::NoModifier);
    QMenu::keyPressEvent(&home);
    for (; position > 0; --position) {
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QMenu::keyPressEvent(&down);
    }
}

} // namespace tallowmere
