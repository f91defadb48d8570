#include "app/tools/DownloadWindow.h"

#include "app/engine/BrowserPane.h"
#include "app/engine/Download.h"
#include "app/tools/ToolControllers.h"
#include "support/Await.h"
#include "support/FullDisk.h"
#include "support/LoopbackServer.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QDesktopServices>
#include <QFileInfo>

using namespace tallowmere;
using namespace Qt::StringLiterals;

/// Takes what the program wants opened, as a desktop would.
class Desktop : public QObject {
    Q_OBJECT
public:
    Desktop() { QDesktopServices::setUrlHandler(u"file"_s, this, "Take"); }
    ~Desktop() override { QDesktopServices::unsetUrlHandler(u"file"_s); }
    QStringList opened;

public Q_SLOTS:
    void Take(const QUrl& url) { opened << url.toLocalFile(); }
};

namespace {

CannedPage File(const QByteArray& name, CannedPage::Ending ending = CannedPage::Ending::Length) {
    CannedPage file{QByteArray(4096, 'x'), ending, 200, "application/octet-stream"};
    file.headers << "Content-Disposition: attachment; filename=\"" + name + "\"";
    return file;
}

struct Bench {
    Bench() : session(server.Address({}), WebMode::Direct) {
        session.Start();
        QTRY_VERIFY(!session.Form().Web->Busy());
    }
    DownloadWindow& Downloads() { return *session->Controllers().tools.downloads; }
    frmDownloads& Window() { return *Downloads().Window(); }
    void Open() { session.Form().menus->At("downloads")->trigger(); }
    QString PathOf(const QString& name) { return folder.filePath(name); }
    /// A file that the user lets the page save under `name`.
    void Save(const QString& path, const QString& name) {
        session.prompts.files << PathOf(name);
        session.Form().Web->Navigate(server.Address(path));
    }
    /// The same with a file that has come as a whole, in the list that is open.
    void SaveList() {
        server.Serve(u"/list"_s, File("list.csv"));
        Save(u"/list"_s, u"list.csv"_s);
        Open();
        QTRY_COMPARE(Text(), u"Saved, 4.1 kB"_s);
    }
    QString Text(int row = 0) {
        QTreeWidgetItem* item = Window().lstFiles->topLevelItem(row);
        return item ? item->text(frmDownloads::Text) : QString();
    }
    QString Name(int row = 0) {
        return Window().lstFiles->topLevelItem(row)->text(frmDownloads::File);
    }
    int Rows() { return Window().lstFiles->topLevelItemCount(); }

    LoopbackServer server;
    QTemporaryDir folder;
    TestSession session;
    Desktop desktop;
};

} // namespace

class DownloadWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void AFileThatIsSavedIsListedAndOpened() {
        Bench bench;
        bench.server.Serve(u"/list"_s, File("list.csv"));
        bench.Save(u"/list"_s, u"my list.csv"_s);
        QTRY_COMPARE(bench.session.Form().WebStatus->text(), u"Saved my list.csv"_s);
        QVERIFY(!bench.Downloads().Window()); // nothing opens by itself
        bench.Open();
        QCOMPARE(bench.Rows(), 1);
        QCOMPARE(bench.Name(), u"my list.csv"_s);
        QCOMPARE(bench.Text(), u"Saved, 4.1 kB"_s);
        QVERIFY(bench.Window().cmdOpen->isEnabled());
        QVERIFY(!bench.Window().cmdCancel->isEnabled());
        QVERIFY(!bench.Window().cmdAgain->isEnabled());
        QTest::mouseClick(bench.Window().cmdOpen, Qt::LeftButton);
        QTest::mouseClick(bench.Window().cmdFolder, Qt::LeftButton);
        QTest::keyClick(bench.Window().lstFiles, Qt::Key_Return);
        const QString path = bench.PathOf(u"my list.csv"_s);
        QCOMPARE(bench.desktop.opened, (QStringList{path, bench.folder.path(), path}));
        // Out of the list, but not off the disk.
        QTest::keyClick(bench.Window().lstFiles, Qt::Key_Delete);
        QCOMPARE(bench.Rows(), 0);
        QVERIFY(QFile::exists(path));
        QVERIFY(!bench.Window().cmdOpen->isEnabled());
    }

    void AProgramIsOnlyShownInItsFolder() {
        Bench bench;
        bench.server.Serve(u"/program"_s, File("list.sh"));
        bench.session.prompts.answers << true;
        bench.Save(u"/program"_s, u"list.sh"_s);
        bench.Open();
        QTRY_COMPARE(bench.Text(), u"Saved, 4.1 kB"_s);
        QVERIFY(!bench.Window().cmdOpen->isEnabled());
        QVERIFY(bench.Window().lblMessage->text().startsWith(u"list.sh is a program"));
        Q_EMIT bench.Window().lstFiles->itemActivated(bench.Window().lstFiles->currentItem(), 0);
        QTest::keyClick(bench.Window().lstFiles, Qt::Key_Return);
        QCOMPARE(bench.desktop.opened, QStringList());
        QTest::mouseClick(bench.Window().cmdFolder, Qt::LeftButton);
        QCOMPARE(bench.desktop.opened, QStringList{bench.folder.path()});
    }

    void AnotherNameForAProgramDoesNotOpenItEither() {
        Bench bench;
        bench.SaveList();
        const QString path = bench.PathOf(u"list.csv"_s);
        QVERIFY(QFile::rename(path, bench.PathOf(u"tool.desktop"_s)));
        QVERIFY(QFile::link(bench.PathOf(u"tool.desktop"_s), path));
        QTest::mouseClick(bench.Window().cmdOpen, Qt::LeftButton);
        QCOMPARE(bench.desktop.opened, QStringList());
        QVERIFY(bench.Window().lblMessage->text().startsWith(u"tool.desktop is a program"));
    }

    void AFileThatIsGoneIsNotOpened() {
        Bench bench;
        bench.SaveList();
        QVERIFY(QFile::remove(bench.PathOf(u"list.csv"_s)));
        QTRY_COMPARE(bench.Text(), u"Saved, 4.1 kB; no longer in its folder"_s);
        QVERIFY(!bench.Window().cmdOpen->isEnabled());
    }

    void WhatRunsIsCancelledAndTriedAgain() {
        Bench bench;
        bench.server.Serve(u"/slow"_s, File("slow.zip", CannedPage::Ending::Stall));
        bench.Open();
        bench.Save(u"/slow"_s, u"slow.zip"_s);
        QTRY_VERIFY(bench.Rows() == 1 && bench.Text().startsWith(u"4.1 kB of "));
        QVERIFY(bench.Window().cmdCancel->isEnabled());
        QVERIFY(!bench.Window().cmdOpen->isEnabled());
        QVERIFY(!bench.Window().cmdRemove->isEnabled());
        QTest::mouseClick(bench.Window().cmdCancel, Qt::LeftButton);
        QCOMPARE(bench.Text(), u"Cancelled"_s);
        QTRY_COMPARE(QDir(bench.folder.path()).entryList(QDir::Files), QStringList());
        bench.server.Serve(u"/slow"_s, File("slow.zip"));
        QTest::mouseClick(bench.Window().cmdAgain, Qt::LeftButton);
        QTRY_COMPARE(bench.Text(), u"Saved, 4.1 kB"_s);
        QCOMPARE(bench.Rows(), 1);
        QVERIFY(QFile::exists(bench.PathOf(u"slow.zip"_s)));
        QCOMPARE(bench.session.prompts.messages.size(), 1); // where to save it was asked once
    }

    void ABrokenConnectionIsSaidInTheRow() {
        Bench bench;
        bench.server.Serve(u"/cut"_s, File("cut.zip", CannedPage::Ending::CutShort));
        bench.Open();
        bench.Save(u"/cut"_s, u"cut.zip"_s);
        // The engine tries it several times by itself.
        QTRY_VERIFY2_WITH_TIMEOUT(bench.Text().startsWith(u"Not saved: "), qPrintable(bench.Text()),
                                  60'000);
        QVERIFY2(bench.Text().startsWith(u"Not saved: the connection broke"),
                 qPrintable(bench.Text()));
        QVERIFY(bench.session.Form().WebStatus->text().startsWith(
            u"cut.zip was not saved: the connection broke"));
        QCOMPARE(bench.session.prompts.messages.size(), 1); // no box
        bench.server.Serve(u"/cut"_s, File("cut.zip"));
        QVERIFY(bench.Window().cmdAgain->isEnabled());
        QTest::mouseClick(bench.Window().cmdAgain, Qt::LeftButton);
        QTRY_COMPARE(bench.Text(), u"Saved, 4.1 kB"_s);
    }

    void AFullDiskIsSaidInTheRow() {
        Bench bench;
        bench.server.Serve(u"/big"_s, File("big.zip", CannedPage::Ending::Endless));
        bench.Open();
        bench.Save(u"/big"_s, u"big.zip"_s);
        QTRY_VERIFY(bench.Rows() == 1 && bench.Text().contains(u"kB"));
        {
            FullDisk disk(100'000);
            QTRY_VERIFY2(bench.Text().startsWith(u"Not saved: "), qPrintable(bench.Text()));
        }
        QVERIFY2(bench.Text().startsWith(u"Not saved: the file could not be written"),
                 qPrintable(bench.Text()));
        bench.server.Serve(u"/big"_s, File("big.zip"));
        QTest::mouseClick(bench.Window().cmdAgain, Qt::LeftButton);
        QTRY_COMPARE(bench.Text(), u"Saved, 4.1 kB"_s);
        QCOMPARE(QFileInfo(bench.PathOf(u"big.zip"_s)).size(), 4096);
    }

    void AFolderThatMayNotBeWrittenIsSaidInTheRow() {
        Bench bench;
        bench.server.Serve(u"/list"_s, File("list.csv"));
        bench.Open();
        // A file stands where the folder should be.
        QFile inTheWay(bench.PathOf(u"way"_s));
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        bench.Save(u"/list"_s, u"way/list.csv"_s);
        QTRY_VERIFY2(bench.Text().startsWith(u"Not saved: "), qPrintable(bench.Text()));
        QTest::mouseClick(bench.Window().cmdRemove, Qt::LeftButton);
        QCOMPARE(bench.Rows(), 0);
    }

    void ClosingAsksWhileAFileIsBeingSaved() {
        Bench bench;
        bench.server.Serve(u"/slow"_s, File("slow.zip", CannedPage::Ending::Stall));
        bench.Open();
        bench.Save(u"/slow"_s, u"slow.zip"_s);
        QTRY_VERIFY(bench.Rows() == 1 && bench.Text().startsWith(u"4.1 kB of "));
        bench.session.Form().close();
        QVERIFY(bench.session.Form().isVisible());
        QVERIFY(bench.session.prompts.messages.last().contains(u"A file is still being saved"));
        QCOMPARE(bench.session.prompts.defaults.last(), Prompts::Answer::No);
        bench.session.prompts.answers << true;
        bench.session.Form().close();
        QVERIFY(!bench.session.Form().isVisible());
        QCOMPARE(bench.Text(), u"Cancelled"_s);
        QTRY_COMPARE(QDir(bench.folder.path()).entryList(QDir::Files), QStringList());
    }

    void WhoIsMadeToEndIsNotAsked() {
        Bench bench;
        bench.server.Serve(u"/slow"_s, File("slow.zip", CannedPage::Ending::Stall));
        bench.Open();
        bench.Save(u"/slow"_s, u"slow.zip"_s);
        QTRY_VERIFY(bench.Rows() == 1 && bench.Text().startsWith(u"4.1 kB of "));
        bench.session.prompts.Leave();
        const auto asked = bench.session.prompts.messages.size();
        bench.session.Form().close();
        QVERIFY(!bench.session.Form().isVisible());
        QCOMPARE(bench.session.prompts.messages.size(), asked);
    }
};

TALLOWMERE_WEB_TEST_MAIN(DownloadWindowTest)
#include "DownloadWindowTest.moc"
