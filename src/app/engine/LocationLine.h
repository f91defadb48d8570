#pragma once

#include "core/pages/shown_address.h"

#include <QWidget>

namespace tallowmere {

/// The line under a page that says where the pane really is: whether what is typed there can be
/// read on its way, the host before all else, and the address that was built, where that is
/// another one. Everything in it comes from strangers and is drawn as plain text.
class LocationLine : public QWidget {
    Q_OBJECT
public:
    explicit LocationLine(QWidget* parent);

    /// Shows where the pane is, as the engine has it. `built` is the address that led there;
    /// `asksForPassword` says whether the page has a box for one.
    void Show(const QUrl& url, const QString& built, bool asksForPassword);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool IsWarning() const { return m_asksForPassword && m_address.safety == Safety::Open; }
    QString SafetyText() const;
    QString Behind(int room) const;
    int DrawLock(QPainter& painter, int x) const;

    ShownAddress m_address;
    QString m_built;
    bool m_asksForPassword = false;
};

} // namespace tallowmere
