#include "app/portfolio/TablePrinting.h"

#include "app/base/Printers.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>

#include <algorithm>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr qreal kMarginMillimetres = 12;
constexpr qreal kPoints = 9;
constexpr qreal kFewestPoints = 5;
constexpr qreal kMostCharacters = 36; // of a column
constexpr qreal kBold = 1.1;
constexpr qreal kGap = 1.5;       // characters between columns
constexpr qreal kRowHeight = 1.3; // of the height of a line

/// A table on the pages of a printer.
class Sheets {
public:
    Sheets(const PrintedTable& table, QPagedPaintDevice& device, QPainter& painter)
        : m_table(table), m_device(device), m_painter(painter), m_size(PaperSize(device)),
          m_plain(painter.font()) {
        m_plain.setPointSizeF(kPoints);
        const qreal wanted = Measure();
        if (const qreal scale = m_size.width() / wanted; scale < 1) {
            m_plain.setPointSizeF(std::max(kFewestPoints, kPoints * scale));
            m_gap *= scale;
            for (qreal& width : m_widths)
                width *= scale;
        }
        m_bold = m_plain;
        m_bold.setBold(true);
        m_rowHeight = kRowHeight * QFontMetricsF(m_plain, &device).height();
        // The headings, a line below them, and the foot.
        m_perPage = std::max<qsizetype>(
            1, static_cast<qsizetype>((m_size.height() - 3 * m_rowHeight) / m_rowHeight));
    }

    bool Print() {
        const qsizetype pages =
            std::max<qsizetype>(1, (m_table.rows.size() + m_perPage - 1) / m_perPage);
        for (qsizetype page = 0; page < pages; ++page) {
            if (page > 0 && !m_device.newPage())
                return false;
            Page(page, pages);
        }
        return true;
    }

private:
    /// Gives each column the width of its widest text, up to a bound; their sum.
    qreal Measure() {
        const QFontMetricsF metrics(m_plain, &m_device);
        const qreal character = metrics.averageCharWidth();
        m_gap = kGap * character;
        qreal sum = 0;
        for (qsizetype at = 0; at < m_table.columns.size(); ++at) {
            // The heading is bold, and so a little wider.
            qreal width =
                metrics.horizontalAdvance(m_table.columns[at].heading) * kBold + character;
            for (const QStringList& row : m_table.rows)
                width = std::max(width, metrics.horizontalAdvance(row.value(at)));
            m_widths << std::min(width, kMostCharacters * character) + m_gap;
            sum += m_widths.last();
        }
        return sum;
    }

    void Page(qsizetype page, qsizetype pages) {
        QStringList headings;
        for (const PrintedTable::Column& column : m_table.columns)
            headings << column.heading;
        Row(headings, 0, m_bold);
        const qreal line = m_rowHeight * 1.1;
        m_painter.drawLine(QPointF(0, line), QPointF(m_size.width(), line));
        const qsizetype first = page * m_perPage;
        const qsizetype end = std::min(first + m_perPage, m_table.rows.size());
        for (qsizetype row = first; row < end; ++row)
            Row(m_table.rows[row], m_rowHeight * (static_cast<qreal>(row - first) + 1.3), m_plain);
        m_painter.setFont(m_plain);
        m_painter.drawText(QRectF(0, m_size.height() - m_rowHeight, m_size.width(), m_rowHeight),
                           Qt::AlignHCenter | Qt::AlignVCenter,
                           u"%1 - %2 / %3"_s.arg(m_table.title).arg(page + 1).arg(pages));
    }

    void Row(const QStringList& cells, qreal top, const QFont& font) {
        const QFontMetricsF metrics(font, &m_device);
        m_painter.setFont(font);
        qreal left = 0;
        for (qsizetype at = 0; at < m_table.columns.size(); ++at) {
            const PrintedTable::Column& column = m_table.columns[at];
            const qreal width = m_widths[at];
            const QRectF place(left, top, width - m_gap, m_rowHeight);
            m_painter.drawText(
                place, (column.isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter,
                metrics.elidedText(cells.value(at), Qt::ElideRight, place.width()));
            left += width;
        }
    }

    const PrintedTable& m_table;
    QPagedPaintDevice& m_device;
    QPainter& m_painter;
    QSizeF m_size;
    QFont m_plain, m_bold;
    QList<qreal> m_widths;
    qreal m_gap = 0, m_rowHeight = 0;
    qsizetype m_perPage = 1;
};

} // namespace

bool PrintTable(const PrintedTable& table, QPrinter& printer) {
    printer.setPageOrientation(QPageLayout::Landscape);
    return PaintPaper(printer, table.title, kMarginMillimetres,
                      [&table](QPagedPaintDevice& device, QPainter& painter) {
                          return Sheets(table, device, painter).Print();
                      });
}

} // namespace tallowmere
