#include "app/market/WatchWindow.h"

#include "app/base/Clock.h"
#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/base/modMain.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/PageReader.h"
#include "app/forms/WindowCommands.h"
#include "app/forms/frmWiz.h"
#include "app/market/ChangeWatch.h"
#include "core/market/watch.h"
#include "core/market/watch_page.h"
#include "core/shell/settings_store.h"
#include "core/shell/window_layout.h"
#include "core/text/bytes.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"

#include <QAction>
#include <QBuffer>
#include <QLabel>
#include <QLineEdit>
#include <QPdfWriter>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTextDocument>
#include <QValidator>

namespace tallowmere {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kTick = 1s;
constexpr int kStep = 30; ///< of the cascade, in pixels: a title bar stays in view
constexpr int kSteps = 10;
constexpr double kEarliness = 0.05; ///< seconds by which a tick may come before its time

/// Lets only those keys through that the seconds box takes, pasted ones too.
class SecondsValidator : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& input, int&) const override {
        const auto isTaken = [](QChar c) { return IsSecondsKey(c.unicode()); };
        return std::all_of(input.cbegin(), input.cend(), isTaken) ? Acceptable : Invalid;
    }
};

QByteArray PdfOf(const QString& html) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    QTextDocument document;
    document.setHtml(html);
    document.print(&writer);
    return bytes;
}

// What the main window's menu does with its pane in front.
void ConnectPageCommands(const WindowCommands& commands, BrowserPane& pane) {
    const auto connectTo = [&](std::string_view command, auto method) {
        QObject::connect(commands.At(command), &QAction::triggered, &pane, method);
    };
    connectTo("link0", &BrowserPane::Refresh);
    connectTo("findInPage", &BrowserPane::Find);
    connectTo("findNext", &BrowserPane::FindNext);
    connectTo("findPrevious", &BrowserPane::FindPrevious);
    connectTo("zoomIn", &BrowserPane::ZoomIn);
    connectTo("zoomOut", &BrowserPane::ZoomOut);
    connectTo("zoomReset", &BrowserPane::ZoomReset);
}

} // namespace

WatchWindow::WatchWindow(frmWiz& form, SettingsStore& settings, Prompts& prompts,
                         const Clock& clock, const std::string& target, int step)
    : QObject(&form), m_form(form), m_settings(settings), m_prompts(prompts), m_clock(clock),
      m_step(step), m_changes(new ChangeWatch(form, clock)) {
    form.setMinimumSize(PixelsFromTwips(kWatchMinimumWidth), PixelsFromTwips(kWatchMinimumHeight));
    Place();
    form.txtsecs->setText(ToQt(kDefaultWatchSeconds));
    form.txtsecs->setValidator(new SecondsValidator(form.txtsecs));
    const WatchTarget parts = SplitWatchTarget(target);
    m_caption = parts.caption;
    form.setWindowTitle(ToQt(WatchCaption(parts)));
    form.Text1->setText(ToQt(parts.address));
    form.Text1->setCursorPosition(0);
    Connect();
    // The page is there first; a wait comes before it is loaded again.
    WaitSecs(WatchSeconds(kDefaultWatchSeconds));
    form.Web->Navigate(form.Text1->text());
    Timer1.start(kTick);
}

void WatchWindow::Place() {
    try {
        LoadFormPosition(m_form, m_settings);
    } catch (const RuntimeError&) {
        // The window is of more use in its default place than not at all.
    }
    // Where there is no room below or on the right, the cascade goes the other way.
    const QScreen* screen = m_form.screen();
    const QRect room = screen->availableGeometry();
    const int by = m_step % kSteps * kStep;
    const int x = m_form.x() + m_form.width() + by <= room.right() ? by : -by;
    const int y = m_form.y() + m_form.height() + by <= room.bottom() ? by : -by;
    m_form.move(std::max(room.left(), m_form.x() + x), std::max(room.top(), m_form.y() + y));
}

