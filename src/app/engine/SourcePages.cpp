#include "app/engine/SourcePages.h"

#include "app/base/PortalAddress.h"

namespace tallowmere {

QUrl SourcePages::Keep(QByteArray page) {
    m_pages.insert(++m_kept, std::move(page));
    if (m_pages.size() > kMost)
        m_pages.erase(m_pages.begin());
    return PortalAddress::Source(m_kept);
}

QByteArray SourcePages::At(const QUrl& address) const {
    return PortalAddress::IsSource(address) ? m_pages.value(address.path().mid(1).toInt())
                                            : QByteArray();
}

} // namespace tallowmere
