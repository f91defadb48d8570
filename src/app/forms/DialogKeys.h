#pragma once

#include <QObject>

namespace tallowmere {

class CommandKeys;

/// Gives every dialog the shortcut that closes it, as by Escape. Boxes that ask something keep to
/// their answers.
class DialogKeys : public QObject {
    Q_OBJECT
public:
    /// Works on the dialogs of the application as long as it lives.
    DialogKeys(CommandKeys& keys, QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    CommandKeys& m_keys;
};

} // namespace tallowmere
