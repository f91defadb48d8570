#include "app/forms/DialogParts.h"

#include <QPushButton>
#include <QScreen>

namespace tallowmere {

namespace {

constexpr double kMostOfScreen = 0.9;

} // namespace

QPushButton* MakeButton(const QString& name, const QString& caption, QWidget* dialog) {
    auto* button = new QPushButton(caption, dialog);
    button->setObjectName(name);
    button->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
    button->setAutoDefault(false);
    return button;
}

void ResizeWithinScreen(QWidget& window, int characters, int lines) {
    const QFontMetrics metrics = window.fontMetrics();
    const QSize wanted(characters * metrics.averageCharWidth(), lines * metrics.height());
    window.resize(wanted.boundedTo(window.screen()->availableSize() * kMostOfScreen));
}

} // namespace tallowmere