void WatchWindow::Connect() {
    Timer1.setTimerType(Qt::PreciseTimer);
    connect(&Timer1, &QTimer::timeout, this, &WatchWindow::Tick);
    connect(m_form.cmdSubmit, &QPushButton::clicked, this,
            [this] { m_form.Web->Navigate(m_form.Text1->text()); });
    connect(m_form.Text1, &QLineEdit::returnPressed, this, [this] {
        if (!Trim(FromQt(m_form.Text1->text())).empty())
            m_form.cmdSubmit->click();
    });
    connect(&m_form, &frmWiz::SecondsLeft, this, &WatchWindow::SettleSeconds);
    connect(m_form.txtsecs, &QLineEdit::returnPressed, this, &WatchWindow::SettleSeconds);
    connect(m_form.Web, &BrowserPane::DocumentComplete, this, &WatchWindow::OnLoaded);
    ConnectPageCommands(*m_form.commands, *m_form.Web);
    connect(m_form.mnuExport, &QAction::triggered, this, &WatchWindow::Export);
    connect(&m_form, &frmWiz::Closing, this, &WatchWindow::Stop);
}

void WatchWindow::Tick() {
    if (m_stop) {
        Timer1.stop();
        return;
    }
    if (IsSetBack(static_cast<double>(m_began.secsTo(m_clock.Now()))))
        WaitSecs(m_seconds);
    if (IsWaiting())
        return;
    m_form.Web->Refresh();
    WaitSecs(WatchSeconds(FromQt(m_form.txtsecs->text())));
}

void WatchWindow::WaitSecs(int seconds) {
    m_seconds = seconds;
    m_began = m_clock.Now();
    // The ticks are counted from here, so that one of them falls on the end of the wait.
    if (Timer1.isActive())
        Timer1.start();
    ShowTimes();
}

bool WatchWindow::IsWaiting() const {
    const double noted = m_began.time().msecsSinceStartOfDay() / 1000.0;
    return m_seconds > 0 &&
           RemainingWait(noted, m_seconds, m_clock.SecondsSinceMidnight()) > kEarliness;
}

// The wait that is under way keeps the seconds that it began with.
void WatchWindow::SettleSeconds() {
    m_form.txtsecs->setText(ToQt(SettledSeconds(FromQt(m_form.txtsecs->text()))));
}

void WatchWindow::OnLoaded(bool isLoaded) {
    if (m_stop || !isLoaded)
        return;
    m_loaded = m_clock.Now().time();
    ShowTimes();
    m_changes->Loaded();
}

void WatchWindow::ShowTimes() {
    const auto text = [](QTime time) { return time.toString(u"HH:mm:ss"_s); };
    const QString loaded =
        m_loaded.isNull() ? tr("Not loaded yet") : tr("Loaded %1").arg(text(m_loaded));
    const QTime due = m_began.addSecs(m_seconds + 1).time();
    m_form.lblTimes->setText(tr("%1, due again %2").arg(loaded, text(due)));
}

void WatchWindow::Stop() {
    m_form.Web->Stop();
    Timer1.stop();
    m_stop = true;
    if (m_step == 0)
        SaveFormPosition(m_form, m_settings);
}

void WatchWindow::Export() {
    const QPointer<WatchWindow> guard(this);
    const auto path = m_prompts.SaveFile(m_form.mnuExport->text(),
                                         m_form.windowTitle().section(u' ', 0, 0) + u".html"_s,
                                         tr("Web pages (*.html *.htm);;PDF documents (*.pdf)"));
    if (!guard || !path)
        return;
    PageReader::ReadText(*m_form.Web, [guard, path = *path](const QString& text) {
        if (guard)
            guard->Write(path, text);
    });
}

void WatchWindow::Write(const QString& path, const QString& text) {
    const std::string caption = FromQt(m_form.windowTitle());
    const std::string address = FromQt(m_form.Web->LocationURL());
    const std::string time = FromQt(m_clock.Now().toString(u"yyyy-MM-dd HH:mm:ss"_s));
    const std::string document = WatchDocument({caption, address, time, FromQt(text)});
    if (path.endsWith(u".pdf"_s, Qt::CaseInsensitive))
        WriteWholeFile(ToPath(path), PdfOf(ToQt(document)).toStdString());
    else
        WriteWholeFile(ToPath(path), document);
}

} // namespace tallowmere
