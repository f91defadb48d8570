#include "app/shell/ClosingNote.h"

#include "core/text/files.h"
#include "core/text/runtime_error.h"

namespace tallowmere {

namespace {

constexpr std::string_view kFile = "closing.txt";

} // namespace

void LeaveClosingNote(const std::filesystem::path& folder, std::string_view problem) {
    try {
        WriteWholeFile(folder / kFile, problem);
    } catch (const RuntimeError&) {
        // The disk that did not take the settings does not take this.
    }
}

std::string TakeClosingNote(const std::filesystem::path& folder) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(folder / kFile, error))
        return {};
    std::string problem;
    try {
        problem = ReadExistingFile(folder / kFile);
    } catch (const RuntimeError& unreadable) {
        problem = unreadable.what();
    }
    std::filesystem::remove(folder / kFile, error);
    return "When Tallowmere was ended last, not everything could be saved:\n" + problem;
}

} // namespace tallowmere
