#include "app/base/PdfMarks.h"

#include "app/base/QtText.h"
#include "core/text/runtime_error.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

#define POINTERHOLDER_TRANSITION 4
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>

namespace tallowmere {

namespace {

constexpr qreal kLeastEdge = 15; // millimetres above and below
constexpr qreal kLeastSide = 10;
constexpr int kPointSize = 8;
constexpr int kUnitsPerPoint = 10;
constexpr double kPointsPerInch = 72;

void Read(QPDF& document, const QByteArray& pdf) {
    // Damage is told by what is thrown, not on standard error.
    document.setSuppressWarnings(true);
    document.processMemoryFile("page", pdf.constData(), static_cast<std::size_t>(pdf.size()));
}

/// Draws the marks of one page; `page` is the whole sheet, `text` what the margins leave of it.
void DrawMarks(QPainter& painter, const QRectF& page, const QRectF& text, const PrintMarks& marks,
               const QString& number) {
    const QFontMetricsF metrics(painter.font(), painter.device());
    const auto line = [&](qreal middle, const QString& left, const QString& right,
                          Qt::TextElideMode elide) {
        const QRectF row(text.left(), middle - metrics.height() / 2, text.width(),
                         metrics.height());
        const qreal taken = metrics.horizontalAdvance(right) + metrics.averageCharWidth() * 3;
        painter.drawText(row, Qt::AlignRight | Qt::AlignVCenter, right);
        painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter,
                         metrics.elidedText(left, elide, std::max(0.0, row.width() - taken)));
    };
    line((page.top() + text.top()) / 2, ToQt(marks.title), ToQt(marks.time), Qt::ElideRight);
    line((page.bottom() + text.bottom()) / 2, ToQt(marks.address), number, Qt::ElideMiddle);
}

/// A document of so many pages with nothing but the marks on them.
QByteArray MarksAlone(int pages, QPageLayout layout, const PrintMarks& marks) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    const int resolution = static_cast<int>(kPointsPerInch) * kUnitsPerPoint;
    writer.setResolution(resolution);
    const QRectF text = layout.paintRectPixels(resolution);
    layout.setMode(QPageLayout::FullPageMode);
    writer.setPageLayout(layout);
    const QRectF page = layout.fullRectPixels(resolution);
    QPainter painter(&writer);
    QFont font(QStringLiteral("Sans Serif"));
    font.setPointSize(kPointSize);
    painter.setFont(font);
    painter.setPen(Qt::black);
    for (int number = 1; number <= pages; ++number) {
        if (number > 1)
            writer.newPage();
        DrawMarks(painter, page, text, marks, ToQt(PageNumberText(number, pages)));
    }
    painter.end();
    return bytes;
}

/// An empty page may have content without a byte, which is called compressed when it is written;
/// readers stop at that. A line feed draws nothing either.
void MendEmptyContent(QPDFPageObjectHelper& page) {
    for (QPDFObjectHandle part : page.getPageContents())
        if (part.getRawStreamData()->getSize() == 0)
            part.replaceStreamData("\n", QPDFObjectHandle::newNull(), QPDFObjectHandle::newNull());
}

void Lay(QPDF& document, QPDFPageObjectHelper& page, QPDFPageObjectHelper& over) {
    QPDFObjectHandle marks = document.copyForeignObject(over.getFormXObjectForPage());
    QPDFObjectHandle resources = page.getAttribute("/Resources", true);
    int suffix = 1;
    const std::string name = resources.getUniqueResourceName("/Marks", suffix);
    const std::string content =
        page.placeFormXObject(marks, name, page.getTrimBox().getArrayAsRectangle());
    resources.mergeResources(QPDFObjectHandle::parse("<< /XObject << >> >>"));
    resources.getKey("/XObject").replaceKey(name, marks);
    MendEmptyContent(page);
    // What the page has changed of the state of drawing is not to reach the marks.
    page.addPageContents(document.newStream("q\n"), true);
    page.addPageContents(document.newStream("\nQ\n" + content), false);
}

} // namespace

QPageLayout WithRoomForMarks(QPageLayout layout) {
    layout.setUnits(QPageLayout::Millimeter);
    const QMarginsF given = layout.margins();
    layout.setMinimumMargins({});
    layout.setMargins({std::max(given.left(), kLeastSide), std::max(given.top(), kLeastEdge),
                       std::max(given.right(), kLeastSide), std::max(given.bottom(), kLeastEdge)});
    return layout;
}

QByteArray WithMarks(const QByteArray& pdf, const QPageLayout& layout, const PrintMarks& marks) {
    if (pdf.isEmpty())
        throw RuntimeError("The page cannot be printed.");
    try {
        QPDF document;
        Read(document, pdf);
        auto pages = QPDFPageDocumentHelper(document).getAllPages();
        QPDF over;
        const QByteArray overBytes = MarksAlone(static_cast<int>(pages.size()), layout, marks);
        Read(over, overBytes);
        auto overPages = QPDFPageDocumentHelper(over).getAllPages();
        for (std::size_t n = 0; n < pages.size(); ++n)
            Lay(document, pages.at(n), overPages.at(n));
        QPDFWriter writer(document);
        writer.setOutputMemory();
        writer.write();
        const auto written = writer.getBufferSharedPointer();
        return {reinterpret_cast<const char*>(written->getBuffer()),
                static_cast<qsizetype>(written->getSize())};
    } catch (const std::exception& error) {
        throw RuntimeError("The page cannot be printed: " + std::string(error.what()));
    }
}

} // namespace tallowmere
