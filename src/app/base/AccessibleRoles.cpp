#include "app/base/AccessibleRoles.h"

#include <QAccessibleWidget>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

// It is asked for the class of an object first and for those above it after that: what gets as far
// as these classes has no role of its own.
QAccessibleInterface* MakeGroup(const QString& className, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    const bool isPlain = className == u"QWidget"_s || className == u"QScrollArea"_s;
    return isPlain && widget && !widget->isWindow()
               ? new QAccessibleWidget(widget, QAccessible::Grouping)
               : nullptr;
}

} // namespace

void ShowContainersAsGroups() {
    QAccessible::installFactory(MakeGroup);
}

} // namespace tallowmere
