#pragma once

#include "core/backup/backup_files.h"
#include "core/backup/restore_plan.h"

namespace tallowmere {

class SettingsStore;

/// Writes what a plan says, all of it or nothing. Before the first store is touched the whole plan
/// is on disk, in one file; when the program ends in between, FinishRestore goes on with it at the
/// next start. A store that cannot be written brings the others back to what they held. Throws
/// RuntimeError then; and in the words of the message when bringing them back failed, too.
void Restore(const StorePlaces& places, SettingsStore& settings, const RestorePlan& plan);

/// Finishes a restore in whose middle the program ended, before any store is read; gives whether
/// there was one. Throws RuntimeError when it cannot be finished: the stores are of two times then,
/// and the next start tries again.
bool FinishRestore(const StorePlaces& places);

/// Where a restore that is not finished lies.
std::filesystem::path RestoreFile(const StorePlaces& places);

} // namespace tallowmere
