#include "app/forms/FinderRows.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

void FinderRows::Show(QList<FinderRow> rows, Detail detail) {
    beginResetModel();
    m_rows = std::move(rows);
    m_detail = std::move(detail);
    m_details = QList<std::optional<QString>>(m_rows.size());
    endResetModel();
}

QString FinderRows::DetailOf(int row) const {
    std::optional<QString>& detail = m_details[row];
    if (!detail)
        detail = m_detail(row);
    return *detail;
}

int FinderRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant FinderRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const FinderRow& row = At(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return row.text;
    case Qt::AccessibleTextRole:
        return QString(row.kind + u": "_s + row.text);
    case Qt::AccessibleDescriptionRole:
        return DetailOf(index.row());
    default:
        return {};
    }
}

} // namespace tallowmere
