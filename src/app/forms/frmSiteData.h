#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

namespace tallowmere {

/// "Site Data": what sites keep on this machine, with commands that clear it, and a box for each
/// that lets it use cookies across sites.
class frmSiteData : public QDialog {
    Q_OBJECT
public:
    explicit frmSiteData(QWidget* parent);

    QTreeWidget* lstData;
    QLabel* lblMessage; ///< what came of the last command
    QPushButton* cmdClear;
    QPushButton* cmdClearAll;
    QPushButton* cmdClose;

    enum Column { Site, Cookies, Databases, Across };

    /// The row of a site, null when it has none.
    QTreeWidgetItem* Row(const QString& site) const;

private:
    QLabel* Label(const QString& name);
};

} // namespace tallowmere
