#pragma once

#include "shell/MainState.h"
#include "shell/Services.h"

#include <QObject>

namespace tallowmere {

class frmMain;

/// The streaming ticker strip above the panes.
class TickerStrip : public QObject {
    Q_OBJECT
public:
    TickerStrip(frmMain& form, MainState& state, const Services& services);

    /// Shows the strip and loads its page, or hides it and stops what it loads.
    void Show(bool shown);

    /// The same, and writes it down.
    void Switch(bool shown);

    /// The address of the strip's page with the tickers of the list as its query: that is how the
    /// built-in portal is asked for it. Any other path is given back as it is.
    std::string WithTickers(const std::string& path) const;

private:
    frmMain& m_form;
    MainState& m_state;
    Services m_services;
};

} // namespace tallowmere
