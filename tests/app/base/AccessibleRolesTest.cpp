#include "app/base/AccessibleRoles.h"

#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QAccessible>
#include <QLabel>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class AccessibleRolesTest : public QObject {
    Q_OBJECT
private:
    static void Collect(QAccessibleInterface* widget, QStringList& fillers) {
        if (widget->state().invisible)
            return;
        if (widget->role() == QAccessible::Client && widget->object()->isWidgetType() &&
            !widget->object()->inherits("QWebEngineView"))
            fillers << QString::fromLatin1(widget->object()->metaObject()->className());
        for (int n = 0; n < widget->childCount(); ++n)
            if (QAccessibleInterface* child = widget->child(n))
                Collect(child, fillers);
    }

private Q_SLOTS:
    void NothingInTheMainWindowIsAFiller() {
        ShowContainersAsGroups();
        TestSession session;
        session.Store("First", "OK");
        session.Start();
        QStringList fillers;
        Collect(QAccessible::queryAccessibleInterface(&session.Form()), fillers);
        QCOMPARE(fillers, QStringList());
    }

    void AGroupHasItsNameAndItsParts() {
        ShowContainersAsGroups();
        QWidget window;
        auto* group = new QWidget(&window);
        group->setAccessibleName(u"Brokers"_s);
        new QLabel(u"one"_s, group);
        new QLabel(u"two"_s, group);
        QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(group);
        QCOMPARE(seen->role(), QAccessible::Grouping);
        QCOMPARE(seen->text(QAccessible::Name), u"Brokers"_s);
        QCOMPARE(seen->childCount(), 2);
        QCOMPARE(seen->child(1)->text(QAccessible::Name), u"two"_s);
        // A window is none.
        QVERIFY(QAccessible::queryAccessibleInterface(&window)->role() != QAccessible::Grouping);
    }
};

TALLOWMERE_WEB_TEST_MAIN(AccessibleRolesTest)
#include "AccessibleRolesTest.moc"
