#pragma once

#include <QByteArray>

#ifndef _WIN32
#include <unistd.h>
#endif

/// The engine's sandbox refuses to run for root. Benches measure pages of their own alone; who runs
/// them need not set anything by hand. Before the application object is made.
inline void AllowRoot() {
#ifndef _WIN32
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
#endif
}
