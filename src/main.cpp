#include "shell/Application.h"
#include "shell/CommandLine.h"
#include "shell/Folders.h"
#include "shell/Session.h"
#include "shell/SingleInstance.h"
#include "shell/Tables.h"
#include "text/runtime_error.h"
#include "webdata/PortalScheme.h"
#include "webdata/WebAccess.h"
#include "webdata/portal.h"

#include <cstdio>

using namespace tallowmere;

namespace {

constexpr int kWrongStart = 2;

int Run(const CommandLine& commandLine) {
    const Folders folders = Folders::For(commandLine);
    const Tables tables = Tables::Read(folders, commandLine.sites);

    SingleInstance instance(folders.programFolder);
    if (!instance.IsFirst())
        return 0;
    DialogPrompts prompts;
    const Clock clock;
    static_cast<Application*>(qApp)->SetPrompts(&prompts);
    std::unique_ptr<SamplePortal> portal;
    WebAccess::PortalFunction answer; // without a portal nothing answers
    if (commandLine.web == WebMode::Sample) {
        portal = std::make_unique<SamplePortal>(
            tables.sites, SampleMarket::Parse(ReadTable(folders.data / "sample_market.txt")),
            PortalTexts{ReadTable(folders.data / "rr.html"),
                        ReadTable(folders.data / "newsites.html")});
        answer = [&](const std::string& host, const std::string& pathAndQuery) {
            return portal->Answer(host, pathAndQuery, clock.Today());
        };
    }
    const auto resolver = commandLine.web == WebMode::Live ? MakeResolver(tables) : nullptr;
    Session session(
        {folders, commandLine.web, tables.sites, tables.menus, answer, prompts, clock, resolver});
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
