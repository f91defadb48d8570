#pragma once

#include <QObject>

namespace tallowmere {

class SettingsStore;
class frmMain;

/// Which columns of the quotes the ticker list shows, as chosen in the View menu and kept in the
/// settings.
class ListColumns : public QObject {
    Q_OBJECT
public:
    ListColumns(frmMain& form, SettingsStore& settings);

    /// Shows the columns that the settings say by now.
    void Read();

Q_SIGNALS:
    /// Other columns are wanted.
    void Changed();

private:
    void Apply();

    frmMain& m_form;
    SettingsStore& m_settings;
};

} // namespace tallowmere
