#include "app/portfolio/TickerMarks.h"

#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/portfolio/TickerModel.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

TickerMarks::TickerMarks(frmMain& form, TickerModel& list,
                         const std::filesystem::path& programFolder)
    : QObject(&form), m_form(form), m_list(list), m_programFolder(programFolder),
      m_notes(std::make_unique<NoteIndex>("")) {
    list.SetMarker([this](const QString& ticker) { return MarkOf(ticker); });
    Refresh();
}

void TickerMarks::Refresh() {
    const auto stamp = StampOf(PathInFolder(m_programFolder, kTickerNotesFile));
    if (stamp != m_stamp) {
        m_stamp = stamp;
        std::string notes;
        try {
            notes = ReadStore(m_programFolder, kTickerNotesFile);
        } catch (const RuntimeError&) {
            // Where no note can be read, none is marked; who opens one is told.
        }
        m_notes = std::make_unique<NoteIndex>(std::move(notes));
    }
    m_list.RefreshMarks();
}

void TickerMarks::SetUnknown(Unknown isUnknown) {
    m_isUnknown = std::move(isUnknown);
    m_list.RefreshMarks();
}

void TickerMarks::SetNames(Names nameOf) {
    m_nameOf = std::move(nameOf);
    m_list.SetNames([this](const QString& ticker) {
        return m_form.ShowsToolTips() ? ToQt(NameOf(FromQt(ticker))) : QString();
    });
}

void TickerMarks::SetAlerts(Alerts alerts) {
    m_alerts = std::move(alerts);
    m_list.RefreshMarks();
}

// A hint is shown with the tool tips only, and the note even where the ticker is unknown.
ItemMark TickerMarks::MarkOf(const QString& ticker) const {
    ItemMark mark;
    const std::string symbol = FromQt(ticker);
    const std::string_view note = m_notes->Find(symbol);
    if (m_isUnknown && m_isUnknown(symbol)) {
        mark.sign = u"?"_s;
        mark.meaning = u"not known to the sources of quotes"_s;
        mark.hint = u"No source of quotes knows "_s + ticker + u"."_s;
    }
    if (!note.empty()) {
        mark.sign += u"\u270E"_s;
        mark.meaning += (mark.meaning.isEmpty() ? u""_s : u", "_s) + u"has a note"_s;
        mark.hint += (mark.hint.isEmpty() ? u""_s : u"\n"_s) +
                     LineStart(ticker + u": "_s + ToQt(ShownLines(note)));
    }
    if (const ItemMark alerts = m_alerts ? m_alerts(symbol) : ItemMark(); !alerts.sign.isEmpty()) {
        mark.sign += alerts.sign;
        mark.meaning += (mark.meaning.isEmpty() ? u""_s : u", "_s) + alerts.meaning;
        mark.hint += (mark.hint.isEmpty() ? u""_s : u"\n"_s) + alerts.hint;
    }
    if (const auto& quote = m_list.QuoteOf(ticker); quote && !quote->remark.empty())
        mark.hint += (mark.hint.isEmpty() ? u""_s : u"\n"_s) + ToQt(quote->remark);
    if (!m_form.ShowsToolTips())
        mark.hint.clear();
    return mark;
}

} // namespace tallowmere
