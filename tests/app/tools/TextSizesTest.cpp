#include "app/tools/TextSizes.h"

#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QLabel>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class TextSizesTest : public QObject {
    Q_OBJECT
private:
    struct Heights {
        int caption, heading, row, link;
        friend bool operator==(const Heights&, const Heights&) = default;
    };
    static Heights Of(TestSession& session) {
        const auto* heading = session.Form().fraLeft->findChild<QLabel*>();
        // In hundredths of a point: the pixels of so small a text may be the same.
        return {session.Form().lblPort->height(), qRound(heading->font().pointSizeF() * 100),
                session.Form().List1->sizeHintForRow(0), session.Link(1)->sizeHint().height()};
    }
    static void Choose(TestSession& session, std::size_t index) {
        session.Form().menus->textSizes[index]->trigger();
        QCoreApplication::processEvents();
    }

private Q_SLOTS:
    void CaptionsHeadingsAndRowsFollowTheChoice() {
        const QFont system = QApplication::font();
        TestSession session;
        session.Start();
        QVERIFY(session.Form().menus->textSizes[1]->isChecked());
        const Heights normal = Of(session);
        Choose(session, 2);
        const Heights large = Of(session);
        QVERIFY(large.caption > normal.caption && large.heading > normal.heading &&
                large.row > normal.row && large.link > normal.link);
        QCOMPARE(session.Stored("TextSize"), u"Large"_s);
        Choose(session, 0);
        const Heights small = Of(session);
        QVERIFY(small.caption < normal.caption && small.heading < normal.heading &&
                small.row < normal.row && small.link < normal.link);
        Choose(session, 1);
        QVERIFY(Of(session) == normal);
        Choose(session, 2);
        session.End();
        QCOMPARE(QApplication::font(), system);
    }

    void TheNextStartShowsTheSizeThatWasChosen() {
        TestSession session;
        session.Start();
        const int normal = session.Form().List1->fontMetrics().height();
        session.End();
        session.Store("TextSize", "Large");
        session.Start();
        QVERIFY(session.Form().menus->textSizes[2]->isChecked());
        QVERIFY(session.Form().List1->fontMetrics().height() > normal);
    }

    void AStoredTextThatIsNoSizeIsTheNormalOne() {
        TestSession session;
        session.Store("TextSize", "<b>Huge");
        session.Start();
        QVERIFY(session.Form().menus->textSizes[1]->isChecked());
    }
};

TALLOWMERE_WEB_TEST_MAIN(TextSizesTest)
#include "TextSizesTest.moc"
