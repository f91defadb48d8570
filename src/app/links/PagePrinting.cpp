#include "app/links/PagePrinting.h"

#include "app/base/Clock.h"
#include "app/base/PdfMarks.h"
#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/engine/PageReader.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"

#include <QDir>
#include <QLocale>
#include <QPrinter>
#include <QStandardPaths>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

const QString kNoPage = u"There is no page to print or to save."_s;
const QString kPdfFilter = u"PDF documents (*.pdf)"_s;

/// What paper is where the user lives.
QPageLayout UsualPaper(bool isLandscape) {
    const bool isImperial = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    return WithRoomForMarks(
        QPageLayout(QPageSize(isImperial ? QPageSize::Letter : QPageSize::A4),
                    isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait, {}));
}

} // namespace

PagePrinting::PagePrinting(frmMain& form, Prompts& prompts, const Clock& clock, PaneDeck& panes)
    : QObject(&form), m_form(form), m_prompts(prompts), m_clock(clock), m_panes(panes) {
    const auto command = [&](std::string_view name, auto method) {
        connect(form.menus->At(name), &QAction::triggered, this, method);
    };
    command("print", &PagePrinting::Print);
    command("printPreview", &PagePrinting::Preview);
    command("savePdf", &PagePrinting::SavePdf);
    command("savePage", &PagePrinting::SavePage);
}

BrowserPane* PagePrinting::Page() {
    BrowserPane* pane = m_panes.Front();
    if (pane->HasPage())
        return pane;
    m_prompts.Message(kNoPage, MessageTitle());
    return nullptr;
}

void PagePrinting::MakePdf(const QPageLayout& layout, Receive receive) {
    BrowserPane* pane = m_previewed ? m_previewed.data() : m_panes.Front();
    const PrintMarks marks{FromQt(pane->Title()),
                           FromQt(m_clock.Now().toString(u"yyyy-MM-dd HH:mm"_s)),
                           FromQt(pane->RealAddress())};
    // The engine calls back: what is done with the pages, and may fail, comes after its call.
    pane->WritePdf(layout, [guard = QPointer(this), layout, marks,
                            receive = std::move(receive)](const QByteArray& pdf) {
        if (!guard)
            return;
        const auto mark = [=] {
            QByteArray marked;
            try {
                marked = WithMarks(pdf, layout, marks);
            } catch (const RuntimeError&) {
                // The user is told by a message; a preview does not wait for ever.
                if (guard->m_preview)
                    guard->m_preview->Show({});
                throw;
            }
            receive(marked);
        };
        QMetaObject::invokeMethod(guard, mark, Qt::QueuedConnection);
    });
}

void PagePrinting::Print() {
    if (!Page())
        return;
    std::shared_ptr<QPrinter> printer = m_makePrinter();
    if (!printer) {
        if (m_prompts.Ask(u"No printer is set up. Save the page as a PDF document instead?"_s,
                          MessageTitle()))
            SavePdf();
        return;
    }
    printer->setDocName(m_panes.Front()->Title());
    if (m_prompts.ChoosePrinter(*printer, u"Print"_s))
        PrintDocument(std::move(printer));
}

void PagePrinting::PrintDocument(std::shared_ptr<QPrinter> printer) {
    const QPageLayout layout = WithRoomForMarks(printer->pageLayout());
    MakePdf(layout, [this, printer = std::move(printer)](const QByteArray& pdf) {
        if (PrintPdf(pdf, *printer))
            m_panes.ShowLastingStatus(u"Printed: "_s + printer->docName());
        else
            m_prompts.Message(u"The printer does not take the page."_s, MessageTitle());
    });
}

void PagePrinting::Preview() {
    BrowserPane* pane = Page();
    if (!pane)
        return;
    delete m_preview;
    m_preview = new frmPreview(&m_form);
    m_preview->setAttribute(Qt::WA_DeleteOnClose);
    m_previewed = pane;
    connect(m_preview, &QObject::destroyed, this, [this] { m_previewed.clear(); });
    connect(m_preview->chkLandscape, &QCheckBox::toggled, this, &PagePrinting::FillPreview);
    connect(m_preview->cmdPrint, &QPushButton::clicked, this, &PagePrinting::Print);
    connect(m_preview->cmdSave, &QPushButton::clicked, this, [this] {
        const QByteArray pdf = m_preview->Document();
        if (const auto path = AskForFile(u"Save as PDF"_s, ".pdf", kPdfFilter))
            Write(*path, pdf);
    });
    FillPreview();
    m_preview->open();
}

void PagePrinting::FillPreview() {
    m_preview->Wait();
    MakePdf(UsualPaper(m_preview->chkLandscape->isChecked()),
            [window = m_preview](const QByteArray& pdf) {
                if (window)
                    window->Show(pdf);
            });
}

std::optional<QString> PagePrinting::AskForFile(const QString& title, const char* ending,
                                                const QString& filter) {
    const BrowserPane& pane = *m_panes.Front();
    const std::string name = PageFileName(FromQt(pane.Title()), FromQt(pane.LocationURL()), ending);
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    return m_prompts.SaveFile(title, folder.filePath(ToQt(name)), filter);
}

void PagePrinting::SavePdf() {
    if (!Page())
        return;
    if (const auto path = AskForFile(u"Save as PDF"_s, ".pdf", kPdfFilter))
        MakePdf(UsualPaper(false),
                [this, path = *path](const QByteArray& pdf) { Write(path, pdf); });
}

void PagePrinting::SavePage() {
    const QPointer<BrowserPane> pane = Page();
    if (!pane)
        return;
    const auto path =
        AskForFile(u"Save Page As"_s, ".html",
                   u"Web page with its pictures (*.html *.htm);;Web page in one file (*.mhtml);;"
                   "Text (*.txt);;PDF documents (*.pdf)"_s);
    if (!path || !pane)
        return;
    switch (const SavedForm form = SavedFormOf(FromQt(*path))) {
    case SavedForm::Pdf:
        MakePdf(UsualPaper(false),
                [this, path = *path](const QByteArray& pdf) { Write(path, pdf); });
        break;
    case SavedForm::Text:
        PageReader::ReadText(*pane, [guard = QPointer(this), path = *path](const QString& text) {
            if (guard)
                guard->Write(path, text.toUtf8());
        });
        break;
    case SavedForm::Complete:
    case SavedForm::OneFile:
        pane->SaveTo(*path, form);
        break;
    }
}

void PagePrinting::Write(const QString& path, const QByteArray& content) {
    WriteWholeFile(ToPath(path), content.toStdString());
    m_panes.ShowLastingStatus(u"Saved "_s + QDir::toNativeSeparators(path));
}

} // namespace tallowmere
