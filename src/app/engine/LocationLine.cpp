#include "app/engine/LocationLine.h"

#include "app/base/PortalAddress.h"
#include "app/base/QtText.h"
#include "app/base/WebAccess.h"

#include <QPainter>
#include <QUrl>

#include <algorithm>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargin = 4;
constexpr int kGap = 6;
// The warning keeps its colours in light and dark: white on red, well readable.
constexpr QRgb kWarning = 0xFFB3261E;

} // namespace

LocationLine::LocationLine(QWidget* parent) : QWidget(parent) {
    setObjectName(u"LocationLine"_s);
    // A long address must not widen the window.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    hide();
}

QSize LocationLine::sizeHint() const {
    return {0, fontMetrics().height() + 1};
}

void LocationLine::Show(const QUrl& url, const QString& built, bool asksForPassword) {
    m_address = ShowAddress(url.toEncoded().toStdString());
    bool isAnother = StandsForAnother(UrlFromAddress(built).toEncoded().toStdString(),
                                      url.toEncoded().toStdString());
    if (url.scheme() == PortalAddress::Scheme()) {
        // The private scheme says nothing to anybody; a page of the folder is known by its name.
        const bool isOfTheFolder = PortalAddress::IsPage(url);
        m_address = {Safety::Own, {}, {}, isOfTheFolder ? FromQt(url.fileName()) : std::string()};
        isAnother = !isOfTheFolder && !PortalAddress::IsOwn(url);
    }
    m_built = isAnother ? LineStart(built) : QString();
    m_asksForPassword = asksForPassword;
    const QString where = ToQt(m_address.scheme + m_address.host + m_address.rest);
    QString text = SafetyText() + u' ' + where;
    if (IsWarning())
        text += u" - "_s + tr("others can read a password that is typed here");
    if (!m_built.isEmpty())
        text += u" - "_s + tr("stands for %1").arg(m_built);
    setAccessibleName(tr("Where the page is"));
    setAccessibleDescription(text);
    setToolTip(text);
    update();
}

QString LocationLine::SafetyText() const {
    switch (m_address.safety) {
    case Safety::Encrypted:
        return tr("Encrypted");
    case Safety::Open:
        return tr("Not encrypted");
    case Safety::Own:
        break;
    }
    return tr("Own page");
}

// What follows the host in `room` pixels.
QString LocationLine::Behind(int room) const {
    if (!IsWarning())
        return ToQt(m_address.rest);
    const QString whole = u" \u2013 "_s + tr("others can read a password that is typed here");
    if (fontMetrics().horizontalAdvance(whole) <= room)
        return whole;
    return u" \u2013 "_s + tr("others can read the password");
}

int LocationLine::DrawLock(QPainter& painter, int x) const {
    const int size = fontMetrics().ascent() - 2;
    const int top = (height() - size) / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor color = palette().color(QPalette::WindowText);
    painter.setPen(QPen(color, 1.4));
    painter.drawArc(QRectF(x + size * 0.2, top, size * 0.6, size * 0.8), 0, 180 * 16);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(x, top + size * 0.42, size, size * 0.58), 1.5, 1.5);
    painter.restore();
    return size;
}

void LocationLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QColor text = palette().color(QPalette::WindowText);
    if (IsWarning()) {
        painter.fillRect(rect(), QColor::fromRgb(kWarning));
        text = Qt::white;
    }
    QFont bold = font();
    bold.setBold(true);
    int x = kMargin;
    const int right = width() - kMargin;
    const auto draw = [&](const QString& what, const QFont& inFont, Qt::TextElideMode elide,
                          int end) {
        const QFontMetrics metrics(inFont);
        const QString fits = metrics.elidedText(what, elide, std::max(0, end - x));
        painter.setFont(inFont);
        painter.setPen(text);
        painter.drawText(QRect(x, 0, std::max(0, end - x), height()),
                         Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, fits);
        x += metrics.horizontalAdvance(fits);
    };
    if (m_address.safety == Safety::Encrypted) {
        x += DrawLock(painter, x) + kGap;
    } else if (!IsWarning()) { // which says as much
        draw(SafetyText(), m_address.safety == Safety::Open ? bold : font(), Qt::ElideRight, right);
        x += kGap;
    }
    draw(ToQt(m_address.scheme), font(), Qt::ElideRight, right);
    // Of a host that is too long its end tells whose it is.
    draw(ToQt(m_address.host), bold, Qt::ElideLeft, right);

    const QString stands = m_built.isEmpty() ? QString() : tr("stands for %1").arg(m_built);
    const int wanted = fontMetrics().horizontalAdvance(stands) + 2 * kGap;
    const int left = right - x;
    const QString behind = Behind(left);
    const int behindWidth = fontMetrics().horizontalAdvance(behind);
    const int standsWidth =
        stands.isEmpty() ? 0 : std::min(wanted, std::max(left - behindWidth, left / 2));
    draw(behind, font(), Qt::ElideRight, right - standsWidth);
    x = std::max(x, right - standsWidth) + kGap;
    draw(stands, font(), Qt::ElideRight, right);
}

} // namespace tallowmere
