#pragma once

#include "app/base/Services.h"
#include "core/tools/color_config.h"

#include <QObject>

class QWidget;

namespace tallowmere {

class frmColor;

/// The dialog of the colours: shows the colours of the chosen area and saves each change at once.
class ColorSettings : public QObject {
    Q_OBJECT
public:
    explicit ColorSettings(const Services& services, QObject* parent);

    /// Shows the dialog over `owner` and returns when it is closed.
    void Show(QWidget* owner);

private:
    void ChooseArea(frmColor& dialog);
    void ChangeColor(frmColor& dialog, bool background);

    Services m_services;
    ColorPair m_sample{};
};

} // namespace tallowmere
