// SPDX-License-Identifier: MIT
#include "ui/document/RowRemarks.h"

namespace document {

bool RowRemarks::Set(int row, const QString &remark)
{
    QString &old = m_remarks[static_cast<std::size_t>(row)];
    if (old == remark)
        return false;
    old = remark;
    return true;
}

QVariant RowRemarks::Data(int row, int role, bool showsIcon) const
{
    const QString &remark = m_remarks[static_cast<std::size_t>(row)];
    if (remark.isEmpty())
        return {};
    if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole)
        return remark;
    return role == Qt::DecorationRole && showsIcon ? QVariant(m_icon) : QVariant();
}

} // namespace document
