#include "app/shell/Application.h"

#include "app/base/AccessibleRoles.h"
#include "app/base/PlainLabels.h"
#include "app/base/Prompts.h"
#include "app/forms/HintColor.h"
#include "core/text/runtime_error.h"

#include <QIcon>
#include <QPalette>
#include <QSocketNotifier>
#include <QTimer>

#ifndef _WIN32
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

/// The window and its first page come before what stands for it in the bar of the desktop.
constexpr auto kIconDelay = std::chrono::milliseconds(300);

#ifndef _WIN32
int terminationSockets[2] = {-1, -1};

void WriteTermination(int) {
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = write(terminationSockets[0], &byte, 1);
}
#endif

} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    // Without a display name: the platform would append it to the caption of every window.
    setApplicationName(u"Tallowmere"_s);
    setDesktopFileName(u"org.tallowmere.tallowmere"_s);
    setApplicationVersion(QStringLiteral(TALLOWMERE_VERSION));
    installEventFilter(new PlainLabels(this));
    ShowContainersAsGroups();
    MendHints();
    QuitOnTermination();
    // From the first wait for events on: until then the start is busy.
    QTimer::singleShot(0, this,
                       [this] { QTimer::singleShot(kIconDelay, this, &Application::LoadIcon); });
    connect(this, &QGuiApplication::commitDataRequest, this, &Application::EndNow,
            Qt::DirectConnection);
}

bool Application::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange)
        MendHints();
    return QApplication::event(event);
}

void Application::MendHints() {
    const auto hint = LegibleHint(palette());
    // To set it tells of another palette again.
    if (!hint || *hint == palette().color(QPalette::PlaceholderText))
        return;
    QPalette mended;
    mended.setColor(QPalette::PlaceholderText, *hint);
    setPalette(mended);
}

// The first one to be loaded has the toolkit look for all that it can read pictures with.
void Application::LoadIcon() {
    QIcon icon;
    for (const int size : {48, 64, 128, 256})
        icon.addFile(u":/icons/%1.png"_s.arg(size));
    setWindowIcon(icon);
}

// Who ends the program, or the session, does not wait for an answer to a box.
void Application::EndNow() {
    m_isEnding = true;
    if (m_prompts)
        m_prompts->Leave();
    closeAllWindows();
    // Unlike quit(), this ends the loops that the start waits in, too.
    exit(0);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const RuntimeError& error) {
        Report(QString::fromUtf8(error.what()));
    } catch (const std::exception& error) {
        Report(u"Unexpected error: "_s + QString::fromUtf8(error.what()));
    }
    return true;
}

void Application::Report(const QString& text) {
    if (m_prompts)
        m_prompts->Message(text, MessageTitle());
    else
        qCritical("%s", qUtf8Printable(text));
}

// The engine writes cookies late: a termination signal has to close the window in order.
void Application::QuitOnTermination() {
#ifndef _WIN32
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, terminationSockets) != 0)
        return;
    auto* notifier = new QSocketNotifier(terminationSockets[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        EndNow();
    });
    struct sigaction action = {};
    action.sa_handler = WriteTermination;
    action.sa_flags = SA_RESTART;
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        sigaction(number, &action, nullptr);
#endif
}

} // namespace tallowmere
