#pragma once

#include "app/base/MainState.h"
#include "app/base/Services.h"

#include <QObject>
#include <QTimer>

namespace tallowmere {

class ColorConfig;
class frmMain;
class LinkDispatch;
class LinkPanel;

/// Records several links as one page: link 211 starts it and, blinking, ends it. Shows what was
/// recorded for the selected ticker, at once or, from a stored page, later.
class MultiLinks : public QObject {
    Q_OBJECT
public:
    MultiLinks(frmMain& form, MainState& state, const Services& services, LinkDispatch& dispatch,
               LinkPanel& panel, ColorConfig& colors);

    /// What a click of link 211 does.
    void Toggle();

    QTimer Timer4;

private:
    void Start();
    void Finish();
    void EnableRecordable();
    void Blink();
    void RestoreColors();
    void StorePage(std::string page);
    void ShowStored(const QString& address);
    void Show(std::string_view page);

    frmMain& m_form;
    MainState& m_state;
    Services m_services;
    LinkDispatch& m_dispatch;
    LinkPanel& m_panel;
    ColorConfig& m_colors;
};

} // namespace tallowmere
