#include "app/engine/PaneNotice.h"

#include "app/base/FlowLayout.h"
#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "core/links/web_address.h"

#include <QLabel>
#include <QNetworkInformation>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargin = 32;
constexpr int kGap = 6;
constexpr double kTitleScale = 1.4;

QLabel* AddLabel(QVBoxLayout* layout, const QString& name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    layout->addWidget(label);
    return label;
}

QPushButton* AddButton(QLayout* layout, const QString& name, const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    layout->addWidget(button);
    return button;
}

// A path of the catalogue is seldom known to a search engine; the site behind it is.
QString SearchAddress(const QString& address) {
    const QString host = UrlFromAddress(address).host();
    return u"https://duckduckgo.com/?q="_s +
           QString::fromLatin1(QUrl::toPercentEncoding(host.isEmpty() ? address : host));
}

QString ArchiveAddress(const QString& address) {
    return u"https://web.archive.org/web/"_s +
           QString::fromStdString(WithScheme(address.toStdString()));
}

} // namespace

PaneNotice::PaneNotice(QWidget* parent) : QFrame(parent) {
    setObjectName(u"PaneNotice"_s);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    m_title = AddLabel(layout, u"NoticeTitle"_s);
    QFont titleFont = font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * kTitleScale);
    m_title->setFont(titleFont);
    m_text = AddLabel(layout, u"NoticeText"_s);
    m_address = AddLabel(layout, u"NoticeAddress"_s);
    m_built = AddLabel(layout, u"NoticeBuilt"_s);

    auto* buttons = new FlowLayout(nullptr, kGap);
    layout->addLayout(buttons);
    m_tryAgain = AddButton(buttons, u"NoticeTryAgain"_s, tr("Try again"));
    m_asBuilt = AddButton(buttons, u"NoticeAsBuilt"_s, tr("Open the built address"));
    m_search = AddButton(buttons, u"NoticeSearch"_s, tr("Search the web"));
    m_archive = AddButton(buttons, u"NoticeArchive"_s, tr("Look in the Internet Archive"));
    layout->addStretch();

    connect(m_tryAgain, &QPushButton::clicked, this, &PaneNotice::TryAgain);
    connect(m_asBuilt, &QPushButton::clicked, this, &PaneNotice::AsBuilt);
    connect(m_search, &QPushButton::clicked, this,
            [this] { Q_EMIT AddressChosen(SearchAddress(m_shownAddress)); });
    connect(m_archive, &QPushButton::clicked, this,
            [this] { Q_EMIT AddressChosen(ArchiveAddress(m_builtAddress)); });
}

void PaneNotice::Clear() {
    m_why = Reason::None;
    hide();
}

void PaneNotice::Tell(Reason why, const QString& title, const QString& text, const QString& address,
                      Offer offer, const QString& builtAddress) {
    m_why = why;
    m_shownAddress = address;
    m_builtAddress = builtAddress.isEmpty() ? address : builtAddress;
    m_title->setText(title);
    m_text->setText(text);
    m_text->setVisible(!text.isEmpty());
    m_address->setText(LineStart(address));
    m_built->setText(tr("It stands for %1").arg(LineStart(builtAddress)));
    m_built->setVisible(!builtAddress.isEmpty());
    m_asBuilt->setVisible(!builtAddress.isEmpty());
    m_tryAgain->setVisible(offer != Offer::Nothing);
    m_search->setVisible(offer == Offer::TryAgainOrSearch);
    m_archive->setVisible(offer == Offer::TryAgainOrSearch);
    show();
}

void PaneNotice::TellOfFailure(const QString& title, const QString& text, const QString& address,
                               const QString& builtAddress) {
    Tell(Reason::Failure, title, text, address, Offer::TryAgainOrSearch, builtAddress);
    AwaitNetwork();
}

void PaneNotice::AwaitNetwork() {
    using Feature = QNetworkInformation::Feature;
    if (!QNetworkInformation::loadBackendByFeatures(Feature::Reachability))
        return;
    QNetworkInformation* network = QNetworkInformation::instance();
    network->disconnect(this);
    connect(network, &QNetworkInformation::reachabilityChanged, this,
            [this](QNetworkInformation::Reachability reachability) {
                // A page of the program's own was refused, to a page of the web perhaps; the
                // network had no part in it.
                const bool isOfWeb = !UrlFromAddress(m_builtAddress).host().isEmpty();
                if (reachability == QNetworkInformation::Reachability::Online &&
                    m_why == Reason::Failure && isOfWeb)
                    Q_EMIT TryAgain();
            });
}

void PaneNotice::TellOfCrash(const QString& address, bool wasLoading) {
    Tell(wasLoading ? Reason::Failure : Reason::Crash, tr("This page crashed"),
         tr("The program goes on. Refresh or \"Try again\" brings the page back."), address,
         Offer::TryAgain);
}

void PaneNotice::TellOfStorm(const QString& address) {
    Tell(Reason::Storm, tr("This page was stopped"),
         tr("It showed or asked something five times within ten seconds. \"Try again\" "
            "loads it anew."),
         address, Offer::TryAgain);
}

void PaneNotice::TellOfRefusal(const QString& address) {
    const bool isMeantForTheWeb = WithScheme(address.toStdString()).starts_with("http");
    Tell(Reason::Refusal, tr("This address is not shown"),
         isMeantForTheWeb ? tr("No site can have this name.")
                          : tr("Only pages of the web (http and https) and the program's own pages "
                               "are shown here."),
         address, Offer::Nothing);
}

} // namespace tallowmere
