#pragma once

#include <QMainWindow>

namespace tallowmere {

/// The main window: its controls and their layout.
class frmMain : public QMainWindow {
    Q_OBJECT
public:
    frmMain();
};

} // namespace tallowmere
