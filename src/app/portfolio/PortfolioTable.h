#pragma once

#include "app/base/Printers.h"
#include "app/forms/frmTable.h"
#include "core/quotes/listed_price.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace tallowmere {

class Clock;
class LinkDispatch;
class LinkPanel;
class PortfolioTableModel;
class Portfolios;
class Prompts;
class QuoteWishes;
class SettingsStore;
class TableHeader;
class frmMain;
struct PrintedTable;

/// The window "Portfolio Table": fills it, follows what changes elsewhere, has the sources asked
/// for the rows in sight, and opens, copies and prints rows. The window is made when it is first
/// wanted.
class PortfolioTable : public QObject {
    Q_OBJECT
public:
    using PriceReader = std::function<std::optional<ListedPrice>(const std::string& ticker)>;
    using NameReader = std::function<std::string(const std::string& ticker)>;

    PortfolioTable(frmMain& form, SettingsStore& settings, Prompts& prompts, const Clock& clock,
                   const std::filesystem::path& programFolder, Portfolios& portfolios,
                   const LinkDispatch& dispatch, LinkPanel& links);

    /// Shows the prices that `read` gives. `wishes`, if there are any, take what it lacks; they
    /// outlive the form.
    void Serve(PriceReader read, QuoteWishes* wishes);

    /// Shows the names that the reader gives, and where it gives none that of the price.
    void ServeNames(NameReader read);

    /// Opens the window, or brings it to the front.
    void Show();

    /// Shows in a moment what the stores hold by now.
    void ReloadSoon();

    /// The window while it is open, and what it shows.
    frmTable* Window() const { return m_window; }
    PortfolioTableModel* Model() const;

    void SetPrinterFactory(PrinterFactory factory) { m_makePrinter = std::move(factory); }

Q_SIGNALS:
    /// It has looked at what can be seen.
    void Looked();

private:
    void Make();
    void Connect();
    void Fill();
    void KeepCurrent(const std::function<void()>& change);
    void ShowState();
    void SwitchScope();
    void LookSoon();
    void Look();
    void Open(int row, PagePlace place);
    void Copy();
    void Print();
    PrintedTable Printed() const;
    bool ShowsAll() const;

    frmMain& m_form;
    SettingsStore& m_settings;
    Prompts& m_prompts;
    const Clock& m_clock;
    std::filesystem::path m_programFolder;
    Portfolios& m_portfolios;
    const LinkDispatch& m_dispatch;
    LinkPanel& m_links;
    PriceReader m_readPrice;
    NameReader m_readName;
    QuoteWishes* m_wishes = nullptr;
    PrinterFactory m_makePrinter = SystemPrinter;
    QPointer<frmTable> m_window;
    QPointer<PortfolioTableModel> m_model;
    QPointer<TableHeader> m_header;
    QTimer m_reload;
    QTimer m_soon;
    QTimer m_minute;
};

} // namespace tallowmere
