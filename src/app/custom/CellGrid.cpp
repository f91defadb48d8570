#include "app/custom/CellGrid.h"

#include "app/engine/BrowserPane.h"
#include "app/forms/ElidedLabel.h"
#include "core/custom/multi_link.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

// Pages that are only passed on the way are not loaded.
constexpr int kSettleMilliseconds = 80;

constexpr int kStepsOfARow = 10; // of the wheel and the arrow keys

} // namespace

PageCell::PageCell(int number, const QString& address, QWidget* parent)
    : QWidget(parent), m_address(address), m_waiting(new QLabel(u"Loads when in view"_s, this)) {
    setObjectName(u"cell"_s + QString::number(number));
    auto* line = new ElidedLabel(address, this);
    line->setObjectName(u"address"_s);
    auto* alone = new QPushButton(u"Open alone"_s, this);
    alone->setAccessibleName(alone->text());
    alone->setAccessibleDescription(address);
    connect(alone, &QPushButton::clicked, this, [this] { Q_EMIT AloneWanted(m_address); });
    auto* header = new QHBoxLayout;
    header->setContentsMargins(6, 2, 6, 2);
    header->addWidget(line, 1);
    header->addWidget(alone);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addLayout(header);
    static_cast<QLabel*>(m_waiting)->setAlignment(Qt::AlignCenter);
    all->addWidget(m_waiting, 1);
}

void PageCell::SetPane(BrowserPane* pane) {
    delete m_pane;
    m_pane = pane;
    m_waiting->setVisible(!pane);
    if (!pane)
        return;
    pane->setAccessibleName(m_address);
    static_cast<QVBoxLayout*>(layout())->addWidget(pane, 1);
    pane->show();
    pane->Navigate(m_address);
}

CellGrid::CellGrid(const QStringList& addresses, int columns,
                   std::function<BrowserPane*(QWidget*)> makePane, QWidget* parent)
    : QScrollArea(parent), m_makePane(std::move(makePane)), m_columns(columns) {
    setObjectName(u"cells"_s);
    setAccessibleName(u"Pages of the multi link"_s);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAutoFillBackground(true);
    auto* content = new QWidget(this);
    std::set<std::size_t> first;
    for (const QString& address : addresses) {
        auto* cell = new PageCell(static_cast<int>(m_cells.size()), address, content);
        connect(cell, &PageCell::AloneWanted, this, &CellGrid::AloneWanted);
        if (first.size() < kMostLive)
            first.insert(static_cast<std::size_t>(m_cells.size()));
        m_cells << cell;
    }
    setWidget(content);
    m_settle.setSingleShot(true);
    m_settle.setInterval(kSettleMilliseconds);
    connect(&m_settle, &QTimer::timeout, this, &CellGrid::Revive);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        m_settle.start();
        Q_EMIT Scrolled(FirstInView());
    });
    SetLive(first);
}

void CellGrid::SetColumns(int columns) {
    const int first = FirstInView();
    m_columns = columns;
    PlaceCells();
    if (!m_cells.isEmpty())
        verticalScrollBar()->setValue(m_cells[first]->y());
}

void CellGrid::ShowCell(int index) {
    PageCell* cell = m_cells.value(index);
    if (!cell)
        return;
    verticalScrollBar()->setValue(cell->y());
    // What comes into view by this is to take the keyboard at once.
    Revive();
    if (cell->Pane())
        cell->Pane()->setFocus();
}

int CellGrid::FirstInView() const {
    return FirstOfRow(verticalScrollBar()->value());
}

int CellGrid::FirstOfRow(int y) const {
    const auto last = std::max<qsizetype>(0, m_cells.size() - 1);
    return std::min(static_cast<int>(last), y / std::max(1, m_grid.height) * m_grid.columns);
}

void CellGrid::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    const int before = m_grid.height;
    const int top = verticalScrollBar()->value();
    PlaceCells();
    // What was in view stays in view.
    if (before > 0)
        verticalScrollBar()->setValue(
            static_cast<int>(static_cast<qint64>(top) * m_grid.height / before));
}

void CellGrid::PlaceCells() {
    const QSize view = viewport()->size();
    m_grid = TilesOf(static_cast<int>(m_cells.size()), m_columns, view.width(), view.height());
    for (int i = 0; i < m_cells.size(); ++i)
        m_cells[i]->setGeometry(i % m_grid.columns * m_grid.width,
                                i / m_grid.columns * m_grid.height, m_grid.width, m_grid.height);
    widget()->resize(view.width(), m_grid.rows * m_grid.height);
    verticalScrollBar()->setSingleStep(std::max(1, m_grid.height / kStepsOfARow));
    m_settle.start();
}

void CellGrid::Revive() {
    const int height = viewport()->height();
    if (height <= 0 || m_cells.isEmpty())
        return;
    const int last = FirstOfRow(verticalScrollBar()->value() + height - 1) + m_grid.columns - 1;
    const auto most = static_cast<int>(m_cells.size()) - 1;
    SetLive(LiveCells(m_live, static_cast<std::size_t>(FirstInView()),
                      static_cast<std::size_t>(std::min(most, last)), kMostLive));
}

void CellGrid::SetLive(const std::set<std::size_t>& live) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(m_cells.size()); ++i) {
        PageCell* cell = m_cells.at(static_cast<qsizetype>(i));
        if (live.count(i) == 0)
            cell->SetPane(nullptr);
    }
    for (const std::size_t i : live) {
        PageCell* cell = m_cells.at(static_cast<qsizetype>(i));
        if (!cell->Pane())
            cell->SetPane(m_makePane(cell));
    }
    m_live = live;
}

} // namespace tallowmere
