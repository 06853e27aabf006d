// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QString>
#include <QVariant>

#include <vector>

namespace document {

/// Remarks about rows of a list. A row with a remark has an icon, a tool tip, and a description for
/// screen readers; its texts stay.
class RowRemarks
{
public:
    void SetIcon(const QIcon &icon) { m_icon = icon; }
    /// Removes all remarks.
    void Clear(std::size_t rows) { m_remarks.assign(rows, {}); }
    /// Returns false if the row has this remark already. "" removes a remark.
    bool Set(int row, const QString &remark);
    bool Has(int row) const { return !m_remarks[static_cast<std::size_t>(row)].isEmpty(); }
    /// Returns what a model returns for this role; nothing for roles that remarks do not concern.
    QVariant Data(int row, int role, bool showsIcon) const;

private:
    QIcon m_icon;
    std::vector<QString> m_remarks; ///< by row
};

} // namespace document
