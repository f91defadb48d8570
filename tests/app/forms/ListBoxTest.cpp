#include "app/forms/ListBox.h"

#include "app/forms/Chip.h"
#include "core/tools/color_values.h"
#include "support/WebTest.h"

using namespace tallowmere;
using namespace Qt::StringLiterals;

class ListBoxTest : public QObject {
    Q_OBJECT
private:
    /// The best contrast of what is drawn on a row with that row's background.
    static double ContrastOf(ListBox& list, int row) {
        const QRect place = list.visualRect(list.model()->index(row, 0));
        const QImage picture = list.viewport()->grab(place).toImage();
        const std::uint32_t background = StoredColor(picture.pixelColor(place.width() / 2, 1));
        double best = 1;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                best = std::max(best, Contrast(StoredColor(picture.pixelColor(x, y)), background));
        return best;
    }

private Q_SLOTS:
    void ASelectedRowCanBeReadOnAnyBackgroundOfTheStyle_data() {
        QTest::addColumn<QColor>("row");
        QTest::addColumn<QColor>("text");
        QTest::newRow("pale blue, white") << QColor(0x30, 0x8C, 0xC6) << QColor(Qt::white);
        QTest::newRow("yellow, white") << QColor(Qt::yellow) << QColor(Qt::white);
        QTest::newRow("navy, black") << QColor(0, 0, 0x80) << QColor(Qt::black);
        QTest::newRow("navy, white") << QColor(0, 0, 0x80) << QColor(Qt::white);
    }
    void ASelectedRowCanBeReadOnAnyBackgroundOfTheStyle() {
        QFETCH(const QColor, row);
        QFETCH(const QColor, text);
        TextListBox list(u"List1"_s, u"list"_s, nullptr);
        QPalette palette = list.palette();
        palette.setColor(QPalette::Highlight, row);
        palette.setColor(QPalette::HighlightedText, text);
        list.setPalette(palette);
        list.SetItems({u"MMMM"_s, u"WWWW"_s});
        list.SetListIndex(1);
        list.resize(120, 80);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        QVERIFY(ContrastOf(list, 1) >= kLegibleContrast);
    }
};

TALLOWMERE_WEB_TEST_MAIN(ListBoxTest)
#include "ListBoxTest.moc"
