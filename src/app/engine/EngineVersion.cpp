#include "app/engine/EngineVersion.h"

#include <QtWebEngineCore/qtwebenginecoreglobal.h>

namespace tallowmere {

using namespace Qt::StringLiterals;

QString EngineVersion::Text() {
    return u"Qt %1, Chromium %2 with security patches up to %3"_s.arg(
        QString::fromLatin1(qWebEngineVersion()), QString::fromLatin1(qWebEngineChromiumVersion()),
        QString::fromLatin1(SecurityPatch()));
}

const char* EngineVersion::SecurityPatch() {
    return qWebEngineChromiumSecurityPatchVersion();
}

} // namespace tallowmere
