#include "app/portfolio/Reports.h"

#include "app/base/Clock.h"
#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "core/portfolio/keyed_store.h"
#include "core/shell/settings_store.h"
#include "core/sites/site_table.h"
#include "core/text/runtime_error.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPrinter>
#include <QScopeGuard>
#include <QTextLayout>

#include <algorithm>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr qreal kMarginMillimetres = 20;

/// The printer's font is asked for by its given name; few systems have one of that name, so the
/// likes of it follow.
QFont PrinterFont(const PrintedLine& line) {
    QFont font({ToQt(kPrinterFont), u"Courier New"_s, u"Liberation Mono"_s, u"DejaVu Sans Mono"_s});
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    font.setPointSize(line.points);
    font.setBold(line.bold);
    return font;
}

/// Puts lines on paper, one below the other. What is too long for the page's width goes on in the
/// next line, what is too long for its height on the next page.
class Paper {
public:
    Paper(QPagedPaintDevice& device, QPainter& painter)
        : m_device(device), m_painter(painter), m_size(PaperSize(device)) {}

    /// False when there is no further page.
    bool Add(const PrintedLine& line) {
        QTextLayout layout(ToQt(line.text), PrinterFont(line), &m_device);
        layout.setTextOption(WrapOption());
        layout.beginLayout();
        for (QTextLine row = layout.createLine(); row.isValid(); row = layout.createLine())
            row.setLineWidth(m_size.width());
        layout.endLayout();
        for (int i = 0; i < layout.lineCount(); ++i) {
            const QTextLine row = layout.lineAt(i);
            if (m_y + row.height() > m_size.height()) {
                if (!m_device.newPage())
                    return false;
                m_y = 0;
            }
            row.draw(&m_painter, {0, m_y});
            m_y += row.height();
        }
        return true;
    }

private:
    static QTextOption WrapOption() {
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        return option;
    }

    QPagedPaintDevice& m_device;
    QPainter& m_painter;
    QSizeF m_size;
    qreal m_y = 0;
};

} // namespace

Reports::Reports(frmMain& form, SettingsStore& settings, const SiteTable& sites, Prompts& prompts,
                 const Clock& clock, const std::filesystem::path& programFolder, PaneDeck& panes)
    : QObject(&form), m_settings(settings), m_sites(sites), m_prompts(prompts), m_clock(clock),
      m_programFolder(programFolder), m_panes(panes), m_makePrinter(SystemPrinter) {
    connect(form.menus->mnuViewPort, &QAction::triggered, this, &Reports::View);
    connect(form.menus->mnuPrintPort, &QAction::triggered, this, &Reports::Print);
}

NoteIndex Reports::Notes() const {
    std::string notes;
    try {
        notes = ReadStore(m_programFolder, kTickerNotesFile);
    } catch (const RuntimeError& error) {
        m_prompts.Message(u"The report is without notes.\n"_s + ToQt(error.what()), MessageTitle());
    }
    return NoteIndex(std::move(notes));
}

void Reports::View() {
    m_panes.ShowGenerated(
        "report.html", ReportPage(LoadPortfolios(m_settings), Notes(), m_clock.Today(), m_sites));
}

void Reports::Print() {
    const auto printer =
        PrinterOrPdf(m_makePrinter, m_prompts, u"report"_s, u"Portfolio Report.pdf"_s);
    if (printer && !PrintOn(*printer))
        m_prompts.Message(u"The printer does not take the report."_s, MessageTitle());
}

bool Reports::PrintOn(QPrinter& printer) const {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto pointer = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
    const std::vector<PrintedLine> lines =
        PrintedReport(LoadPortfolios(m_settings), Notes(), m_clock.Today());
    return PaintPaper(printer, u"Quorvane Portfolio Report"_s, kMarginMillimetres,
                      [&lines](QPagedPaintDevice& device, QPainter& painter) {
                          Paper paper(device, painter);
                          return std::ranges::all_of(
                              lines, [&](const PrintedLine& line) { return paper.Add(line); });
                      });
}

} // namespace tallowmere
