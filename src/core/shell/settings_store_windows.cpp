#ifdef _WIN32

#include "core/shell/settings_store_windows.h"

#include "core/text/runtime_error.h"

#include <system_error>
#include <windows.h>

namespace tallowmere {

namespace {

constexpr wchar_t kBranch[] = L"Software\\VB and VBA Program Settings\\Tallowmere\\";

std::wstring ToWide(std::string_view text) {
    if (text.empty())
        return {};
    const int size = static_cast<int>(text.size());
    // What is no UTF-8 comes from a page or an old file: it is read as Windows-1252.
    UINT codePage = CP_UTF8;
    DWORD flags = MB_ERR_INVALID_CHARS;
    int length = MultiByteToWideChar(codePage, flags, text.data(), size, nullptr, 0);
    if (length == 0) {
        codePage = 1252;
        flags = 0;
        length = MultiByteToWideChar(codePage, flags, text.data(), size, nullptr, 0);
    }
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(codePage, flags, text.data(), size, wide.data(), length);
    return wide;
}

std::string FromWide(std::wstring_view wide) {
    if (wide.empty())
        return {};
    const int size = static_cast<int>(wide.size());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(), length, nullptr, nullptr);
    return text;
}

std::wstring Branch(std::string_view section) {
    return kBranch + ToWide(section);
}

} // namespace

std::optional<std::string> ReadRegistrySetting(std::string_view section, std::string_view key) {
    const std::wstring branch = Branch(section);
    const std::wstring name = ToWide(key);
    std::wstring value;
    DWORD bytes = 0;
    LSTATUS status = ERROR_MORE_DATA;
    // The value may grow between the question for its size and the reading.
    while (status == ERROR_MORE_DATA) {
        value.resize(bytes / sizeof(wchar_t));
        status = RegGetValueW(HKEY_CURRENT_USER, branch.c_str(), name.c_str(), RRF_RT_REG_SZ,
                              nullptr, bytes > 0 ? value.data() : nullptr, &bytes);
        if (status == ERROR_SUCCESS && value.empty())
            status = ERROR_MORE_DATA;
    }
    if (status != ERROR_SUCCESS)
        return std::nullopt;
    value.resize(bytes / sizeof(wchar_t));
    if (value.ends_with(L'\0'))
        value.pop_back();
    return FromWide(value);
}

void WriteRegistrySetting(std::string_view section, std::string_view key, std::string_view value) {
    const std::wstring text = ToWide(value);
    HKEY branch = nullptr;
    LSTATUS status = RegCreateKeyExW(HKEY_CURRENT_USER, Branch(section).c_str(), 0, nullptr, 0,
                                     KEY_SET_VALUE, nullptr, &branch, nullptr);
    if (status == ERROR_SUCCESS) {
        const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
        status = RegSetValueExW(branch, ToWide(key).c_str(), 0, REG_SZ,
                                reinterpret_cast<const BYTE*>(text.c_str()), bytes);
        if (status == ERROR_SUCCESS)
            status = RegFlushKey(branch);
        RegCloseKey(branch);
    }
    if (status != ERROR_SUCCESS)
        throw RuntimeError("Cannot write the settings: " + std::system_category().message(status));
}

void RemoveRegistrySetting(std::string_view section, std::string_view key) {
    const LSTATUS status =
        RegDeleteKeyValueW(HKEY_CURRENT_USER, Branch(section).c_str(), ToWide(key).c_str());
    if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND)
        throw RuntimeError("Cannot write the settings: " + std::system_category().message(status));
}

} // namespace tallowmere

#endif
