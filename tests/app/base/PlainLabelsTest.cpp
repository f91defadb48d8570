#include "app/base/PlainLabels.h"

#include "app/forms/frmMain.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QLabel>
#include <QMessageBox>
#include <QToolTip>

using namespace tallowmere;
using namespace Qt::StringLiterals;

/// No text of the user or of a site is taken for markup anywhere.
class PlainLabelsTest : public QObject {
    Q_OBJECT
private:
    /// The labels that would obey markup.
    static QStringList Obedient() {
        QStringList names;
        for (const QWidget* widget : QApplication::allWidgets()) {
            const auto* label = qobject_cast<const QLabel*>(widget);
            if (label && label->isVisible() && label->textFormat() != Qt::PlainText)
                names << label->objectName() + u'/' +
                             QString::fromLatin1(label->metaObject()->className()) + u": "_s +
                             label->text();
        }
        return names;
    }

private Q_SLOTS:
    void APortfolioNamedAfterATagIsShownAsItIs() {
        TestSession session;
        const QString name = u"<img src='file:///etc/hosts'><b>x</b>"_s;
        session.Store("PortName1", name.toUtf8().constData());
        session.Store("Stocks1", "AOL|");
        session.Start();
        QVERIFY2(Obedient().isEmpty(), qPrintable(Obedient().join(u'\n')));
        QToolTip::showText(session.Form().mapToGlobal(QPoint(50, 50)), name, &session.Form());
        QLabel* tip = nullptr;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->inherits("QTipLabel"))
                tip = qobject_cast<QLabel*>(widget);
        QVERIFY(tip);
        QCOMPARE(tip->text(), name);
        QCOMPARE(tip->textFormat(), Qt::PlainText);
        QToolTip::hideText();
    }

    void AMessageBoxAndAnyOtherLabelToo() {
        QMessageBox box(QMessageBox::Information, u"x"_s, u"<b>bold</b>"_s);
        box.setInformativeText(u"<i>more</i>"_s);
        box.show();
        QLabel label(u"<u>under</u>"_s);
        label.show();
        QVERIFY2(Obedient().isEmpty(), qPrintable(Obedient().join(u'\n')));
    }
};

TALLOWMERE_WEB_TEST_MAIN(PlainLabelsTest)
#include "PlainLabelsTest.moc"
