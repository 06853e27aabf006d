// SPDX-License-Identifier: MIT
#include "ui/document/ConsistListPane.h"

#include <QVBoxLayout>

namespace document {

ConsistListPane::ConsistListPane(QWidget *parent)
    : QWidget(parent)
    , lvConsists(new ListView("lvConsists", QStringLiteral("Installed consists"), this))
    , m_model(new ConsistListModel(this))
{
    lvConsists->setModel(m_model);
    lvConsists->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lvConsists->setFrameShape(QFrame::NoFrame);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(lvConsists);
    setFocusProxy(lvConsists);

    connect(lvConsists, &ListView::MenuWanted, this, &ConsistListPane::MenuWanted);
    connect(lvConsists, &ListView::doubleClicked, this, [this](const QModelIndex &index) {
        Q_EMIT EditRequested({m_model->Name(index.row())});
    });
    connect(lvConsists, &ListView::ReturnPressed, this, [this](Qt::KeyboardModifiers modifiers) {
        const std::vector<std::string> names = SelectedNames();
        if (modifiers == Qt::NoModifier)
            Q_EMIT EditRequested(names);
        else
            Q_EMIT ViewRequested(names);
    });
}

void ConsistListPane::ShowNames(std::vector<std::string> names, bool atTop)
{
    m_model->SetNames(std::move(names));
    lvConsists->ResetOnlyColumn();
    if (atTop)
        lvConsists->scrollToTop();
}

std::vector<std::string> ConsistListPane::SelectedNames() const
{
    std::vector<std::string> names;
    for (const int row : lvConsists->SelectedRows())
        names.push_back(m_model->Name(row));
    return names;
}

std::string ConsistListPane::SelectedName() const
{
    const int row = lvConsists->SelectedRow();
    return row < 0 ? std::string() : m_model->Name(row);
}

} // namespace document
