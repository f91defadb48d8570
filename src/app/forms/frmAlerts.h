#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

namespace tallowmere {

/// "Alerts": what the user wants to be told of prices, how each alert stands, and what fired.
class frmAlerts : public QDialog {
    Q_OBJECT
public:
    explicit frmAlerts(QWidget* parent);

    QTreeWidget* lstAlerts;
    QTreeWidget* lstLog;
    QLabel* lblMessage;
    QPushButton* cmdAdd;
    QPushButton* cmdEdit;
    QPushButton* cmdRemove;
    QPushButton* cmdReset;
    QPushButton* cmdClose;

    enum AlertColumn { Ticker, Rule, State, Price };
    enum LogColumn { LogTime, LogTicker, LogRule, LogPrice, LogSource };

Q_SIGNALS:
    /// The key Delete was pressed in the list of alerts.
    void DeleteKey();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QTreeWidget* List(const QString& name, const QString& accessibleName,
                      const QStringList& headers);
};

} // namespace tallowmere
