#pragma once

#include <QMenu>

namespace tallowmere {

/// A menu of names that the user gave. A long one is shown shortened; the text of its item, which a
/// screen reader says, stays whole.
class NameMenu : public QMenu {
public:
    explicit NameMenu(const QString& title, QWidget* parent = nullptr);

protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
};

} // namespace tallowmere
