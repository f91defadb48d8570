#include "app/portfolio/TickerBox.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "app/links/PaneDeck.h"
#include "app/portfolio/Portfolios.h"
#include "app/portfolio/TickerModel.h"
#include "core/links/catalogue.h"
#include "core/portfolio/keyed_store.h"
#include "core/portfolio/portfolio_text.h"
#include "core/portfolio/ticker_list.h"
#include "core/shell/undo_recorder.h"
#include "core/text/runtime_error.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace tallowmere {

using namespace Qt::StringLiterals;

TickerBox::TickerBox(frmMain& form, UndoRecorder& undo, Prompts& prompts,
                     const std::filesystem::path& programFolder, Portfolios& portfolios,
                     LinkDispatch& dispatch, PaneDeck& panes)
    : QObject(&form), m_form(form), m_undo(undo), m_prompts(prompts),
      m_programFolder(programFolder), m_portfolios(portfolios), m_dispatch(dispatch),
      m_panes(panes) {
    form.txtStock->installEventFilter(this);
    connect(form.txtStock, &QLineEdit::textChanged, this, &TickerBox::UpperCase);
    connect(form.txtStock, &QLineEdit::returnPressed, this, &TickerBox::EnterTickers);
    connect(form.List1, &ListBox::Clicked, this, &TickerBox::UpdateToolTip);
    connect(form.List1, &ListBox::DoubleClicked, this, &TickerBox::OpenSelected);
    connect(form.List1, &ListBox::DeletePressed, this, [this] {
        if (m_form.List1->ListIndex() >= 0)
            m_portfolios.RemoveSelectedTicker();
    });
    connect(form.List1, &ListBox::MenuRequested, this, &TickerBox::PopUpTickerMenu);
    connect(form.menus->openLast, &QAction::triggered, this, &TickerBox::OpenSelected);
    connect(form.menus->mnuTickNotes, &QAction::triggered, this, &TickerBox::EditNote);
    connect(form.menus->goToTicker, &QAction::triggered, this, [this] {
        m_form.txtStock->setFocus(Qt::ShortcutFocusReason);
        m_form.txtStock->selectAll();
    });
    connect(&dispatch, &LinkDispatch::LastLinkChanged, this, &TickerBox::UpdateToolTip);
    // The menu bar shows the same commands as the popup menu.
    for (QMenu* menu : {form.menus->tickerMenu, form.menus->portfolioMenu})
        connect(menu, &QMenu::aboutToShow, this, &TickerBox::FillTickerMenu);
}

void TickerBox::UpperCase(const QString& text) {
    const int caret = m_form.txtStock->cursorPosition();
    QString upper = text.toUpper();
    // A column that was pasted out of a table is a row of symbols.
    for (QChar& character : upper)
        if (character == u'\n' || character == u'\r' || character == u'\t')
            character = u' ';
    if (upper == text)
        return;
    m_form.txtStock->setText(upper);
    m_form.txtStock->setCursorPosition(caret);
}

void TickerBox::EnterTickers() {
    const TickerEntry entry = tallowmere::EnterTickers(FromQt(m_form.txtStock->text().toUpper()),
                                                       m_portfolios.ListedTickers());
    m_lastEntered = ToQt(entry.last);
    if (const std::string words = EntryWords(entry); !words.empty())
        m_panes.ShowLastingStatus(ToQt(words));
    if (!entry.accepted) {
        m_portfolios.List().Append(entry.added);
        return;
    }
    m_form.txtStock->clear();
    if (m_form.List1->Count() > 0 || !entry.added.empty())
        m_portfolios.AddTickers(entry.added);
}

void TickerBox::GoToEntered() {
    ListBox& list = *m_form.List1;
    const auto row = list.Items().lastIndexOf(m_lastEntered);
    if (row >= 0)
        list.SetListIndex(static_cast<int>(row));
    else if (list.ListIndex() < 0 && list.Count() > 0)
        list.SetListIndex(0);
    list.setFocus(Qt::TabFocusReason);
    UpdateToolTip();
}

