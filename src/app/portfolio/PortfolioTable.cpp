#include "app/portfolio/PortfolioTable.h"

#include "app/base/Clock.h"
#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/WindowCommands.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "app/links/LinkPanel.h"
#include "app/portfolio/PortfolioTableModel.h"
#include "app/portfolio/Portfolios.h"
#include "app/portfolio/TableHeader.h"
#include "app/portfolio/TablePrinting.h"
#include "app/portfolio/TickerModel.h"
#include "app/quotes/LiveQuotes.h"
#include "app/quotes/QuoteWishes.h"
#include "core/portfolio/keyed_store.h"
#include "core/shell/conversion.h"
#include "core/shell/setting_keys.h"
#include "core/text/runtime_error.h"
#include "core/tools/reminders.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPrinter>
#include <QScrollBar>

#include <algorithm>
#include <memory>

namespace tallowmere {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr std::string_view kSection = "Table";
/// Whoever scrolls or types has the sources follow once.
constexpr auto kFollow = 300ms;
constexpr std::size_t kNoteCharacters = 120;

// What cannot be read is empty here; who opens it is told.
std::string ReadOrNothing(const std::filesystem::path& folder, std::string_view file) {
    try {
        return ReadStore(folder, file);
    } catch (const RuntimeError&) {
        return {};
    }
}

QString Counted(int shown, int total) {
    const QString tickers = total == 1 ? u"1 ticker"_s : u"%1 tickers"_s.arg(total);
    return shown == total ? tickers : u"%1 of "_s.arg(shown) + tickers;
}

} // namespace

PortfolioTable::PortfolioTable(frmMain& form, SettingsStore& settings, Prompts& prompts,
                               const Clock& clock, const std::filesystem::path& programFolder,
                               Portfolios& portfolios, const LinkDispatch& dispatch,
                               LinkPanel& links)
    : QObject(&form), m_form(form), m_settings(settings), m_prompts(prompts), m_clock(clock),
      m_programFolder(programFolder), m_portfolios(portfolios), m_dispatch(dispatch),
      m_links(links) {
    connect(form.menus->At("portfolioTable"), &QAction::triggered, this, &PortfolioTable::Show);
    connect(form.lblPort, &Chip::DoubleClicked, this, &PortfolioTable::Show);
    m_reload.setSingleShot(true);
    connect(&m_reload, &QTimer::timeout, this, &PortfolioTable::Fill);
    m_soon.setSingleShot(true);
    m_soon.setInterval(kFollow);
    connect(&m_soon, &QTimer::timeout, this, &PortfolioTable::Look);
    m_minute.setInterval(60s);
    connect(&m_minute, &QTimer::timeout, this, &PortfolioTable::Look);
    // The list is written after its rows have changed.
    const TickerModel& list = portfolios.List();
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(&list, signal, this, &PortfolioTable::ReloadSoon);
    connect(&list, &QAbstractItemModel::modelReset, this, &PortfolioTable::ReloadSoon);
    connect(&list, &QAbstractItemModel::layoutChanged, this, &PortfolioTable::ReloadSoon);
    connect(&portfolios, &Portfolios::Selected, this, &PortfolioTable::ReloadSoon);
}

void PortfolioTable::Serve(PriceReader read, QuoteWishes* wishes) {
    m_readPrice = std::move(read);
    m_wishes = wishes;
    if (wishes)
        connect(&wishes->Quotes(), &LiveQuotes::Learned, this,
                [this](const std::vector<std::string>& symbols) {
                    if (m_model)
                        m_model->RefreshPrices(symbols);
                });
}

void PortfolioTable::ServeNames(NameReader read) {
    m_readName = std::move(read);
    ReloadSoon();
}

PortfolioTableModel* PortfolioTable::Model() const {
    return m_model;
}

bool PortfolioTable::ShowsAll() const {
    return m_window->cmbScope->currentIndex() == 1;
}

void PortfolioTable::Show() {
    if (!m_window)
        Make();
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
    m_window->tblTickers->setFocus();
}

