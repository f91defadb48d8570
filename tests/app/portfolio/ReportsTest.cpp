#include "app/portfolio/Reports.h"
#include "app/engine/BrowserPane.h"
#include "core/portfolio/keyed_store.h"
#include "core/text/files.h"
#include "support/FullDisk.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QPrinter>
#include <QProcess>
#include <QStandardPaths>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class ReportsTest : public QObject {
    Q_OBJECT
private:
    /// A session with two portfolios and a note on MSFT whose main pane only records where it is
    /// sent, and whose printer writes a PDF file.
    class Report : public TestSession {
    public:
        QStringList opened;

        Report() {
            Store("First", "OK");
            Store("Stocks1", "IBM|MSFT|AOL|");
            Store("PortName1", "R&D");
            Store("Stocks10", "T<X|");
            std::string ignored;
            TickerNotes(Folder(), ignored, "SET", "MSFT", "buy > 100?", "\\TickNotes.txt");
            Start();
            connect(Form().Web, &BrowserPane::BeforeNavigate2, Form().Web,
                    [this](const QString& address, bool* cancel) {
                        opened << address;
                        *cancel = true;
                    });
            PrintTo(Pdf());
        }
        void Run(const char* command) {
            Form().findChild<QAction*>(QString::fromLatin1(command))->trigger();
        }
        QString Pdf() const { return PathToQt(Folder() / "printed.pdf"); }
        std::filesystem::path Page() const { return Folder() / "report.html"; }

        void PrintTo(const QString& file) {
            Form().findChild<Reports*>()->SetPrinterFactory([file] {
                auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
                printer->setOutputFormat(QPrinter::PdfFormat);
                printer->setOutputFileName(file);
                printer->setPageSize(QPageSize(QPageSize::A4));
                return printer;
            });
        }
        QString Read(const char* program, const QStringList& arguments) const {
            QProcess reader;
            reader.start(QString::fromLatin1(program), arguments);
            if (!reader.waitForFinished() || reader.exitCode() != 0)
                return u"cannot be read: "_s + reader.errorString();
            return QString::fromUtf8(reader.readAllStandardOutput());
        }
        /// The lines of the printed pages, with one blank where some stand.
        QStringList Printed() const {
            QStringList lines;
            const QString text = Read("pdftotext", {u"-layout"_s, u"-nopgbrk"_s, Pdf(), u"-"_s});
            for (const QString& line : text.split(u'\n', Qt::SkipEmptyParts))
                lines << line.simplified();
            return lines;
        }
        int PageCount() const {
            const QString text = Read("pdfinfo", {Pdf()});
            const auto match = QRegularExpression(u"Pages: *(\\d+)"_s).match(text);
            return match.captured(1).toInt();
        }
    };

    static QString Link(const QString& address, const QString& ticker) {
        return u"<a href=\"http://h.example/click?page=quote&symbol="_s + address +
               u"&button=Go\">"_s + ticker + u"</a>"_s;
    }

