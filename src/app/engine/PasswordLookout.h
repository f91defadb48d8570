#pragma once

#include <QObject>
#include <QUrl>

class QWebEnginePage;

namespace tallowmere {

/// Looks for boxes for passwords on pages without encryption: what is typed into such a page can be
/// read on its way.
class PasswordLookout : public QObject {
    Q_OBJECT
public:
    explicit PasswordLookout(QObject* parent);

    /// Looks at the page that came from `url`, unless it is encrypted or known already.
    void Look(QWebEnginePage& page, const QUrl& url);
    /// Another page is there: of the earlier one nothing is known any more, and an answer that is
    /// still awaited may never come.
    void Forget();
    /// Whether the page that came from `url` is open to others and has a box for a password.
    bool IsAskedBy(const QUrl& url) const { return !url.isEmpty() && url == m_url; }

Q_SIGNALS:
    void Found();

private:
    bool m_isLooking = false;
    QUrl m_url;
};

} // namespace tallowmere
