#include "app/base/Printers.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "core/text/files.h"

#include <QBuffer>
#include <QDir>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <QtPdf/QPdfDocument>

#include <optional>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

// Sharper than what most printers show; a page of it takes some tens of megabytes.
constexpr int kDotsPerInch = 300;

bool IsPdfFile(const QPrinter& printer) {
    return printer.outputFormat() == QPrinter::PdfFormat;
}

void WritePdf(const QPrinter& printer, const QByteArray& pdf) {
    WriteWholeFile(ToPath(printer.outputFileName()), pdf.toStdString());
}

bool Paint(QPagedPaintDevice& device, const PaintPages& paint) {
    QPainter painter;
    return painter.begin(&device) && paint(device, painter) && painter.end();
}

/// The file that a printer would write; none when it takes no further page.
std::optional<QByteArray> PaintedPdf(const QPrinter& printer, const PaintPages& paint) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(printer.docName());
    writer.setResolution(printer.resolution());
    writer.setPageLayout(printer.pageLayout());
    if (!Paint(writer, paint))
        return {};
    return buffer.data();
}

bool PaintOn(QPrinter& printer, const PaintPages& paint) {
    if (!IsPdfFile(printer))
        return Paint(printer, paint) && printer.printerState() != QPrinter::Error;
    // Left to itself the printer would leave half a file on a full disk, and say nothing.
    const std::optional<QByteArray> pdf = PaintedPdf(printer, paint);
    if (pdf)
        WritePdf(printer, *pdf);
    return pdf.has_value();
}

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

bool PaintPaper(QPrinter& printer, const QString& title, qreal margin, const PaintPages& paint) {
    printer.setDocName(title);
    printer.setPageMargins({margin, margin, margin, margin}, QPageLayout::Millimeter);
    return PaintOn(printer, paint);
}

QSizeF PaperSize(const QPagedPaintDevice& device) {
    return device.pageLayout().paintRectPixels(device.logicalDpiX()).size();
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
    if (IsPdfFile(printer) && !isRange) {
        WritePdf(printer, pdf);
        return true;
    }
    printer.setFullPage(true);
    printer.setResolution(kDotsPerInch);
    return PaintOn(printer, [&](QPagedPaintDevice& device, QPainter& painter) {
        const QSize sheet = device.pageLayout().fullRectPixels(device.logicalDpiX()).size();
        for (int page = first; page <= last; ++page) {
            if (page > first && !device.newPage())
                return false;
            const QSizeF size = document.pagePointSize(page - 1).scaled(sheet, Qt::KeepAspectRatio);
            painter.drawImage(QPoint(0, 0), document.render(page - 1, size.toSize()));
        }
        return true;
    });
}

} // namespace tallowmere
