#pragma once

#include "core/market/page_change.h"

#include <QDialog>
#include <QPlainTextEdit>

namespace tallowmere {

/// The lines of a page that came and went, with a sign and a colour each.
class frmChange : public QDialog {
    Q_OBJECT
public:
    explicit frmChange(QWidget* parent);

    /// Shows other lines; their texts come from outside.
    void Show(const std::vector<ChangedLine>& lines);

    QPlainTextEdit* txtChange;
};

} // namespace tallowmere
