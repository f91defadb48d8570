#include "app/base/DesktopNotice.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

// What desktops have agreed on.
QString Service() {
    return u"org.freedesktop.Notifications"_s;
}
QString Path() {
    return u"/org/freedesktop/Notifications"_s;
}
QString ClickAction() {
    return u"default"_s;
}
constexpr int kAsTheDesktopLikes = -1;

} // namespace

DesktopNotice::DesktopNotice(QObject* parent) : QObject(parent) {}

void DesktopNotice::Show(const QString& title, const QString& text,
                         const std::function<void()>& failed) {
    if (!m_bus)
        m_bus = QDBusConnection::sessionBus();
    if (!m_bus->isConnected()) {
        failed();
        return;
    }
    if (!m_isListening)
        m_isListening = m_bus->connect(Service(), Path(), Service(), u"ActionInvoked"_s, this,
                                       SLOT(Invoked(uint, QString)));
    QDBusMessage call = QDBusMessage::createMethodCall(Service(), Path(), Service(), u"Notify"_s);
    const QVariantMap hints{{u"desktop-entry"_s, u"org.tallowmere.tallowmere"_s}};
    call << u"Tallowmere"_s << m_id << u"org.tallowmere.tallowmere"_s << title << text
         << QStringList{ClickAction(), u"Open"_s} << hints << kAsTheDesktopLikes;
    auto* watcher = new QDBusPendingCallWatcher(m_bus->asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, failed] {
        const QDBusPendingReply<uint> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError())
            failed();
        else
            m_id = reply.value();
    });
}

void DesktopNotice::Invoked(uint id, const QString& action) {
    if (id == m_id && action == ClickAction())
        Q_EMIT Clicked();
}

} // namespace tallowmere
