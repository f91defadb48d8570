#include "app/base/Clock.h"
#include "app/base/Folders.h"
#include "app/base/Prompts.h"
#include "app/engine/PortalScheme.h"
#include "app/shell/Application.h"
#include "app/shell/CommandLine.h"
#include "app/shell/Session.h"
#include "app/shell/SingleInstance.h"
#include "app/shell/StartError.h"
#include "app/shell/Subsystems.h"
#include "app/sites/Tables.h"
#include "app/sites/UserSites.h"
#include "app/tools/EngineNotice.h"
#include "core/backup/restore.h"
#include "core/portal/portal.h"
#include "core/text/runtime_error.h"

#include <cstdio>
#include <filesystem>

using namespace tallowmere;

namespace {

constexpr int kWrongStart = 2;

int Run(Application& application, const CommandLine& commandLine, Prompts& prompts) {
    const Folders folders = Folders::For(commandLine.profile);
    Tables tables = Tables::Read(folders, commandLine.sites);

    SingleInstance instance(folders.programFolder);
    if (!instance.IsFirst()) {
        std::fputs("tallowmere: it is running already, and its window is in front now\n", stderr);
        return 0;
    }
    // Before any store is read.
    FinishRestore(folders.Stores());
    const Clock clock;
    const PortalTexts texts{ReadTable(folders.data / "rr.html"),
                            ReadTable(folders.data / "newsites.html")};
    SessionSetup setup{folders, commandLine.web, tables, {}, prompts, clock};
    std::unique_ptr<SamplePortal> portal;
    if (commandLine.web == WebMode::Sample) {
        portal = std::make_unique<SamplePortal>(
            tables.sites, SampleMarket::Parse(ReadTable(folders.data / "sample_market.txt")),
            texts);
        setup.portal = [&](const std::string& host, const std::string& pathAndQuery) {
            return portal->Answer(host, pathAndQuery, clock.Today());
        };
        setup.prices = [&](const std::string& ticker) {
            return portal->PriceOf(ticker, clock.Today());
        };
    } else if (commandLine.web == WebMode::Live) {
        setup.sources = ReadSources(folders);
        setup.texts = texts;
    }
    Session session(std::move(setup));
    if (portal) {
        const auto follow = [&portal] { portal->SitesChanged(); };
        QObject::connect(&session.OwnSites(), &UserSites::Changed, &session, follow);
        follow(); // the session has read the user's own table
    }
    QObject::connect(&instance, &SingleInstance::Raised, &session, &Session::Raise);
    session.Start();
    if (!instance.Problem().isEmpty())
        prompts.Message(instance.Problem(), MessageTitle());
    session.Controllers().tools.engine->Tell();
    // The start may wait for a page; an event loop that begins only now would forget the quitting.
    return application.IsEnding() ? 0 : QApplication::exec();
}

bool IsText(const QByteArray& bytes) {
    return QString::fromLocal8Bit(bytes).toLocal8Bit() == bytes;
}

/// What says where the user's folders lie and cannot be read as text; null when all can be.
const char* UnreadablePlace() {
    for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME"})
        if (!IsText(qgetenv(name)))
            return name;
    std::error_code error;
    const std::filesystem::path here = std::filesystem::current_path(error);
    return error || IsText(QByteArray::fromStdString(here.string())) ? nullptr
                                                                     : "the current folder";
}

} // namespace

int main(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
        if (!IsText(argv[i])) {
            std::fprintf(stderr,
                         "tallowmere: argument %d is no text (UTF-8): folders and files of such "
                         "names cannot be used\n",
                         i);
            return kWrongStart;
        }
    }
    if (const char* place = UnreadablePlace()) {
        std::fprintf(stderr,
                     "tallowmere: %s is no text (UTF-8): folders and files of such names cannot be "
                     "used\n",
                     place);
        return kWrongStart;
    }
    const CommandLine commandLine = CommandLine::Parse(arguments);
    if (commandLine.outcome != CommandLine::Outcome::Run) {
        const bool wrong = commandLine.outcome == CommandLine::Outcome::Wrong;
        std::fputs(qUtf8Printable(commandLine.text), wrong ? stderr : stdout);
        return wrong ? kWrongStart : 0;
    }
    if (const QByteArray port = qgetenv("QTWEBENGINE_REMOTE_DEBUGGING"); !port.isEmpty())
        std::fprintf(stderr,
                     "tallowmere: QTWEBENGINE_REMOTE_DEBUGGING is set to %s: every program of this "
                     "machine can read and steer the panes\n",
                     port.constData());
    PortalScheme::Register();
    Application application(argc, argv);
    DialogPrompts prompts;
    application.SetPrompts(&prompts);
    try {
        return Run(application, commandLine, prompts);
    } catch (const RuntimeError& error) {
        TellOfStart(QString::fromUtf8(error.what()), prompts);
        return kWrongStart;
    }
}
