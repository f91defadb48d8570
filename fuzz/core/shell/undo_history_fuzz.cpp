#include "core/shell/undo_history.h"

#include "check.h"

#include <cstddef>
#include <cstdint>

using namespace tallowmere;

// Whatever the file says, what was read of it is read back the same, and no step that fits a text
// reaches beyond it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    UndoHistory history = ReadUndoHistory(input).value_or(UndoHistory());
    Check(ReadUndoHistory(history.Text()) == history);
    for (; history.Next(UndoDirection::Back); history.Pass(UndoDirection::Back))
        for (UndoChange change : history.Next(UndoDirection::Back)->changes) {
            // As if it had been made on this very text, which no input could say of itself.
            change.afterPrint = PrintOf(input);
            if (!Fits(change, UndoDirection::Back, input))
                continue;
            const auto changed = Changed(change, UndoDirection::Back, input);
            Check(!changed ||
                  changed->size() + change.after.size() == input.size() + change.before.size());
        }
    return 0;
}
