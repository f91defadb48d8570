#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace tallowmere {

/// What a pane shows in place of a page that cannot be shown. It is no web page: it needs no
/// renderer, has no origin, and shows what a site said as plain text.
class PaneNotice : public QFrame {
    Q_OBJECT
public:
    explicit PaneNotice(QWidget* parent);

    enum class Offer { TryAgain, TryAgainOrSearch, Nothing };

    /// Shows what happened and the address it happened to; and the one that was built, where that
    /// led to this one.
    void Tell(const QString& title, const QString& text, const QString& address, Offer offer,
              const QString& builtAddress = {});

Q_SIGNALS:
    void TryAgain();
    /// The user wants the address as it was built.
    void AsBuilt();
    /// The user chose to look elsewhere: an address for the pane.
    void AddressChosen(const QString& address);

private:
    QLabel* m_title;
    QLabel* m_text;
    QLabel* m_address;
    QLabel* m_built;
    QPushButton* m_tryAgain;
    QPushButton* m_asBuilt;
    QPushButton* m_search;
    QPushButton* m_archive;
    QString m_shownAddress;
    QString m_builtAddress;
};

} // namespace tallowmere
