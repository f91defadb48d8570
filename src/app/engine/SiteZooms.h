#pragma once

#include <QObject>

#include <string>

namespace tallowmere {

class SettingsStore;

/// How large the pages of each site are shown, in all panes.
class SiteZooms : public QObject {
    Q_OBJECT
public:
    /// From now on they are read from the settings and kept in them; before, they last as long as
    /// this.
    void KeepIn(SettingsStore& settings) { m_settings = &settings; }

    /// In percent; 100 where nothing else was set.
    int PercentOf(const std::string& site) const;
    /// Throws RuntimeError when the settings cannot be written.
    void Set(const std::string& site, int percent);

Q_SIGNALS:
    void Changed(const std::string& site);

private:
    std::string List() const;

    SettingsStore* m_settings = nullptr;
    std::string m_list; ///< as in the settings
};

} // namespace tallowmere
