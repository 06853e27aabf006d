// SPDX-License-Identifier: MIT
#pragma once

#include "ui/document/ConsistListModel.h"
#include "ui/widgets/ListView.h"

#include <QWidget>

#include <string>
#include <vector>

namespace document {

/// The controls of a consist list window.
class ConsistListPane : public QWidget
{
    Q_OBJECT

public:
    explicit ConsistListPane(QWidget *parent = nullptr);

    /// Replaces the names. The list keeps its place, or starts at its top.
    void ShowNames(std::vector<std::string> names, bool atTop);
    /// Sets the text that the list shows as long as it has no names.
    void ShowHint(const std::string &hint) { lvConsists->SetHint(QString::fromStdString(hint)); }
    const std::vector<std::string> &Names() const { return m_model->Names(); }
    int Count() const { return m_model->rowCount(); }
    /// The names of the selected rows, from the first to the last.
    std::vector<std::string> SelectedNames() const;
    /// The one selected name, or of several the current one; "" for none.
    std::string SelectedName() const;

    ListView *lvConsists;

Q_SIGNALS:
    void EditRequested(const std::vector<std::string> &names);
    void ViewRequested(const std::vector<std::string> &names);
    void MenuWanted(const QPoint &globalPosition);

private:
    ConsistListModel *m_model;
};

} // namespace document
