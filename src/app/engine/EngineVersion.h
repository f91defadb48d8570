#pragma once

#include <QString>

namespace tallowmere {

/// What the web engine behind the panes says of itself.
struct EngineVersion {
    /// "Qt 6.4.2, Chromium 102.0.5005.177 with security patches up to 108.0.5359.94"
    static QString Text();
    /// The version of Chromium whose security patches it holds: "108.0.5359.94".
    static const char* SecurityPatch();
};

} // namespace tallowmere
