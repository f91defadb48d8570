#include "app/engine/BuiltAddresses.h"

#include <QWebEngineHistory>

namespace tallowmere {

namespace {

constexpr qsizetype kTextsKept = 256; // several times what the engine's history holds

} // namespace

void BuiltAddresses::Note(const QWebEngineHistory& history, const QString& address) {
    Forget(history);
    const QWebEngineHistoryItem item = history.currentItem();
    m_requested.insert(item.originalUrl(), address);
    m_arrived.insert({history.currentItemIndex(), item.url()}, address);
}

QString BuiltAddresses::OfCurrent(const QWebEngineHistory& history) const {
    const QWebEngineHistoryItem item = history.currentItem();
    const QString arrived = m_arrived.value({history.currentItemIndex(), item.url()});
    return arrived.isEmpty() ? OfRequest(item.originalUrl()) : arrived;
}

void BuiltAddresses::Forget(const QWebEngineHistory& history) {
    if (m_requested.size() < kTextsKept && m_arrived.size() < kTextsKept)
        return;
    BuiltAddresses kept;
    const auto keep = [](const auto& texts, const auto& key, auto& into) {
        if (const auto text = texts.constFind(key); text != texts.cend())
            into.insert(key, *text);
    };
    int index = 0;
    for (const QWebEngineHistoryItem& item : history.items()) {
        keep(m_requested, item.originalUrl(), kept.m_requested);
        keep(m_arrived, std::pair(index++, item.url()), kept.m_arrived);
    }
    *this = std::move(kept);
}

} // namespace tallowmere
