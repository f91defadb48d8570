#include "app/tools/ToolControllers.h"

#include "app/engine/EngineProfile.h"
#include "app/forms/DialogKeys.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkControllers.h"
#include "app/links/LinkDispatch.h"
#include "app/tools/ColorConfig.h"
#include "app/tools/ColorSettings.h"
#include "app/tools/DailyReminders.h"
#include "app/tools/DownloadWindow.h"
#include "app/tools/EngineNotice.h"
#include "app/tools/FinderGuide.h"
#include "app/tools/Help.h"
#include "app/tools/ReminderWatch.h"
#include "app/tools/Setup.h"
#include "app/tools/ShortcutEditor.h"

namespace tallowmere {

ToolControllers::ToolControllers(frmMain& form, SettingsStore& settings, UndoRecorder& undo,
                                 const SiteTable& sites, Prompts& prompts, const Clock& clock,
                                 const std::filesystem::path& programFolder, EngineProfile& profile,
                                 LinkControllers& links)
    : colors(new ColorConfig(form, settings)),
      colorSettings(new ColorSettings(settings, undo, prompts, &form)),
      reminders(new DailyReminders(form, undo, prompts, clock, programFolder, *links.dispatch)),
      dueReminders(new ReminderWatch(form, clock, programFolder, *reminders, *links.panes)),
      downloads(new DownloadWindow(form, prompts, profile.Downloads())),
      engine(new EngineNotice(form, settings, clock, *links.panes)),
      setup(new Setup(form, settings, undo, prompts, programFolder, links.accounts, *links.panes,
                      *colorSettings)),
      shortcuts(new ShortcutEditor(form, prompts)) {
    new DialogKeys(form.menus->Keys(), &form);
    QObject::connect(colorSettings, &ColorSettings::Changed, colors, &ColorConfig::Apply);
    auto* help = new Help(form, sites, prompts, clock, *links.panes, *links.outside);
    QObject::connect(links.dispatch, &LinkDispatch::SetupRequested, setup, &Setup::Show);
    QObject::connect(setup, &Setup::Closed, colors, &ColorConfig::Apply);
    QObject::connect(setup, &Setup::HelpRequested, help, &Help::Open);
    QObject::connect(setup, &Setup::ReportRequested, help, &Help::Report);
    makeFinderSources = [panes = links.panes](const WebAccess& access) {
        FinderSources made;
        made.push_back(std::make_unique<FinderGuide>(access, *panes));
        return made;
    };
}

} // namespace tallowmere
