#include "app/engine/MailClicks.h"

#include <QUuid>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFreshness = 2000; // milliseconds from a click to what comes of it

// It hears of a click before the page does, and leaves it to the page whether to follow the link.
constexpr auto kScript = R"(
(() => {
    const tell = event => {
        if (!event.isTrusted)
            return;
        for (const node of event.composedPath())
            if ((node instanceof HTMLAnchorElement || node instanceof HTMLAreaElement) &&
                node.protocol === 'mailto:') {
                console.log('%1' + node.href);
                return;
            }
    };
    addEventListener('click', tell, true);
    addEventListener('auxclick', tell, true);
})()
)";

} // namespace

MailClicks::MailClicks(QWebEngineProfile& profile)
    : m_word(QUuid::createUuid().toString(QUuid::WithoutBraces) + u' ') {
    QWebEngineScript script;
    script.setName(u"mail clicks"_s);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setRunsOnSubFrames(true);
    script.setSourceCode(QString::fromLatin1(kScript).arg(m_word));
    profile.scripts()->insert(script);
}

QUrl MailClicks::Read(const QString& line) const {
    return line.startsWith(m_word) ? QUrl(line.mid(m_word.size())) : QUrl();
}

void ClickedMail::Note(const QUrl& address) {
    m_address = address;
    m_since.start();
}

bool ClickedMail::Take(const QUrl& address) {
    const bool isIt = m_since.isValid() && !m_since.hasExpired(kFreshness) && m_address == address;
    if (isIt)
        m_since.invalidate();
    return isIt;
}

} // namespace tallowmere
