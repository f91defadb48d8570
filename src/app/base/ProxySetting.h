#pragma once

#include <QString>

class QNetworkAccessManager;

namespace tallowmere {

/// Through which proxy transfers go.
struct ProxySetting {
    /// The access type "named proxy"; any other leaves the choice to the system's settings.
    static constexpr int kNamedProxy = 2;

    QString proxy; ///< "host:port", with "http://" or "socks5://" before it or not
    int accessType = 0;

    /// Makes the next requests of `network` go that way.
    void ApplyTo(QNetworkAccessManager& network) const;
};

} // namespace tallowmere
