#pragma once

#include "app/base/Printers.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmPreview.h"
#include "core/pages/saved_page.h"

#include <QObject>
#include <QPageLayout>
#include <QPointer>

namespace tallowmere {

class Clock;
class PaneDeck;
class Prompts;
class frmMain;

/// The page in front on paper, before it is there, and as a file.
class PagePrinting : public QObject {
    Q_OBJECT
public:
    PagePrinting(frmMain& form, Prompts& prompts, const Clock& clock, PaneDeck& panes);

    /// Asks for a printer and prints the page; where there is none, offers a PDF document.
    void Print();

    /// Shows the page as it will be printed.
    void Preview();

    /// Saves the page as it is printed.
    void SavePdf();

    /// Saves the page in the form that its name asks for.
    void SavePage();

    void SetPrinterFactory(PrinterFactory factory) { m_makePrinter = std::move(factory); }

    /// The preview while it is open.
    frmPreview* PreviewWindow() const { return m_preview; }

private:
    using Receive = std::function<void(const QByteArray&)>;
    BrowserPane* Page();
    void MakePdf(const QPageLayout& layout, Receive receive);
    void PrintDocument(std::shared_ptr<QPrinter> printer);
    void FillPreview();
    std::optional<QString> AskForFile(const QString& title, const char* ending,
                                      const QString& filter);
    void Write(const QString& path, const QByteArray& content);

    frmMain& m_form;
    Prompts& m_prompts;
    const Clock& m_clock;
    PaneDeck& m_panes;
    PrinterFactory m_makePrinter = SystemPrinter;
    QPointer<frmPreview> m_preview;
    QPointer<BrowserPane> m_previewed;
};

} // namespace tallowmere
