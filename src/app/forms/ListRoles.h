#pragma once

#include <QString>
#include <Qt>

namespace tallowmere {

/// What the models of our lists tell of an item besides its text.
enum ListRole {
    SignRole = Qt::UserRole, ///< a character beside the text, empty for none
    QuoteRole,               ///< the QuoteCells of a ticker, nothing while there is no price
    NameRole,                ///< what a ticker's company is called, empty when it is not known
};

/// What stands beside an item of a list.
struct ItemMark {
    QString sign;    ///< a character at the end of its row, empty for none
    QString hint;    ///< what is shown while the pointer rests on the item
    QString meaning; ///< what a screen reader says after the item
};

} // namespace tallowmere
