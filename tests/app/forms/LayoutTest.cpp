#include "app/engine/BrowserPane.h"
#include "app/forms/Grip.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QScrollBar>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class LayoutTest : public QObject {
    Q_OBJECT
private:
    static void Resize(frmMain& form, int width, int height) {
        form.resize(width, height);
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }
    /// Where a control is in the window, as far as the panels around it show it.
    static bool IsInView(const frmMain& form, const QWidget* control) {
        return control->isVisible() && control->visibleRegion().boundingRect() == control->rect() &&
               form.rect().contains(QRect(control->mapTo(&form, QPoint()), control->size()));
    }

private Q_SLOTS:
    void At1600By1000EveryLinkIsInViewAtOnce() {
        TestSession session;
        session.Start();
        Resize(session.Form(), 1600, 1000);
        for (const Chip* link : session.Form().lbllink)
            QVERIFY2(IsInView(session.Form(), link), qPrintable(link->Caption()));
    }

    void NoCaptionIsCutAndNoTwoLinksOverlap_data() {
        QTest::addColumn<QSize>("size");
        QTest::newRow("least") << QSize(565, 134);
        QTest::newRow("default") << QSize(667, 567);
        QTest::newRow("laptop") << QSize(1280, 900);
        QTest::newRow("wide") << QSize(1920, 1080);
    }

    void NoCaptionIsCutAndNoTwoLinksOverlap() {
        QFETCH(QSize, size);
        TestSession session;
        session.Start();
        frmMain& form = session.Form();
        Resize(form, size.width(), size.height());
        QList<QRect> places;
        for (const Chip* link : form.lbllink) {
            QVERIFY2(link->width() >= link->sizeHint().width(), qPrintable(link->Caption()));
            const QRect place(link->mapToGlobal(QPoint()), link->size());
            for (const QRect& other : std::as_const(places))
                QVERIFY2(!place.intersects(other), qPrintable(link->Caption()));
            places << place;
        }
    }

    void NamingASlotMovesNoSlot() {
        TestSession session;
        session.Start();
        frmMain& form = session.Form();
        Resize(form, 1280, 900);
        const auto places = [&] {
            QList<QRect> result;
            for (int slot = kFirstCustom; slot <= kLastCustom; ++slot)
                result << session.Link(slot)->geometry();
            return result;
        };
        const QList<QRect> before = places();
        for (const auto& [slot, title] : {std::pair{101, "WWWWWWWWWWWW"}, {102, "I"}, {140, "Abc"}})
            form.ShowCustomLink({"h.example", title, {}}, slot);
        Resize(form, 1280, 900);
        QCOMPARE(places(), before);
        // The columns are as wide as each other, to a pixel.
        for (const QRect& place : before) {
            QVERIFY(std::abs(place.width() - before.first().width()) <= 1);
            QCOMPARE(place.height(), before.first().height());
        }
        QVERIFY(before.first().width() < form.fraRight->width() / 2);
    }

    void TheLongestTitleIsShownWholeInItsSlot() {
        QWidget parent;
        parent.resize(400, 60);
        Chip chip(u"lbllink"_s, 101, u"MMMMMMMMMMMM"_s, &parent);
        chip.SetColors({0x000000, 0xFFFFFF});
        const int needed = chip.sizeHint().width();
        chip.SetSizeOf(u"< Custom >"_s);
        chip.adjustSize();
        QVERIFY(chip.width() < needed);
        const QImage image = chip.grab().toImage();
        int first = image.width(), last = 0;
        for (int x = 3; x < image.width() - 3; ++x)
            for (int y = 3; y < image.height() - 3; ++y)
                if (image.pixelColor(x, y).lightness() < 128) {
                    first = std::min(first, x);
                    last = std::max(last, x);
                }
        // All of it lies between the paddings, and fills the room there.
        QVERIFY2(first >= 4 && first <= 9, qPrintable(QString::number(first)));
        QVERIFY2(last <= image.width() - 5 && last >= image.width() - 10,
                 qPrintable(QString::number(last)));
    }

    void AtTheDefaultSizeEveryLinkIsReachedByScrolling() {
        TestSession session;
        session.Start();
        frmMain& form = session.Form();
        Resize(form, 667, 567);
        for (Chip* link : form.lbllink) {
            link->setFocus(); // the panels follow the focus
            QCoreApplication::processEvents();
            QVERIFY2(IsInView(form, link), qPrintable(link->Caption()));
        }
    }

    void TheControlsOfTheWindowDoNotOverlap() {
        TestSession session;
        session.Start();
        frmMain& form = session.Form();
        for (const QSize size : {QSize(667, 567), QSize(1280, 900), QSize(1920, 1080)}) {
            Resize(form, size.width(), size.height());
            QList<QWidget*> controls = {form.fraTop,  form.fraLeft,  form.fraRight, form.Web,
                                        form.List1,   form.txtStock, form.lblPort,  form.Label1,
                                        form.SpooBar, form.WebStatus};
            for (std::size_t n = 1; n <= 10; ++n)
                controls << form.lblListNum[n];
            for (qsizetype i = 0; i < controls.size(); ++i)
                for (qsizetype j = 0; j < i; ++j)
                    QVERIFY2(!controls[i]->geometry().intersects(controls[j]->geometry()),
                             qPrintable(controls[i]->objectName() + u" / "_s +
                                        controls[j]->objectName()));
            QCOMPARE(form.WebB->geometry(), form.Web->geometry());
        }
    }

    void TheListShowsThreeRowsInTheSmallestWindow_data() {
        QTest::addColumn<bool>("ticker");
        QTest::newRow("without the ticker strip") << false;
        QTest::newRow("with the ticker strip") << true;
    }

    void TheListShowsThreeRowsInTheSmallestWindow() {
        QFETCH(bool, ticker);
        TestSession session;
        session.Start();
        frmMain& form = session.Form();
        if (ticker)
            form.ShowTicker(true);
        Resize(form, 565, 300);
        QVERIFY2(form.List1->viewport()->height() >= 3 * form.List1->sizeHintForRow(0),
                 qPrintable(QString::number(form.List1->viewport()->height())));
        QVERIFY(IsInView(form, form.List1));
        QVERIFY(!form.List1->geometry().intersects(form.fraLeft->geometry()));
        QVERIFY(!form.List1->geometry().intersects(form.SpooBar->geometry()));
    }

    void TheListTakesWhatTheLinksLeave() {
        TestSession session;
        session.Start();
        frmMain& form = session.Form();
        Resize(form, 1600, 1000);
        const int low = form.List1->height();
        Resize(form, 1600, 1190);
        QCOMPARE(form.List1->height(), low + 190);
        QVERIFY(!form.fraLeft->verticalScrollBar()->isVisible());
    }

    void TheEdgeOfTheListIsDraggedKeptAndReset() {
        TestSession session;
        session.Start();
        frmMain* form = &session.Form();
        Resize(*form, 1280, 900);
        const auto grip = [&] {
            for (Grip* each : form->findChildren<Grip*>())
                if (each->accessibleName() == u"Edge of the ticker list"_s)
                    return each;
            return static_cast<Grip*>(nullptr);
        };
        const int designed = form->List1->height();
        grip()->setFocus();
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(grip(), Qt::Key_Up);
        QCOMPARE(form->List1->height(), designed - 48);
        const QPoint middle = grip()->rect().center();
        QTest::mousePress(grip(), Qt::LeftButton, {}, middle);
        QTest::mouseMove(grip(), middle + QPoint(5, 100));
        QTest::mouseRelease(grip(), Qt::LeftButton);
        QCOMPARE(form->List1->height(), designed + 52);
        QCOMPARE(form->fraLeft->y(), grip()->geometry().bottom() + 1);

        session.Start();
        form = &session.Form();
        Resize(*form, 1280, 900);
        QCOMPARE(form->List1->height(), designed + 52);
        QTest::mouseDClick(grip(), Qt::LeftButton);
        QCOMPARE(form->List1->height(), designed);
    }

    void ALabelWithAMenuBearsAMark() {
        TestSession session;
        session.Start();
        for (const Chip* link : session.Form().lbllink) {
            const LinkAction action = Catalogue()[static_cast<std::size_t>(link->Index())].action;
            QCOMPARE(link->HasMenu(),
                     action == LinkAction::Menu || action == LinkAction::QueryPortfolio);
        }
        for (std::size_t n = 1; n <= 10; ++n)
            QVERIFY(session.Form().lblListNum[n]->HasMenu());
        Chip chip(u"lbllink"_s, 3, u"Charts"_s, nullptr);
        chip.SetColors({0x000000, 0xFFFFFF});
        chip.adjustSize();
        const QSize size = chip.size();
        const QImage without = chip.grab().toImage();
        chip.SetHasMenu(true);
        QCOMPARE(chip.sizeHint(), size);
        const QImage with = chip.grab().toImage();
        // It stands in the corner alone: no point left of or above that differs.
        bool differs = false;
        for (int x = 0; x < with.width(); ++x)
            for (int y = 0; y < with.height(); ++y)
                if (with.pixel(x, y) != without.pixel(x, y)) {
                    differs = true;
                    QVERIFY(x >= with.width() - 8 && y >= with.height() - 8);
                }
        QVERIFY(differs);
    }

    void TheTabKeyReachesEveryGroupOnce() {
        TestSession session;
        session.Start();
        frmMain& form = session.Form();
        QSet<const QWidget*> groups;
        for (const Chip* link : form.lbllink) {
            if (link->focusPolicy() & Qt::TabFocus) {
                QVERIFY(!groups.contains(link->parentWidget()));
                groups << link->parentWidget();
            }
        }
        QCOMPARE(groups.size(), 11);
    }
};

TALLOWMERE_WEB_TEST_MAIN(LayoutTest)
#include "LayoutTest.moc"
