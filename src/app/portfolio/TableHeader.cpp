#include "app/portfolio/TableHeader.h"

#include "app/base/QtText.h"
#include "app/forms/WindowCommands.h"
#include "app/forms/frmTable.h"
#include "core/shell/setting_keys.h"
#include "core/shell/settings_store.h"

#include <QAction>
#include <QActionGroup>
#include <QHeaderView>

namespace tallowmere {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr std::string_view kSection = "Table";
constexpr auto kSaveAfter = 500ms;

std::size_t At(TableColumn column) {
    return static_cast<std::size_t>(column);
}

TableColumn ColumnAt(int section) {
    return kTableColumns.at(static_cast<std::size_t>(section)).column;
}

} // namespace

TableHeader::TableHeader(frmTable& window, SettingsStore& settings)
    : QObject(&window), m_window(window), m_header(*window.tblTickers->horizontalHeader()),
      m_settings(settings) {
    Apply();
    MakeMenus();
    const auto sort = ReadTableSort(UsableSetting(settings, kSection, "Sort"));
    m_header.setSortIndicator(sort ? static_cast<int>(sort->column) : -1, sort && sort->isDescending
                                                                              ? Qt::DescendingOrder
                                                                              : Qt::AscendingOrder);
    m_window.tblTickers->setSortingEnabled(true);
    ShowSort();
    m_soon.setSingleShot(true);
    m_soon.setInterval(kSaveAfter);
    connect(&m_soon, &QTimer::timeout, this, &TableHeader::Save);
    connect(&m_header, &QHeaderView::sectionMoved, this, [this] { m_soon.start(); });
    connect(&m_header, &QHeaderView::sectionResized, this,
            [this](int section, int before, int width) {
                if (before == 0 || width == 0) // it was hidden, or is
                    return;
                m_widths.at(static_cast<std::size_t>(section)) = width;
                m_soon.start();
            });
    connect(&m_header, &QHeaderView::sortIndicatorChanged, this, [this] {
        ShowSort();
        m_soon.start();
    });
    // A click that follows another one at once is one more click.
    connect(&m_header, &QHeaderView::sectionDoubleClicked, this, &TableHeader::ClickAgain);
    connect(&window, &QDialog::finished, this, [this] {
        if (m_soon.isActive())
            Save();
    });
}

void TableHeader::Apply() {
    const TableLayout layout = ReadTableLayout(UsableSetting(m_settings, kSection, "Columns"));
    const int character = m_window.fontMetrics().averageCharWidth();
    int place = 0;
    for (const auto& [column, width, isShown] : layout) {
        const int section = static_cast<int>(column);
        m_widths.at(At(column)) = width;
        m_header.moveSection(m_header.visualIndex(section), place++);
        m_header.resizeSection(section,
                               width > 0 ? width : ColumnRow(column).characters * character);
        m_header.setSectionHidden(section, !isShown);
        auto* action = new QAction(MenuCaption(ToQt(ColumnRow(column).caption)), this);
        action->setCheckable(true);
        action->setChecked(isShown);
        action->setEnabled(column != TableColumn::Symbol);
        m_shown.at(At(column)) = action;
    }
    // Columns come in through the menu in their own place, too.
    m_header.setSectionHidden(static_cast<int>(TableColumn::Portfolio), true);
}

void TableHeader::MakeMenus() {
    auto* sorts = new QActionGroup(this);
    sorts->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const TableColumnRow& row : kTableColumns) {
        QAction* action = m_shown.at(At(row.column));
        m_window.mnuColumns->addAction(action);
        connect(action, &QAction::triggered, this,
                [this, column = row.column](bool isShown) { Switch(column, isShown); });
        QAction* sort = sorts->addAction(MenuCaption(ToQt(row.caption)));
        sort->setCheckable(true);
        m_window.mnuSort->addAction(sort);
        connect(sort, &QAction::triggered, this, [this, column = row.column] { SortBy(column); });
        m_sorts.at(At(row.column)) = sort;
    }
    m_window.mnuSort->addSeparator();
    m_unsorted = m_window.mnuSort->addAction(u"As in the Portfolios"_s);
    m_unsorted->setCheckable(true);
    connect(m_unsorted, &QAction::triggered, this,
            [this] { m_header.setSortIndicator(-1, Qt::AscendingOrder); });
    QAction* again = m_window.commands->At("sortTable");
    m_window.mnuSort->addAction(again);
    connect(again, &QAction::triggered, this, &TableHeader::SortAgain);
    ShowPortfolios(false);
}

std::optional<TableSort> TableHeader::Sorting() const {
    const int section = m_header.sortIndicatorSection();
    if (section < 0 || section >= static_cast<int>(kTableColumnCount))
        return std::nullopt;
    return TableSort{ColumnAt(section), m_header.sortIndicatorOrder() == Qt::DescendingOrder};
}

// Chosen a second time, a column is sorted the other way round.
void TableHeader::SortBy(TableColumn column) {
    const auto now = Sorting();
    const bool isDescending = now && now->column == column && !now->isDescending;
    m_header.setSortIndicator(static_cast<int>(column),
                              isDescending ? Qt::DescendingOrder : Qt::AscendingOrder);
    ShowSort();
}

void TableHeader::ClickAgain(int section) {
    const auto now = Sorting();
    if (now && now->isDescending && static_cast<int>(now->column) == section)
        m_header.setSortIndicator(-1, Qt::AscendingOrder);
    else
        SortBy(ColumnAt(section));
}

void TableHeader::ShowSort() {
    const auto now = Sorting();
    for (const TableColumnRow& row : kTableColumns)
        m_sorts.at(At(row.column))->setChecked(now && now->column == row.column);
    m_unsorted->setChecked(!now);
}

void TableHeader::Switch(TableColumn column, bool isShown) {
    const bool isOfUse = column != TableColumn::Portfolio || m_showsPortfolios;
    const int section = static_cast<int>(column);
    m_header.setSectionHidden(section, !isShown || !isOfUse);
    m_soon.start();
}

void TableHeader::ShowPortfolios(bool areShown) {
    m_showsPortfolios = areShown;
    QAction* action = m_shown.at(At(TableColumn::Portfolio));
    action->setVisible(areShown);
    m_sorts.at(At(TableColumn::Portfolio))->setVisible(areShown);
    m_header.setSectionHidden(static_cast<int>(TableColumn::Portfolio),
                              !areShown || !action->isChecked());
}

TableLayout TableHeader::Layout() const {
    TableLayout layout;
    for (int place = 0; place < m_header.count(); ++place) {
        const TableColumn column = ColumnAt(m_header.logicalIndex(place));
        layout.push_back({column, m_widths.at(At(column)), m_shown.at(At(column))->isChecked()});
    }
    return layout;
}

std::vector<WantedColumn> TableHeader::Shown() const {
    std::vector<WantedColumn> shown;
    for (int place = 0; place < m_header.count(); ++place)
        if (const int section = m_header.logicalIndex(place); !m_header.isSectionHidden(section))
            shown.push_back({ColumnAt(section), m_header.sectionSize(section), true});
    return shown;
}

void TableHeader::Save() {
    m_soon.stop();
    m_settings.SaveSettings(
        kSection, {{"Columns", WriteTableLayout(Layout())}, {"Sort", WriteTableSort(Sorting())}});
}

} // namespace tallowmere
