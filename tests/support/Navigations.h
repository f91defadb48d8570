#pragma once

#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"

namespace tallowmere {

/// Records what a window's panes are sent to ("Web: address") and keeps the engine out of it:
/// every navigation is cancelled once the window's own rules have seen it.
class Navigations : public QStringList {
public:
    explicit Navigations(frmMain& form) {
        for (BrowserPane* pane : {form.Web, form.WebB, form.WebTick})
            m_connections << QObject::connect(pane, &BrowserPane::BeforeNavigate2, pane,
                                              [this, pane](const QString& address, bool* cancel) {
                                                  // Cancelled already: recorded, rewritten or sent
                                                  // outside.
                                                  if (!*cancel)
                                                      append(pane->objectName() +
                                                             QStringLiteral(": ") + address);
                                                  *cancel = true;
                                              });
    }
    ~Navigations() {
        for (const QMetaObject::Connection& connection : std::as_const(m_connections))
            QObject::disconnect(connection);
    }
    Navigations(const Navigations&) = delete;
    Navigations& operator=(const Navigations&) = delete;

private:
    QList<QMetaObject::Connection> m_connections;
};

} // namespace tallowmere
