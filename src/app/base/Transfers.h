#pragma once

#include "app/base/TransferControl.h"
#include "app/base/modMain.h"

namespace tallowmere {

/// The internet transfer controls of the main window.
struct Transfers {
    explicit Transfers(const WebAccess& access);

    TransferControl tmNet;   ///< `TMNet`: the club's pages and the lists of the menus
    TransferControl spooNet; ///< `SpooNet`: the page of the indices
    TransferPool inet;       ///< `Inet`: pages that are fetched as text

    /// The proxy of all of them from now on.
    void UseProxy(const ProxySetting& setting);

    /// Breaks off whatever is under way.
    void CancelAll();
};

} // namespace tallowmere
