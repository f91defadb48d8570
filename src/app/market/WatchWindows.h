#pragma once

#include "app/base/Services.h"

#include <QList>
#include <QObject>
#include <QPointer>

namespace tallowmere {

class EngineProfile;
class frmMain;
class frmWiz;
class LinkDispatch;

/// All watch windows: each request opens a further one, and all close with the main window.
class WatchWindows : public QObject {
    Q_OBJECT
public:
    WatchWindows(frmMain& form, const Services& services, EngineProfile& profile,
                 LinkDispatch& dispatch);
    ~WatchWindows() override;

    /// Opens a watch window for "caption|address".
    frmWiz* CreateWiz(const QString& target);

private:
    void CloseAll();

    Services m_services;
    EngineProfile& m_profile;
    QList<QPointer<frmWiz>> m_windows;
};

} // namespace tallowmere