void PortfolioTable::Make() {
    m_window = new frmTable(&m_form, m_form.menus->Keys());
    m_window->setAttribute(Qt::WA_DeleteOnClose);
    m_model = new PortfolioTableModel(m_window);
    m_window->SetModel(m_model);
    m_window->cmbScope->setCurrentIndex(ToBoolean(UsableSetting(m_settings, kSection, "All")) ? 1
                                                                                              : 0);
    m_header = new TableHeader(*m_window, m_settings);
    Connect();
    Fill();
}

void PortfolioTable::Connect() {
    connect(m_window, &frmTable::SightChanged, this, &PortfolioTable::LookSoon);
    connect(m_window, &QObject::destroyed, this, &PortfolioTable::Look);
    connect(m_window, &frmTable::Opened, this, &PortfolioTable::Open);
    connect(m_window, &frmTable::CopyKey, this, &PortfolioTable::Copy);
    connect(m_window->cmdCopy, &QPushButton::clicked, this, &PortfolioTable::Copy);
    connect(m_window->cmdPrint, &QPushButton::clicked, this, &PortfolioTable::Print);
    connect(m_window->cmbScope, &QComboBox::currentIndexChanged, this,
            &PortfolioTable::SwitchScope);
    connect(m_window->txtFilter, &QLineEdit::textChanged, this,
            [this](const QString& typed) { KeepCurrent([&] { m_model->SetFilter(typed); }); });
    connect(m_header, &TableHeader::SortAgain, m_model, &PortfolioTableModel::SortAgain);
    connect(m_model, &PortfolioTableModel::OrderGrewOld, this, &PortfolioTable::ShowState);
    connect(m_model, &QAbstractItemModel::layoutChanged, this, [this] {
        ShowState();
        LookSoon();
    });
}

void PortfolioTable::SwitchScope() {
    m_settings.SaveSetting(kSection, "All", FromBoolean(ShowsAll()));
    Fill();
}

void PortfolioTable::ReloadSoon() {
    if (m_window)
        m_reload.start();
}

void PortfolioTable::Fill() {
    if (!m_window)
        return;
    m_header->ShowPortfolios(ShowsAll());
    std::vector<StoredPortfolio> portfolios = LoadPortfolios(m_settings);
    if (!ShowsAll())
        std::erase_if(portfolios, [this](const StoredPortfolio& portfolio) {
            return portfolio.number != m_portfolios.Current();
        });
    m_window->setWindowTitle(u"Portfolio Table - "_s +
                             (ShowsAll() || portfolios.empty()
                                  ? u"All Portfolios"_s
                                  : LineStart(ToQt(portfolios.front().name))));
    const auto notes =
        std::make_shared<NoteIndex>(ReadOrNothing(m_programFolder, kTickerNotesFile));
    const auto reminders = std::make_shared<ReminderIndex>(
        ReadOrNothing(m_programFolder, kRemindersFile), m_clock.Today());
    KeepCurrent([&] {
        m_model->Fill(portfolios,
                      {m_readPrice, m_readName,
                       [notes](const std::string& ticker) {
                           return FirstLine(notes->Find(ticker), kNoteCharacters);
                       },
                       [reminders](const std::string& ticker) { return reminders->Find(ticker); }});
    });
}

// Whatever changes the rows: the current one stays current and, if it was, selected; or else the
// first one is current.
void PortfolioTable::KeepCurrent(const std::function<void()>& change) {
    QTableView& view = *m_window->tblTickers;
    const int before = view.currentIndex().row();
    const int scrolled = view.verticalScrollBar()->value();
    const TableRow current = before >= 0 ? m_model->At(before) : TableRow();
    const bool wasSelected = before >= 0 && view.selectionModel()->isRowSelected(before, {});
    change();
    const int row = before >= 0 ? m_model->RowOf(current.portfolio, current.ticker) : -1;
    view.verticalScrollBar()->setValue(scrolled);
    if (m_model->rowCount() > 0)
        view.selectionModel()->setCurrentIndex(
            m_model->index(std::max(row, 0), static_cast<int>(TableColumn::Symbol)),
            wasSelected && row >= 0
                ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                : QItemSelectionModel::NoUpdate);
    ShowState();
    LookSoon();
}

