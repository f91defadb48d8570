#pragma once

#include "shell/settings_store.h"

#include <QByteArray>
#include <QString>
#include <QWidget>

namespace tallowmere {

class WebAccess;

/// The pool of transfer controls that page fetches take theirs from.
class TransferPool {
public:
    explicit TransferPool(const WebAccess& access) : m_access(access) {}
    QByteArray FetchPage(const QString& address);
    void SetProxy(const QString& server) { m_proxy = server; }
    void SetAccessType(int type) { m_accessType = type; }
    void CancelAll() {}

private:
    const WebAccess& m_access;
    QString m_proxy;
    int m_accessType = 0;
};

/// Puts a form where its section of the settings says, in twips. Throws RuntimeError for a value
/// that is no number.
void LoadFormPosition(QWidget& form, const SettingsStore& settings);

/// Writes a form's place and size, unless it is minimised.
void SaveFormPosition(const QWidget& form, SettingsStore& settings);

} // namespace tallowmere
