#pragma once

#include "core/tools/color_config.h"

#include "core/pages/page_scheme.h"

#include <QObject>

namespace tallowmere {

class Portfolios;
class SettingsStore;
class frmMain;

/// Applies the colours of all areas to the controls of the main window.
class ColorConfig : public QObject {
    Q_OBJECT
public:
    ColorConfig(frmMain& form, SettingsStore& settings);

    void Apply();

    /// Applies them anew when the desktop changes its own colours.
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The colours are on the controls; those that others paint follow, and pages of our own that
    /// are loaded from now on are to be shown so.
    void Applied(PageScheme pages);

private:
    frmMain& m_form;
    SettingsStore& m_settings;
};

} // namespace tallowmere
