#include "app/custom/CustomControllers.h"

#include "app/custom/CustomEditor.h"
#include "app/custom/CustomMenu.h"
#include "app/custom/MultiLinks.h"
#include "app/custom/PageCells.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkControllers.h"
#include "core/custom/custom_link.h"

namespace tallowmere {

CustomControllers::CustomControllers(frmMain& form, SettingsStore& settings, const SiteTable& sites,
                                     Prompts& prompts, const std::filesystem::path& programFolder,
                                     EngineProfile& profile, LinkControllers& links)
    : editor(new CustomEditor(form, settings, prompts, programFolder, links.recording,
                              *links.dispatch)),
      menu(new CustomMenu(form, settings, *links.panel, *links.panes, *links.dispatch, *editor)),
      multiLinks(new MultiLinks(form, settings, sites, prompts, programFolder, links.recording,
                                *links.panes, *links.dispatch, *links.panel)) {
    new PageCells(form, prompts, programFolder, *links.panes, profile);
}

void ShowCustomLinks(frmMain& form, const SettingsStore& settings) {
    for (int slot = kFirstCustom; slot <= kLastCustom; ++slot)
        form.ShowCustomLink(LoadCustomLink(settings, slot), slot);
}

} // namespace tallowmere
