#pragma once

#include "core/market/page_change.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <optional>

namespace tallowmere {

class Clock;
class DesktopNotice;
class frmChange;
class frmWiz;

/// Tells when the text of a watched page changed from one load to the next: all of it, or the part
/// that the user marked.
class ChangeWatch : public QObject {
    Q_OBJECT
public:
    ChangeWatch(frmWiz& form, const Clock& clock);

    /// Begins to compare with the next load, only a part unless that is empty; or ends it.
    void Watch(bool isOn, const QString& part);
    bool IsOn() const { return m_isOn; }
    /// Where the part is, as PageReader says it.
    QString Part() const { return m_part; }

    /// The page was loaded: what is in it is looked at a moment later, when its scripts have
    /// written.
    void Loaded();

    DesktopNotice& Notice() { return *m_notice; }
    QTimer Settle;

private:
    void TakeMark(bool isWanted);
    void Read();
    void Compare(const std::optional<QString>& text);
    void Tell(const QString& words);
    void ShowChange();

    frmWiz& m_form;
    const Clock& m_clock;
    DesktopNotice* m_notice;
    bool m_isOn = false;
    QString m_part;
    std::optional<std::vector<std::string>> m_before; ///< none before the first load
    QString m_address;                                ///< of the page that this is the text of
    bool m_isPartGone = false;
    std::vector<ChangedLine> m_change; ///< the last one
    QPointer<frmChange> m_shown;
};

} // namespace tallowmere
