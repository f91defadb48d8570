#pragma once

#include "app/engine/PortalScheme.h"
#include "app/shell/Application.h"

#include <QTest>

#ifndef _WIN32
#include <unistd.h>
#endif

/// The main function of a test that makes windows with panes: it does what has to be done before
/// the application object exists. The engine's sandbox refuses to run for root.
#define TALLOWMERE_WEB_TEST_MAIN(Test)                                                             \
    int main(int argc, char** argv) {                                                              \
        if (geteuid() == 0)                                                                        \
            qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");                                           \
        tallowmere::PortalScheme::Register();                                                      \
        tallowmere::Application application(argc, argv);                                           \
        Test test;                                                                                 \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
