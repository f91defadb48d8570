#include "links/site_table.h"

#include "text/runtime_error.h"

#include <algorithm>
#include <array>
#include <limits>

// The table is only read; the parts of the parser that write TOML would cost compile time.
#define TOML_ENABLE_FORMATTERS 0
#include <toml++/toml.h>

namespace tallowmere {

namespace {

using Texts = std::map<std::string, std::string, std::less<>>;

/// The tables of the file; the ones beyond hosts and programs have readers of their own.
constexpr std::array<std::string_view, 5> kKnownTables{"hosts", "programs", "links", "menus",
                                                       "sources"};

/// Text files of this size are no tables written by people. The parser recurses over nested
/// values and copies keys, so its input is bounded before it starts.
constexpr std::size_t kLargestFile = 4U * 1024 * 1024;

/// Makes errors of one file.
struct Source {
    std::string_view fileName;

    RuntimeError Error(toml::source_index line, std::string_view what) const {
        return RuntimeError(std::string(fileName) + ":" + std::to_string(line) + ": " +
                            std::string(what));
    }
};

std::string Quoted(std::string_view key) {
    return "\"" + std::string(key) + "\"";
}

bool HoldsBlankOrControl(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte <= 0x20 || byte == 0x7F;
    });
}

bool HoldsControl(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7F;
    });
}

Texts ReadTexts(const toml::table& root, std::string_view name, const Source& source) {
    Texts texts;
    const toml::node* node = root.get(name);
    if (node == nullptr)
        return texts;
    const toml::table& table = *node->as_table();
    for (const auto& [key, value] : table) {
        const auto* text = value.as_string();
        if (text == nullptr)
            throw source.Error(value.source().begin.line, Quoted(key.str()) + " in [" +
                                                              std::string(name) +
                                                              "] is not a text in quotes");
        texts.emplace(std::string(key.str()), text->get());
    }
    return texts;
}

/// Line of a value of a table, for errors that are found after reading.
toml::source_index LineOf(const toml::table& root, std::string_view table, std::string_view key) {
    return root.get(table)->as_table()->get(key)->source().begin.line;
}

void CheckTables(const toml::table& root, const Source& source) {
    for (const auto& [key, value] : root) {
        const auto line = value.source().begin.line;
        if (std::find(kKnownTables.begin(), kKnownTables.end(), key.str()) == kKnownTables.end())
            throw source.Error(line, "unknown entry " + Quoted(key.str()));
        if (!value.is_table())
            throw source.Error(line, Quoted(key.str()) + " is not a table");
    }
}

} // namespace

SiteTable SiteTable::Parse(std::string_view text, std::string_view fileName) {
    const Source source{fileName};
    if (text.size() > kLargestFile)
        throw source.Error(1, "the file is larger than 4 MB");

    toml::table root;
    try {
        root = toml::parse(text, fileName);
    } catch (const toml::parse_error& error) {
        throw source.Error(error.source().begin.line, error.description());
    }
    CheckTables(root, source);

    SiteTable table;
    table.m_hosts = ReadTexts(root, "hosts", source);
    table.m_programs = ReadTexts(root, "programs", source);
    for (const auto& [site, host] : table.m_hosts)
        if (HoldsBlankOrControl(host))
            throw source.Error(LineOf(root, "hosts", site),
                               "the host of " + Quoted(site) +
                                   " holds a blank or a control character");
    for (const auto& [program, command] : table.m_programs)
        if (HoldsControl(command))
            throw source.Error(LineOf(root, "programs", program),
                               "the command of " + Quoted(program) + " holds a control character");
    return table;
}

std::string_view SiteTable::Host(std::string_view site) const {
    auto found = m_hosts.find(site);
    if (found == m_hosts.end())
        found = m_hosts.find(std::string_view("default"));
    return found == m_hosts.end() ? std::string_view() : std::string_view(found->second);
}

std::string SiteTable::Address(std::string_view site, std::string_view path) const {
    return std::string(Host(site)).append(path);
}

std::string_view SiteTable::Program(std::string_view name) const {
    const auto found = m_programs.find(name);
    return found == m_programs.end() ? std::string_view() : std::string_view(found->second);
}

} // namespace tallowmere
