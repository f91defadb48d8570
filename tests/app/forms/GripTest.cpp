#include "app/forms/Grip.h"

#include "support/WebTest.h"

#include <QSignalSpy>
#include <QTest>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class GripTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void TheArrowsOfItsDirectionMoveIt_data() {
        QTest::addColumn<Qt::Orientation>("direction");
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<int>("pixels");
        QTest::newRow("left") << Qt::Horizontal << Qt::Key_Left << -16;
        QTest::newRow("right") << Qt::Horizontal << Qt::Key_Right << 16;
        QTest::newRow("across") << Qt::Horizontal << Qt::Key_Up << 0;
        QTest::newRow("up") << Qt::Vertical << Qt::Key_Up << -16;
        QTest::newRow("down") << Qt::Vertical << Qt::Key_Down << 16;
        QTest::newRow("along") << Qt::Vertical << Qt::Key_Left << 0;
    }

    void TheArrowsOfItsDirectionMoveIt() {
        QFETCH(Qt::Orientation, direction);
        QFETCH(Qt::Key, key);
        QFETCH(int, pixels);
        Grip grip(u"Edge"_s, direction, nullptr);
        const QSignalSpy dragged(&grip, &Grip::Dragged), released(&grip, &Grip::Released);
        QTest::keyClick(&grip, key);
        QCOMPARE(dragged.count(), pixels ? 1 : 0);
        QCOMPARE(released.count(), dragged.count());
        if (pixels)
            QCOMPARE(dragged.first().first().toInt(), pixels);
    }

    void EnterDoesWhatADoubleClickDoes() {
        Grip grip(u"Edge"_s, Qt::Vertical, nullptr);
        const QSignalSpy twice(&grip, &Grip::DoubleClicked);
        QTest::keyClick(&grip, Qt::Key_Return);
        QTest::mouseDClick(&grip, Qt::LeftButton);
        QCOMPARE(twice.count(), 2);
    }

    void TheKeyboardReachesItAndSeesIt() {
        Grip grip(u"Edge"_s, Qt::Vertical, nullptr);
        grip.resize(100, 6);
        grip.show();
        QCOMPARE(grip.focusPolicy(), Qt::TabFocus);
        QVERIFY(QTest::qWaitForWindowActive(&grip));
        grip.clearFocus();
        const QImage before = grip.grab().toImage();
        grip.setFocus();
        QVERIFY(grip.hasFocus());
        QVERIFY(grip.grab().toImage() != before);
    }
};

TALLOWMERE_WEB_TEST_MAIN(GripTest)
#include "GripTest.moc"
