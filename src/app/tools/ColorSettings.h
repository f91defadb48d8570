#pragma once

#include "core/tools/color_config.h"

#include <QObject>

class QWidget;

namespace tallowmere {

class Prompts;
class SettingsStore;
class UndoRecorder;
class frmColor;

/// The dialog of the colours: shows the colours of the chosen area and saves each change at once.
class ColorSettings : public QObject {
    Q_OBJECT
public:
    ColorSettings(SettingsStore& settings, UndoRecorder& undo, Prompts& prompts, QObject* parent);

    /// Shows the dialog over `owner` and returns when it is closed.
    void Show(QWidget* owner);

private:
    void ChooseArea(frmColor& dialog);
    void ChangeColor(frmColor& dialog, bool background);

    SettingsStore& m_settings;
    UndoRecorder& m_undo;
    Prompts& m_prompts;
    ColorPair m_sample{};
};

} // namespace tallowmere
