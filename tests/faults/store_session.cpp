// A session over the stores of the core, each step of it taken twice: in a folder in which a write
// may fail (see failing_writes.cpp) and in one in which none does. After each step the stores of
// the first are what they were before it or what they are in the second, never else; a step that
// does not say that it failed has been done; and one that failed succeeds when it is taken again.
//
//   store_session FOLDER CLEAN_FOLDER

#include "core/backup/restore.h"
#include "core/custom/custom_link.h"
#include "core/market/alert_store.h"
#include "core/portfolio/keyed_store.h"
#include "core/quotes/company_list.h"
#include "core/quotes/quote_store.h"
#include "core/shell/navigate_list.h"
#include "core/shell/settings_store.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"
#include "core/text/toml_edit.h"
#include "core/tools/reminders.h"

#include <cstdio>
#include <fstream>
#include <functional>
#include <map>

namespace {

using namespace tallowmere;
using Path = std::filesystem::path;
using Files = std::map<std::string, std::string>;

/// What a step says when it fails.
enum class Tells {
    All,
    Nothing ///< the routine's errors are to be ignored
};

struct Step {
    const char* name;
    std::function<void(const Path&)> take;
    Tells tells = Tells::All;
};

constexpr std::string_view kSection = "Settings";

auto Setting(std::string_view section, std::string_view key, std::string value) {
    return [=](const Path& folder) {
        SettingsStore(folder / "settings.ini").SaveSetting(section, key, value);
    };
}

auto InSettings(const std::function<void(SettingsStore&)>& change) {
    return [=](const Path& folder) {
        SettingsStore settings(folder / "settings.ini");
        change(settings);
    };
}

auto Note(std::string_view key, std::string note, std::string_view file = kTickerNotesFile) {
    return [=](const Path& folder) { ReplaceNote(folder, key, note, file); };
}

auto Routine(std::string_view operation, std::string_view ticker, std::string note = {}) {
    return [=](const Path& folder) {
        std::string result;
        TickerNotes(folder, result, operation, ticker, note, kTickerNotesFile);
    };
}

auto Whole(const char* name, std::string content) {
    return [=](const Path& folder) { WriteWholeFile(folder / name, content); };
}

void EditSites(const Path& folder, bool adds) {
    const Path file = folder / "sites.toml";
    const std::string text = ReadExistingFile(file);
    WriteWholeFile(file, adds ? SetTomlRow(text, "links", "3", "https://today.example/{upper}")
                              : RemoveTomlRow(text, "links", "3"));
}

/// All parts of a backup are taken.
auto Restored(const BackupFiles& backup) {
    return [=](const Path& folder) {
        const StorePlaces places{folder / "settings.ini", folder, folder};
        const BackupFiles now = ReadStores(places);
        std::set<BackupPart> parts;
        for (const PartChanges& changes : CompareStores(now, backup))
            parts.insert(changes.part);
        SettingsStore settings(places.settingsFile);
        Restore(places, settings, PlanRestore(now, backup, parts));
    };
}

std::string Quotes(double last) {
    Quote quote;
    quote.symbol = "AAPL";
    quote.source = "A";
    quote.last = last;
    return WriteQuotes({{quote, 1795208400}});
}

PriceAlert Alert(std::int64_t id) {
    return {id, AlertKind::Above, 450, "MSFT"};
}

std::string Alerts(std::int64_t count) {
    AlertList list;
    for (std::int64_t id = 1; id <= count; ++id)
        list.alerts.push_back(Alert(id));
    return WriteAlerts(list);
}

std::string AlertLog(std::int64_t count) {
    std::vector<FiredAlert> log;
    for (std::int64_t id = 1; id <= count; ++id)
        log.push_back({Alert(id), 1795208400 + id, 451.2, {}, 1795208400, "12:00 ET"});
    return WriteAlertLog(log, {});
}

std::vector<Step> Session() {
    const CustomLinkRecord link{"http://a.example/UCASETICK", "Mine", {0xFF, 0xFF00}};
    return {
        {"a first setting", Setting(kSection, "Stocks1", "AOL|")},
        {"a ticker", Setting(kSection, "Stocks1", "AOL|MSFT|")},
        {"a move", InSettings([](SettingsStore& settings) {
             settings.SaveSettings(kSection, {{"Stocks1", "AOL|"}, {"Stocks2", "MSFT|"}});
         })},
        {"a colour", Setting("Colors", "CUSTF", "255")},
        {"a link",
         InSettings([=](SettingsStore& settings) { SaveCustomLink(settings, 101, link); })},
        {"its colours", InSettings([](SettingsStore& settings) {
             SaveLinkColors(settings, 101, {0x10, 0x20});
         })},
        {"its move",
         InSettings([](SettingsStore& settings) { MoveCustomLink(settings, 101, 170); })},
        {"its end", InSettings([](SettingsStore& settings) { ResetCustomLink(settings, 170); })},
        {"an address", InSettings([](SettingsStore& settings) {
             SaveNavigateEntries(settings, "a.example", {"b.example"});
         })},
        {"a first note", Note("AOL", "first")},
        {"a further note", Note("MSFT", "second")},
        {"a note changed", Note("AOL", "changed")},
        {"a long note", Note("IBM", std::string(5000, 'n'))},
        {"a note behind it", Note("GE", std::string(3000, 'm'))},
        {"a note away", Note("GE", "")},
        {"the routine's SET", Routine("SET", "GM", "routine"), Tells::Nothing},
        {"the routine's REMOVE", Routine("REMOVE", "MSFT"), Tells::Nothing},
        {"notes away",
         [](const Path& folder) {
             RemoveNotes(folder, std::vector<std::string>{"AOL", "GM"}, kTickerNotesFile);
         },
         Tells::Nothing},
        {"a reminder", Note("11-20-2026", "call", kRemindersFile)},
        {"a reminder changed", Note("11-20-2026", "write", kRemindersFile)},
        {"a reminder away", Note("11-20-2026", "", kRemindersFile)},
        {"a multi-link", Whole("mine.mlnk", std::string(9000, 'f'))},
        {"its page", Whole("multiweb.html", std::string(9000, 'g'))},
        {"its page again", Whole("multiweb.html", std::string(100, 'h'))},
        {"quotes", Whole("quotes.json", Quotes(231.5))},
        {"newer quotes", Whole("quotes.json", Quotes(232.5))},
        {"an alert", Whole("alerts.txt", Alerts(1))},
        {"further alerts", Whole("alerts.txt", Alerts(300))},
        {"an alert that fired", Whole("alert-log.txt", AlertLog(1))},
        {"more that fired", Whole("alert-log.txt", AlertLog(300))},
        {"names of companies",
         Whole("companies.json", WriteKeptCompanies({1, 2, {{"MSFT", "MICROSOFT CORP"}}}))},
        {"a site", [](const Path& folder) { EditSites(folder, true); }},
        {"a site away", [](const Path& folder) { EditSites(folder, false); }},
        {"a restore", Restored({{"settings.ini", "[Settings]\nStocks1=IBM|\n"},
                                {"TickNotes.txt", NoteRecord("IBM", "restored")},
                                {"remind.txt", NoteRecord("11-21-2026", "restored")},
                                {"other.mlnk", std::string(9000, 'o')},
                                {"sites.toml", "[hosts]\n"}})},
        {"a restore of less", Restored({{"TickNotes.txt", NoteRecord("GE", "last")}})},
        {"notes of a table",
         [](const Path& folder) {
             ReplaceNotes(folder, {{"GE", "table"}, {"KO", "table"}}, kTickerNotesFile);
         }},
        {"all notes away", Routine("KILL", ""), Tells::Nothing},
        {"a note anew", Note("AOL", "anew")},
        {"a deeper folder",
         [](const Path& folder) { WriteWholeFile(folder / "deeper" / "file", "x"); }},
    };
}

/// The stores of a folder; what is held only while they are written is none.
Files Stores(const Path& folder) {
    Files files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const Path extension = entry.path().extension();
        if (!entry.is_regular_file() || extension == ".tmp" || extension == ".lock")
            continue;
        std::ifstream file(entry.path(), std::ios::binary);
        files[entry.path().lexically_relative(folder).string()] =
            std::string(std::istreambuf_iterator<char>(file), {});
    }
    // An empty store holds as much as none.
    std::erase_if(files, [](const auto& file) { return file.second.empty(); });
    return files;
}

