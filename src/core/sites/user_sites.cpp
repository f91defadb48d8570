#include "core/sites/user_sites.h"

#include "core/text/tolerant_toml.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tallowmere {

namespace {

constexpr std::array<std::string_view, 4> kTables{"hosts", "programs", "links", "menus"};

void CheckTables(TolerantToml& file) {
    for (const auto& [key, value] : file.root) {
        const std::string name = "\"" + std::string(key.str()) + "\"";
        if (std::find(kTables.begin(), kTables.end(), key.str()) == kTables.end())
            file.Complain(value, "there is no table " + name);
        else if (!value.is_table())
            file.Complain(value, name + " is not a table");
    }
}

int LineOf(std::string_view problem, std::string_view fileName) {
    int line = 0;
    const std::string_view number = problem.substr(fileName.size() + 1);
    std::from_chars(number.data(), number.data() + number.size(), line);
    return line;
}

} // namespace

OverriddenSites OverrideSites(const SiteTable& sites, const TodayTable& today,
                              std::string_view text, std::string_view fileName) {
    OverriddenSites result{sites, today, {}, true};
    TolerantToml file = ReadTolerantly(text, fileName);
    result.isReadable = file.problems.empty() || !file.root.empty();
    CheckTables(file);
    result.sites.Override(file);
    OverrideToday(file, result.today);
    result.problems = std::move(file.problems);
    std::stable_sort(result.problems.begin(), result.problems.end(),
                     [&](const std::string& left, const std::string& right) {
                         return LineOf(left, fileName) < LineOf(right, fileName);
                     });
    return result;
}

} // namespace tallowmere
