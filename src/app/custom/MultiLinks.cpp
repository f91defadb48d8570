#include "app/custom/MultiLinks.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "app/links/LinkPanel.h"
#include "app/links/PaneDeck.h"
#include "app/links/RecordingState.h"
#include "core/custom/custom_link.h"
#include "core/custom/multi_link.h"
#include "core/links/before_navigate.h"
#include "core/links/chart_page.h"
#include "core/market/timers.h"
#include "core/shell/area_colors.h"
#include "core/shell/undo_recorder.h"
#include "core/sites/site_table.h"
#include "core/text/bytes.h"
#include "core/text/files.h"

#include <QStyle>

namespace tallowmere {

namespace {

constexpr std::string_view kFrame = "<IFRAME";
constexpr std::string_view kLineEnd = "\r\n";

Chip* RecordingLink(const frmMain& form) {
    return form.lbllink[kBlinkingLink];
}

// A user who asked the system for less motion sees the colours swapped once.
bool MayBlink(const QWidget* widget) {
    return widget->style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, widget) > 0;
}

} // namespace

MultiLinks::MultiLinks(frmMain& form, SettingsStore& settings, UndoRecorder& undo,
                       const SiteTable& sites, Prompts& prompts,
                       const std::filesystem::path& programFolder, RecordingState& recording,
                       PaneDeck& panes, LinkDispatch& dispatch, LinkPanel& panel)
    : QObject(&form), m_form(form), m_settings(settings), m_undo(undo), m_sites(sites),
      m_prompts(prompts), m_programFolder(programFolder), m_recording(recording), m_panes(panes),
      m_dispatch(dispatch), m_panel(panel) {
    Timer4.setInterval(kBlinkInterval);
    connect(&Timer4, &QTimer::timeout, this, &MultiLinks::Blink);
    connect(&dispatch, &LinkDispatch::RecordingToggled, this, &MultiLinks::Toggle);
    connect(&panes, &PaneDeck::Recorded, this, &MultiLinks::RecordingChanged);
    connect(&dispatch, &LinkDispatch::MultiLinkRequested, this, &MultiLinks::ShowStored);
}

void MultiLinks::Toggle() {
    if (m_recording.templateMode)
        Finish();
    else
        Start();
}

void MultiLinks::Start() {
    EnableRecordable();
    m_recording.templateMode = true;
    m_recording.multiLinkPage = ToQt(kMultiLinkHead);
    if (MayBlink(RecordingLink(m_form)))
        Timer4.start();
    else
        Blink();
    Q_EMIT RecordingChanged();
}

void MultiLinks::DiscardLast() {
    m_recording.multiLinkPage = ToQt(WithoutLastFrame(FromQt(m_recording.multiLinkPage)));
    Q_EMIT RecordingChanged();
}

void MultiLinks::EnableRecordable() {
    for (Chip* link : m_form.lbllink) {
        const int index = link->Index();
        const Area area = Catalogue()[static_cast<std::size_t>(index)].area;
        const std::string address =
            IsCustomSlot(index) ? LoadCustomLink(m_settings, index).address : "";
        link->setEnabled(IsRecordable(index, area, address, link->isEnabled()));
    }
    // The menu bar repeats some of the links.
    for (const auto& [command, index] : m_form.menus->links)
        command->setEnabled(m_form.lbllink[static_cast<std::size_t>(index)]->isEnabled());
}

void MultiLinks::Blink() {
    Chip* link = RecordingLink(m_form);
    link->SetColors(Swapped(link->Colors()));
}

// The recording has ended before its page is shown or stored: the page itself is not to be
// recorded, and a page that cannot be written leaves nothing half way.
void MultiLinks::Finish() {
    Timer4.stop();
    RestoreColors();
    m_recording.templateMode = false;
    const std::string page = FromQt(m_recording.multiLinkPage).append(kMultiLinkTail);
    m_recording.multiLinkPage.clear();
    Q_EMIT RecordingChanged();
    if (std::exchange(m_recording.multiLinkPending, false)) {
        StorePage(page);
    } else if (Contains(page, kFrame)) {
        m_shown = {};
        Show(page, m_dispatch.CurrentForms().value_or(PlaceholderForms()));
    }
}

void MultiLinks::RestoreColors() {
    Q_EMIT ColorsLost();
    for (int slot = kFirstCustom; slot <= kLastCustom; ++slot) {
        Chip* link = m_form.lbllink[static_cast<std::size_t>(slot)];
        link->SetColors(ColorsOver(link->Colors(), LoadCustomLink(m_settings, slot).colors));
    }
    m_panel.EnableLinks();
    RecordingLink(m_form)->SetColors(ReadAreaColors(m_settings).Of("WSR"));
}

// The page lies under the caption that the link has by now; its stored address keeps the name that
// was given at the start.
void MultiLinks::StorePage(std::string page) {
    const Chip* link = m_form.lbllink.at(static_cast<std::size_t>(m_recording.multiLinkSlot));
    const auto name = MultiLinkPageName(FromQt(link->Caption()));
    if (!name) {
        m_prompts.Message(ToQt(kMultiLinkTitleInvalid), ToQt(kCustomLinkCaption));
        return;
    }
    m_undo.Run(
        "Record " + FromQt(link->Caption()),
        [&] { WriteWholeFile(m_programFolder / ToPath(ToQt(*name)), page.append(kLineEnd)); },
        {*name});
}

void MultiLinks::ShowStored(int slot, const TickerForms& forms) {
    const auto name = StoredPageName(LoadCustomLink(m_settings, slot).address);
    if (!name)
        return;
    const std::string page = ReadWholeFile(m_programFolder / ToPath(ToQt(*name)));
    if (page.empty())
        return;
    m_shown = {slot, LoadColumns(m_settings, slot)};
    Show(page, forms);
}

void MultiLinks::KeepLayout(const ShownMultiLink& shown) {
    if (shown.slot == m_shown.slot)
        m_shown = shown;
    if (shown.slot != 0)
        SaveColumns(m_settings, shown.slot, shown.columns);
}

// A chart page lies in the program folder for one ticker at a time, so one that was recorded is
// made anew.
void MultiLinks::Show(std::string_view page, const TickerForms& forms) {
    for (const auto& [file, makePage] :
         {std::pair{kSmallChartsFile, &SmallChartsPage}, {kLargeChartsFile, &LargeChartsPage}}) {
        const std::filesystem::path path = m_programFolder / file;
        if (Contains(page, MultiLinkFrame(FromQt(PathToQt(path)))))
            WriteWholeFile(path, makePage(forms, m_sites));
    }
    m_panes.ShowGenerated(kDisplayPage, ExpandMultiLink(page, forms));
}

} // namespace tallowmere
