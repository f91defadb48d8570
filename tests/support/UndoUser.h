#pragma once

#include "app/forms/UndoBar.h"
#include "core/portfolio/keyed_store.h"
#include "core/text/files.h"
#include "support/TestSession.h"

namespace tallowmere {

/// A session with two portfolios, of which the first is named and has a note.
struct UndoUser : TestSession {
    UndoUser() {
        Store("First", "OK");
        Store("Stocks1", "AOL|MSFT|IBM|");
        Store("Stocks2", "IBM|");
        Store("PortName1", "Tech");
        std::string ignored;
        TickerNotes(Folder(), ignored, "SET", "MSFT", "mine", kTickerNotesFile);
        Start();
        Form().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&Form()));
        Form().List1->setFocus();
    }
    MainMenus& Menus() { return *Form().menus; }
    UndoBar& Bar() { return *Form().undoBar; }
    QString Undo() { return Menus().undo->text(); }
    QString Redo() { return Menus().redo->text(); }
    QStringList Tickers() { return Form().List1->Items(); }
    void Select(int index) { Form().List1->SetListIndex(index); }
    QByteArray File(const char* name) const {
        const std::string content = ReadExistingFile(Folder() / name);
        return QByteArray::fromStdString(content);
    }
    /// Leaves out what no command of the user's wrote.
    QList<QByteArray> Stores() const {
        return {File("settings.ini"), File("TickNotes.txt"), File("remind.txt")};
    }
};

} // namespace tallowmere
