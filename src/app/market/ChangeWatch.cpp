#include "app/market/ChangeWatch.h"

#include "app/base/Clock.h"
#include "app/base/DesktopNotice.h"
#include "app/base/QtText.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/PageReader.h"
#include "app/forms/ChangeBar.h"
#include "app/forms/WindowCommands.h"
#include "app/forms/frmChange.h"
#include "app/forms/frmWiz.h"

#include <QAction>
#include <QApplication>

namespace tallowmere {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kSettle = 2s;

} // namespace

ChangeWatch::ChangeWatch(frmWiz& form, const Clock& clock)
    : QObject(&form), m_form(form), m_clock(clock), m_notice(new DesktopNotice(this)) {
    Settle.setSingleShot(true);
    Settle.setInterval(kSettle);
    connect(&Settle, &QTimer::timeout, this, &ChangeWatch::Read);
    connect(form.commands->At("tellChanges"), &QAction::triggered, this,
            [this](bool isOn) { Watch(isOn, {}); });
    connect(form.commands->At("markedPart"), &QAction::triggered, this, &ChangeWatch::TakeMark);
    connect(form.commands->At("showChange"), &QAction::triggered, this, &ChangeWatch::ShowChange);
    connect(form.barChange, &ChangeBar::ShowWanted, this, &ChangeWatch::ShowChange);
    connect(m_notice, &DesktopNotice::Clicked, &form, [&form] {
        form.setWindowState(form.windowState() & ~Qt::WindowMinimized);
        form.raise();
        form.activateWindow();
    });
    Watch(false, {});
}

void ChangeWatch::Watch(bool isOn, const QString& part) {
    m_isOn = isOn;
    m_part = isOn ? part : QString();
    m_before.reset();
    m_isPartGone = false;
    m_form.commands->At("tellChanges")->setChecked(isOn);
    m_form.commands->At("markedPart")->setChecked(!m_part.isEmpty());
    m_form.commands->At("showChange")->setEnabled(!m_change.empty());
    Settle.stop();
    // What is on the screen is what later loads are compared with.
    if (isOn && !m_form.Web->Busy())
        Read();
}

void ChangeWatch::TakeMark(bool isWanted) {
    if (!isWanted) {
        Watch(m_isOn, {});
        return;
    }
    PageReader::ReadMark(*m_form.Web, [guard = QPointer(this)](const QString& part) {
        if (!guard)
            return;
        guard->Watch(guard->m_isOn || !part.isEmpty(), part);
        if (part.isEmpty())
            guard->m_form.barChange->Tell(tr("Mark a part of the page first"), false);
    });
}

void ChangeWatch::Loaded() {
    if (m_isOn)
        Settle.start();
}

void ChangeWatch::Read() {
    // Where a page should be and is not, nothing of it changed.
    if (!m_isOn || m_form.Web->Busy() || !m_form.Web->AskPage([](QWebEnginePage&) {}))
        return;
    const QPointer guard(this);
    const auto compare = [guard, part = m_part](const std::optional<QString>& text) {
        // Another part may be watched by now.
        if (guard && guard->m_part == part)
            guard->Compare(text);
    };
    if (m_part.isEmpty())
        PageReader::ReadText(*m_form.Web, compare);
    else
        PageReader::ReadPart(*m_form.Web, m_part, compare);
}

// A part that is gone is told once; when it is there again it is compared with what it was.
// Another page is no change of this one.
void ChangeWatch::Compare(const std::optional<QString>& text) {
    if (!m_isOn)
        return;
    if (m_address != m_form.Web->LocationURL())
        m_before.reset();
    m_address = m_form.Web->LocationURL();
    if (!text) {
        if (!m_isPartGone)
            Tell(tr("The marked part is not in the page any more"));
        m_isPartGone = true;
        return;
    }
    m_isPartGone = false;
    std::vector<std::string> now = ComparedLines(FromQt(*text));
    std::vector<ChangedLine> change =
        m_before ? ChangedLines(*m_before, now) : std::vector<ChangedLine>();
    m_before = std::move(now);
    if (change.empty())
        return;
    m_change = std::move(change);
    m_form.commands->At("showChange")->setEnabled(true);
    if (m_shown)
        m_shown->Show(m_change);
    Tell(ToQt(ChangeWords(m_change)));
}

// The notice says nothing of what the page says: desktops may take it for markup.
void ChangeWatch::Tell(const QString& words) {
    m_form.barChange->Tell(tr("%1: %2").arg(m_clock.Now().toString(u"HH:mm:ss"_s), words),
                           !m_change.empty());
    m_notice->Show(m_form.windowTitle(), words, [form = QPointer(&m_form)] {
        if (form)
            QApplication::alert(form);
    });
}

void ChangeWatch::ShowChange() {
    if (m_change.empty())
        return;
    if (!m_shown) {
        m_shown = new frmChange(&m_form);
        m_shown->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_shown->setWindowTitle(tr("What Changed - %1").arg(LineStart(m_form.windowTitle())));
    m_shown->Show(m_change);
    m_shown->show();
    m_shown->raise();
    m_shown->activateWindow();
    m_form.barChange->hide();
}

} // namespace tallowmere
