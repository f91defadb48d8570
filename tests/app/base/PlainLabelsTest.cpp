#include "app/base/PlainLabels.h"

#include "app/forms/ListBox.h"
#include "app/forms/frmMain.h"
#include "app/forms/frmNav.h"
#include "app/forms/frmRemind.h"
#include "app/forms/frmTicImport.h"
#include "app/sites/SiteControllers.h"
#include "app/sites/SiteDataKeeper.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QLabel>
#include <QMessageBox>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <QToolTip>
#include <QTreeWidget>

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

    /// Looks at all items of a view that hold markup; gives their number, and names those that are
    /// not as wide as their text.
    static int LookAt(const QAbstractItemView& view, QStringList& obeyed) {
        int seen = 0;
        const QAbstractItemModel& model = *view.model();
        for (int row = 0; row < model.rowCount(); ++row)
            for (int column = 0; column < model.columnCount(); ++column) {
                const QModelIndex index = model.index(row, column);
                const QString text = index.data().toString();
                const QAbstractItemDelegate* delegate = view.itemDelegateForIndex(index);
                if (!delegate || !Qt::mightBeRichText(text))
                    continue;
                ++seen;
                QStyleOptionViewItem option;
                option.initFrom(&view);
                if (delegate->sizeHint(option, index).width() <
                    view.fontMetrics().horizontalAdvance(text))
                    obeyed << view.objectName() + u": "_s + text;
            }
        return seen;
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

    void TheItemsOfListsTablesAndBoxesToo() {
        const QString markup = u"<img src=x><b>y</b>"_s;
        TestSession session;
        session.Store("Stocks1", "<b>AOL</b>|");
        session.Store("CustomT101", markup.toUtf8().constData());
        session.Start();
        session.Form().menus->sites->trigger();
        session->Controllers().sites->data->Show(u"<img>"_s);
        frmNav navigate(nullptr);
        navigate.Combo1->addItem(markup);
        navigate.Combo1->setItemData(0, markup, Qt::ToolTipRole);
        navigate.show();
        frmRemind remind(nullptr);
        remind.List1->SetItems({markup});
        remind.show();
        frmTicImport scan(nullptr);
        scan.List1->SetItems({markup});
        scan.show();
        navigate.Combo1->showPopup();

        // Markup that is obeyed takes less room than its text, and says so where it is asked.
        int seen = 0;
        QStringList obeyed;
        for (QWidget* widget : QApplication::allWidgets())
            if (auto* view = qobject_cast<QAbstractItemView*>(widget); view && view->model())
                seen += LookAt(*view, obeyed);
        QVERIFY2(obeyed.isEmpty(), qPrintable(obeyed.join(u'\n')));
        // Of each window one at least: the list of tickers, two tables, the box, two lists.
        QVERIFY2(seen >= 6, qPrintable(QString::number(seen)));
        QVERIFY2(Obedient().isEmpty(), qPrintable(Obedient().join(u'\n')));
        navigate.Combo1->hidePopup();
    }

    void TheToolTipOfAnItemToo() {
        QTreeWidget list;
        const QString markup = u"<img src=x>"_s;
        auto* item = new QTreeWidgetItem(&list, {markup});
        item->setToolTip(0, markup);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        const QPoint at = list.visualItemRect(item).center();
        QHelpEvent help(QEvent::ToolTip, at, list.viewport()->mapToGlobal(at));
        QApplication::sendEvent(list.viewport(), &help);
        QLabel* tip = nullptr;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->inherits("QTipLabel"))
                tip = qobject_cast<QLabel*>(widget);
        QVERIFY(tip);
        QCOMPARE(tip->text(), markup);
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