void PortfolioTable::ShowState() {
    QString state = Counted(m_model->rowCount(), m_model->TotalCount());
    if (m_model->IsOrderOld()) {
        const auto keys = m_window->commands->At("sortTable")->shortcut();
        state += u". Prices have changed since they were sorted"_s +
                 (keys.isEmpty()
                      ? u""_s
                      : u": "_s + keys.toString(QKeySequence::NativeText) + u" sorts again"_s);
    }
    m_window->lblState->setText(state);
}

void PortfolioTable::LookSoon() {
    m_soon.start();
}

void PortfolioTable::Look() {
    const bool isSeen = m_window && m_window->isVisible() && !m_window->isMinimized();
    if (!isSeen) {
        m_minute.stop();
        if (m_wishes)
            m_wishes->Withdraw(QuoteAsker::Table);
        Q_EMIT Looked();
        return;
    }
    m_minute.start();
    const auto [first, last] = m_window->RowsInView();
    m_model->RefreshRows(first, last); // ages rise
    if (m_wishes) {
        ListInView wish;
        for (int row = first; row >= 0 && row <= last; ++row)
            wish.watched.push_back(m_model->At(row).ticker);
        m_wishes->Want(QuoteAsker::Table, std::move(wish));
    }
    Q_EMIT Looked();
}

// The list goes along where it shows the ticker; another portfolio is not brought in for it.
void PortfolioTable::Open(int row, PagePlace place) {
    const TableRow& chosen = m_model->At(row);
    const QString ticker = ToQt(chosen.ticker);
    if (chosen.portfolio == m_portfolios.Current())
        if (const auto at = m_form.List1->Items().indexOf(ticker); at >= 0)
            m_form.List1->SetListIndex(static_cast<int>(at));
    m_links.Open(m_dispatch.LastLink(), place, ticker);
}

void PortfolioTable::Copy() {
    std::vector<int> rows;
    for (const QModelIndex& row : m_window->tblTickers->selectionModel()->selectedRows())
        rows.push_back(row.row());
    std::ranges::sort(rows);
    std::vector<const TableRow*> copied;
    if (rows.empty())
        for (int row = 0; row < m_model->rowCount(); ++row)
            copied.push_back(&m_model->At(row));
    for (const int row : rows)
        copied.push_back(&m_model->At(row));
    std::vector<TableColumn> columns;
    for (const WantedColumn& column : m_header->Shown())
        columns.push_back(column.column);
    CsvRows table = TableCsv(copied, columns);
    for (auto& cells : table)
        for (std::string& cell : cells)
            cell = FromQt(ToQt(cell));
    // The mark of a file's encoding is none of a clipboard's text.
    QString text = ToQt(WriteCsv(table));
    text.remove(QChar(QChar::ByteOrderMark));
    QGuiApplication::clipboard()->setText(text);
    m_window->lblState->setText(copied.size() == 1 ? u"1 row copied as CSV"_s
                                                   : u"%1 rows copied as CSV"_s.arg(copied.size()));
}

PrintedTable PortfolioTable::Printed() const {
    PrintedTable table;
    table.title =
        u"%1, %2"_s.arg(m_window->windowTitle(), m_clock.Now().toString(u"yyyy-MM-dd HH:mm"_s));
    QList<int> sections;
    for (const WantedColumn& column : m_header->Shown()) {
        sections << static_cast<int>(column.column);
        table.columns.append(
            {ToQt(ColumnRow(column.column).caption), ColumnRow(column.column).isNumber});
    }
    for (int row = 0; row < m_model->rowCount(); ++row) {
        QStringList cells;
        for (const int section : sections)
            cells << m_model->index(row, section).data().toString();
        table.rows << cells;
    }
    return table;
}

void PortfolioTable::Print() {
    const auto printer =
        PrinterOrPdf(m_makePrinter, m_prompts, u"table"_s, u"Portfolio Table.pdf"_s);
    if (!printer)
        return;
    const bool isFile = !printer->outputFileName().isEmpty();
    if (!isFile && !m_prompts.ChoosePrinter(*printer, u"Print"_s))
        return;
    const bool isPrinted = PrintTable(Printed(), *printer);
    if (!m_window)
        return;
    if (isPrinted)
        m_window->lblState->setText(isFile ? u"Saved "_s + printer->outputFileName()
                                           : u"Printed"_s);
    else
        m_prompts.Message(u"The printer does not take the table."_s, MessageTitle());
}

} // namespace tallowmere