bool TickerBox::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && watched == m_form.txtStock) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const auto modifiers = key->modifiers() & ~Qt::KeypadModifier;
        if (key->key() == Qt::Key_Down && modifiers == Qt::NoModifier) {
            GoToEntered();
            return true;
        }
        // What is typed goes in as upper case: text that is set later could not be undone in the
        // box.
        const QString upper = key->text().toUpper();
        const bool isTyped =
            !(modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
        if (isTyped && upper != key->text()) {
            QKeyEvent typed(key->type(), key->key(), key->modifiers(), upper, key->isAutoRepeat());
            QCoreApplication::sendEvent(watched, &typed);
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void TickerBox::UpdateToolTip() {
    if (!m_form.ShowsToolTips())
        return;
    const QString ticker = m_form.List1->SelectedText();
    if (m_form.List1->ListIndex() < 0) {
        m_form.List1->setToolTip(u"Ticker List"_s);
        return;
    }
    m_form.List1->setToolTip(
        u"Ticker : "_s + ticker + u", DoubleClick opens "_s +
        m_form.lbllink.at(static_cast<std::size_t>(m_dispatch.LastLink()))->Caption());
}

void TickerBox::OpenSelected() {
    if (m_form.List1->ListIndex() < 0)
        return;
    m_dispatch.Click(m_dispatch.LastLink());
}

void TickerBox::FillTickerMenu() {
    const std::string ticker = FromQt(m_form.List1->SelectedText());
    const bool selected = m_form.List1->ListIndex() >= 0;
    std::string note;
    if (selected)
        TickerNotes(m_programFolder, note, "GET", ticker, "", kTickerNotesFile);
    const TickerMenu menu = MakeTickerMenu(selected ? &ticker : nullptr, note,
                                           m_portfolios.Current(), m_form.List1->Count() == 0);
    const MainMenus& menus = *m_form.menus;
    menus.mnuDeleteTick->setText(MenuCaption(ToQt(menu.deleteCaption)));
    menus.mnuMoveit()->setText(MenuCaption(ToQt(menu.moveCaption)));
    menus.mnuCopyTo()->setText(MenuCaption(ToQt(menu.copyCaption)));
    menus.mnuTickNote->menuAction()->setText(MenuCaption(ToQt(menu.noteCaption)));
    menus.mnuTickNotes->setText(MenuCaption(ToQt(menu.noteLine)));
    menus.mnuTickNotes->setData(ToQt(menu.note));
    menus.mnuCopyIt->setText(MenuCaption(ToQt(menu.copyAllCaption)));
    for (QAction* item : {menus.mnuDeleteTick, menus.mnuMoveit(), menus.mnuCopyTo(),
                          menus.mnuTickNote->menuAction()})
        item->setEnabled(menu.hasTicker);
    for (QAction* item : {menus.mnuCopyIt, menus.mnuMoveAll(), menus.mnuCopyAllPorts()})
        item->setEnabled(menu.hasList);
    for (std::size_t n = 1; n <= kPortfolioCount; ++n) {
        for (const PortfolioMenu* targets :
             {&menus.mnuMoveAllPort, &menus.mnuCopyAllPort, &menus.mnuMovePort, &menus.mnuCopyPort})
            targets->items[n]->setEnabled(menu.targets[n - 1]);
    }
}

void TickerBox::PopUpTickerMenu(const QPoint& position) {
    FillTickerMenu();
    m_form.menus->mnuRightTick->popup(position);
}

void TickerBox::EditNote() {
    EditNoteOn(m_form.List1->SelectedText(), m_form.menus->mnuTickNotes->data().toString());
}

void TickerBox::EditNoteOn(const QString& ticker, const QString& stored) {
    const auto answer = m_prompts.InputLines(u"Enter a personal note on "_s + ticker +
                                                 u"\r\nClicking 'Cancel' will remove the note"_s,
                                             u"Ticker Notes"_s, ToQt(ShownLines(FromQt(stored))));
    const std::string typed = StoredLines(FromQt(answer.value_or(QString())));
    const std::string note = StorableNote(typed);
    try {
        m_undo.Run("Note on " + FromQt(ticker), [&] {
            ReplaceNote(m_programFolder, FromQt(ticker), note, kTickerNotesFile);
            if (note.empty())
                m_undo.TellRemoved("Note on " + FromQt(ticker) + " removed.");
        });
    } catch (const RuntimeError& error) {
        m_prompts.Message(u"The note on "_s + ticker + u" could not be saved.\n"_s +
                              ToQt(error.what()),
                          MessageTitle());
        return;
    }
    if (note != typed)
        m_prompts.Message(ToQt(kBarsParted), MessageTitle());
    if (note.empty() || ticker != m_form.List1->SelectedText())
        return;
    m_form.menus->mnuTickNotes->setText(MenuCaption(ToQt(FirstLine(note))));
    m_form.menus->mnuTickNotes->setData(ToQt(note));
}

} // namespace tallowmere
