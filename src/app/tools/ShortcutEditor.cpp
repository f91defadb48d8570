#include "app/tools/ShortcutEditor.h"

#include "app/base/CommandKeys.h"
#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/forms/frmShortcuts.h"
#include "core/shell/key_chord.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

// As the system writes them.
QString Shown(const std::vector<std::string>& chords) {
    QStringList shown;
    for (const std::string& chord : chords)
        shown << QKeySequence::fromString(ToQt(chord), QKeySequence::PortableText)
                     .toString(QKeySequence::NativeText);
    return shown.join(u", "_s);
}

QString Named(const CommandRow& row) {
    return u'"' + ToQt(SpokenCaption(row.caption)) + u'"';
}

} // namespace

ShortcutEditor::ShortcutEditor(frmMain& form, Prompts& prompts)
    : QObject(&form), m_form(form), m_prompts(prompts), m_keys(form.menus->Keys()) {
    connect(form.menus->At("shortcuts"), &QAction::triggered, this, &ShortcutEditor::Show);
}

void ShortcutEditor::Show() {
    if (!m_window) {
        m_window = new frmShortcuts(&m_form);
        m_window->setAttribute(Qt::WA_DeleteOnClose);
        List();
        Connect();
        m_window->lstCommands->setCurrentItem(m_window->lstCommands->topLevelItem(0));
    }
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void ShortcutEditor::Connect() {
    connect(m_window->lstCommands, &QTreeWidget::currentItemChanged, this,
            &ShortcutEditor::ShowSelected);
    connect(m_window->lstCommands, &QTreeWidget::itemActivated, m_window->txtKeys,
            [box = m_window->txtKeys] { box->setFocus(); });
    connect(m_window->txtKeys, &QKeySequenceEdit::keySequenceChanged, this,
            &ShortcutEditor::KeysTyped);
    connect(m_window->cmdSet, &QPushButton::clicked, this, [this] { Set(false); });
    connect(m_window->cmdAdd, &QPushButton::clicked, this, [this] { Set(true); });
    connect(m_window->cmdRemove, &QPushButton::clicked, this, [this] { Give({}); });
    connect(m_window->cmdReset, &QPushButton::clicked, this, &ShortcutEditor::Reset);
    connect(m_window->cmdResetAll, &QPushButton::clicked, this, &ShortcutEditor::ResetAll);
    connect(&m_keys, &CommandKeys::Changed, m_window, [this] { List(); });
}

// Fills the list anew, or what it says about each row; the selection stays.
void ShortcutEditor::List() {
    const CommandChords shipped = ShippedChords();
    QTreeWidget& list = *m_window->lstCommands;
    int n = 0;
    for (const CommandRow& row : Commands()) {
        if (row.kind == CommandKind::Submenu)
            continue;
        QTreeWidgetItem* item = list.topLevelItem(n++);
        if (!item)
            item = new QTreeWidgetItem(&list);
        item->setText(frmShortcuts::Command, ToQt(SpokenCaption(row.caption)));
        item->setText(frmShortcuts::Menu, row.menu == CommandMenu::None
                                              ? u"Watch window"_s
                                              : ToQt(SpokenMenu(row.menu)));
        item->setToolTip(frmShortcuts::Command, ToQt(row.words));
        item->setData(0, Qt::UserRole, ToQt(row.name));
        if (!TakesShortcut(row)) {
            item->setText(frmShortcuts::Keys, u"in its menu only"_s);
            continue;
        }
        const std::vector<std::string>& chords = m_keys.Chords().find(row.name)->second;
        item->setText(frmShortcuts::Keys, Shown(chords));
        const bool isChanged = chords != shipped.find(row.name)->second;
        item->setText(frmShortcuts::Origin, isChanged ? u"You"_s : QString());
    }
    m_window->Filter();
    ShowSelected();
}

const CommandRow* ShortcutEditor::Row() const {
    const QTreeWidgetItem* item = m_window->Selected();
    return item ? FindCommand(FromQt(item->data(0, Qt::UserRole).toString())) : nullptr;
}

void ShortcutEditor::ShowSelected() {
    const CommandRow* row = Row();
    const bool canChange = row && TakesShortcut(*row);
    const bool hasKeys = canChange && !m_keys.Chords().find(row->name)->second.empty();
    const bool isChanged = canChange && !m_window->Selected()->text(frmShortcuts::Origin).isEmpty();
    m_window->lblCommand->setText(
        row ? ToQt(SpokenCaption(row->caption)) +
                  (row->words.empty() ? QString() : u": "_s + ToQt(row->words))
            : QString());
    m_window->txtKeys->clear();
    m_window->txtKeys->setEnabled(canChange);
    for (QPushButton* button : {m_window->cmdSet, m_window->cmdAdd})
        button->setEnabled(false);
    m_window->cmdRemove->setEnabled(hasKeys);
    m_window->cmdReset->setEnabled(isChanged);
    m_window->cmdResetAll->setEnabled(m_keys.Chords() != ShippedChords());
    Say(row && !canChange ? u"It acts on what its menu names, and has no shortcut."_s : QString());
}

// The last keys count that were pressed together.
std::string ShortcutEditor::TypedChord() const {
    const QKeySequence keys = m_window->txtKeys->keySequence();
    if (keys.isEmpty())
        return {};
    const QKeySequence last(keys[static_cast<uint>(keys.count() - 1)]);
    return FromQt(last.toString(QKeySequence::PortableText));
}

void ShortcutEditor::KeysTyped(const QKeySequence& keys) {
    if (keys.count() > 1) {
        m_window->txtKeys->setKeySequence(keys[static_cast<uint>(keys.count() - 1)]);
        return;
    }
    const CommandRow* row = Row();
    const std::string typed = TypedChord();
    const auto chord = NormalChord(typed);
    const std::string why = chord ? WhyNoShortcut(*chord) : "can be no shortcut";
    const bool isUsable = row && chord && why.empty();
    m_window->cmdSet->setEnabled(isUsable);
    m_window->cmdAdd->setEnabled(isUsable && !m_keys.Chords().find(row->name)->second.empty());
    if (typed.empty())
        Say({});
    else if (!isUsable)
        Say(ToQt(typed + " " + why + "."));
    else if (const CommandRow* holder = HolderOf(*chord, *row, m_keys.Chords()))
        Say(Shown({*chord}) + u" is the shortcut of "_s + Named(*holder) + u'.');
    else
        Say(Shown({*chord}) + u" is free."_s);
}

void ShortcutEditor::Set(bool isFurther) {
    const CommandRow* row = Row();
    const auto chord = NormalChord(TypedChord());
    if (!row || !chord || !WhyNoShortcut(*chord).empty())
        return;
    std::vector<std::string> wanted;
    if (isFurther)
        wanted = m_keys.Chords().find(row->name)->second;
    if (std::find(wanted.begin(), wanted.end(), *chord) == wanted.end())
        wanted.push_back(*chord);
    Give(wanted);
}

void ShortcutEditor::Reset() {
    if (const CommandRow* row = Row())
        Give(ShippedChords().find(row->name)->second);
}

void ShortcutEditor::Give(const std::vector<std::string>& chords) {
    const CommandRow* row = Row();
    if (!row)
        return;
    QStringList conflicts;
    for (const std::string& chord : chords)
        if (const CommandRow* holder = HolderOf(chord, *row, m_keys.Chords()))
            conflicts << Shown({chord}) + u" is the shortcut of "_s + Named(*holder) + u'.';
    if (!conflicts.isEmpty() &&
        !m_prompts.Ask(conflicts.join(u'\n') + u"\nTake it over for "_s + Named(*row) + u'?',
                       MessageTitle(), Prompts::Answer::No))
        return;
    m_keys.Change(GiveChords(*row, chords, m_keys.Chords()));
    Say(chords.empty() ? Named(*row) + u" has no shortcut now."_s
                       : Named(*row) + u" has "_s + Shown(chords) + u" now."_s);
}

void ShortcutEditor::ResetAll() {
    if (!m_prompts.Ask(u"Give all commands the shortcuts that they came with?"_s, MessageTitle(),
                       Prompts::Answer::No))
        return;
    std::vector<SettingChange> changes;
    for (const CommandRow& row : Commands())
        changes.push_back({std::string(kShortcutsSection), std::string(row.name), {}});
    m_keys.Change(changes);
    Say(u"All commands have the shortcuts that they came with."_s);
}

void ShortcutEditor::Say(const QString& text) {
    m_window->lblMessage->setText(text);
}

} // namespace tallowmere