/// The words of a step that failed, none when it did not say so.
std::string Take(const Step& step, const Path& folder) {
    try {
        step.take(folder);
    } catch (const RuntimeError& error) {
        return error.what();
    }
    return {};
}

bool Fail(const Step& step, const std::string& what) {
    std::printf("%s: %s\n", step.name, what.c_str());
    return false;
}

bool Holds(const Step& step, const Path& folder, const Path& clean, int& told) {
    const Files before = Stores(folder);
    if (!Take(step, clean).empty())
        return Fail(step, "it fails without a fault");
    const Files after = Stores(clean);
    const std::string words = Take(step, folder);
    const Files now = Stores(folder);
    told += words.empty() ? 0 : 1;
    if (now != before && now != after)
        return Fail(step, "neither the old nor the new is there (" + words + ")");
    if (now == after)
        return true;
    if (words.empty() && step.tells == Tells::All)
        return Fail(step, "it was not done, and nobody was told");
    if (const std::string again = Take(step, folder); !again.empty())
        return Fail(step, "it fails once more: " + again);
    return Stores(folder) == after || Fail(step, "taken again it did something else");
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3)
        return 2;
    const Path folder = arguments[1];
    const Path clean = arguments[2];
    int steps = 0;
    int told = 0;
    for (const Step& step : Session()) {
        if (!Holds(step, folder, clean, told))
            return 1;
        ++steps;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.path().extension() == ".tmp") {
            std::printf("%s is left behind\n", entry.path().filename().c_str());
            return 1;
        }
    std::printf("%d steps, %d said that they failed\n", steps, told);
    return 0;
}
