#pragma once

namespace tallowmere {

class BrowserPane;

/// Keeps the window alive until `pane` loads no page any more, for a minute at most, or is gone.
void WaitWhileBusy(BrowserPane& pane);

} // namespace tallowmere
