#pragma once

#include "core/shell/settings_store.h"
#include "core/tools/color_config.h"

#include <QObject>

class QWidget;

namespace tallowmere {

class Prompts;
class UndoRecorder;
class frmColor;

/// The dialog of the colours: shows the colours of the chosen area, or a scheme for all of them,
/// and saves each change at once; Cancel saves what was there before.
class ColorSettings : public QObject {
    Q_OBJECT
public:
    ColorSettings(SettingsStore& settings, UndoRecorder& undo, Prompts& prompts, QObject* parent);

    /// Shows the dialog over `owner` and returns when it is closed.
    void Show(QWidget* owner);

Q_SIGNALS:
    /// Other colours were saved.
    void Changed();

private:
    void Refresh(frmColor& dialog);
    void ChooseArea(frmColor& dialog);
    void ChangeColor(frmColor& dialog, bool background);
    void Reset(frmColor& dialog);
    void ChooseScheme(frmColor& dialog, int index);
    void Save(const std::string& command, const std::vector<SettingChange>& changes);

    SettingsStore& m_settings;
    UndoRecorder& m_undo;
    Prompts& m_prompts;
    ColorPair m_sample{};
};

} // namespace tallowmere
