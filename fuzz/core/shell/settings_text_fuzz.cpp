#include "core/shell/settings_text.h"

#include "check.h"
#include "core/text/bytes.h"

#include <cstddef>
#include <cstdint>
#include <tuple>

using namespace tallowmere;

// The input is a file, a section, a key and a value, apart by a byte that UTF-8 never has. Whatever
// they are, the value is read back, every other value stays, and a second write changes nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    auto pieces = Split(input, '\xFE');
    pieces.resize(4);
    const auto [text, section, key, value] = std::tie(pieces[0], pieces[1], pieces[2], pieces[3]);

    const SettingsValues before(text);
    const std::string changed = ChangeSettingsText(text, section, key, value);
    const SettingsValues after(changed);

    const std::string* read = after.Find(section, key);
    Check(read != nullptr && *read == value);
    Check(!IsDamagedSettingsText(changed));
    Check(ChangeSettingsText(changed, section, key, value) == changed);

    for (const std::string& other : {"Settings", "Colors", "a", "s"})
        for (const std::string& name : {"Tips", "a", "b", "", "k"}) {
            const bool same = ToLower(other) == ToLower(section) && ToLower(name) == ToLower(key);
            const std::string* was = before.Find(other, name);
            const std::string* is = after.Find(other, name);
            Check(same || (was == nullptr ? is == nullptr : is != nullptr && *is == *was));
        }
    return 0;
}