private Q_SLOTS:
    void TheReportIsWrittenAndShown() {
        Report session;
        session.Run("mnuViewPort");
        QCOMPARE(ToQt(ReadExistingFile(session.Page())),
                 u"<big><big>Quorvane Portfolio Report : 11/21/2026<br></big>4 Stocks </big>"
                 "<br><br><big><big>Portfolio #1 : R&amp;D</big> (3)</big><br>"
                 "<br><b>"_s +
                     Link(u"MSFT"_s, u"MSFT"_s) +
                     u"&nbsp;&nbsp;&nbsp;&nbsp;.......<font color=\"#008000\">\"buy &gt; 100?\""
                     "</font></b><br>"_s +
                     Link(u"IBM"_s, u"IBM"_s) + u", "_s + Link(u"AOL"_s, u"AOL"_s) +
                     u"<br><br><br><big><big>Portfolio #10 : Portfolio #10</big> (1)</big><br>"_s +
                     Link(u"T%3CX"_s, u"T&lt;X"_s) + u"<br><br><br>"_s);
        QCOMPARE(session.opened, QStringList{PathToQt(session.Page())});
    }

    void TheReportBringsTheMainPaneToTheFront() {
        Report session;
        session.Form().Web->hide();
        session.Form().WebB->show();
        session.Run("mnuViewPort");
        QVERIFY(!session.Form().Web->isHidden());
        QVERIFY(session.Form().WebB->isHidden());
    }

    void AReportThatCannotBeWrittenIsToldOf() {
        Report session;
        std::filesystem::create_directories(session.Page() / "inside");
        auto& application = static_cast<Application&>(*qApp);
        application.SetPrompts(&session.prompts);
        QTimer::singleShot(0, session.Form().menus->mnuViewPort, &QAction::trigger);
        QTRY_COMPARE(session.prompts.messages.size(), 1);
        application.SetPrompts(nullptr);
        QCOMPARE(session.opened, QStringList());
    }

    void OnAFullDiskTheReportBeforeStaysAndTheUserIsTold() {
        Report session;
        session.Run("mnuViewPort");
        const std::string before = ReadExistingFile(session.Page());
        std::string tickers;
        for (int i = 0; i < 2000; ++i)
            tickers += "T" + std::to_string(i) + "|";
        session.Store("Stocks2", tickers.c_str());
        session.opened.clear();
        auto& application = static_cast<Application&>(*qApp);
        application.SetPrompts(&session.prompts);
        QTimer::singleShot(0, session.Form().menus->mnuViewPort, [&] {
            const FullDisk disk(65536);
            session.Run("mnuViewPort");
        });
        QTRY_COMPARE(session.prompts.messages.size(), 1);
        application.SetPrompts(nullptr);
        QVERIFY(session.prompts.messages[0].contains(u"report.html"_s));
        QCOMPARE(ReadExistingFile(session.Page()), before);
        QCOMPARE(session.opened, QStringList());
    }

    void ThePrintedReportReadsAsTheReport() {
        Report session;
        session.Run("mnuPrintPort");
        QCOMPARE(session.Printed(),
                 (QStringList{u"Quorvane Portfolio Report"_s, u"11/21/2026"_s,
                              u"Portfolio #1 : R&D"_s, u"MSFT .......\"buy > 100?\""_s,
                              u"IBM, AOL"_s, u"Portfolio #10 : Portfolio #10"_s, u"T<X"_s}));
        QCOMPARE(session.prompts.messages, QStringList());
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    }

    void TheHeadingsAreBoldAndTheDateIsLarge() {
        Report session;
        session.Run("mnuPrintPort");
        const QString fonts = session.Read("pdffonts", {session.Pdf()});
        QCOMPARE(fonts.count(u"Bold"_s), 1);
        // The height of a word's box grows with its font.
        const auto height = [&](const QString& word) {
            const QString boxes = session.Read("pdftotext", {u"-bbox"_s, session.Pdf(), u"-"_s});
            const auto match =
                QRegularExpression(u"yMin=\"([\\d.]+)\" xMax=\"[\\d.]+\" yMax=\"([\\d.]+)\">"_s +
                                   word)
                    .match(boxes);
            return match.captured(2).toDouble() - match.captured(1).toDouble();
        };
        const double text = height(u"AOL"_s);
        QVERIFY(text > 0);
        QVERIFY(qAbs(height(u"11/21/2026"_s) / text - 15.0 / 11.0) < 0.02);
    }

    void ALongReportBreaksAcrossPagesAndLosesNothing() {
        Report session;
        std::string list;
        QStringList expected;
        for (int i = 0; i < 2000; ++i) {
            const std::string ticker = "T" + std::to_string(1000 + i);
            list += ticker + "|";
            expected << ToQt(ticker);
        }
        session.Store("Stocks4", list.c_str());
        session.Run("mnuPrintPort");
        QVERIFY(session.PageCount() > 2);
        const QString text = session.Printed().join(u' ');
        QStringList found;
        for (auto matches = QRegularExpression(u"T\\d{4}"_s).globalMatch(text); matches.hasNext();)
            found << matches.next().captured();
        QCOMPARE(found, expected);
    }

    void ALongNoteGoesOnInTheNextLineAndOnTheNextPage() {
        Report session;
        std::string note;
        QStringList expected;
        for (int i = 0; i < 3000; ++i) {
            note += "word" + std::to_string(i) + " ";
            expected << u"word"_s + QString::number(i);
        }
        std::string ignored;
        TickerNotes(session.Folder(), ignored, "SET", "AOL", note, "\\TickNotes.txt");
        session.Run("mnuPrintPort");
        QVERIFY(session.PageCount() > 1);
        const QString text = session.Printed().join(u' ');
        QStringList found;
        for (auto matches = QRegularExpression(u"word\\d+"_s).globalMatch(text); matches.hasNext();)
            found << matches.next().captured();
        QCOMPARE(found, expected);
    }

    void WithoutAPrinterAPdfDocumentIsOffered() {
        Report session;
        session.Form().findChild<Reports*>()->SetPrinterFactory([] { return nullptr; });
        session.Run("mnuPrintPort");
        QCOMPARE(session.prompts.messages,
                 QStringList{u"Quorvane: No printer is set up. Save the report as a PDF document "
                             "instead?"_s});
        session.prompts.answers << true << true;
        session.Run("mnuPrintPort"); // the file is not named
        QVERIFY(!QFile::exists(session.Pdf()));
        session.prompts.files << session.Pdf();
        session.Run("mnuPrintPort");
        QVERIFY(session.prompts.messages.last().endsWith(u"/Portfolio Report.pdf"_s));
        QCOMPARE(session.Printed().first(), u"Quorvane Portfolio Report"_s);
    }

    void OnAFullDiskTheDocumentBeforeStaysAndTheUserIsTold() {
        Report session;
        WriteWholeFile(session.Folder() / "printed.pdf", "of yesterday");
        auto& application = static_cast<Application&>(*qApp);
        application.SetPrompts(&session.prompts);
        QTimer::singleShot(0, session.Form().menus->mnuPrintPort, [&] {
            const FullDisk disk(1000);
            session.Run("mnuPrintPort");
        });
        QTRY_COMPARE(session.prompts.messages.size(), 1);
        application.SetPrompts(nullptr);
        QVERIFY2(session.prompts.messages[0].contains(u"printed.pdf"_s),
                 qPrintable(session.prompts.messages[0]));
        QCOMPARE(ReadExistingFile(session.Folder() / "printed.pdf"), "of yesterday");
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    }
};

TALLOWMERE_WEB_TEST_MAIN(ReportsTest)
#include "ReportsTest.moc"
