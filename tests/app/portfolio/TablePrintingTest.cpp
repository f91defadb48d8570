#include "app/portfolio/TablePrinting.h"

#include "app/base/Printers.h"
#include "support/PdfReader.h"

#include <QTemporaryDir>
#include <QTest>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class TablePrintingTest : public QObject {
    Q_OBJECT
private:
    /// The words on paper of a table with so many columns, each of which holds a text of its own.
    static QString Printed(int columns, int rows, const QString& text) {
        PrintedTable table{u"A Table"_s, {}, {}};
        for (int column = 0; column < columns; ++column)
            table.columns.append({u"C%1"_s.arg(column), column % 2 == 0});
        for (int row = 0; row < rows; ++row) {
            QStringList cells;
            for (int column = 0; column < columns; ++column)
                cells << text + u"%1"_s.arg(row * columns + column, 5, 10, QChar(u'0'));
            table.rows << cells;
        }
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"table.pdf"_s);
        const auto printer = PdfPrinter(file);
        printer->setPageSize(QPageSize(QPageSize::A4));
        if (!PrintTable(table, *printer))
            return u"it is not printed"_s;
        return PdfReader(file).Pages().join(u' ');
    }

private Q_SLOTS:
    void ATableThatIsTooWideIsPrintedSmallerAndWhole() {
        const QString text = Printed(14, 3, u"1,234."_s);
        for (int cell = 0; cell < 14 * 3; ++cell) {
            const QString wanted = u"1,234.%1"_s.arg(cell, 5, 10, QChar(u'0'));
            QVERIFY2(text.contains(wanted), qPrintable(wanted + u" in "_s + text));
        }
    }

    void WhatIsFarTooWideEndsWithDots() {
        QVERIFY(Printed(40, 1, u"1,234,567."_s).contains(u"\u2026"_s));
    }

    void EveryRowIsOnSomePage() {
        const QString text = Printed(2, 150, u"row "_s);
        for (int cell = 0; cell < 300; ++cell)
            QVERIFY(text.contains(u"row %1"_s.arg(cell, 5, 10, QChar(u'0'))));
        QVERIFY2(text.contains(u"A Table - 1 / "_s), qPrintable(text.left(200)));
    }
};

QTEST_MAIN(TablePrintingTest)
#include "TablePrintingTest.moc"
