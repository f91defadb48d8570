#include "app/forms/TickerListBox.h"

#include "app/base/QtText.h"
#include "app/forms/TickerRowPainter.h"
#include "core/portfolio/quote_cells.h"

#include <QHelpEvent>
#include <QPaintEvent>
#include <QStyle>
#include <QToolTip>

#include <algorithm>
#include <array>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLineDigits = 6;
constexpr int kLeastTicker = 4; // digits

std::size_t At(QuoteColumn column) {
    return static_cast<std::size_t>(column);
}

/// Measures texts of few different characters: numbers, whose characters all stand apart, and
/// symbols.
class Ruler {
public:
    explicit Ruler(const QFontMetrics& metrics) : m_metrics(metrics) { m_widths.fill(-1); }

    int WidthOf(const QString& text) {
        int width = 0;
        for (const QChar character : text) {
            const auto code = static_cast<std::size_t>(character.unicode());
            if (code >= m_widths.size())
                return m_metrics.horizontalAdvance(text);
            if (m_widths[code] < 0)
                m_widths[code] = m_metrics.horizontalAdvance(character);
            width += m_widths[code];
        }
        return width;
    }

private:
    QFontMetrics m_metrics;
    std::array<int, 128> m_widths{};
};

} // namespace

TickerListBox::TickerListBox(const QString& name, const QString& accessibleName, QWidget* parent)
    : ListBox(name, accessibleName, parent) {
    setItemDelegate(new TickerRowPainter(*this));
    setDragDropMode(DragDrop);
    setDefaultDropAction(Qt::MoveAction);
}

void TickerListBox::setModel(QAbstractItemModel* model) {
    connect(model, &QAbstractItemModel::modelReset, this, &TickerListBox::ForgetWidths);
    ListBox::setModel(model);
}

// The tool tip of the list is about the selected ticker; what is known of the one under the pointer
// stands below it.
bool TickerListBox::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return ListBox::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    const QString name = index.data(NameRole).toString();
    const QString hint = index.data(Qt::ToolTipRole).toString();
    if (name.isEmpty() && hint.isEmpty())
        return ListBox::viewportEvent(event);
    QStringList lines;
    if (!toolTip().isEmpty())
        lines << toolTip();
    if (!name.isEmpty())
        lines << LineStart(index.data().toString() + u": "_s + name);
    if (!hint.isEmpty())
        lines << hint;
    QToolTip::showText(help->globalPos(), lines.join(u'\n'), viewport(), visualRect(index));
    return true;
}

void TickerListBox::changeEvent(QEvent* event) {
    ListBox::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        ForgetWidths();
}

void TickerListBox::ShowColumns(const OfColumns<bool>& wanted) {
    m_wanted = wanted;
    ForgetWidths();
    PlaceForRowsInView();
    viewport()->update();
}

bool TickerListBox::Shows(QuoteColumn column) const {
    return std::ranges::find(m_columns, column, &PlacedColumn::column) != m_columns.end();
}

bool TickerListBox::Wants() const {
    return std::ranges::find(m_wanted, true) != m_wanted.end();
}

std::pair<int, int> TickerListBox::RowsInView() const {
    const QRect view = viewport()->rect();
    const int first = indexAt({1, 0}).row();
    if (first < 0)
        return {-1, -1};
    const QModelIndex last = indexAt({1, view.bottom()});
    return {first, last.isValid() ? last.row() : Count() - 1};
}

void TickerListBox::ForgetWidths() {
    m_widest = {};
    m_widestTicker = 0;
}

// The columns stand below each other, as wide as the widest cell that was ever seen in this list:
// numbers that grow shorter do not make them jump.
bool TickerListBox::PlaceForRowsInView() {
    Ruler ruler(fontMetrics());
    const int digit = ruler.WidthOf(QStringLiteral("0"));
    const auto [first, last] = RowsInView();
    bool hasQuote = false;
    for (int row = std::max(0, first); row <= last; ++row) {
        const QModelIndex item = model()->index(row, 0);
        const QVariant quote = item.data(QuoteRole);
        if (!quote.isValid())
            continue;
        hasQuote = true;
        const auto cells = quote.value<QuoteCells>();
        const auto widen = [&](QuoteColumn column, const std::string& text) {
            int& widest = m_widest.at(At(column));
            widest = std::max(widest, ruler.WidthOf(QString::fromStdString(text)));
        };
        widen(QuoteColumn::Last, cells.last);
        widen(QuoteColumn::Change, cells.change);
        widen(QuoteColumn::Percent, cells.percent);
        const QString ticker =
            item.data().toString().left(kMostTickerCharacters) + item.data(SignRole).toString();
        m_widestTicker = std::max(m_widestTicker, ruler.WidthOf(ticker));
    }
    OfColumns<int> widths{};
    for (const QuoteColumnRow& row : kQuoteColumns)
        if (m_wanted.at(At(row.column)) && hasQuote)
            widths.at(At(row.column)) = m_widest.at(At(row.column));
    if (m_wanted.at(At(QuoteColumn::Day)) && hasQuote)
        widths.at(At(QuoteColumn::Day)) = kLineDigits * digit;
    const int margin = TickerRowPainter::MarginOf(*this);
    auto columns =
        PlaceColumns(viewport()->width() - margin,
                     2 * margin + std::max(m_widestTicker, kLeastTicker * digit), widths, digit);
    if (columns == m_columns)
        return false;
    m_columns = std::move(columns);
    return true;
}

void TickerListBox::paintEvent(QPaintEvent* event) {
    // Rows that need not be painted have to move as well when the columns do.
    if (PlaceForRowsInView() && event->rect() != viewport()->rect())
        viewport()->update();
    ListBox::paintEvent(event);
}

} // namespace tallowmere
