#pragma once

#include "core/shell/commands.h"

#include <QObject>

#include <map>

class QAction;
class QWidget;

namespace tallowmere {

class CommandKeys;

/// The commands of one window: an action for every row of the table that has its place there, with
/// the shortcuts that hold now.
class WindowCommands : public QObject {
    Q_OBJECT
public:
    /// The window owns this and the actions.
    WindowCommands(QWidget& window, CommandKeys& keys, CommandPlaces places);

    /// The action of a command; throws std::out_of_range when the window has none of that name.
    QAction* At(std::string_view name) const;

    /// The same for a command that is awaited: it is shown and has its shortcut from now on.
    QAction* Offer(std::string_view name) const;

private:
    void SetKeys();

    CommandKeys& m_keys;
    std::map<std::string_view, QAction*> m_actions;
};

} // namespace tallowmere
