#include "forms/frmMain.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

frmMain::frmMain() {
    setObjectName(u"frmMain"_s);
    setWindowTitle(u"Tallowmere"_s);
}

} // namespace tallowmere
