#include "app/base/Printers.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "core/text/files.h"

#include <QBuffer>
#include <QDir>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <QtPdf/QPdfDocument>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

// Sharper than what most printers show; a page of it takes some tens of megabytes.
constexpr int kDotsPerInch = 300;

} // namespace

std::unique_ptr<QPrinter> SystemPrinter() {
    QPrinterInfo printer = QPrinterInfo::defaultPrinter();
    const QStringList names = QPrinterInfo::availablePrinterNames();
    if (printer.isNull() && !names.isEmpty())
        printer = QPrinterInfo::printerInfo(names.first());
    if (printer.isNull())
        return nullptr;
    return std::make_unique<QPrinter>(printer, QPrinter::HighResolution);
}

std::unique_ptr<QPrinter> PdfPrinter(const QString& path) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(path);
    return printer;
}

std::unique_ptr<QPrinter> PrinterOrPdf(const PrinterFactory& makePrinter, Prompts& prompts,
                                       const QString& what, const QString& suggested) {
    std::unique_ptr<QPrinter> printer = makePrinter();
    if (printer ||
        !prompts.Ask(u"No printer is set up. Save the %1 as a PDF document instead?"_s.arg(what),
                     MessageTitle()))
        return printer;
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    const auto path =
        prompts.SaveFile(u"Save as PDF"_s, folder.filePath(suggested), u"PDF documents (*.pdf)"_s);
    return path ? PdfPrinter(*path) : nullptr;
}

bool BeginPaper(QPrinter& printer, QPainter& painter, const QString& title, qreal margin) {
    printer.setDocName(title);
    printer.setPageMargins({margin, margin, margin, margin}, QPageLayout::Millimeter);
    return painter.begin(&printer);
}

bool PrintPdf(const QByteArray& pdf, QPrinter& printer) {
    QBuffer buffer;
    buffer.setData(pdf);
    buffer.open(QIODevice::ReadOnly);
    QPdfDocument document(nullptr);
    document.load(&buffer);
    if (document.status() != QPdfDocument::Status::Ready || document.pageCount() < 1)
        return false;
    const bool isRange = printer.printRange() == QPrinter::PageRange;
    const int first = isRange ? std::max(1, printer.fromPage()) : 1;
    const int last =
        isRange ? std::min(document.pageCount(), printer.toPage()) : document.pageCount();
    if (printer.outputFormat() == QPrinter::PdfFormat && !isRange) {
        WriteWholeFile(ToPath(printer.outputFileName()), pdf.toStdString());
        return true;
    }
    printer.setFullPage(true);
    printer.setResolution(kDotsPerInch);
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    for (int page = first; page <= last; ++page) {
        if (page > first && !printer.newPage())
            return false;
        const QRect sheet = printer.paperRect(QPrinter::DevicePixel).toRect();
        const QSizeF size =
            document.pagePointSize(page - 1).scaled(sheet.size(), Qt::KeepAspectRatio);
        painter.drawImage(QPoint(0, 0), document.render(page - 1, size.toSize()));
    }
    return painter.end() && printer.printerState() != QPrinter::Error;
}

} // namespace tallowmere
