#include "app/base/FinderSource.h"

#include "app/base/PortalAddress.h"
#include "app/base/WebAccess.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

QString HostOfBuilt(const QString& built, const WebAccess& access) {
    const QUrl url = UrlFromAddress(built);
    if (!IsWebUrl(url))
        return {};
    if (access.Mode() != WebMode::Live)
        return url.host();
    const auto today = access.ResolveByTables(url, AddressUse::Page);
    const bool isPortal = today && today->scheme() == PortalAddress::Scheme();
    if (!today || (!isPortal && today->host() == url.host()))
        return url.host();
    return url.host() + u" \u2192 "_s + (isPortal ? u"this program"_s : today->host());
}

} // namespace tallowmere
