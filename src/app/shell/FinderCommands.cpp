#include "app/shell/FinderCommands.h"

#include "app/base/QtText.h"
#include "app/forms/frmMain.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view kKey = "command ";
constexpr std::string_view kOwnName = "findAnything";

std::string_view NameIn(const FinderItem& item) {
    return std::string_view(item.key).substr(kKey.size());
}

} // namespace

FinderCommands::FinderCommands(frmMain& form) : m_form(form) {}

void FinderCommands::Offer(std::vector<FinderItem>& items) {
    for (const CommandRow& row : Commands()) {
        if ((row.places & kMainWindow) == 0 || !TakesShortcut(row) || row.name == kOwnName ||
            row.menu == CommandMenu::Select)
            continue;
        const QAction* action = m_form.menus->At(row.name);
        if (action->isEnabled() && action->isVisible())
            items.push_back({FinderKind::Command,
                             SpokenCaption(FromQt(action->text())),
                             std::string(row.words) + ' ' + SpokenMenu(row.menu),
                             std::string(kKey).append(row.name),
                             {},
                             0});
    }
}

QAction* FinderCommands::ActionOf(const FinderItem& item) const {
    return m_form.menus->At(NameIn(item));
}

QString FinderCommands::Detail(const FinderItem& item, const QString&) {
    const QString menu = ToQt(SpokenMenu(FindCommand(NameIn(item))->menu));
    const QString keys = ActionOf(item)->shortcut().toString(QKeySequence::NativeText);
    return keys.isEmpty() ? menu : menu + u", "_s + keys;
}

// It may be that it can be given no more.
void FinderCommands::Open(const FinderItem& item, PagePlace, const QString&) {
    ActionOf(item)->trigger();
}

} // namespace tallowmere
