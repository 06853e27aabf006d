// SPDX-License-Identifier: MIT
#include "ui/health/HealthView.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>
#include <set>
#include <string>
#include <unordered_set>

namespace health {

namespace {

std::array<QIcon, 3> severityIcons(const QStyle &style)
{
    return {style.standardIcon(QStyle::SP_MessageBoxInformation),
            style.standardIcon(QStyle::SP_MessageBoxWarning),
            style.standardIcon(QStyle::SP_MessageBoxCritical)};
}

/// Returns the row numbers from the top level down, for the order on the screen.
std::vector<int> pathOf(const QModelIndex &index)
{
    std::vector<int> path;
    for (QModelIndex at = index; at.isValid(); at = at.parent())
        path.insert(path.begin(), at.row());
    return path;
}

/// True if one of the rows with these keys is below the row with this key.
bool hasBelow(const std::set<std::string> &keys, const std::string &key)
{
    const auto first = keys.lower_bound(key + '\n');
    return first != keys.end() && first->starts_with(key + '\n');
}

} // namespace

/// The keys of rows in some state.
struct HealthView::State
{
    std::set<std::string> expanded, selected;
    std::string current;
    int scrolled = 0;
};

HealthView::HealthView(QWidget *parent)
    : QTreeView(parent)
    , m_model(new HealthModel(severityIcons(*style()), this))
{
    setModel(m_model);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideMiddle);
    setIconSize({16, 16});
    sizeColumns();
    connect(this, &QTreeView::doubleClicked, this, [this](const QModelIndex &index) {
        if (!m_model->hasChildren(index.siblingAtColumn(0))) // the others fold
            Q_EMIT Chosen(index);
    });
}

void HealthView::sizeColumns()
{
    constexpr int kPadding = 18;
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(40);
    header()->setSectionResizeMode(HealthModel::What, QHeaderView::Stretch);
    const QFontMetrics metrics(font());
    const auto widest = [&metrics](std::initializer_list<const char *> texts) {
        int width = 0;
        for (const char *text : texts)
            width = std::max(width, metrics.horizontalAdvance(QLatin1String(text)));
        return width + kPadding;
    };
    header()->resizeSection(HealthModel::SeverityColumn,
                            widest({"Severity", "warning"}) + iconSize().width());
    header()->resizeSection(HealthModel::Findings, widest({"Findings", "100,000"}));
    header()->resizeSection(HealthModel::Simulator, widest({"Simulator", "Open Rails"}));
    header()->resizeSection(HealthModel::State, widest({"State", "changed"}));
}

void HealthView::SetTree(std::shared_ptr<const content::HealthTree> tree)
{
    const State before = state();
    m_model->SetTree(std::move(tree));
    restore(before);
    setColumnHidden(HealthModel::State, !m_model->Tree()->HasKnown());
}

HealthView::State HealthView::state() const
{
    State state;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QModelIndex cause = m_model->index(row, 0);
        if (!isExpanded(cause))
            continue;
        state.expanded.insert(m_model->KeyOf(cause));
        for (int below = 0; below < m_model->rowCount(cause); ++below)
            if (const QModelIndex wanted = m_model->index(below, 0, cause); isExpanded(wanted))
                state.expanded.insert(m_model->KeyOf(wanted));
    }
    // Only whole causes of a large report are worth the time of finding each row again.
    constexpr qsizetype kMostRows = 1000;
    const QModelIndexList rows = selectionModel()->selectedRows();
    for (qsizetype i = 0; i < std::min(rows.size(), kMostRows); ++i)
        state.selected.insert(m_model->KeyOf(rows[i]));
    state.current = m_model->KeyOf(currentIndex().siblingAtColumn(0));
    state.scrolled = verticalScrollBar()->value();
    return state;
}

void HealthView::restore(const State &state)
{
    QItemSelection selection;
    restoreBelow({}, state, selection);
    if (!currentIndex().isValid() && m_model->rowCount() > 0)
        selectionModel()->setCurrentIndex(m_model->index(0, 0), QItemSelectionModel::NoUpdate);
    if (selection.isEmpty() && currentIndex().isValid())
        selection.select(currentIndex(), currentIndex());
    selectionModel()->select(selection,
                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    verticalScrollBar()->setValue(state.scrolled);
}

/// Visits the rows with kept rows below, since a large report has many others.
void HealthView::restoreBelow(const QModelIndex &parent, const State &state,
                              QItemSelection &selection)
{
    for (int row = 0; row < m_model->rowCount(parent); ++row) {
        const QModelIndex index = m_model->index(row, 0, parent);
        const std::string key = m_model->KeyOf(index);
        if (key == state.current)
            selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        if (state.selected.contains(key))
            selection.select(index, index);
        if (!state.expanded.contains(key))
            continue;
        expand(index);
        if (hasBelow(state.expanded, key) || hasBelow(state.selected, key) ||
            hasBelow({state.current}, key))
            restoreBelow(index, state, selection);
    }
}

std::vector<QModelIndex> HealthView::SelectedRows() const
{
    std::vector<QModelIndex> rows;
    for (const QModelIndex &index : selectionModel()->selectedRows()) {
        bool isBelow = false;
        for (QModelIndex above = index.parent(); above.isValid(); above = above.parent())
            isBelow = isBelow || selectionModel()->isSelected(above);
        if (!isBelow)
            rows.push_back(index);
    }
    std::sort(rows.begin(), rows.end(),
              [](const QModelIndex &a, const QModelIndex &b) { return pathOf(a) < pathOf(b); });
    return rows;
}

std::vector<const content::Finding *> HealthView::SelectedFindings() const
{
    std::vector<const content::Finding *> findings;
    std::unordered_set<std::uint32_t> known;
    for (const QModelIndex &row : SelectedRows())
        for (const std::uint32_t finding : m_model->FindingsOf(row))
            if (known.insert(finding).second)
                findings.push_back(&m_model->Tree()->Index().Report().findings[finding]);
    return findings;
}

/// The toolkit expands everything below a row on "*", which takes a minute for 100,000 rows.
void HealthView::keyPressEvent(QKeyEvent *event)
{
    constexpr int kMostExpanded = 1000;
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const QModelIndex index = currentIndex().siblingAtColumn(0);
    if (event->key() == Qt::Key_Asterisk && m_model->rowCount(index) > kMostExpanded)
        return expand(index);
    if (!isReturn || event->modifiers() & ~Qt::KeypadModifier || !index.isValid())
        return QTreeView::keyPressEvent(event);
    if (m_model->hasChildren(index))
        setExpanded(index, !isExpanded(index));
    else
        Q_EMIT Chosen(index);
}

void HealthView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    Q_EMIT MenuWanted(byKey ? viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft())
                            : event->globalPos());
}

void HealthView::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    Q_EMIT SelectionMoved();
}

} // namespace health
