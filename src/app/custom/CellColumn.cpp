#include "app/custom/CellColumn.h"

#include "app/engine/BrowserPane.h"
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

} // namespace

PageCell::PageCell(int number, const QString& address, QWidget* parent)
    : QWidget(parent), m_address(address), m_waiting(new QLabel(u"Loads when in view"_s, this)) {
    setObjectName(u"cell"_s + QString::number(number));
    auto* line = new QLabel(address, this);
    line->setObjectName(u"address"_s);
    line->setTextFormat(Qt::PlainText);
    line->setToolTip(address.toHtmlEscaped());
    line->setTextInteractionFlags(Qt::TextSelectableByMouse);
    line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
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

CellColumn::CellColumn(const QStringList& addresses, std::function<BrowserPane*(QWidget*)> makePane,
                       QWidget* parent)
    : QScrollArea(parent), m_makePane(std::move(makePane)) {
    setObjectName(u"cells"_s);
    setAccessibleName(u"Pages of the multi link"_s);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAutoFillBackground(true);
    auto* content = new QWidget(this);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    std::set<std::size_t> first;
    for (const QString& address : addresses) {
        auto* cell = new PageCell(static_cast<int>(m_cells.size()), address, content);
        connect(cell, &PageCell::AloneWanted, this, &CellColumn::AloneWanted);
        column->addWidget(cell);
        if (first.size() < kMostLive)
            first.insert(static_cast<std::size_t>(m_cells.size()));
        m_cells << cell;
    }
    setWidget(content);
    m_settle.setSingleShot(true);
    m_settle.setInterval(kSettleMilliseconds);
    connect(&m_settle, &QTimer::timeout, this, &CellColumn::Revive);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, &m_settle, qOverload<>(&QTimer::start));
    SetLive(first);
}

void CellColumn::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    const int before = m_cells.isEmpty() ? 0 : m_cells.first()->height();
    const int height = viewport()->height();
    const int top = verticalScrollBar()->value();
    for (PageCell* cell : m_cells)
        cell->setFixedHeight(height);
    widget()->setFixedHeight(height * static_cast<int>(m_cells.size()));
    verticalScrollBar()->setPageStep(height);
    // What was in view stays in view.
    if (before > 0)
        verticalScrollBar()->setValue(static_cast<int>(static_cast<qint64>(top) * height / before));
    m_settle.start();
}

void CellColumn::Revive() {
    const int height = viewport()->height();
    if (height <= 0 || m_cells.isEmpty())
        return;
    const int top = verticalScrollBar()->value();
    const auto last = static_cast<std::size_t>(m_cells.size() - 1);
    const auto cellAt = [&](int y) { return std::min(last, static_cast<std::size_t>(y / height)); };
    SetLive(LiveCells(m_live, cellAt(top), cellAt(top + height - 1), kMostLive));
}

void CellColumn::SetLive(const std::set<std::size_t>& live) {
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
