#pragma once

#include "app/base/WebAccess.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/EngineProfile.h"
#include "support/Await.h"
#include "support/TestPrompts.h"

namespace tallowmere {

/// One run of the engine with a pane, on a profile folder that outlives it.
struct PaneRun {
    explicit PaneRun(const QString& folder)
        : profile(folder + QStringLiteral("/engine"), folder, access, prompts),
          pane(profile, prompts) {
        pane.resize(400, 300);
        pane.show();
    }
    /// Navigates and waits for the end of the load; false when there is none.
    bool Show(const QString& address) {
        pane.Navigate(address);
        return Await([this] { return !pane.Busy(); });
    }

    TestPrompts prompts;
    WebAccess access{WebMode::Direct};
    EngineProfile profile;
    BrowserPane pane;
};

} // namespace tallowmere
