#include "core/sites/site_table.h"

#include "core/sites/site_keys.h"
#include "core/text/bytes.h"
#include "core/text/tolerant_toml.h"

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

using Texts = std::map<std::string, std::string, std::less<>>;

/// The tables of the file; the ones beyond hosts and programs have readers of their own.
constexpr std::array<std::string_view, 5> kKnownTables{"hosts", "programs", "links", "menus",
                                                       "sources"};

constexpr std::array<std::string_view, 4> kPrograms{"browser", "calculator", "mail", "support"};

std::string Quoted(std::string_view key) {
    return "\"" + std::string(key) + "\"";
}

bool HoldsNoControl(std::string_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
}

bool HoldsNoBlankOrControl(std::string_view text) {
    return HoldsNoControl(text) && !Contains(text, " ");
}

bool IsHost(std::string_view text) {
    return !text.empty() && HoldsNoBlankOrControl(text);
}

/// Reads a table of texts, each of which `isGood`; `flaw` says what a bad one holds.
Texts ReadTexts(const toml::table& root, std::string_view name, bool (*isGood)(std::string_view),
                std::string_view flaw, std::string_view fileName) {
    Texts texts;
    const toml::table* table = root[name].as_table();
    if (table == nullptr)
        return texts;
    for (const auto& [key, value] : *table) {
        const auto* text = value.as_string();
        if (text == nullptr || !isGood(text->get()))
            FailInToml(fileName, value.source(),
                       Quoted(key.str()) + " in [" + std::string(name) + "] " +
                           (text == nullptr ? "is not a text in quotes" : std::string(flaw)));
        texts.emplace(key.str(), text->get());
    }
    return texts;
}

/// Puts the good rows of a table of a user's file over `texts`.
template <typename IsKnown>
void OverrideTexts(Texts& texts, TolerantToml& file, std::string_view name,
                   bool (*isGood)(std::string_view), std::string_view flaw, IsKnown isKnown) {
    const toml::table* table = file.root[name].as_table();
    if (table == nullptr)
        return;
    for (const auto& [key, value] : *table) {
        const auto* text = value.as_string();
        const std::string row = Quoted(key.str()) + " in [" + std::string(name) + "] ";
        if (!isKnown(key.str()))
            file.Complain(value, row + "is not known");
        else if (text == nullptr)
            file.Complain(value, row + "is not a text in quotes");
        else if (!isGood(text->get()))
            file.Complain(value, row + std::string(flaw));
        else
            texts.insert_or_assign(std::string(key.str()), text->get());
    }
}

void CheckTables(const toml::table& root, std::string_view fileName) {
    for (const auto& [key, value] : root) {
        if (std::find(kKnownTables.begin(), kKnownTables.end(), key.str()) == kKnownTables.end())
            FailInToml(fileName, key.source(), "unknown entry " + Quoted(key.str()));
        if (!value.is_table())
            FailInToml(fileName, value.source(), Quoted(key.str()) + " is not a table");
    }
}

} // namespace

SiteTable SiteTable::Parse(std::string_view text, std::string_view fileName) {
    return Of({ParseToml(text, fileName), {}, std::string(fileName)});
}

SiteTable SiteTable::Of(const TolerantToml& file) {
    CheckTables(file.root, file.fileName);
    SiteTable table;
    table.m_hosts = ReadTexts(file.root, "hosts", HoldsNoBlankOrControl,
                              "holds a blank or a control character", file.fileName);
    table.m_programs = ReadTexts(file.root, "programs", HoldsNoControl, "holds a control character",
                                 file.fileName);
    return table;
}

void SiteTable::Override(TolerantToml& file) {
    const auto keys = SiteKeys();
    OverrideTexts(m_hosts, file, "hosts", IsHost, "holds no host", [&](std::string_view key) {
        return key == "default" || std::binary_search(keys.begin(), keys.end(), key);
    });
    OverrideTexts(m_programs, file, "programs", HoldsNoControl, "holds a control character",
                  [](std::string_view key) {
                      return std::find(kPrograms.begin(), kPrograms.end(), key) != kPrograms.end();
                  });
}

std::string_view SiteTable::Program(std::string_view name) const {
    const auto found = m_programs.find(name);
    return found == m_programs.end() ? std::string_view() : std::string_view(found->second);
}

} // namespace tallowmere
