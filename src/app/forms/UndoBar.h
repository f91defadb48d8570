#pragma once

#include <QFrame>
#include <QTimer>

class QLabel;
class QPushButton;

namespace tallowmere {

/// The quiet bar under the ticker list: says what was removed, for ten seconds, and offers to bring
/// it back. It stays while it is pointed at or has the focus, and while a dialog is open.
class UndoBar : public QFrame {
    Q_OBJECT
public:
    explicit UndoBar(QWidget* parent);

    /// Shows the words and starts their ten seconds.
    void Tell(const QString& words);
    /// Starts the ten seconds anew if the bar is there.
    void Stay();
    void Dismiss();

    QString Words() const;

    QTimer Seconds;

Q_SIGNALS:
    void UndoWanted();
    /// It came or went: the layout has to be run.
    void Switched();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void TimeOut();

    QLabel* m_words;
    QPushButton* m_undo;
};

} // namespace tallowmere
