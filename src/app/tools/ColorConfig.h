#pragma once

#include "app/base/Services.h"
#include "core/tools/color_config.h"

#include <QObject>

namespace tallowmere {

class frmMain;
class Portfolios;

/// Applies the colours of all areas to the controls of the main window.
class ColorConfig : public QObject {
    Q_OBJECT
public:
    ColorConfig(frmMain& form, const Services& services, Portfolios& portfolios);

    void Apply();

    /// Applies them anew when the desktop changes its own colours.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    frmMain& m_form;
    Services m_services;
    Portfolios& m_portfolios;
};

} // namespace tallowmere
