#pragma once

#include "links/site_table.h"

#include <QObject>

namespace tallowmere {

class Prompts;

/// The programs that are started outside: the user's browser, calculator and mail program.
class SeparateBrowser : public QObject {
    Q_OBJECT
public:
    SeparateBrowser(const SiteTable& sites, Prompts& prompts, QObject* parent);

    /// Opens an http(s) address.
    void Open(const QString& address);
    void StartCalculator();

private:
    const SiteTable& m_sites;
    Prompts& m_prompts;
};

} // namespace tallowmere
