#include "app/sites/UserSites.h"

#include "app/base/QtText.h"
#include "core/sites/user_sites.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"
#include "core/text/toml_edit.h"

#include <cstdio>

namespace tallowmere {

namespace {

// Editors write a file in several steps; one reading after the last of them is enough.
constexpr auto kSettleTime = std::chrono::milliseconds(150);

} // namespace

UserSites::UserSites(Tables& tables, std::filesystem::path file, QObject* parent)
    : QObject(parent), m_tables(tables), m_shipped(tables), m_file(std::move(file)) {
    m_tables.earlier.insert(m_tables.earlier.begin(), m_shipped.sites);
    m_settle.setSingleShot(true);
    m_settle.setInterval(kSettleTime);
    connect(&m_settle, &QTimer::timeout, this, &UserSites::Read);
    const auto settle = [this] { m_settle.start(); };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, settle);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, settle);
    Read();
}

// The folder tells of a file that is made, replaced or removed, the file of what is written to it.
// A file that was replaced has to be named to the watcher anew.
void UserSites::Watch() {
    const QString file = PathToQt(m_file);
    if (m_watcher.directories().isEmpty())
        m_watcher.addPath(PathToQt(m_file.parent_path()));
    m_watcher.removePath(file);
    std::error_code error;
    if (std::filesystem::is_regular_file(m_file, error))
        m_watcher.addPath(file);
}

std::string UserSites::Text() const {
    std::error_code error;
    return std::filesystem::exists(m_file, error) ? ReadTable(m_file) : std::string();
}

void UserSites::Write(const std::function<std::string(const std::string&)>& change) {
    const std::string text = Text();
    std::string changed;
    try {
        changed = change(text);
    } catch (const RuntimeError& error) {
        throw RuntimeError("The file " + m_file.string() + " cannot be changed: " + error.what());
    }
    if (changed == text)
        return;
    WriteWholeFile(m_file, changed);
    Read();
}

void UserSites::Save(std::string_view key, std::string_view address) {
    const std::string flaw = FlawOfToday(address);
    if (!flaw.empty())
        throw RuntimeError("\"" + std::string(address) + "\" " + flaw);
    const auto place = PlaceOfRow(key);
    Write([&](const std::string& text) {
        return SetTomlRow(text, place.first, place.second, address);
    });
}

void UserSites::Remove(std::string_view key) {
    const auto place = PlaceOfRow(key);
    Write([&](const std::string& text) { return RemoveTomlRow(text, place.first, place.second); });
}

void UserSites::Read() {
    Watch();
    std::string text;
    try {
        text = Text();
    } catch (const RuntimeError& unreadable) {
        m_text.reset();
        m_problems = {unreadable.what()};
        Report();
        return;
    }
    if (m_text == text)
        return;
    OverriddenSites read = OverrideSites(m_shipped.sites, m_shipped.today, text, m_file.string());
    m_text = std::move(text);
    m_problems = std::move(read.problems);
    if (read.isReadable) {
        m_tables.sites = std::move(read.sites);
        m_tables.today = std::move(read.today);
        Q_EMIT Changed();
    }
    Report();
}

void UserSites::Report() {
    for (const std::string& problem : m_problems)
        std::fprintf(stderr, "tallowmere: %s\n", problem.c_str());
    if (!m_problems.empty())
        Q_EMIT ProblemsFound();
}

} // namespace tallowmere
