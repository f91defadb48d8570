#include "app/custom/FinderOwnLinks.h"

#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkPanel.h"
#include "core/custom/custom_link.h"
#include "core/custom/multi_link.h"

namespace tallowmere {

namespace {

constexpr std::string_view kKey = "own ";

int SlotOf(const FinderItem& item) {
    return std::stoi(item.key.substr(kKey.size()));
}

} // namespace

FinderOwnLinks::FinderOwnLinks(frmMain& form, const SettingsStore& settings,
                               const WebAccess& access, LinkPanel& panel)
    : m_form(form), m_settings(settings), m_access(access), m_panel(panel) {}

void FinderOwnLinks::Offer(std::vector<FinderItem>& items) {
    for (int slot = kFirstCustom; slot <= kLastCustom; ++slot) {
        const Chip* link = m_form.lbllink.at(static_cast<std::size_t>(slot));
        const std::string caption = FromQt(link->Caption());
        if (IsUnusedSlot(caption) || !link->isEnabled())
            continue;
        const std::string address = LoadCustomLink(m_settings, slot).address;
        const bool isMulti = IsMultiLink(address);
        items.push_back({isMulti ? FinderKind::MultiLink : FinderKind::OwnLink, caption, address,
                         std::string(kKey) + std::to_string(slot),
                         isMulti                     ? FinderTickers::One
                         : HoldsPlaceholder(address) ? FinderTickers::Several
                                                     : FinderTickers::None,
                         0});
    }
}

QString FinderOwnLinks::Detail(const FinderItem& item, const QString&) {
    return item.kind == FinderKind::MultiLink ? QString() : HostOfBuilt(ToQt(item.words), m_access);
}

void FinderOwnLinks::Open(const FinderItem& item, PagePlace place, const QString& ticker) {
    m_panel.Open(SlotOf(item), place, ticker);
}

} // namespace tallowmere
