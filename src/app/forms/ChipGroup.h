#pragma once

#include <QWidget>

class QLabel;

namespace tallowmere {

class Chip;
class FlowLayout;

/// The chips of one area under a small heading. Tab enters the group once; the arrow keys move
/// inside it.
class ChipGroup : public QWidget {
public:
    /// Without a heading the chips stand in a single row that never breaks.
    ChipGroup(const QString& heading, QWidget* parent);

    void Add(Chip* chip);
    /// Lets the chips below the heading stand in columns of one width.
    void SetEqualColumns();
    const QList<Chip*>& Chips() const { return m_chips; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void ApplyFont();
    Chip* Neighbour(const Chip* from, int key) const;
    void MakeEntry(Chip* chip);
    void ScrollTo(Chip* chip);

    QList<Chip*> m_chips;
    QLabel* m_heading = nullptr; ///< null for a single row
    QLayout* m_flow;
    FlowLayout* m_wrapping = nullptr; ///< the same; null for a single row
};

} // namespace tallowmere
