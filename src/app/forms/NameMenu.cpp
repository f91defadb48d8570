#include "app/forms/NameMenu.h"

#include <QProxyStyle>
#include <QStyleOptionMenuItem>

namespace tallowmere {

namespace {

constexpr int kWidestCharacters = 40;

// A menu takes the width of an item from its whole text; this one from what is shown of it.
class ShownWidth : public QProxyStyle {
public:
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override {
        QSize shown = size;
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (type == CT_MenuItem && item && item->menuItemType != QStyleOptionMenuItem::Separator) {
            const QString text = item->text.section(QLatin1Char('\t'), 0, 0);
            const int flags = Qt::TextSingleLine | Qt::TextShowMnemonic;
            shown.setWidth(QFontMetrics(item->font).boundingRect(QRect(), flags, text).width());
        }
        return QProxyStyle::sizeFromContents(type, option, shown, widget);
    }
};

} // namespace

NameMenu::NameMenu(const QString& title, QWidget* parent) : QMenu(title, parent) {
    auto* style = new ShownWidth;
    style->setParent(this);
    setStyle(style);
}

void NameMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
    QMenu::initStyleOption(option, action);
    // A style puts the shortcut behind the text.
    const qsizetype tab = option->text.indexOf(QLatin1Char('\t'));
    const QString name = tab < 0 ? option->text : option->text.left(tab);
    const QString shortcut = tab < 0 ? QString() : option->text.mid(tab);
    const QFontMetrics metrics(option->font);
    option->text =
        metrics.elidedText(name, Qt::ElideRight, kWidestCharacters * metrics.averageCharWidth(),
                           Qt::TextShowMnemonic) +
        shortcut;
}

} // namespace tallowmere
