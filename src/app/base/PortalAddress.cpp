#include "app/base/PortalAddress.h"

#include "core/text/bytes.h"

namespace tallowmere {

QUrl PortalAddress::Page(std::string_view name) {
    const std::string url = "portal://pages/" + PercentEncode(name);
    return QUrl::fromEncoded(QByteArray::fromStdString(url));
}

} // namespace tallowmere
