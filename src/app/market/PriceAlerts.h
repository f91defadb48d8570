#pragma once

#include "core/market/alert_book.h"
#include "core/text/files.h"

#include <QObject>
#include <QTimer>

#include <filesystem>
#include <functional>

namespace tallowmere {

class Clock;
class Prompts;
class QuoteWishes;
class UndoRecorder;

/// The user's alerts: checks them with every quote that arrives, in sample mode once a minute, has
/// the quotes that they wait for asked for, and keeps what fired. Begins once the first page of the
/// run is under way; nothing is checked before, nor where there are no quotes.
class PriceAlerts : public QObject {
    Q_OBJECT
public:
    PriceAlerts(UndoRecorder& undo, Prompts& prompts, const Clock& clock,
                std::filesystem::path programFolder, QObject* parent);

    using Reader = AlertBook::Reader;
    /// Checks the prices that `read` gives. `wishes`, if there are any, take the tickers of the
    /// armed alerts; without them there is an invented market.
    void Serve(Reader read, QuoteWishes* wishes);

    /// Begins to check.
    void Begin();

    /// Checks all armed alerts with the prices at hand.
    void Look();

    /// The alerts as they are in the files by now.
    const AlertBook& Book();
    /// The alerts as they were when somebody looked last.
    const AlertBook& Known() const { return m_book; }

    /// Reads the file of the alerts again if it changed.
    void Refresh();

    /// Tells, once in a run, of what the file holds and cannot be read.
    void TellUnread();

    /// The price of a ticker that is at hand.
    std::optional<ListedPrice> PriceOf(const std::string& ticker) const;

    /// Whether prices arrive in this run.
    bool HasQuotes() const { return static_cast<bool>(m_read); }

    // Each is a step that can be undone, and looks at the price at hand. What cannot be written is
    // told, and then nothing changes.
    void Add(PriceAlert alert);
    void Replace(std::int64_t id, PriceAlert alert);
    void Remove(std::int64_t id);
    void Reset(std::int64_t id);

Q_SIGNALS:
    /// The alerts, or what fired of them, are others than before.
    void Changed();
    /// Prices arrived and were looked at.
    void Checked();
    /// These alerts have just fired.
    void Fired(const std::vector<FiredAlert>& fired);

private:
    void Read();
    std::vector<FiredAlert> ReadLog();
    void Check(const std::vector<std::string>& symbols);
    void SaveLog();
    void FollowArmed();
    void Change(const std::string& caption, const std::string& removed, const PriceAlert& alert,
                const std::function<void(std::vector<PriceAlert>&)>& change);
    void Put(std::int64_t id, PriceAlert alert, const std::string& caption);
    std::int64_t Now() const;

    UndoRecorder& m_undo;
    Prompts& m_prompts;
    const Clock& m_clock;
    std::filesystem::path m_file, m_logFile;
    Reader m_read;
    QuoteWishes* m_wishes = nullptr;
    AlertBook m_book;
    std::optional<FileStamp> m_stamp;
    std::string m_problem; ///< why the file cannot be read
    bool m_isRead = false;
    bool m_isLogWritable = true; ///< what cannot be read is not written over
    bool m_hasBegun = false;
    bool m_isUnreadTold = false;
    bool m_isUnsavedTold = false;
    std::int64_t m_lastId = 0; ///< that was given in this run
    QTimer m_minute;           ///< of the invented market
};

} // namespace tallowmere
