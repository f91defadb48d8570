#pragma once

#include <QElapsedTimer>
#include <QObject>

class QWidget;

namespace tallowmere {

/// Notices when the user clicks or presses a key on a page, so that what the user wants can be told
/// from what the page does by itself. The engine does not say.
class UserInput : public QObject {
    Q_OBJECT
public:
    /// `view` shows the page.
    explicit UserInput(QWidget* view);

    /// Whether the user did something on the page a moment ago.
    bool IsFresh() const;
    /// What the user did last has had its effect.
    void Consume() { m_since.invalidate(); }

Q_SIGNALS:
    void Happened();
    /// The wheel was turned while the key was held that makes pages larger and smaller: by so many
    /// eighths of a degree, away from the user when above zero.
    void Scaled(int angle);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Watch(QObject* object);

    QElapsedTimer m_since;
};

} // namespace tallowmere
