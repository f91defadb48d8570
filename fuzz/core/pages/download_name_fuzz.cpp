#include "core/pages/download_name.h"

#include "core/pages/plain_text_check.h"
#include "core/text/bytes.h"

#include <array>
#include <cstddef>
#include <string>

namespace {

using namespace tallowmere;

constexpr std::size_t kLongest = 200;
constexpr std::size_t kLongestExtension = 40;

/// Whether a file system of devices would open one under this name.
bool IsDevice(std::string_view name) {
    constexpr std::array<std::string_view, 6> plain = {"con", "prn",    "aux",
                                                       "nul", "conin$", "conout$"};
    const std::string lower = ToLower(name);
    const std::string_view base = Trim(std::string_view(lower).substr(0, lower.find('.')));
    for (const std::string_view device : plain)
        if (base == device)
            return true;
    constexpr std::array<std::string_view, 13> numbers = {
        "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "\xC2\xB9", "\xC2\xB2", "\xC2\xB3"};
    for (const std::string_view number : numbers)
        if (base == "com" + std::string(number) || base == "lpt" + std::string(number))
            return true;
    return false;
}

/// Behind the last dot, when that has a name in front of it.
std::string Extension(std::string_view name) {
    const auto dot = name.rfind('.');
    return dot == name.npos || dot == 0 ? std::string() : std::string(name.substr(dot));
}

void CheckPlain(const std::string& name) {
    Demand(!name.empty() && name.size() <= kLongest && IsPlain(name));
    Demand(name.find_first_of("/\\<>:\"|?*") == std::string::npos);
    Demand(std::string_view(". -").find(name.front()) == std::string_view::npos);
    Demand(std::string_view(". ").find(name.back()) == std::string_view::npos);
    Demand(!IsDevice(name));
}

} // namespace

// Whatever a site suggests, the name is a plain one; and however long it makes its name, what the
// file is stays to be seen.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string suggested(reinterpret_cast<const char*>(data), size);
    const std::string name = PlainDownloadName(suggested);
    CheckPlain(name);
    if (!Contains(name, "%"))
        Demand(PlainDownloadName(name) == name);

    // The folder says nothing about the name, and what is in front of a name nothing about what
    // it runs as.
    Demand(PlainDownloadName("/x/../" + suggested) == name);
    const std::string extension = Extension(name);
    const std::string longer = PlainDownloadName(std::string(3 * kLongest, 'a') + name);
    CheckPlain(longer);
    if (!extension.empty() && extension.size() <= kLongestExtension && !Contains(name, "%")) {
        Demand(Extension(longer) == extension);
        Demand(RunsWhenOpened(longer) == RunsWhenOpened(name));
    }
    // Systems drop what is behind the last letter.
    Demand(RunsWhenOpened(name + ". .") == RunsWhenOpened(name));
    return 0;
}
