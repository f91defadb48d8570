#include "app/engine/PasswordLookout.h"

#include "app/engine/PageReader.h"

namespace tallowmere {

PasswordLookout::PasswordLookout(QObject* parent) : QObject(parent) {}

void PasswordLookout::Look(QWebEnginePage& page, const QUrl& url) {
    if (m_isLooking || url.scheme() != u"http" || url == m_url)
        return;
    m_isLooking = true;
    PageReader::AskForPasswordBox(page, this, [this, url](bool hasBox) {
        m_isLooking = false;
        if (!hasBox)
            return;
        m_url = url;
        Q_EMIT Found();
    });
}

void PasswordLookout::Forget() {
    m_isLooking = false;
    m_url.clear();
}

} // namespace tallowmere
