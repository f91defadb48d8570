#include "app/tools/FinderGuide.h"

#include "app/base/PortalAddress.h"
#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "app/links/PaneDeck.h"
#include "core/finder/guide_sections.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view kKey = "guide ";

// The page of a guide that is missing says so when it is opened.
std::string ReadGuide(const QString& folder) {
    try {
        const QString page = QUrl(PortalAddress::Help()).fileName();
        return ReadExistingFile(ToPath(folder) / ToPath(page), kMegabyte);
    } catch (const RuntimeError&) {
        return {};
    }
}

} // namespace

FinderGuide::FinderGuide(const WebAccess& access, PaneDeck& panes)
    : m_access(access), m_panes(panes) {}

void FinderGuide::Offer(std::vector<FinderItem>& items) {
    for (const GuideSection& section : GuideSections(ReadGuide(m_access.HelpFolder())))
        items.push_back(
            {FinderKind::Guide, section.title, "", std::string(kKey) + section.id, {}, 0});
}

QString FinderGuide::Detail(const FinderItem&, const QString&) {
    return {};
}

// No browser outside of the program knows its guide.
void FinderGuide::Open(const FinderItem& item, PagePlace place, const QString&) {
    m_panes.OpenNext(IsTab(place) ? place : PagePlace::Pane);
    m_panes.Navigate(PortalAddress::Help() + u'#' + ToQt(item.key.substr(kKey.size())));
    m_panes.OpenNext(PagePlace::Pane);
}

} // namespace tallowmere
