#include "app/portfolio/CsvCommands.h"

#include "app/forms/frmCsvImport.h"
#include "core/text/csv_text.h"
#include "support/ModalDialog.h"
#include "support/UndoUser.h"

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

struct CsvUser : UndoUser {
    QString File(const char* content, const QString& name = u"in.csv"_s) {
        WriteWholeFile(ToPath(Path(name)), content);
        return Path(name);
    }
    QString Path(const QString& name) const { return temporary.filePath(name); }
    void Import(const QString& file, const std::function<void(frmCsvImport&)>& use) {
        prompts.files << file;
        WithDialog<frmCsvImport>([this] { Menus().At("importCsv")->trigger(); }, use);
    }
    static void Accept(frmCsvImport& window) {
        QTest::mouseClick(window.cmdImport, Qt::LeftButton);
    }
    QTemporaryDir temporary;
};

} // namespace

class CsvCommandsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void EverythingGoesIntoATable() {
        CsvUser user;
        user.prompts.files << user.Path(u"out.csv"_s);
        user.Menus().At("exportCsv")->trigger();
        const std::string written = ReadExistingFile(ToPath(user.Path(u"out.csv"_s)));
        QCOMPARE(ReadCsv(written).rows, (CsvRows{{"Portfolio", "Portfolio Name", "Ticker", "Note"},
                                                 {"1", "Tech", "AOL", ""},
                                                 {"1", "Tech", "MSFT", "mine"},
                                                 {"1", "Tech", "IBM", ""},
                                                 {"2", "Portfolio #2", "IBM", ""}}));
        QVERIFY(user.Form().WebStatus->text().startsWith(u"4 rows written to "_s));
    }

    void WhatWouldChangeIsShownAndNothingIsDoneWithoutAYes() {
        CsvUser user;
        const QList<QByteArray> before = user.Stores();
        user.Import(user.File("Symbol;Note\nGE;new\nMSFT;other\nAOL;\n;x\n"),
                    [](frmCsvImport& window) {
                        QCOMPARE(window.txtChanges->toPlainText(),
                                 u"Portfolio 1 (Tech): GE added\nNote on GE added: new\n"
                                 "Note on MSFT replaced: other"_s);
                        QCOMPARE(window.lblForm->text(),
                                 u"5 rows, parted by semicolons, quoted by \", UTF-8. 2 tickers "
                                 "are there already. 1 row has nothing to take."_s);
                        QTest::mouseClick(window.cmdCancel, Qt::LeftButton);
                    });
        QCOMPARE(user.Stores(), before);
        QCOMPARE(user.Undo(), u"&Undo"_s);
    }

    void AnImportIsOneStepOfUndo() {
        CsvUser user;
        const QList<QByteArray> before = user.Stores();
        user.Import(user.File("Portfolio,Portfolio Name,Ticker,Note\n1,Best,GE,new\n2,,KO,\n"
                              "3,Third,,\n,,ZZ,alone\n"),
                    CsvUser::Accept);
        QCOMPARE(user.Tickers(), (QStringList{u"AOL"_s, u"MSFT"_s, u"IBM"_s, u"GE"_s}));
        QCOMPARE(user.Form().lblPort->Caption(), u"Best"_s);
        QCOMPARE(user.Stored("Stocks2"), u"IBM|KO|"_s);
        QCOMPARE(user.Stored("PortName3"), u"Third"_s);
        QCOMPARE(user.UndoUser::File("TickNotes.txt"),
                 QByteArray("||MSFT||mine|||||\r\n||GE||new|||||\r\n||ZZ||alone|||||\r\n"));
        const QList<QByteArray> after = user.Stores();
        QCOMPARE(user.Undo(), u"&Undo Import CSV"_s);
        user.Menus().undo->trigger();
        QCOMPARE(user.Stores(), before);
        QCOMPARE(user.Tickers(), (QStringList{u"AOL"_s, u"MSFT"_s, u"IBM"_s}));
        user.Menus().redo->trigger();
        QCOMPARE(user.Stores(), after);
    }

    void TheUserSaysWhereRowsWithoutAPortfolioGo() {
        CsvUser user;
        user.Import(user.File("GE\nKO\n"), [](frmCsvImport& window) {
            QCOMPARE(window.cmbTarget->currentIndex(), 0);
            window.cmbTarget->setCurrentIndex(4);
            QVERIFY(window.txtChanges->toPlainText().startsWith(u"Portfolio 5"_s));
            CsvUser::Accept(window);
        });
        QCOMPARE(user.Stored("Stocks5"), u"GE|KO|"_s);
        QCOMPARE(user.Tickers().size(), 3);
    }

    void ATableThatChangesNothingCannotBeImported() {
        CsvUser user;
        user.Import(user.File("Ticker\nAOL\n"), [](frmCsvImport& window) {
            QCOMPARE(window.txtChanges->toPlainText(), u"Nothing would change."_s);
            QVERIFY(!window.cmdImport->isEnabled());
        });
    }

    void WhatCannotBeReadIsTold() {
        CsvUser user;
        const QList<QByteArray> before = user.Stores();
        const struct {
            QString file;
            QString told;
        } cases[] = {
            {user.File("a,b\n\"c", u"quote.csv"_s), u"not closed"_s},
            {user.File("Date,Value\n1,2\n", u"dates.csv"_s), u"No column of tickers"_s},
            {user.File("", u"empty.csv"_s), u"No column of tickers"_s},
            {user.Path(u"missing.csv"_s), u"is no file"_s},
            {user.temporary.path(), u"is no file"_s},
        };
        for (const auto& [file, told] : cases) {
            user.prompts.files << file;
            user.Menus().At("importCsv")->trigger();
            QVERIFY2(user.prompts.messages.last().contains(told), qPrintable(file));
        }
        QCOMPARE(user.Stores(), before);
    }

    void NothingIsDoneWhenNoFileIsChosen() {
        CsvUser user;
        user.Menus().At("importCsv")->trigger();
        user.Menus().At("exportCsv")->trigger();
        QCOMPARE(user.prompts.messages.size(), 2);
    }
};

QTEST_MAIN(CsvCommandsTest)
#include "CsvCommandsTest.moc"
