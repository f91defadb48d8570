#include "app/forms/StripBar.h"
#include "app/forms/StripPanel.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 900;

/// How dark the darkest point of a panel's inside is, from 0 (white) to 255.
int Darkness(const StripPanel& panel) {
    const QImage image = const_cast<StripPanel&>(panel).grab().toImage();
    int darkest = 0;
    for (int y = 4; y < image.height() - 4; ++y)
        for (int x = 4; x < image.width() - 4; ++x)
            darkest = std::max(darkest, 255 - qGray(image.pixel(x, y)));
    return darkest;
}

/// How many columns of a panel's inside hold a part of a letter.
int InkedColumns(const StripPanel& panel) {
    const QImage image = const_cast<StripPanel&>(panel).grab().toImage();
    const QRgb behind = image.pixel(4, 4);
    int columns = 0;
    for (int x = 4; x < image.width() - 4; ++x)
        for (int y = 4; y < image.height() - 4; ++y)
            if (image.pixel(x, y) != behind) {
                ++columns;
                break;
            }
    return columns;
}

} // namespace

/// What the panels draw beside and in place of their texts.
class StripBarTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<StripBar> m_strip;
    StripPanel& Panel(int number) {
        return *m_strip->findChild<StripPanel*>(u"SpooBar"_s + QString::number(number));
    }

private Q_SLOTS:
    void init() {
        m_strip = std::make_unique<StripBar>(nullptr);
        QPalette palette;
        palette.setColor(QPalette::Window, Qt::white);
        palette.setColor(QPalette::WindowText, Qt::black);
        m_strip->setPalette(palette);
        m_strip->setAutoFillBackground(true);
        m_strip->resize(kWidth, 60);
        m_strip->show();
    }
    void cleanup() { m_strip.reset(); }

    void AnEmptyPanelDrawsItsHintAndStaysEmpty() {
        QCOMPARE(InkedColumns(Panel(1)), 0);
        m_strip->SetPanelHint(1, u"Quotes awaited"_s);
        QVERIFY(InkedColumns(Panel(1)) > 20);
        QCOMPARE(m_strip->PanelText(1), QString());
        QCOMPARE(Panel(1).accessibleName(), QString());
        m_strip->SetPanelText(1, u"1"_s);
        QVERIFY2(InkedColumns(Panel(1)) < 20, "the text stands in place of the hint");
    }

    void AStaleTextIsDimmedAndBearsItsAge() {
        const QString text = u"DJIA : 45,979.04 +42.15"_s;
        m_strip->SetPanelText(1, text);
        const int dark = Darkness(Panel(1));
        const int narrow = InkedColumns(Panel(1));
        m_strip->SetPanelAge(1, u"2 d"_s);
        QVERIFY2(Darkness(Panel(1)) < dark - 40, "dimmed");
        QVERIFY2(Darkness(Panel(1)) > 138, "a contrast of 4.5 on white is a grey of 117 at most");
        QVERIFY2(InkedColumns(Panel(1)) > narrow, "with its age behind it");
        QCOMPARE(m_strip->PanelText(1), text);
        QCOMPARE(Panel(1).accessibleName(), text);
        m_strip->SetPanelAge(1, {});
        QVERIFY2(Darkness(Panel(1)) > dark - 10, "as it was");
    }

    void TheAgeHasRoom() {
        for (int panel = 1; panel <= StripBar::kPanels; ++panel)
            m_strip->SetPanelText(panel, u"S&P 500 : 6,421.03 -5.66"_s);
        const int textWidth = Panel(1).ShownWidth();
        m_strip->resize(3 * (textWidth + 20), 60);
        QCOMPARE(Panel(4).x(), 0); // three in a row
        QSignalSpy higher(m_strip.get(), &StripBar::HeightChanged);
        m_strip->SetPanelAge(2, u"300 d"_s);
        QCOMPARE(higher.size(), 1);
        m_strip->resize(m_strip->width(), m_strip->heightForWidth(m_strip->width()));
        m_strip->resize(m_strip->width() + 1, m_strip->height());
        QVERIFY(Panel(2).width() >= Panel(2).ShownWidth());
    }

    void WhatIsToBeSaidAboutAPanelIsToldUnderThePointer() {
        QSignalSpy notes(m_strip.get(), &StripBar::NotePointedAt);
        m_strip->SetPanelHint(3, u"No quotes"_s);
        m_strip->SetPanelNote(3, u"No source of quotes can be reached."_s);
        QEvent entering(QEvent::Enter);
        QApplication::sendEvent(&Panel(3), &entering);
        QCOMPARE(notes.takeFirst().first().toString(), u"No source of quotes can be reached."_s);
        QCOMPARE(Panel(3).accessibleDescription(), u"No source of quotes can be reached."_s);
        QCOMPARE(Panel(3).toolTip(), u"Indexes retrieved from Yahoo! Finanace"_s);
    }
};

QTEST_MAIN(StripBarTest)
#include "StripBarTest.moc"
