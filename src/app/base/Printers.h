#pragma once

#include <QByteArray>
#include <QPrinter>

#include <functional>
#include <memory>

class QPainter;

namespace tallowmere {

class Prompts;

/// Makes the printer that something goes to; null when there is none.
using PrinterFactory = std::function<std::unique_ptr<QPrinter>()>;

/// The printer that the system takes when nobody chose one; null when none is set up.
std::unique_ptr<QPrinter> SystemPrinter();

/// A printer that writes a PDF document into a file.
std::unique_ptr<QPrinter> PdfPrinter(const QString& path);

/// The printer that something, in words such as "report", goes to: that of the factory. Where it
/// makes none a PDF document under the suggested name is offered; null when the user wants none.
std::unique_ptr<QPrinter> PrinterOrPdf(const PrinterFactory& makePrinter, Prompts& prompts,
                                       const QString& what, const QString& suggested);

/// Paints on a page after the other of what it is given; false when that takes no further page.
using PaintPages = std::function<bool(QPagedPaintDevice& device, QPainter& painter)>;

/// Paints on a printer under a title, with margins of so many millimetres all around. A PDF file is
/// written whole or not at all. False when the printer does not take it; throws RuntimeError when
/// the file cannot be written.
bool PaintPaper(QPrinter& printer, const QString& title, qreal margin, const PaintPages& paint);

/// The part of a page between its margins, in pixels of the device.
QSizeF PaperSize(const QPagedPaintDevice& device);

/// Puts the pages of a PDF document on paper, those that the printer is told to print. A printer
/// that writes a PDF file gets the document as it is. Gives false when the printer does not take
/// it or the document cannot be read; throws RuntimeError when the file cannot be written.
bool PrintPdf(const QByteArray& pdf, QPrinter& printer);

} // namespace tallowmere
