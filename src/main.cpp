#include "links/menu_table.h"
#include "shell/Application.h"
#include "shell/CommandLine.h"
#include "shell/Folders.h"
#include "shell/QtText.h"
#include "shell/Session.h"
#include "shell/SingleInstance.h"
#include "text/files.h"
#include "text/runtime_error.h"
#include "webdata/PortalScheme.h"
#include "webdata/portal.h"

#include <cstdio>

using namespace tallowmere;

namespace {

constexpr int kWrongStart = 2;

/// The text of a table; unlike other files it has to be there.
std::string ReadTable(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        throw RuntimeError(path.string() + ":1: the file cannot be read");
    return ReadWholeFile(path);
}

int Run(const CommandLine& commandLine) {
    const Folders folders = Folders::For(commandLine);
    const std::filesystem::path sitesFile =
        commandLine.sites.isEmpty() ? folders.data / "sites.toml" : ToPath(commandLine.sites);
    const SiteTable sites = SiteTable::Parse(ReadTable(sitesFile), sitesFile.string());
    const std::filesystem::path menusFile = folders.data / "menus.toml";
    const MenuTable menus = MenuTable::Parse(ReadTable(menusFile), menusFile.string());

    SingleInstance instance(folders.programFolder);
    if (!instance.IsFirst())
        return 0;
    DialogPrompts prompts;
    const Clock clock;
    static_cast<Application*>(qApp)->SetPrompts(&prompts);
    std::unique_ptr<SamplePortal> portal;
    if (commandLine.web == WebMode::Sample)
        portal = std::make_unique<SamplePortal>(
            sites, SampleMarket::Parse(ReadTable(folders.data / "sample_market.txt")),
            PortalTexts{ReadTable(folders.data / "rr.html"),
                        ReadTable(folders.data / "newsites.html")});
    const auto answer = [&](const std::string& host, const std::string& pathAndQuery) {
        return portal->Answer(host, pathAndQuery, clock.Today());
    };
    Session session({folders, commandLine.web, sites, menus, answer, prompts, clock});
    QObject::connect(&instance, &SingleInstance::Raised, &session, &Session::Raise);
    session.Start();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    const CommandLine commandLine = CommandLine::Parse(arguments);
    if (commandLine.outcome != CommandLine::Outcome::Run) {
        const bool wrong = commandLine.outcome == CommandLine::Outcome::Wrong;
        std::fputs(qUtf8Printable(commandLine.text), wrong ? stderr : stdout);
        return wrong ? kWrongStart : 0;
    }
    PortalScheme::Register();
    Application application(argc, argv);
    try {
        return Run(commandLine);
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "tallowmere: %s\n", error.what());
        return kWrongStart;
    }
}
