#include "app/links/PagePrinting.h"

#include "app/engine/BrowserPane.h"
#include "app/engine/PageReader.h"
#include "app/forms/frmPreview.h"
#include "app/links/LinkControllers.h"
#include "app/links/PaneDeck.h"
#include "core/text/files.h"
#include "support/Await.h"
#include "support/PdfReader.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QPrinter>
#include <QScopeGuard>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// A session that shows a page.
struct Bench : TestSession {
    explicit Bench(const std::string& body = "<p>hello paper") {
        Store("First", "OK");
        portal = [body](const std::string&, const std::string& path) {
            return path == "/picture.png"
                       ? PortalAnswer{"image/png", "not really"}
                       : PortalAnswer{"text/html",
                                      "<html><head><title>My &amp; Page</title></head><body>" +
                                          body + "</body></html>"};
        };
        Start();
    }
    bool Open(const QString& address = u"h.example/some/page"_s) {
        (*this)->Panes().Navigate(address);
        return Await(
            [this] { return !Form().Web->Busy() && Form().Web->Title() == u"My & Page"_s; });
    }
    QString File(const char* name) const { return PathToQt(Folder() / name); }
    void Run(const char* command) { Form().menus->At(command)->trigger(); }
    bool IsWritten(const char* name) {
        return Await([&] { return QFile(File(name)).size() > 0; });
    }
    QString Text(const char* name) const { return ToQt(ReadExistingFile(Folder() / name)); }
};

} // namespace

class PagePrintingTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ThePageIsSavedAsADocumentWithItsMarks() {
        Bench bench;
        QVERIFY(bench.Open());
        bench.prompts.files << bench.File("a.pdf");
        bench.Run("savePdf");
        QVERIFY(bench.prompts.messages.last().startsWith(u"Save as PDF: "_s));
        QVERIFY(bench.prompts.messages.last().endsWith(u"/My & Page.pdf"_s));
        QVERIFY(bench.IsWritten("a.pdf"));
        QCOMPARE(PdfReader(bench.File("a.pdf")).Pages(),
                 QStringList{u"My & Page "_s + bench.clock.Now().toString(u"yyyy-MM-dd HH:mm"_s) +
                             u" hello paper h.example/some/page Page 1 of 1"_s});
    }

    void ALongPageGoesOverManySheets() {
        Bench bench("<p style='height:60cm'>first<p>last");
        QVERIFY(bench.Open());
        bench.prompts.files << bench.File("a.pdf");
        bench.Run("savePdf");
        QVERIFY(bench.IsWritten("a.pdf"));
        const QStringList pages = PdfReader(bench.File("a.pdf")).Pages();
        QCOMPARE(pages.size(), 3);
        QVERIFY(pages.first().contains(u"first"_s));
        QVERIFY(pages.last().contains(u"last"_s));
        QVERIFY(pages.last().endsWith(u"Page 3 of 3"_s));
    }

    void ThePrinterIsAskedForAndGetsThePage() {
        Bench bench;
        QVERIFY(bench.Open());
        bench->Printing().SetPrinterFactory([&] { return PdfPrinter(bench.File("paper.pdf")); });
        bench.Run("print"); // nobody chooses the printer
        QCOMPARE(bench.prompts.messages, QStringList{u"Print: "_s});
        bench.prompts.answers << true;
        bench.Run("print");
        QVERIFY(bench.IsWritten("paper.pdf"));
        QVERIFY(PdfReader(bench.File("paper.pdf")).Pages().value(0).contains(u"hello paper"_s));
        QTRY_COMPARE(bench.Form().WebStatus->text(), u"Printed: My & Page"_s);
        QCOMPARE(bench.prompts.messages.size(), 2);
    }

    void WithoutAPrinterADocumentIsOffered() {
        Bench bench;
        QVERIFY(bench.Open());
        bench->Printing().SetPrinterFactory([] { return nullptr; });
        bench.Run("print");
        QCOMPARE(bench.prompts.messages,
                 QStringList{u"Quorvane: No printer is set up. Save the page as a PDF document "
                             "instead?"_s});
        bench.prompts.answers << true;
        bench.prompts.files << bench.File("a.pdf");
        bench.Run("print");
        QVERIFY(bench.IsWritten("a.pdf"));
    }

    void WithoutAPageAMessageSaysSo() {
        Bench bench;
        for (const char* command : {"print", "printPreview", "savePdf", "savePage"}) {
            bench.Form().Web->EndPage();
            bench.prompts.messages.clear();
            bench.Run(command);
            QCOMPARE(bench.prompts.messages,
                     QStringList{u"Quorvane: There is no page to print or to save."_s});
        }
        QVERIFY(!bench->Printing().PreviewWindow());
    }

    void ThePreviewShowsWhatIsPrinted() {
        Bench bench("<p style='height:50cm'>first<p>last");
        QVERIFY(bench.Open());
        bench.Run("printPreview");
        frmPreview* window = bench->Printing().PreviewWindow();
        QVERIFY(window && window->isVisible());
        QVERIFY(!window->cmdPrint->isEnabled());
        QTRY_COMPARE(window->lblPages->text(), u"2 pages"_s);
        QTest::mouseClick(window->chkLandscape, Qt::LeftButton, {},
                          QPoint(8, window->chkLandscape->height() / 2));
        QTRY_COMPARE(window->lblPages->text(), u"3 pages"_s);
        QTest::mouseClick(window->cmdLarger, Qt::LeftButton);
        QTest::mouseClick(window->cmdSmaller, Qt::LeftButton);
        bench.prompts.files << bench.File("a.pdf");
        QTest::mouseClick(window->cmdSave, Qt::LeftButton);
        QCOMPARE(PdfReader(bench.File("a.pdf")).Pages().size(), 3);
        bench->Printing().SetPrinterFactory([&] { return PdfPrinter(bench.File("paper.pdf")); });
        bench.prompts.answers << true;
        QTest::mouseClick(window->cmdPrint, Qt::LeftButton);
        QVERIFY(bench.IsWritten("paper.pdf"));
        QTest::mouseClick(window->cmdClose, Qt::LeftButton);
        QTRY_VERIFY(!bench->Printing().PreviewWindow());
    }

    void APreviewOfPagesThatCannotBeMadeSaysSo() {
        for (const QByteArray& pdf : {QByteArray(), QByteArray("%PDF-1.4 torn")}) {
            frmPreview preview(nullptr);
            preview.Wait();
            QCOMPARE(preview.lblPages->text(), u"Making the pages..."_s);
            QVERIFY(!preview.Show(pdf));
            QCOMPARE(preview.lblPages->text(), u"The page cannot be shown as it is printed."_s);
            QVERIFY(!preview.cmdPrint->isEnabled() && !preview.cmdSave->isEnabled());
            QVERIFY(preview.cmdClose->isEnabled());
        }
    }

    void ThePageIsSavedInTheFormThatItsNameAsksFor() {
        Bench bench;
        QVERIFY(bench.Open());
        const auto save = [&](const char* name) {
            bench.prompts.files << bench.File(name);
            bench.Run("savePage");
            return bench.IsWritten(name);
        };
        QVERIFY(save("a.txt"));
        QCOMPARE(bench.Text("a.txt").trimmed(), u"hello paper"_s);
        QVERIFY(save("a.pdf"));
        QVERIFY(bench.Text("a.pdf").startsWith(u"%PDF"_s));
        QVERIFY(save("a.mhtml"));
        QTRY_VERIFY(bench.Text("a.mhtml").contains(u"hello paper"_s));
        QVERIFY(bench.Text("a.mhtml").contains(u"multipart/related"_s));
        QVERIFY(save("a.html"));
        QTRY_VERIFY(bench.Text("a.html").contains(u"hello paper"_s));
        // Nobody was asked a second time.
        QCOMPARE(bench.prompts.messages.size(), 4);
    }

    void AFileThatCannotBeWrittenIsTold() {
        Bench bench;
        QVERIFY(bench.Open());
        auto* application = static_cast<Application*>(QCoreApplication::instance());
        application->SetPrompts(&bench.prompts);
        const auto restore = qScopeGuard([=] { application->SetPrompts(nullptr); });
        std::filesystem::create_directories(bench.Folder() / "taken.txt" / "inside");
        bench.prompts.files << bench.File("taken.txt");
        bench.Run("savePage");
        QTRY_COMPARE(bench.prompts.messages.size(), 2);
        QVERIFY(bench.prompts.messages.last().contains(u"taken.txt"_s));
    }

    void AScriptPrintsNothing() {
        Bench bench("<p>hello paper<script>window.print()</script>");
        bench->Printing().SetPrinterFactory([&] { return PdfPrinter(bench.File("paper.pdf")); });
        bench.prompts.answers << true;
        QVERIFY(bench.Open());
        // The page is whole and has been asked for its text: its script is over.
        bool isRead = false;
        PageReader::ReadText(*bench.Form().Web, [&](const QString&) { isRead = true; });
        QVERIFY(Await([&] { return isRead; }));
        QCOMPARE(bench.prompts.messages, QStringList());
        QVERIFY(!QFile::exists(bench.File("paper.pdf")));
    }
};

TALLOWMERE_WEB_TEST_MAIN(PagePrintingTest)
#include "PagePrintingTest.moc"
