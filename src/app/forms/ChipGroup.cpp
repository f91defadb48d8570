#include "app/forms/ChipGroup.h"

#include "app/base/FlowLayout.h"
#include "app/forms/Chip.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>

namespace tallowmere {

namespace {

constexpr int kGap = 3;
constexpr double kHeadingFontScale = 0.8;

} // namespace

ChipGroup::ChipGroup(const QString& heading, QWidget* parent) : QWidget(parent) {
    if (heading.isEmpty()) {
        auto* row = new QHBoxLayout(this);
        row->setContentsMargins(kGap, 0, kGap, 0);
        row->setSpacing(kGap);
        m_flow = row;
        return;
    }
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kGap, 2, kGap, 2);
    column->setSpacing(2);
    m_heading = new QLabel(heading, this);
    ApplyFont();
    column->addWidget(m_heading);
    m_flow = m_wrapping = new FlowLayout(nullptr, kGap);
    column->addLayout(m_flow);
    setAccessibleName(heading);
}

void ChipGroup::ApplyFont() {
    if (!m_heading)
        return;
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * kHeadingFontScale);
    small.setBold(true);
    m_heading->setFont(small);
}

void ChipGroup::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        ApplyFont();
}

void ChipGroup::Add(Chip* chip) {
    m_flow->addWidget(chip);
    chip->installEventFilter(this);
    m_chips.append(chip);
    if (m_chips.size() == 1)
        MakeEntry(chip);
}

void ChipGroup::SetEqualColumns() {
    if (m_wrapping)
        m_wrapping->SetEqualColumns(true);
}

void ChipGroup::MakeEntry(Chip* chip) {
    for (Chip* other : std::as_const(m_chips))
        other->setFocusPolicy(other == chip ? Qt::StrongFocus : Qt::ClickFocus);
}

void ChipGroup::ScrollTo(Chip* chip) {
    for (QWidget* ancestor = parentWidget(); ancestor; ancestor = ancestor->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(ancestor)) {
            // Wide enough a margin that no scroll arrow covers the chip.
            const QPoint middle = chip->mapTo(area->widget(), chip->rect().center());
            area->ensureVisible(middle.x(), middle.y(), chip->width() / 2 + 2 * chip->height(),
                                chip->height());
            return;
        }
    }
}

bool ChipGroup::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        auto* chip = static_cast<Chip*>(watched);
        MakeEntry(chip);
        ScrollTo(chip);
    }
    return QWidget::eventFilter(watched, event);
}

void ChipGroup::keyPressEvent(QKeyEvent* event) {
    const auto* from = dynamic_cast<Chip*>(focusWidget());
    Chip* to = from ? Neighbour(from, event->key()) : nullptr;
    if (to)
        to->setFocus(Qt::TabFocusReason);
    else
        QWidget::keyPressEvent(event);
}

// Left and right follow the order of the chips; up and down take the nearest chip of that row.
Chip* ChipGroup::Neighbour(const Chip* from, int key) const {
    const auto at = m_chips.indexOf(const_cast<Chip*>(from));
    const bool forward = key == Qt::Key_Right || key == Qt::Key_Down;
    if (!forward && key != Qt::Key_Left && key != Qt::Key_Up)
        return nullptr;
    const bool sideways = key == Qt::Key_Left || key == Qt::Key_Right;
    Chip* best = nullptr;
    for (auto i = at + (forward ? 1 : -1); i >= 0 && i < m_chips.size(); i += forward ? 1 : -1) {
        Chip* candidate = m_chips[i];
        if (!candidate->isVisible() || !candidate->isEnabled())
            continue;
        if (sideways)
            return candidate;
        if (candidate->y() == from->y())
            continue;
        if (best && candidate->y() != best->y())
            break;
        const auto distance = [from](const Chip* chip) {
            return std::abs(chip->geometry().center().x() - from->geometry().center().x());
        };
        if (!best || distance(candidate) < distance(best))
            best = candidate;
    }
    return best;
}

} // namespace tallowmere
