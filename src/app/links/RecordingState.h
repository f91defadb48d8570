#pragma once

#include <QString>

namespace tallowmere {

/// What the links, the panes and the recorder of multi-links share while one is recorded.
struct RecordingState {
    bool templateMode = false;     ///< links yield their addresses with placeholder words
    QString multiLinkPage;         ///< the page that is being recorded
    bool multiLinkPending = false; ///< recording was started from the editor ...
    int multiLinkSlot = 0;         ///< ... for this slot
};

} // namespace tallowmere
