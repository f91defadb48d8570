#include "app/custom/CustomControllers.h"

#include "app/custom/CustomEditor.h"
#include "app/custom/CustomMenu.h"
#include "app/custom/FinderOwnLinks.h"
#include "app/custom/MultiLinks.h"
#include "app/custom/PageCells.h"
#include "app/custom/RecordingGuide.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkControllers.h"
#include "app/links/PaneDeck.h"
#include "core/custom/custom_link.h"

namespace tallowmere {

CustomControllers::CustomControllers(frmMain& form, SettingsStore& settings, UndoRecorder& undo,
                                     const SiteTable& sites, Prompts& prompts,
                                     const std::filesystem::path& programFolder,
                                     EngineProfile& profile, LinkControllers& links)
    : editor(new CustomEditor(form, settings, undo, prompts, programFolder, links.recording,
                              *links.dispatch)),
      menu(new CustomMenu(form, settings, undo, *links.panel, *links.panes, *links.dispatch,
                          *editor)),
      multiLinks(new MultiLinks(form, settings, undo, sites, prompts, programFolder,
                                links.recording, *links.panes, *links.dispatch, *links.panel)) {
    new RecordingGuide(form, links.recording, *multiLinks);
    const auto watch = [&settings, &sites, &prompts, programFolder, &profile,
                        multiLinks = multiLinks, panes = links.panes](BrowserPane& pane) {
        new PageCells(pane, *multiLinks, settings, sites, prompts, programFolder, *panes, profile);
    };
    watch(*form.Web);
    QObject::connect(links.panes, &PaneDeck::Adopted, multiLinks, watch);
    makeFinderSources = [&form, &settings, panel = links.panel](const WebAccess& access) {
        FinderSources made;
        made.push_back(std::make_unique<FinderOwnLinks>(form, settings, access, *panel));
        return made;
    };
}

void ForgetCustomLinks(frmMain& form) {
    for (int slot = kFirstCustom; slot <= kLastCustom; ++slot)
        form.ShowCustomLink({}, slot);
}

void ShowCustomLinks(frmMain& form, const SettingsStore& settings) {
    for (int slot = kFirstCustom; slot <= kLastCustom; ++slot)
        form.ShowCustomLink(LoadCustomLink(settings, slot), slot);
}

} // namespace tallowmere
