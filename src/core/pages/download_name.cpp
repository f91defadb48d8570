#include "core/pages/download_name.h"

#include "core/text/bytes.h"
#include "core/text/plain_text.h"

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

constexpr std::size_t kLongestName = 200;
constexpr std::size_t kLongestExtension = 40; // what is longer is none
constexpr std::string_view kKeptForTheSystem = "<>:\"|?*";
constexpr std::string_view kNameless = "download";

// clang-format off
constexpr std::array<std::string_view, 6> kDevices = {"con", "prn", "aux", "nul", "conin$", "conout$"};
constexpr std::array<std::string_view, 2> kNumberedDevices = {"com", "lpt"};

constexpr std::string_view kProgramExtensions[] = {
    "action", "app", "appimage", "application", "appref-ms", "appx", "appxbundle", "apk",
    "bash", "bat", "bin", "chm", "cmd", "com", "command", "cpl", "crx", "csh",
    "deb", "desktop", "dll", "dmg", "exe", "fish", "flatpak", "flatpakref", "gadget",
    "hta", "inf", "ins", "isp", "jar", "jnlp", "js", "jse", "ksh", "kts", "lnk", "lua",
    "msc", "msi", "msix", "msixbundle", "msp", "mst", "out", "pif", "pkg", "pl",
    "ps1", "psm1", "py", "pyc", "pyw", "pyz", "rb", "reg", "rpm", "run",
    "scf", "scpt", "scr", "sct", "search-ms", "service", "settingcontent-ms", "sh", "shb", "shs",
    "snap", "sys", "tcl", "terminal", "tool", "url", "vb", "vbe", "vbs", "vbscript",
    "website", "workflow", "ws", "wsc", "wsf", "wsh", "xbap", "xll", "xpi", "zsh",
};
// clang-format on

std::string_view WithoutEdges(std::string_view name) {
    name.remove_prefix(std::min(name.find_first_not_of(". -"), name.size()));
    const std::size_t last = name.find_last_not_of(". ");
    return name.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

bool IsDevice(std::string_view name) {
    const std::string lower = ToLower(name.substr(0, name.find('.')));
    const std::string base(Trim(lower));
    if (std::ranges::find(kDevices, base) != kDevices.end())
        return true;
    return std::ranges::any_of(kNumberedDevices, [&](std::string_view device) {
        if (!base.starts_with(device))
            return false;
        const std::string_view number = std::string_view(base).substr(device.size());
        const bool isDigit = number.size() == 1 && number[0] >= '0' && number[0] <= '9';
        // The raised digits count as digits, too.
        return isDigit || number == "\xC2\xB9" || number == "\xC2\xB2" || number == "\xC2\xB3";
    });
}

/// The extension with its dot; empty when there is none.
std::string_view ExtensionOf(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0 || name.size() - dot > kLongestExtension)
        return {};
    return name.substr(dot);
}

} // namespace

std::string PlainDownloadName(std::string_view suggested) {
    std::string name = WithoutHiddenCharacters(PercentDecode(suggested), '_');
    name.erase(0, name.find_last_of("/\\") + 1); // nothing when there is no folder
    for (char& c : name)
        if (kKeptForTheSystem.find(c) != std::string_view::npos)
            c = '_';
    name = WithoutEdges(name);
    if (IsDevice(name))
        name.insert(0, 1, '_');
    if (name.size() > kLongestName) {
        const std::string extension(ExtensionOf(name));
        const std::string_view stem =
            std::string_view(name).substr(0, name.size() - extension.size());
        name =
            std::string(WithoutEdges(FrontOf(stem, kLongestName - extension.size()))) + extension;
    }
    return name.empty() ? std::string(kNameless) : name;
}

bool RunsWhenOpened(std::string_view name) {
    const std::string plain = ToLower(WithoutEdges(name));
    const std::size_t dot = plain.rfind('.');
    if (dot == std::string::npos)
        return false;
    const std::string_view extension = std::string_view(plain).substr(dot + 1);
    return std::ranges::find(kProgramExtensions, extension) != std::end(kProgramExtensions);
}

} // namespace tallowmere
