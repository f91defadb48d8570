#include "links/SeparateBrowser.h"

#include "shell/Prompts.h"
#include "shell/QtText.h"
#include "webdata/WebAccess.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>

namespace tallowmere {

using namespace Qt::StringLiterals;

SeparateBrowser::SeparateBrowser(const SiteTable& sites, Prompts& prompts, QObject* parent)
    : QObject(parent), m_sites(sites), m_prompts(prompts) {}

void SeparateBrowser::Open(const QString& address) {
    const QUrl url = UrlFromAddress(address);
    if (!IsWebUrl(url)) {
        m_prompts.Message(u"This address cannot be opened: "_s + address, MessageTitle());
        return;
    }
    QStringList command = QProcess::splitCommand(ToQt(m_sites.Program("browser")));
    bool opened = false;
    if (command.isEmpty()) {
        opened = QDesktopServices::openUrl(url);
    } else {
        const QString program = command.takeFirst();
        opened = QProcess::startDetached(program, command << url.toString(QUrl::FullyEncoded));
    }
    if (!opened)
        m_prompts.Message(u"No browser could be started for "_s + address, MessageTitle());
}

void SeparateBrowser::StartCalculator() {
    QStringList candidates;
    if (const QString own = ToQt(m_sites.Program("calculator")); !own.isEmpty())
        candidates << own;
#ifdef _WIN32
    candidates << u"calc.exe"_s;
#endif
    candidates << u"gnome-calculator"_s << u"kcalc"_s << u"qalculate-gtk"_s << u"galculator"_s
               << u"xcalc"_s;
    for (const QString& candidate : candidates) {
        QStringList command = QProcess::splitCommand(candidate);
        const QString program = command.takeFirst();
        if (!QStandardPaths::findExecutable(program).isEmpty() &&
            QProcess::startDetached(program, command))
            return;
    }
    m_prompts.Message(u"No calculator program was found."_s, MessageTitle());
}

} // namespace tallowmere
