#pragma once

#include "app/forms/ListRoles.h"
#include "app/forms/frmAlert.h"
#include "app/forms/frmAlerts.h"
#include "core/market/alert_book.h"

#include <QObject>
#include <QPointer>

namespace tallowmere {

class DesktopNotice;
class PaneDeck;
class PriceAlerts;
class frmMain;

/// What the user sees of the alerts: the window "Alerts" with its editor, made when first wanted,
/// the notice of one that fired, and the mark of a ticker in the list.
class AlertWindow : public QObject {
    Q_OBJECT
public:
    AlertWindow(frmMain& form, PriceAlerts& alerts, PaneDeck& panes);

    /// Opens the window, or brings it to the front.
    void Show();

    /// Opens the editor for a new alert on a ticker; without one, for any.
    void Add(const QString& ticker);

    /// The mark of a ticker in the list; an empty one without an alert.
    ItemMark MarkOf(const std::string& ticker) const;

    // The windows while they are open.
    frmAlerts* Window() const { return m_window; }
    frmAlert* Editor() const { return m_editor; }
    DesktopNotice& Notice() { return *m_notice; }

private:
    void Make();
    void Fill();
    void FillLog();
    void ShowPrices();
    void ShowButtons();
    std::int64_t Selected() const;
    void Edit();
    void OpenEditor(std::int64_t id, const PriceAlert& alert);
    void TellEntry();
    void Accept(std::int64_t id);
    void Tell(const std::vector<FiredAlert>& fired);

    frmMain& m_form;
    PriceAlerts& m_alerts;
    PaneDeck& m_panes;
    DesktopNotice* m_notice;
    QPointer<frmAlerts> m_window;
    QPointer<frmAlert> m_editor;
    std::size_t m_untold = 0; ///< alerts that fired since somebody looked
};

} // namespace tallowmere
