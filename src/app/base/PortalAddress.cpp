#include "app/base/PortalAddress.h"

#include "core/text/bytes.h"

#include <QCryptographicHash>

namespace tallowmere {

namespace {

constexpr auto kPagesEnding = ".pages";

} // namespace

// Names hold what no host can: a digest of them does as well.
QUrl PortalAddress::Page(std::string_view name) {
    const QByteArray digest =
        QCryptographicHash::hash(QByteArray(name.data(), static_cast<qsizetype>(name.size())),
                                 QCryptographicHash::Sha256)
            .toHex()
            .left(16);
    return QUrl::fromEncoded("portal://p" + digest + kPagesEnding + "/" +
                             QByteArray::fromStdString(PercentEncode(name)));
}

bool PortalAddress::IsPagesHost(const QString& host) {
    return host.endsWith(QLatin1String(kPagesEnding));
}

} // namespace tallowmere
