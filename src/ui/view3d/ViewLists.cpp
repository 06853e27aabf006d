// SPDX-License-Identifier: MIT
#include "ui/view3d/ViewLists.h"

#include "host/Path.h"
#include "ui/view3d/NavigationKeys.h"
#include "viewer/ScenePoses.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace viewer {
namespace {

constexpr int kKey = Qt::UserRole; ///< the entry of hiddenParts, for items with a check box
constexpr int kExpanded = 3;       ///< shapes; with more of them, only their names are shown

void setChecked(QTreeWidgetItem &item, bool on)
{
    item.setCheckState(0, on ? Qt::Checked : Qt::Unchecked);
}

} // namespace

ViewList::ViewList(const char *name, const char *title, QWidget *parent)
    : QFrame(parent)
    , cmdCloseList(new QToolButton(this))
{
    const QString caption = QString::fromLatin1(title);
    setObjectName(name);
    setAccessibleName(caption);
    setAutoFillBackground(true);
    setFrameShape(QFrame::StyledPanel);
    setAttribute(Qt::WA_NoMousePropagation); // dragging in the list must not turn the view
    cmdCloseList->setObjectName("cmdCloseList");
    cmdCloseList->setText(QStringLiteral("\u00d7"));
    cmdCloseList->setAccessibleName(QStringLiteral("Close the list"));
    cmdCloseList->setToolTip(QStringLiteral("Close the list"));
    cmdCloseList->setAutoRaise(true);
    cmdCloseList->setFocusPolicy(Qt::TabFocus);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 4);
    layout->setSpacing(2);
    auto *line = new QHBoxLayout;
    line->addWidget(new QLabel(caption, this), 1);
    line->addWidget(cmdCloseList);
    layout->addLayout(line);
    connect(cmdCloseList, &QToolButton::clicked, this, &ViewList::CloseWanted);
    hide();
}

void ViewList::setContent(QWidget *content, const char *name, const char *title)
{
    content->setObjectName(name);
    content->setAccessibleName(QString::fromLatin1(title));
    layout()->addWidget(content);
    new NavigationKeys(*content);
    setFocusProxy(content);
}

void ViewList::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT CloseWanted();
    else
        QFrame::keyPressEvent(event);
}

PartTree::PartTree(QWidget *parent)
    : ViewList("partTree", "Parts", parent)
    , tvParts(new QTreeWidget(this))
{
    setContent(tvParts, "tvParts", "Parts of the shapes");
    tvParts->setHeaderHidden(true);
    tvParts->setIndentation(14);
    tvParts->setUniformRowHeights(true);
    connect(tvParts, &QTreeWidget::itemChanged, this, &PartTree::change);
}

void PartTree::Fill(const std::vector<ShapeParts> &shapes, const std::set<std::string> &hidden)
{
    const QSignalBlocker silent(tvParts);
    tvParts->clear();
    for (const ShapeParts &shape : shapes)
        addShape(shape);
    if (shapes.size() <= kExpanded)
        tvParts->expandAll();
    Mark(hidden);
}

void PartTree::addShape(const ShapeParts &shape)
{
    auto *top = new QTreeWidgetItem(
        tvParts, {QString::fromStdString(std::string(host::path::FileName(shape.file)))});
    top->setToolTip(0, QString::fromStdString(shape.file));
    setChecked(*top, true);
    std::vector<QTreeWidgetItem *> items;
    for (const ShapePart &part : shape.parts) {
        auto *item = new QTreeWidgetItem(QStringList(
            part.name.empty() ? QStringLiteral("(no name)") : QString::fromStdString(part.name)));
        if (part.drawn) {
            item->setData(0, kKey, QString::fromStdString(PartKey(shape.file, part.name)));
            setChecked(*item, true);
        }
        items.push_back(item);
    }
    for (std::size_t i = 0; i < items.size(); ++i) {
        const int parent = shape.parts[i].parent;
        (parent < 0 ? top : items[static_cast<std::size_t>(parent)])->addChild(items[i]);
    }
}

void PartTree::forEachPart(QTreeWidgetItem *item, const std::function<void(QTreeWidgetItem &)> &use)
{
    std::vector<QTreeWidgetItem *> left{item};
    while (!left.empty()) {
        QTreeWidgetItem *at = left.back();
        left.pop_back();
        if (at->data(0, kKey).isValid())
            use(*at);
        for (int i = 0; i < at->childCount(); ++i)
            left.push_back(at->child(i));
    }
}

void PartTree::Mark(const std::set<std::string> &hidden)
{
    const QSignalBlocker silent(tvParts);
    m_hidden = hidden;
    for (int i = 0; i < tvParts->topLevelItemCount(); ++i) {
        QTreeWidgetItem *top = tvParts->topLevelItem(i);
        bool all = true, any = false;
        forEachPart(top, [&](QTreeWidgetItem &item) {
            const bool shown = !hidden.contains(item.data(0, kKey).toString().toStdString());
            setChecked(item, shown);
            all = all && shown;
            any = any || shown;
        });
        top->setCheckState(0, all ? Qt::Checked : any ? Qt::PartiallyChecked : Qt::Unchecked);
    }
    tvParts->viewport()->update();
}

void PartTree::change(QTreeWidgetItem *item)
{
    const bool shown = item->checkState(0) != Qt::Unchecked;
    std::set<std::string> hidden = m_hidden;
    const auto set = [&](QTreeWidgetItem &part) {
        const std::string key = part.data(0, kKey).toString().toStdString();
        if (shown)
            hidden.erase(key);
        else
            hidden.insert(key);
    };
    if (item->parent())
        set(*item);
    else
        forEachPart(item, set);
    Mark(hidden);
    Q_EMIT HiddenChanged(hidden);
}

MissingList::MissingList(QWidget *parent)
    : ViewList("missingList", "Missing Textures", parent)
    , lstMissing(new QListWidget(this))
{
    setContent(lstMissing, "lstMissing", "Missing textures");
    lstMissing->setWordWrap(true);
    lstMissing->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void MissingList::Fill(const std::vector<std::string> &textures)
{
    lstMissing->clear();
    for (const std::string &texture : textures)
        lstMissing->addItem(QString::fromStdString(texture));
    if (textures.empty())
        lstMissing->addItem(QStringLiteral("No texture is missing."));
}

} // namespace viewer
