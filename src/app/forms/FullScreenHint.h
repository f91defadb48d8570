#pragma once

#include <QFrame>
#include <QTimer>

class QLabel;

namespace tallowmere {

/// What says over the page that it has the whole screen, and how to get back. It goes by itself
/// after a few seconds; no page can take it away or cover it.
class FullScreenHint : public QFrame {
    Q_OBJECT
public:
    explicit FullScreenHint(QWidget* parent);

    /// What it says from now on; plain text, which may name a site.
    void SetText(const QString& text);
    /// Shows it at the upper edge of what it lies over, for a few seconds from now.
    void ShowForAWhile();

    QTimer Seconds; ///< until it goes

Q_SIGNALS:
    /// The user wants back.
    void LeaveWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Place();
    void TimeOut();

    QLabel* m_words;
};

} // namespace tallowmere
