#include "app/forms/HintColor.h"

#include <QPalette>
#include <QTest>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class HintColorTest : public QObject {
    Q_OBJECT
private:
    static QPalette Palette(const QColor& ground, const QColor& text, const QColor& hint) {
        QPalette palette;
        palette.setColor(QPalette::Base, ground);
        palette.setColor(QPalette::Text, text);
        palette.setColor(QPalette::PlaceholderText, hint);
        return palette;
    }

private Q_SLOTS:
    void AHintThatCanBeReadStays() {
        QVERIFY(!LegibleHint(Palette(Qt::white, Qt::black, QColor(0, 0, 0, 128))));
        QVERIFY(!LegibleHint(Palette(Qt::black, Qt::white, QColor(255, 255, 255, 128))));
        QVERIFY(!LegibleHint(Palette(Qt::black, Qt::white, Qt::gray)));
    }

    void AHintThatIsAsDarkAsItsGroundBecomesAPalerText() {
        for (const QColor& hint :
             {QColor(0, 0, 0, 128), QColor(0x33, 0x33, 0x33), QColor(255, 255, 255, 20)}) {
            const auto mended = LegibleHint(Palette(QColor(0x1B, 0x1E, 0x20), Qt::white, hint));
            QVERIFY(mended);
            QCOMPARE(mended->rgb(), QColor(Qt::white).rgb());
            QVERIFY(mended->alpha() < 255 && mended->alpha() > 128);
            QVERIFY(!LegibleHint(Palette(QColor(0x1B, 0x1E, 0x20), Qt::white, *mended)));
        }
    }
};

QTEST_MAIN(HintColorTest)
#include "HintColorTest.moc"
