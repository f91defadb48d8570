#pragma once

#include "app/base/ProxySetting.h"
#include "core/shell/settings_store.h"

#include <QObject>
#include <QWidget>

#include <array>
#include <chrono>

/// The routines that several windows share.
namespace tallowmere {

class TransferControl;
class WebAccess;

/// The array `Inet`: the transfer controls of page fetches. Fetches that wait at the same time
/// never share one.
class TransferPool : public QObject {
    Q_OBJECT
public:
    static constexpr int kMostControls = 21;

    /// `closingTagWait` is how long a page without its closing tag is waited for.
    explicit TransferPool(const WebAccess& access, QObject* parent = nullptr,
                          std::chrono::milliseconds closingTagWait = std::chrono::seconds(60));

    /// The proxy of every fetch from now on.
    void UseProxy(const ProxySetting& setting) { m_proxy = setting; }

    /// The text of a page; the window stays alive meanwhile. A page is complete when it ended and
    /// holds its closing tag, or ends with it so far. Without the tag it is given after the wait,
    /// with all that arrived; one that cannot be had at all is the empty text, at once. Throws
    /// RuntimeError when all controls wait for pages already. When `asker` is given, a fetch ends
    /// with what arrived once that is destroyed.
    QByteArray FetchPage(const QString& address, const QObject* asker = nullptr);

    /// Ends every fetch that waits; each gives what arrived so far.
    void CancelAll();

private:
    struct Slot {
        TransferControl* control = nullptr;
        bool isTaken = false;
    };

    Slot& Take();

    const WebAccess& m_access;
    std::chrono::milliseconds m_closingTagWait;
    ProxySetting m_proxy;
    std::array<Slot, kMostControls> m_slots;
};

/// Puts a form where its section of the settings says, in twips; a form that would lie off every
/// screen is pulled onto one. A value that is no number counts as its default, and in the end
/// RuntimeError is thrown, which names its key.
void LoadFormPosition(QWidget& form, const SettingsStore& settings);

/// Writes a form's place and size in twips, unless it is minimised or fills the screen.
void SaveFormPosition(const QWidget& form, SettingsStore& settings);

} // namespace tallowmere
