#include "app/base/Transfers.h"

namespace tallowmere {

Transfers::Transfers(const WebAccess& access) : tmNet(access), spooNet(access), inet(access) {}

void Transfers::UseProxy(const ProxySetting& setting) {
    tmNet.UseProxy(setting);
    spooNet.UseProxy(setting);
    inet.UseProxy(setting);
}

void Transfers::CancelAll() {
    tmNet.Cancel();
    spooNet.Cancel();
    inet.CancelAll();
}

} // namespace tallowmere
