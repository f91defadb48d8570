#include "app/sites/Tables.h"

#include "app/base/QtText.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"
#include "core/text/tolerant_toml.h"

#include <cstdio>

namespace tallowmere {

namespace {

/// The tables that ship take a hundredth of it.
constexpr std::uint64_t kLargestTable = 4 * kMegabyte;

} // namespace

std::string ReadTable(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        throw RuntimeError(path.string() + ":1: the file cannot be read");
    try {
        return ReadExistingFile(path, kLargestTable);
    } catch (const RuntimeError& unreadable) {
        throw RuntimeError(path.string() + ":1: " + unreadable.what());
    }
}

Tables Tables::Read(const Folders& folders, const QString& sitesFile) {
    Tables tables;
    const std::filesystem::path shipped = folders.data / "sites.toml";
    const std::filesystem::path sites = sitesFile.isEmpty() ? shipped : ToPath(sitesFile);
    TolerantToml file{ParseToml(ReadTable(sites), sites.string()), {}, sites.string()};
    tables.sites = SiteTable::Of(file);
    OverrideToday(file, tables.today);
    tables.today.problems = std::move(file.problems);
    for (const std::string& problem : tables.today.problems)
        std::fprintf(stderr, "tallowmere: %s\n", problem.c_str());
    if (!sitesFile.isEmpty())
        tables.earlier.push_back(SiteTable::Parse(ReadTable(shipped), shipped.string()));
    const std::filesystem::path menus = folders.data / "menus.toml";
    tables.menus = MenuTable::Parse(ReadTable(menus), menus.string());
    return tables;
}

SourceTable ReadSources(const Folders& folders) {
    const std::filesystem::path shipped = folders.data / "sources.toml";
    SourceTable table = ReadSourceTable(ReadTable(shipped), shipped.string());
    const std::filesystem::path own = folders.tables / "sources.toml";
    std::error_code error;
    if (std::filesystem::exists(own, error)) {
        try {
            const std::string text = ReadTable(own);
            table = ReadSourceTable(text, own.string(), std::move(table));
        } catch (const RuntimeError& unreadable) {
            table.problems.emplace_back(unreadable.what());
        }
    }
    for (const std::string& problem : table.problems)
        std::fprintf(stderr, "tallowmere: %s\n", problem.c_str());
    return table;
}

WebAccess::Resolver MakeResolver(const Tables& tables) {
    auto resolver =
        std::make_shared<SiteResolver>(tables.sites, tables.menus, tables.today, tables.earlier);
    return [resolver = std::move(resolver)](const std::string& address, AddressUse use) {
        return resolver->Resolve(address, use).value_or(address);
    };
}

} // namespace tallowmere
