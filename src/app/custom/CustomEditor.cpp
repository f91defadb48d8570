#include "app/custom/CustomEditor.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "app/links/RecordingState.h"
#include "core/custom/custom_link.h"
#include "core/custom/multi_link.h"
#include "core/links/address.h"
#include "core/market/timers.h"
#include "core/shell/undo_recorder.h"
#include "core/text/bytes.h"

#include <QPushButton>

#include <fstream>

namespace tallowmere {

using namespace Qt::StringLiterals;

CustomEditor::CustomEditor(frmMain& form, SettingsStore& settings, UndoRecorder& undo,
                           Prompts& prompts, const std::filesystem::path& programFolder,
                           RecordingState& recording, LinkDispatch& dispatch)
    : QObject(&form), m_form(form), m_settings(settings), m_undo(undo), m_prompts(prompts),
      m_programFolder(programFolder), m_recording(recording), m_dispatch(dispatch) {
    connect(&dispatch, &LinkDispatch::EditorRequested, this, &CustomEditor::Open);
}

void CustomEditor::Open(int slot) {
    if (m_editor)
        return;
    m_slot = slot;
    m_pendingPageFile.reset();
    m_offersPlaceholder = false;
    m_editor = new frmCustom(&m_form);
    m_editor->setAttribute(Qt::WA_DeleteOnClose);
    Connect();
    Load();
    m_editor->txtTitle->selectAll();
    m_editor->txtTitle->setFocus();
    m_editor->setModal(true);
    m_editor->show();
}

void CustomEditor::Connect() {
    const frmCustom& editor = *m_editor;
    connect(editor.txtTitle, &QLineEdit::textChanged, editor.lblExamp, &Chip::SetCaption);
    connect(editor.txtTitle, &QLineEdit::editingFinished, this, &CustomEditor::TrimTitle);
    connect(editor.Command1, &QPushButton::clicked, this, &CustomEditor::Reset);
    connect(editor.Command2, &QPushButton::clicked, this, &CustomEditor::Save);
    connect(editor.Command4, &QPushButton::clicked, this, &CustomEditor::TakePage);
    connect(editor.txtURL, &QLineEdit::textChanged, this, &CustomEditor::ShowAddress);
    connect(editor.cmdPlaceholder, &QPushButton::clicked, this, &CustomEditor::UsePlaceholder);
    connect(editor.Command5, &QPushButton::clicked, this, &CustomEditor::PickText);
    connect(editor.Command6, &QPushButton::clicked, this, &CustomEditor::PickBackground);
    connect(editor.cmdMulti, &QPushButton::clicked, this, &CustomEditor::StartMultiLink);
    connect(m_editor, &QDialog::finished, this, &CustomEditor::Finished);
}

void CustomEditor::Load() {
    const CustomLinkRecord record = LoadCustomLink(m_settings, m_slot);
    const ColorPair area = CustomAreaColors(m_settings);
    m_editor->lblExamp->SetColors(IsUnusedSlot(record.title) ? area
                                                             : ColorsOver(area, record.colors));
    m_editor->txtTitle->setText(ToQt(record.title));
    m_editor->txtURL->setText(ToQt(record.address));
}

void CustomEditor::TakePage() {
    m_offersPlaceholder = true;
    m_editor->txtURL->setText(m_form.Web->LocationURL());
    ShowAddress();
}

std::optional<PlaceholderOffer> CustomEditor::Offer() const {
    std::vector<std::string> tickers{FromQt(m_form.List1->SelectedText())};
    for (const QString& ticker : m_form.List1->Items())
        tickers.push_back(FromQt(ticker));
    return OfferPlaceholders(FromQt(m_editor->txtURL->text()), tickers);
}

// What a link opens is shown for the selected ticker, where it depends on it.
void CustomEditor::ShowAddress() {
    const std::string address = FromQt(m_editor->txtURL->text());
    const auto offer = m_offersPlaceholder ? Offer() : std::nullopt;
    m_editor->OfferPlaceholder(offer ? ToQt(offer->ticker) : QString());
    const auto forms = m_dispatch.CurrentForms();
    if (offer)
        m_editor->ShowExpanded(ToQt(offer->ticker) + u" found : "_s + ToQt(offer->address));
    else if (forms && HoldsPlaceholder(address))
        m_editor->ShowExpanded(u"For "_s + ToQt(forms->upper) + u" : "_s +
                               ToQt(ExpandPlaceholders(address, *forms)));
    else
        m_editor->ShowExpanded({});
}

void CustomEditor::UsePlaceholder() {
    if (const auto offer = Offer())
        m_editor->txtURL->setText(ToQt(offer->address));
    m_editor->txtURL->setFocus();
}

void CustomEditor::Finished() {
    m_editor = nullptr; // it is still there until it is closed for good, but no longer in use
    m_pendingPageFile.reset();
    if (m_recording.multiLinkPending)
        m_dispatch.Click(kBlinkingLink);
}

void CustomEditor::TrimTitle() {
    if (!m_editor)
        return;
    const QString title = m_editor->txtTitle->text();
    const QString trimmed = ToQt(Trim(FromQt(title)));
    if (trimmed != title)
        m_editor->txtTitle->setText(trimmed);
}

std::string CustomEditor::Title() const {
    return FromQt(m_editor->txtTitle->text());
}

std::optional<std::uint32_t> CustomEditor::Pick(std::uint32_t color, const QString& title) const {
    const auto picked = m_prompts.PickColor(ScreenColor(color, m_editor->palette()), title);
    return picked ? std::optional(StoredColor(*picked)) : std::nullopt;
}

void CustomEditor::PickText() {
    ColorPair colors = m_editor->lblExamp->Colors();
    const auto picked = Pick(colors.text, u"Text Color"_s);
    if (!picked || !m_editor)
        return;
    colors.text = *picked;
    m_editor->lblExamp->SetColors(colors);
}

void CustomEditor::PickBackground() {
    ColorPair colors = m_editor->lblExamp->Colors();
    const auto picked = Pick(colors.background, u"Background Color"_s);
    if (!picked || !m_editor)
        return;
    colors.background = *picked;
    m_editor->lblExamp->SetColors(colors);
}

// Nothing is stored yet: Cancel still leaves the slot and its page file as they were.
void CustomEditor::Reset() {
    m_offersPlaceholder = false;
    if (auto page = StoredPageName(FromQt(m_editor->txtURL->text())))
        m_pendingPageFile = std::move(page);
    m_editor->txtTitle->setText(ToQt(kEmptyCustomCaption));
    m_editor->txtURL->clear();
    m_editor->lblExamp->SetColors(CustomAreaColors(m_settings));
}

void CustomEditor::Refuse(std::string_view message) const {
    m_prompts.Message(ToQt(message), ToQt(kCustomLinkCaption));
}

void CustomEditor::Store(const std::string& address) {
    const ColorPair colors = StorableColors(m_editor->lblExamp->Colors());
    const CustomLinkRecord record{address, Title(), colors};
    const std::string old = LoadCustomLink(m_settings, m_slot).title;
    const bool isRemoved = IsUnusedSlot(record.title) && !IsUnusedSlot(old);
    UndoFiles files;
    if (m_pendingPageFile)
        files.push_back(*m_pendingPageFile);
    m_undo.Run(
        isRemoved ? "Reset Link " + old : "Edit Link " + record.title,
        [&] {
            SaveCustomLink(m_settings, m_slot, record);
            for (const std::string& page : files) {
                std::error_code ignored;
                std::filesystem::remove(m_programFolder / ToPath(ToQt(page)), ignored);
            }
            if (isRemoved)
                m_undo.TellRemoved(LinkRemoved(old));
        },
        files);
    m_form.ShowCustomLink(record, m_slot);
}

void CustomEditor::Save() {
    TrimTitle();
    const std::string address = FromQt(m_editor->txtURL->text());
    if (!MaySaveCustomLink(Title(), address)) {
        Refuse(kTitleMissing);
        return;
    }
    Store(address);
    m_editor->accept();
}

void CustomEditor::StartMultiLink() {
    TrimTitle();
    const std::string title = Title();
    if (title.empty() || IsUnusedSlot(title)) {
        Refuse(kMultiLinkTitleMissing);
        return;
    }
    const std::optional<std::string> name = MultiLinkPageName(title);
    if (!name) {
        Refuse(kMultiLinkTitleInvalid);
        return;
    }
    const std::filesystem::path page = m_programFolder / ToPath(ToQt(*name));
    std::error_code ignored;
    if (std::filesystem::exists(page, ignored)) {
        Refuse(MultiLinkExists(title));
        return;
    }
    if (!CanBeFile(page)) {
        Refuse(kMultiLinkTitleInvalid);
        return;
    }
    // Only Save deletes the page that Reset marked.
    m_pendingPageFile.reset();
    Store(std::string(kMultiLinkPrefix) + *name);
    m_recording.multiLinkPending = true;
    m_recording.multiLinkSlot = m_slot;
    m_editor->accept();
}

// The system alone knows what it takes for the name of a file.
bool CustomEditor::CanBeFile(const std::filesystem::path& page) const {
    const bool made = std::ofstream(page, std::ios::binary).is_open();
    std::error_code error;
    return made && std::filesystem::remove(page, error) && !error;
}

} // namespace tallowmere
