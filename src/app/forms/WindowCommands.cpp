#include "app/forms/WindowCommands.h"

#include "app/base/CommandKeys.h"
#include "app/base/QtText.h"

#include <QAction>
#include <QWidget>

namespace tallowmere {

WindowCommands::WindowCommands(QWidget& window, CommandKeys& keys, CommandPlaces places)
    : QObject(&window), m_keys(keys) {
    for (const CommandRow& row : Commands()) {
        if ((row.places & places) == 0 || row.kind == CommandKind::Submenu)
            continue;
        auto* action = new QAction(ToQt(row.caption), &window);
        action->setObjectName(ToQt(row.name));
        action->setCheckable(row.kind == CommandKind::Checkable);
        action->setVisible(row.kind != CommandKind::Awaited);
        // The shortcuts work without a menu, too.
        window.addAction(action);
        m_actions.emplace(row.name, action);
    }
    SetKeys();
    connect(&keys, &CommandKeys::Changed, this, &WindowCommands::SetKeys);
}

void WindowCommands::SetKeys() {
    for (const auto& [name, action] : m_actions)
        action->setShortcuts(m_keys.Of(name));
}

QAction* WindowCommands::At(std::string_view name) const {
    return m_actions.at(name);
}

QAction* WindowCommands::Offer(std::string_view name) const {
    QAction* action = At(name);
    action->setVisible(true);
    return action;
}

} // namespace tallowmere
