#include "core/backup/backup_files.h"
#include "core/backup/restore_plan.h"

#include "check.h"

#include "core/text/runtime_error.h"

#include <cstddef>
#include <cstdint>

using namespace tallowmere;

// Whatever an archive holds: only files of stores come out of it, none larger than its limit; it
// can be compared and planned; and a second restore of the same changes nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    BackupFiles backup;
    try {
        backup = UnpackBackup(input);
    } catch (const RuntimeError&) {
        return 0;
    }
    for (const auto& [name, content] : backup) {
        const auto limit = BackupFileLimit(name);
        Check(limit && content.size() <= *limit);
    }
    if (!backup.empty())
        Check(UnpackBackup(PackBackup(backup, 0)) == backup);
    std::set<BackupPart> parts;
    for (const PartChanges& changes : CompareStores({}, backup))
        parts.insert(changes.part);
    BackupFiles now;
    for (const auto& [name, content] : PlanRestore({}, backup, parts).files)
        if (!content.empty())
            now.insert({name, content});
    Check(PlanRestore(now, backup, parts).files.empty());
    return 0;
}
