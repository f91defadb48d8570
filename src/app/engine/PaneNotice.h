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

    /// Why the page cannot be shown; `None` while the notice is not there.
    enum class Reason { None, Failure, Refusal, Crash, Storm };
    Reason Why() const { return m_why; }
    /// Whether the page that was to be shown is not there, so that loading it again begins with
    /// `Address`.
    bool HasLostPage() const { return m_why == Reason::Failure || m_why == Reason::Storm; }
    /// Whether a page that nothing happened to is still behind the notice.
    bool CoversIntactPage() const { return m_why == Reason::Failure || m_why == Reason::Refusal; }
    /// The address of the page that is not there, as it was built.
    QString Address() const { return m_builtAddress; }

    /// Takes the notice away.
    void Clear();
    /// The page could not be loaded: `title` and `text` say why. `address` is the one that was
    /// asked for, `builtAddress` the one that led there, empty where it is the same. When the
    /// machine comes back to the network, TryAgain is raised for a page of the web.
    void TellOfFailure(const QString& title, const QString& text, const QString& address,
                       const QString& builtAddress = {});
    /// The page's process ended while it was shown, or while it was loaded.
    void TellOfCrash(const QString& address, bool wasLoading);
    /// The page asked so much that it was stopped.
    void TellOfStorm(const QString& address);
    /// The address is none that is shown here.
    void TellOfRefusal(const QString& address);

Q_SIGNALS:
    void TryAgain();
    /// The user wants the address as it was built.
    void AsBuilt();
    /// The user chose to look elsewhere: an address for the pane.
    void AddressChosen(const QString& address);

private:
    enum class Offer { TryAgain, TryAgainOrSearch, Nothing };
    void Tell(Reason why, const QString& title, const QString& text, const QString& address,
              Offer offer, const QString& builtAddress = {});
    void AwaitNetwork();

    Reason m_why = Reason::None;
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
