// SPDX-License-Identifier: MIT
#pragma once

#include "document/ConsistListModel.h"
#include "document/ListView.h"

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

    void ShowNames(std::vector<std::string> names);
    /// What the list tells as long as there are no names.
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
