#include "app/links/SmartNavigate.h"

#include "app/base/QtText.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/forms/frmNav.h"
#include "app/links/PaneDeck.h"
#include "core/links/smart_navigate.h"
#include "core/shell/navigate_list.h"
#include "core/shell/settings_store.h"

namespace tallowmere {

SmartNavigate::SmartNavigate(frmMain& form, SettingsStore& settings, PaneDeck& panes)
    : QObject(&form), m_form(form), m_settings(settings), m_panes(panes) {}

void SmartNavigate::Show() {
    const std::vector<std::string> remembered = ReadNavigateEntries(m_settings);
    frmNav dialog(&m_form);
    for (const std::string& entry : remembered)
        dialog.Combo1->addItem(ToQt(entry));
    // None of them is chosen yet: the first Down gives the newest.
    dialog.Combo1->setCurrentIndex(-1);
    const bool confirmed = dialog.exec() == QDialog::Accepted;
    const std::string address =
        confirmed ? CompleteEntry(FromQt(dialog.Combo1->currentText())) : std::string();
    if (address.empty()) {
        m_panes.OpenNextOutside(false);
        return;
    }
    SaveNavigateEntries(m_settings, address, remembered);
    if (m_panes.Front() != m_form.Web)
        m_panes.ShowFirst();
    m_form.Web->Navigate(ToQt(address));
}

} // namespace tallowmere
