#pragma once

class QString;

namespace tallowmere {

/// Bounds what sites may store in a folder: no more than 1.25 GB in all and three quarters of that
/// for one of them. What goes beyond is refused by the engine, which makes room by clearing the
/// sites that were not used for the longest time. To be called before the engine opens the folder.
///
/// The engine has no setting for it: it allows sites six tenths of the disk. So it is told of a
/// smaller disk when it asks about the one under `folder`. That is possible with the C library of
/// Linux; elsewhere nothing happens.
void BoundSiteStorage(const QString& folder);

} // namespace tallowmere
