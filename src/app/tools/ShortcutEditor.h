#pragma once

#include "app/forms/frmShortcuts.h"

#include <QObject>
#include <QPointer>

#include <string>
#include <vector>

class QKeySequence;
class QTreeWidgetItem;

namespace tallowmere {

class CommandKeys;
class Prompts;
class frmMain;
struct CommandRow;

/// The window of the keyboard shortcuts: lists the commands and gives them other keys.
class ShortcutEditor : public QObject {
    Q_OBJECT
public:
    ShortcutEditor(frmMain& form, Prompts& prompts);

    /// Opens the window, or brings it to the front.
    void Show();

    /// The window while it is open.
    frmShortcuts* Window() const { return m_window; }

private:
    void Connect();
    void List();
    void ShowSelected();
    void KeysTyped(const QKeySequence& keys);
    void Set(bool isFurther);
    void Reset();
    void ResetAll();
    void Give(const std::vector<std::string>& chords);
    void Say(const QString& text);
    std::string TypedChord() const;
    const CommandRow* Row() const;

    frmMain& m_form;
    Prompts& m_prompts;
    CommandKeys& m_keys;
    QPointer<frmShortcuts> m_window;
};

} // namespace tallowmere
