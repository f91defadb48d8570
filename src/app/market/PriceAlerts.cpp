#include "app/market/PriceAlerts.h"

#include "app/base/Clock.h"
#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/quotes/LiveQuotes.h"
#include "app/quotes/QuoteWishes.h"
#include "core/shell/undo_recorder.h"
#include "core/text/runtime_error.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace tallowmere {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

PriceAlerts::PriceAlerts(UndoRecorder& undo, Prompts& prompts, const Clock& clock,
                         std::filesystem::path programFolder, QObject* parent)
    : QObject(parent), m_undo(undo), m_prompts(prompts), m_clock(clock),
      m_file(programFolder / kAlertsFile), m_logFile(std::move(programFolder) / kAlertLogFile) {
    m_minute.setInterval(60s);
    connect(&m_minute, &QTimer::timeout, this, &PriceAlerts::Look);
}

void PriceAlerts::Serve(Reader read, QuoteWishes* wishes) {
    m_read = std::move(read);
    m_wishes = wishes;
}

void PriceAlerts::Begin() {
    if (!m_read)
        return;
    m_hasBegun = true;
    Refresh();
    TellUnread();
    if (m_wishes)
        connect(&m_wishes->Quotes(), &LiveQuotes::Learned, this, &PriceAlerts::Check);
    else
        Look();
    FollowArmed();
}

void PriceAlerts::Look() {
    Check(Book().ArmedTickers());
}

std::int64_t PriceAlerts::Now() const {
    return m_clock.Now().toSecsSinceEpoch();
}

const AlertBook& PriceAlerts::Book() {
    Refresh();
    return m_book;
}

void PriceAlerts::Refresh() {
    const auto stamp = StampOf(m_file);
    if (m_isRead && stamp == m_stamp)
        return;
    m_stamp = stamp;
    Read();
    FollowArmed();
    Q_EMIT Changed();
}

// The log is the program's own: it is read once, and what fired is then known here.
void PriceAlerts::Read() {
    AlertList list;
    m_problem.clear();
    try {
        list = ReadAlerts(ReadExistingFile(m_file, kLargestAlertsFile));
    } catch (const RuntimeError& error) {
        m_problem = error.what();
    }
    std::vector<FiredAlert> log = m_isRead ? m_book.Log() : ReadLog();
    m_isRead = true;
    m_book = AlertBook(std::move(list), std::move(log));
}

std::vector<FiredAlert> PriceAlerts::ReadLog() {
    try {
        return ReadAlertLog(ReadExistingFile(m_logFile, kLargestAlertLog));
    } catch (const RuntimeError& error) {
        m_isLogWritable = false;
        std::fprintf(stderr, "tallowmere: %s\n", error.what());
        return {};
    }
}

void PriceAlerts::TellUnread() {
    const std::string words = m_problem.empty() ? UnreadWords(m_book.List()) : m_problem;
    if (!words.empty() && !std::exchange(m_isUnreadTold, true))
        m_prompts.Message(ToQt(words), MessageTitle());
}

std::optional<ListedPrice> PriceAlerts::PriceOf(const std::string& ticker) const {
    return m_read ? m_read(ticker) : std::nullopt;
}

void PriceAlerts::Check(const std::vector<std::string>& symbols) {
    if (!m_hasBegun)
        return;
    Refresh();
    const std::vector<FiredAlert> fired = m_book.Check(symbols, m_read, Now());
    Q_EMIT Checked();
    if (fired.empty())
        return;
    SaveLog();
    FollowArmed();
    Q_EMIT Changed();
    Q_EMIT Fired(fired);
}

// What fired stays so in this run even where it cannot be written; that is told once.
void PriceAlerts::SaveLog() {
    std::string problem = "What fired before cannot be read.";
    try {
        if (m_isLogWritable) {
            WriteWholeFile(m_logFile, WriteAlertLog(m_book.Log(), m_book.List().alerts));
            m_isUnsavedTold = false;
            return;
        }
    } catch (const RuntimeError& error) {
        problem = error.what();
    }
    if (!std::exchange(m_isUnsavedTold, true))
        QTimer::singleShot(0, this, [this, problem] {
            m_prompts.Message(u"That an alert fired could not be saved. After a restart it may "
                              "fire again.\n"_s +
                                  ToQt(problem),
                              MessageTitle());
        });
}

/// Nothing is asked for, and no timer runs, without an armed alert.
void PriceAlerts::FollowArmed() {
    if (!m_hasBegun)
        return;
    std::vector<std::string> armed = m_book.ArmedTickers();
    if (!m_wishes) {
        if (armed.empty())
            m_minute.stop();
        else if (!m_minute.isActive())
            m_minute.start();
        return;
    }
    if (armed.empty()) {
        m_wishes->Withdraw(QuoteAsker::Alerts);
        return;
    }
    ListInView wish;
    wish.watched = std::move(armed);
    m_wishes->Want(QuoteAsker::Alerts, std::move(wish));
}

void PriceAlerts::Change(const std::string& caption, const std::string& removed,
                         const PriceAlert& alert,
                         const std::function<void(std::vector<PriceAlert>&)>& change) {
    Refresh();
    if (!m_problem.empty()) {
        m_prompts.Message(ToQt(m_problem), MessageTitle());
        return;
    }
    AlertList list = m_book.List();
    change(list.alerts);
    const std::string content = WriteAlerts(list);
    try {
        if (list.alerts.size() > std::max(kMostAlerts, m_book.List().alerts.size()) ||
            content.size() > kLargestAlertsFile)
            throw RuntimeError("There are " + std::to_string(m_book.List().alerts.size()) +
                               " alerts already. No more can be kept.");
        m_undo.Run(caption, [&] {
            WriteWholeFile(m_file, content);
            if (!removed.empty())
                m_undo.TellRemoved(removed);
        });
    } catch (const RuntimeError& error) {
        m_prompts.Message(u"The alert could not be saved.\n"_s + ToQt(error.what()),
                          MessageTitle());
    }
    Refresh();
    Check({alert.ticker});
}

void PriceAlerts::Add(PriceAlert alert) {
    m_lastId = alert.id = std::max(m_lastId + 1, Book().NewId(Now()));
    Change("Alert on " + alert.ticker, {}, alert,
           [&](std::vector<PriceAlert>& alerts) { alerts.push_back(alert); });
}

void PriceAlerts::Replace(std::int64_t id, PriceAlert alert) {
    Put(id, std::move(alert), "Change Alert on ");
}

void PriceAlerts::Remove(std::int64_t id) {
    if (const PriceAlert* found = Book().Find(id)) {
        const PriceAlert alert = *found;
        Change("Remove Alert on " + alert.ticker, "Alert on " + alert.ticker + " removed.", alert,
               [id](std::vector<PriceAlert>& alerts) {
                   std::erase_if(alerts, [id](const PriceAlert& one) { return one.id == id; });
               });
    }
}

// An alert that fired is armed by another id: to undo that is to have the old one again, which
// rests.
void PriceAlerts::Reset(std::int64_t id) {
    const PriceAlert* found = Book().Find(id);
    if (!found || !m_book.FiredBy(id))
        return;
    Put(id, *found, "Reset Alert on ");
}

void PriceAlerts::Put(std::int64_t id, PriceAlert alert, const std::string& caption) {
    m_lastId = alert.id = std::max(m_lastId + 1, Book().NewId(Now()));
    Change(caption + alert.ticker, {}, alert, [&](std::vector<PriceAlert>& alerts) {
        std::ranges::replace_if(
            alerts, [id](const PriceAlert& one) { return one.id == id; }, alert);
    });
}

} // namespace tallowmere
