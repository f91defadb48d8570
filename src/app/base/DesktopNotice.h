#pragma once

#include <QObject>
#include <QtDBus/QDBusConnection>

#include <functional>
#include <optional>

namespace tallowmere {

/// A notice of the desktop, shown outside of the program's windows by whatever service the session
/// has for it. The session's bus is asked for with the first notice.
class DesktopNotice : public QObject {
    Q_OBJECT
public:
    explicit DesktopNotice(QObject* parent);

    /// Shows a notice in the place of the last one. `failed` is called when there is no service, or
    /// it refuses, at once or later.
    void Show(const QString& title, const QString& text, const std::function<void()>& failed);

    /// Another bus than the session's, for tests.
    void UseBus(const QDBusConnection& bus) { m_bus = bus; }

Q_SIGNALS:
    /// The user clicked on the notice.
    void Clicked();

private Q_SLOTS:
    void Invoked(uint id, const QString& action);

private:
    std::optional<QDBusConnection> m_bus;
    bool m_isListening = false;
    uint m_id = 0; ///< of the notice that was shown last
};

} // namespace tallowmere
