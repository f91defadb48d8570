#include "app/forms/DialogParts.h"

#include "support/WebTest.h"

#include <QDialog>
#include <QPushButton>
#include <QScreen>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class DialogPartsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void AButtonHasItsNamesAndLeavesEnterToTheDefaultOne() {
        QDialog dialog;
        auto* usual = MakeButton(u"cmdOK"_s, u"&OK"_s, &dialog);
        usual->setDefault(true);
        auto* other = MakeButton(u"cmdFore0"_s, u"&Fore"_s, &dialog);
        QCOMPARE(other->objectName(), u"cmdFore0"_s);
        QCOMPARE(other->text(), u"&Fore"_s);
        QCOMPARE(other->accessibleName(), u"Fore"_s);
        QStringList pressed;
        for (const QPushButton* button : {usual, other})
            connect(button, &QPushButton::clicked, &dialog,
                    [&pressed, button] { pressed << button->objectName(); });
        dialog.show();
        other->setFocus();
        QTest::keyClick(&dialog, Qt::Key_Return);
        QCOMPARE(pressed, QStringList{u"cmdOK"_s});
    }

    void AWindowIsAsLargeAsItsTextButNoLargerThanTheScreen() {
        QDialog dialog;
        ResizeWithinScreen(dialog, 20, 10);
        const QFontMetrics metrics = dialog.fontMetrics();
        QCOMPARE(dialog.size(), QSize(20 * metrics.averageCharWidth(), 10 * metrics.height()));
        ResizeWithinScreen(dialog, 10'000, 10'000);
        const QSize screen = dialog.screen()->availableSize();
        QVERIFY(dialog.width() < screen.width() && dialog.height() < screen.height());
    }
};

TALLOWMERE_WEB_TEST_MAIN(DialogPartsTest)
#include "DialogPartsTest.moc"
