#include "app/base/PdfMarks.h"

#include "app/base/Printers.h"
#include "app/base/QtText.h"
#include "core/text/runtime_error.h"
#include "support/PdfReader.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTest>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

QPageLayout Paper() {
    return WithRoomForMarks(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {}));
}

/// A document of so many pages, each of which says its letter.
QByteArray Document(int pages) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageLayout(Paper());
    QPainter painter(&writer);
    for (int n = 0; n < pages; ++n) {
        if (n > 0)
            writer.newPage();
        painter.drawText(500, 1000, u"Content "_s + QChar(u'A' + n));
    }
    painter.end();
    return bytes;
}

const PrintMarks kMarks{"The Title", "2026-11-21 10:00", "http://h.example/page"};

} // namespace

class PdfMarksTest : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_folder;

    QString Write(const QByteArray& pdf) {
        const QString path = m_folder.filePath(u"marked.pdf"_s);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(pdf) != pdf.size())
            return {};
        return path;
    }

private Q_SLOTS:
    void EachPageHasItsMarksAndItsOwnText() {
        const PdfReader reader(Write(WithMarks(Document(3), Paper(), kMarks)));
        QCOMPARE(reader.Pages(), (QStringList{u"The Title 2026-11-21 10:00 Content A "
                                              "http://h.example/page Page 1 of 3"_s,
                                              u"The Title 2026-11-21 10:00 Content B "
                                              "http://h.example/page Page 2 of 3"_s,
                                              u"The Title 2026-11-21 10:00 Content C "
                                              "http://h.example/page Page 3 of 3"_s}));
        QVERIFY(reader.Paper().contains(u"A4"_s));
    }

    void APageWithNothingOnItHasItsMarksToo() {
        // As engines write it: compressed, though there is nothing to compress.
        const QByteArray empty = "%PDF-1.4\n"
                                 "1 0 obj\n<</Type/Catalog/Pages 2 0 R>>\nendobj\n"
                                 "2 0 obj\n<</Type/Pages/Count 1/Kids[3 0 R]>>\nendobj\n"
                                 "3 0 obj\n<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]"
                                 "/Resources<<>>/Contents 4 0 R>>\nendobj\n"
                                 "4 0 obj\n<</Length 0/Filter/FlateDecode>>\nstream\n\nendstream\n"
                                 "endobj\ntrailer\n<</Root 1 0 R/Size 5>>\n%%EOF\n";
        const PdfReader reader(Write(WithMarks(empty, Paper(), kMarks)));
        QCOMPARE(reader.Pages(),
                 QStringList{u"The Title 2026-11-21 10:00 http://h.example/page Page 1 of 1"_s});
    }

    void ALongAddressLeavesRoomForTheNumber() {
        PrintMarks marks = kMarks;
        marks.address = "http://h.example/" + std::string(500, 'x') + "/end";
        const QString page =
            PdfReader(Write(WithMarks(Document(1), Paper(), marks))).Pages().value(0);
        QVERIFY2(page.contains(u"http://h.example/xx"_s), qPrintable(page));
        QVERIFY2(page.endsWith(u"x/end Page 1 of 1"_s), qPrintable(page));
        QVERIFY(page.size() < 300);
    }

    void WhatIsNoDocumentIsRefused() {
        for (const QByteArray& bytes :
             {QByteArray(), QByteArray("no document"), Document(1).left(100)})
            QVERIFY_THROWS_EXCEPTION(RuntimeError, WithMarks(bytes, Paper(), kMarks));
    }

    void MarginsLeaveRoomAndLargerOnesStay() {
        QCOMPARE(Paper().margins(QPageLayout::Millimeter), QMarginsF(10, 15, 10, 15));
        const QPageLayout large(QPageSize(QPageSize::A4), QPageLayout::Landscape,
                                QMarginsF(30, 5, 5, 40), QPageLayout::Millimeter);
        QCOMPARE(WithRoomForMarks(large).margins(QPageLayout::Millimeter),
                 QMarginsF(30, 15, 10, 40));
        QCOMPARE(WithRoomForMarks(large).orientation(), QPageLayout::Landscape);
    }

    void APrinterThatWritesPdfGetsTheDocumentItself() {
        const QByteArray document = Document(2);
        const QString path = m_folder.filePath(u"printed.pdf"_s);
        QVERIFY(PrintPdf(document, *PdfPrinter(path)));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), document);
    }

    void OnlyTheWantedPagesArePutOnPaper() {
        const QString path = m_folder.filePath(u"range.pdf"_s);
        const auto printer = PdfPrinter(path);
        printer->setPageSize(QPageSize(QPageSize::A4));
        printer->setPrintRange(QPrinter::PageRange);
        printer->setFromTo(2, 9);
        QVERIFY(PrintPdf(Document(3), *printer));
        QProcess info;
        info.start(u"pdfinfo"_s, {path});
        QVERIFY(info.waitForFinished());
        QVERIFY(info.readAllStandardOutput().replace(' ', "").contains("Pages:2\n"));
    }

    void WhatCannotBeReadOrWrittenIsTold() {
        QVERIFY(!PrintPdf("no document", *PdfPrinter(m_folder.filePath(u"x.pdf"_s))));
        const QString file = m_folder.filePath(u"a file"_s);
        QVERIFY(PrintPdf(Document(1), *PdfPrinter(file)));
        const auto nowhere = PdfPrinter(file + u"/x.pdf"_s);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, PrintPdf(Document(1), *nowhere));
        nowhere->setPrintRange(QPrinter::PageRange);
        nowhere->setFromTo(1, 1);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, PrintPdf(Document(1), *nowhere));
    }
};

QTEST_MAIN(PdfMarksTest)
#include "PdfMarksTest.moc"
