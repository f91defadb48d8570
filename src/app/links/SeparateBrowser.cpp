#include "app/links/SeparateBrowser.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "core/pages/mail_address.h"
#include "core/portal/generated_pages.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

/// The calculators of the usual desktops; the first that is installed is taken.
QStringList UsualCalculators() {
#ifdef _WIN32
    return {u"calc.exe"_s};
#else
    return {u"gnome-calculator"_s, u"kcalc"_s, u"galculator"_s, u"xcalc"_s, u"qalculate-gtk"_s};
#endif
}

bool Start(QStringList command) {
    if (command.isEmpty())
        return false;
    const QString program = command.takeFirst();
    return QProcess::startDetached(program, command);
}

} // namespace

SeparateBrowser::SeparateBrowser(const SiteTable& sites, const WebAccess& access, Prompts& prompts,
                                 const std::filesystem::path& programFolder, QObject* parent)
    : QObject(parent), m_sites(sites), m_access(access), m_prompts(prompts),
      m_programFolder(PathToQt(programFolder)) {}

bool SeparateBrowser::StartOrOpen(std::string_view program, const QUrl& url) const {
    const QString text = QString::fromStdString(std::string(m_sites.Program(program)));
    const QStringList command = QProcess::splitCommand(text);
    if (command.isEmpty())
        return QDesktopServices::openUrl(url);
    return Start(command + QStringList{url.toString(QUrl::FullyEncoded)});
}

// Empty for what must not be opened. A file is known by its whole path as the program writes it,
// never by an address that claims to be one.
QUrl SeparateBrowser::PageToOpen(const QString& address) const {
    if (!GeneratedPageIn(FromQt(m_programFolder), FromQt(address)).empty())
        return QUrl::fromLocalFile(address);
    const QUrl url = UrlFromAddress(address);
    if (!url.isValid() || !IsWebUrl(url) || url.host().isEmpty())
        return {};
    return m_access.ResolveOutside(url);
}

void SeparateBrowser::Open(const QString& address) {
    const QUrl url = PageToOpen(address);
    if (url.isEmpty())
        m_prompts.Message(
            tr("Only pages of the web open in a separate browser, not %1").arg(address),
            MessageTitle());
    else if (!StartOrOpen("browser", url))
        m_prompts.Message(tr("No browser could be started for %1").arg(address), MessageTitle());
}

void SeparateBrowser::WriteMail(const QString& address) {
    const auto draft = ReadMailAddress(FromQt(address));
    if (!draft || !StartOrOpen("mail", QUrl(ToQt(WriteMailAddress(*draft)))))
        m_prompts.Message(tr("No mail program could be started for %1").arg(address),
                          MessageTitle());
}

void SeparateBrowser::StartCalculator() {
    const QString own = QString::fromStdString(std::string(m_sites.Program("calculator")));
    if (Start(QProcess::splitCommand(own)))
        return;
    for (const QString& name : UsualCalculators())
        if (!QStandardPaths::findExecutable(name).isEmpty() && Start({name}))
            return;
    m_prompts.Message(tr("No calculator program was found."), MessageTitle());
}

} // namespace tallowmere
