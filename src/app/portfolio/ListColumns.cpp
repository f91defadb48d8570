#include "app/portfolio/ListColumns.h"

#include "app/forms/frmMain.h"
#include "core/portfolio/quote_columns.h"
#include "core/shell/conversion.h"
#include "core/shell/setting_keys.h"
#include "core/shell/settings_store.h"

namespace tallowmere {

ListColumns::ListColumns(frmMain& form, SettingsStore& settings)
    : QObject(&form), m_form(form), m_settings(settings) {
    for (const QuoteColumnRow& row : kQuoteColumns)
        connect(form.menus->At(row.command), &QAction::triggered, this,
                [this, key = row.key](bool isOn) {
                    m_settings.SaveSetting(kSettingsSection, key, FromBoolean(isOn));
                    Apply();
                });
    Read();
}

void ListColumns::Read() {
    for (const QuoteColumnRow& row : kQuoteColumns)
        m_form.menus->At(row.command)
            ->setChecked(ToBoolean(UsableSetting(m_settings, kSettingsSection, row.key)));
    Apply();
}

void ListColumns::Apply() {
    OfColumns<bool> wanted{};
    for (const QuoteColumnRow& row : kQuoteColumns)
        wanted.at(static_cast<std::size_t>(row.column)) =
            m_form.menus->At(row.command)->isChecked();
    m_form.List1->ShowColumns(wanted);
    Q_EMIT Changed();
}

} // namespace tallowmere
