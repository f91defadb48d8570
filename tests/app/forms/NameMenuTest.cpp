#include "app/forms/NameMenu.h"

#include "support/WebTest.h"

#include <QTest>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class NameMenuTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ALongNameIsShownShortenedAndKeptWhole() {
        NameMenu menu(u"Names"_s);
        const QString name = u"A portfolio of everything "_s.repeated(20);
        QAction* item = menu.addAction(name);
        QMenu whole;
        whole.addAction(name);
        QVERIFY(menu.sizeHint().width() < whole.sizeHint().width() / 4);
        QCOMPARE(item->text(), name);
    }

    void AShortNameAndItsShortcutAreShownAsInAnyMenu() {
        for (const auto& name : {u"Tech"_s, u"&Select"_s, u"Johnson && Sons"_s, u""_s}) {
            NameMenu menu(u"Names"_s);
            QMenu plain;
            for (QMenu* each : {static_cast<QMenu*>(&menu), &plain})
                each->addAction(name)->setShortcut(QKeySequence(u"Alt+1"_s));
            QCOMPARE(menu.sizeHint(), plain.sizeHint());
            QCOMPARE(menu.grab().toImage(), plain.grab().toImage());
        }
    }

    void TheShortcutOfALongNameIsStillShown() {
        NameMenu menu(u"Names"_s), without(u"Names"_s);
        menu.addAction(u"W"_s.repeated(300))->setShortcut(QKeySequence(u"Ctrl+Alt+1"_s));
        without.addAction(u"W"_s.repeated(300));
        QVERIFY(menu.sizeHint().width() > without.sizeHint().width());
    }
};

TALLOWMERE_WEB_TEST_MAIN(NameMenuTest)
#include "NameMenuTest.moc"
