#include "app/base/modMain.h"

#include "app/base/TransferControl.h"
#include "core/shell/closing_tag.h"
#include "core/shell/conversion.h"
#include "core/text/runtime_error.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QTimer>

#include <algorithm>
#include <limits>

namespace tallowmere {

namespace {

constexpr float kTwipsToPixel = 15;
constexpr int kTitleBarHeight = 30; // what must be in view of a window for the user to move it
constexpr int kTitleBarWidth = 60;

int ToPixels(const std::string& twips) {
    // Beyond this no screen lies, and arithmetic on rectangles stays within its range.
    constexpr float farthest = std::numeric_limits<short>::max();
    return qRound(std::clamp(ToSingle(twips) / kTwipsToPixel, -farthest, farthest));
}

// A form may be larger than all screens together, but not so large that nobody can paint it.
QSize LargestSize() {
    constexpr QSize kAlwaysPainted(4096, 4096);
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->virtualSize().expandedTo(kAlwaysPainted) : kAlwaysPainted;
}

void PullOntoScreen(QWidget& form) {
    const QRect titleBar(form.pos(), QSize(form.width(), kTitleBarHeight));
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect seen = screen->availableGeometry().intersected(titleBar);
        if (seen.width() >= std::min(kTitleBarWidth, form.width()) && !seen.isEmpty() &&
            titleBar.top() >= screen->availableGeometry().top())
            return;
    }
    const QScreen* screen = QGuiApplication::screenAt(form.geometry().center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const QRect room = screen->availableGeometry();
    form.move(
        std::clamp(form.x(), room.left(), std::max(room.left(), room.right() - form.width())),
        std::clamp(form.y(), room.top(), std::max(room.top(), room.bottom() - form.height())));
}

} // namespace

TransferPool::TransferPool(const WebAccess& access, QObject* parent,
                           std::chrono::milliseconds closingTagWait)
    : QObject(parent), m_access(access), m_closingTagWait(closingTagWait) {}

TransferPool::Slot& TransferPool::Take() {
    const auto slot = std::ranges::find(m_slots, false, &Slot::isTaken);
    if (slot == m_slots.end())
        throw RuntimeError("Subscript out of range: all transfer controls are in use");
    if (!slot->control)
        slot->control = new TransferControl(m_access, this);
    slot->control->UseProxy(m_proxy);
    slot->isTaken = true;
    return *slot;
}

QByteArray TransferPool::FetchPage(const QString& address, const QObject* asker) {
    Slot& slot = Take();
    const QPointer<TransferControl> control(slot.control);
    QByteArray page;
    ClosingTagWatch tag;
    QEventLoop loop;
    QTimer wait;
    bool hasWaited = false;

    const auto proceed = [&] {
        if (!control)
            return;
        const QByteArray piece = control->GetChunk(TransferControl::kSizeLimit);
        tag.Add({piece.data(), static_cast<std::size_t>(piece.size())});
        page += piece;
        const bool isOver = !control->IsBusy();
        if (tag.IsAtEnd() || (isOver && (tag.IsFound() || control->HasFailed() || hasWaited)))
            loop.quit();
    };
    const auto endWait = [&] {
        // The rest of a page that is still arriving gets as long again, and no longer.
        const bool hasWaitedTwice = std::exchange(hasWaited, true);
        if (tag.IsFound() || !control->IsBusy() || hasWaitedTwice)
            loop.quit();
    };
    QObject::connect(control, &TransferControl::DataArrived, &loop, proceed);
    QObject::connect(control, &TransferControl::Finished, &loop, proceed, Qt::QueuedConnection);
    QObject::connect(control, &QObject::destroyed, &loop, &QEventLoop::quit);
    if (asker)
        QObject::connect(asker, &QObject::destroyed, &loop, &QEventLoop::quit);
    QObject::connect(&wait, &QTimer::timeout, &loop, endWait);
    wait.setTimerType(Qt::PreciseTimer);
    wait.start(m_closingTagWait);
    control->Open(address);
    loop.exec();

    if (!control)
        return {};
    control->Cancel();
    slot.isTaken = false;
    return page;
}

void TransferPool::CancelAll() {
    for (const Slot& slot : m_slots)
        if (slot.control)
            slot.control->Cancel();
}

void LoadFormPosition(QWidget& form, const SettingsStore& settings) {
    const std::string section = form.objectName().toStdString();
    std::string problem;
    const auto read = [&](const char* key, const char* fallback) {
        try {
            return ToPixels(settings.GetSetting(section, key, fallback));
        } catch (const RuntimeError& error) {
            if (problem.empty())
                problem = std::string(error.what()) + ": setting " + section + "/" + key;
            return ToPixels(fallback);
        }
    };
    const QSize largest = LargestSize();
    form.move(form.x(), read("Top", "50"));
    form.move(read("Left", "50"), form.y());
    form.resize(form.width(), std::min(read("Height", "8500"), largest.height()));
    form.resize(std::min(read("Width", "10000"), largest.width()), form.height());
    PullOntoScreen(form);
    if (!problem.empty())
        throw RuntimeError(problem);
}

void SaveFormPosition(const QWidget& form, SettingsStore& settings) {
    if (form.isMinimized() || form.isFullScreen())
        return;
    const std::string section = form.objectName().toStdString();
    const auto save = [&](const char* key, int pixels) {
        settings.SaveSetting(section, key, FromSingle(static_cast<float>(pixels) * kTwipsToPixel));
    };
    save("Top", form.y());
    save("Left", form.x());
    save("Height", form.height());
    save("Width", form.width());
}

} // namespace tallowmere
