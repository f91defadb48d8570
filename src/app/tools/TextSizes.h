#pragma once

#include <QFont>

#include <cstddef>

namespace tallowmere {

class MainMenus;
class SettingsStore;

/// How big the texts of all windows are: the system's own size, or somewhat smaller or larger, as
/// chosen in the View menu and kept in the settings.
class TextSizes {
public:
    /// Gives the windows that are made from now on the size that the settings say.
    explicit TextSizes(SettingsStore& settings);
    /// Gives the system's size back.
    ~TextSizes();

    /// Lets the commands of the menu choose the size; this outlives them.
    void Serve(MainMenus& menus);
    /// Shows the size that the settings say by now.
    void Read();

private:
    void Show(std::size_t index);

    SettingsStore& m_settings;
    QFont m_systemFont;
    MainMenus* m_menus = nullptr; ///< null until they are served
};

} // namespace tallowmere
