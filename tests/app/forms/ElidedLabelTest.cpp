#include "app/forms/ElidedLabel.h"

#include "app/base/PlainLabels.h"

#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// Where the rightmost point that is drawn lies, -1 for none.
int LastDrawn(QWidget& widget) {
    const QImage picture = widget.grab().toImage();
    const QRgb ground = picture.pixel(0, 0);
    for (int x = picture.width() - 1; x >= 0; --x)
        for (int y = 0; y < picture.height(); ++y)
            if (picture.pixel(x, y) != ground)
                return x;
    return -1;
}

} // namespace

class ElidedLabelTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ATextThatFitsIsShownWhole() {
        QWidget window;
        ElidedLabel label(u"WWWWWWWWWW"_s, &window);
        label.resize(400, 20);
        const int width = label.fontMetrics().horizontalAdvance(label.text());
        QVERIFY(LastDrawn(label) > width - 6);
        QVERIFY(LastDrawn(label) <= width);
        QCOMPARE(label.minimumSizeHint().width(), 0);
    }

    void OneThatDoesNotEndsWithDots() {
        QWidget window;
        ElidedLabel label(QString(100, u'W'), &window);
        ElidedLabel dotted(label.fontMetrics().elidedText(label.text(), Qt::ElideRight, 120),
                           &window);
        QVERIFY(dotted.text().endsWith(u'\u2026'));
        for (QWidget* widget : {&label, &dotted})
            widget->resize(120, 20);
        QCOMPARE(label.grab().toImage(), dotted.grab().toImage());
        QCOMPARE(label.text().size(), 100);
    }

    void TheRestIsSaidUnderThePointer() {
        PlainLabels plain;
        qApp->installEventFilter(&plain);
        QWidget window;
        ElidedLabel label(u"<b>a & b</b> "_s + QString(100, u'W'), &window);
        label.resize(120, 20);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const auto point = [&] {
            QHelpEvent help(QEvent::ToolTip, {5, 5}, label.mapToGlobal(QPoint(5, 5)));
            QApplication::sendEvent(&label, &help);
        };
        point();
        QCOMPARE(QToolTip::text(), label.text());
        label.resize(5'000, 20);
        point();
        QTRY_VERIFY(!QToolTip::isVisible());
    }
};

QTEST_MAIN(ElidedLabelTest)
#include "ElidedLabelTest.moc"
