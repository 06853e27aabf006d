// SPDX-License-Identifier: MIT
#include "ui/health/HealthModel.h"

#include "content/HealthText.h"
#include "content/HelpText.h"

#include <QLocale>

#include <algorithm>

namespace health {

using content::HealthTree;

namespace {

/// The internal id of an index is the row above it: 0 for none, odd for a cause, even for a wanted
/// file.
constexpr quintptr belowCause(std::size_t cause)
{
    return 2 * cause + 1;
}
constexpr quintptr belowWanted(std::size_t wanted)
{
    return 2 * (wanted + 1);
}

QVariant countAlignment()
{
    return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
}

QString qText(const std::string &text)
{
    return QString::fromStdString(content::ShownText(text));
}

const char *simulatorsOf(content::Profiles profiles)
{
    if (profiles == content::Profiles::Both())
        return "both";
    return profiles.Has(content::Profile::Msts) ? "MSTS" : "Open Rails";
}

} // namespace

HealthModel::HealthModel(std::array<QIcon, 3> icons, QObject *parent)
    : QAbstractItemModel(parent)
    , m_icons(std::move(icons))
{
}

void HealthModel::SetTree(std::shared_ptr<const HealthTree> tree)
{
    beginResetModel();
    m_tree = std::move(tree);
    m_users.clear();
    m_causeOf.assign(m_tree->Wanted().size(), 0);
    for (std::size_t i = 0; i < m_tree->Causes().size(); ++i) {
        const HealthTree::CauseRow &cause = m_tree->Causes()[i];
        std::fill(m_causeOf.begin() + static_cast<std::ptrdiff_t>(cause.firstWanted),
                  m_causeOf.begin() + static_cast<std::ptrdiff_t>(cause.endWanted), i);
    }
    endResetModel();
}

const std::vector<HealthTree::UserRow> &HealthModel::usersOf(std::size_t wanted) const
{
    const auto known = m_users.find(wanted);
    if (known != m_users.end())
        return known->second;
    return m_users.emplace(wanted, m_tree->UsersOf(m_tree->Wanted()[wanted])).first->second;
}

HealthModel::Node HealthModel::NodeOf(const QModelIndex &index) const
{
    if (!index.isValid() || !m_tree)
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    const quintptr above = index.internalId();
    if (above == 0)
        return {&m_tree->Causes()[row], nullptr, nullptr};
    if (above % 2 == 1)
        return {nullptr, &m_tree->Wanted()[m_tree->Causes()[above / 2].firstWanted + row], nullptr};
    return {nullptr, nullptr, &usersOf(above / 2 - 1)[row]};
}

std::string HealthModel::KeyOf(const QModelIndex &index) const
{
    const Node node = NodeOf(index);
    if (node.cause)
        return m_tree->Index().Report().causes[node.cause->cause].id;
    if (node.wanted)
        return KeyOf(index.parent()) + '\n' + node.wanted->wanted->text;
    if (node.user)
        return KeyOf(index.parent()) + '\n' +
               m_tree->Index().Report().findings[node.user->finding].id + '\n' + node.user->path;
    return {};
}

std::vector<std::uint32_t> HealthModel::FindingsOf(const QModelIndex &index) const
{
    const Node node = NodeOf(index);
    if (node.user)
        return {node.user->finding};
    if (node.wanted)
        return node.wanted->findings;
    std::vector<std::uint32_t> findings;
    if (node.cause)
        for (std::size_t i = node.cause->firstWanted; i < node.cause->endWanted; ++i)
            findings.insert(findings.end(), m_tree->Wanted()[i].findings.begin(),
                            m_tree->Wanted()[i].findings.end());
    return findings;
}

QModelIndex HealthModel::index(int row, int column, const QModelIndex &parent) const
{
    if (row < 0 || column < 0 || column >= Columns || row >= rowCount(parent))
        return {};
    if (!parent.isValid())
        return createIndex(row, column, quintptr{0});
    const auto above = static_cast<std::size_t>(parent.row());
    if (parent.internalId() == 0)
        return createIndex(row, column, belowCause(above));
    const HealthTree::CauseRow &cause = m_tree->Causes()[parent.internalId() / 2];
    return createIndex(row, column, belowWanted(cause.firstWanted + above));
}

QModelIndex HealthModel::parent(const QModelIndex &index) const
{
    const quintptr above = index.isValid() ? index.internalId() : 0;
    if (above == 0)
        return {};
    if (above % 2 == 1)
        return createIndex(static_cast<int>(above / 2), 0, quintptr{0});
    const std::size_t wanted = above / 2 - 1, cause = m_causeOf[wanted];
    return createIndex(static_cast<int>(wanted - m_tree->Causes()[cause].firstWanted), 0,
                       belowCause(cause));
}

int HealthModel::rowCount(const QModelIndex &parent) const
{
    if (!m_tree || parent.column() > 0)
        return 0;
    if (!parent.isValid())
        return static_cast<int>(m_tree->Causes().size());
    if (parent.internalId() != 0 && parent.internalId() % 2 == 0)
        return 0;
    const Node node = NodeOf(parent);
    return static_cast<int>(node.cause ? node.cause->endWanted - node.cause->firstWanted
                                       : node.wanted->users);
}

int HealthModel::columnCount(const QModelIndex &) const
{
    return Columns;
}

bool HealthModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0;
}

HealthTree::Summary HealthModel::summaryOf(const Node &node) const
{
    if (node.cause)
        return node.cause->summary;
    return node.wanted ? node.wanted->summary : m_tree->SummaryOf(node.user->finding);
}

QString HealthModel::textOfWhat(const Node &node) const
{
    if (node.cause)
        return qText(m_tree->Index().Report().causes[node.cause->cause].what);
    if (node.wanted)
        return qText(node.wanted->wanted->text);
    return qText(PlaceText(*m_tree, *node.user));
}

QString HealthModel::text(const QModelIndex &index) const
{
    const Node node = NodeOf(index);
    switch (index.column()) {
    case What:
        return textOfWhat(node);
    case SeverityColumn:
        return QLatin1String(SeverityName(summaryOf(node).severity));
    case Findings:
        return node.user ? QString()
                         : QLocale().toString(static_cast<qulonglong>(
                               node.cause ? node.cause->findings : node.wanted->findings.size()));
    case Simulator:
        return QLatin1String(simulatorsOf(summaryOf(node).profiles));
    default:
        return QLatin1String(NoveltyName(summaryOf(node).novelty));
    }
}

/// Returns the row as a screen reader should read it: its first column alone lacks the severity.
QString HealthModel::spoken(const QModelIndex &index) const
{
    QString row = QLatin1String(SeverityName(summaryOf(NodeOf(index)).severity)) +
                  QStringLiteral(": ") + text(index.siblingAtColumn(What));
    const QString count = text(index.siblingAtColumn(Findings));
    if (!count.isEmpty())
        row += QStringLiteral(", ") + count +
               QLatin1String(count == QStringLiteral("1") ? " finding" : " findings");
    const QString novelty = text(index.siblingAtColumn(State));
    return novelty.isEmpty() ? row : row + QStringLiteral(", ") + novelty;
}

QVariant HealthModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return text(index);
    case Qt::ToolTipRole:
        return index.column() == What ? text(index) : QVariant();
    case Qt::AccessibleTextRole:
        return index.column() == What ? spoken(index) : text(index);
    case Qt::DecorationRole:
        return index.column() == SeverityColumn
                   ? QVariant(m_icons[static_cast<std::size_t>(summaryOf(NodeOf(index)).severity)])
                   : QVariant();
    case Qt::TextAlignmentRole:
        return index.column() == Findings ? countAlignment() : QVariant();
    default:
        return {};
    }
}

QVariant HealthModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    constexpr const char *kTitles[] = {"Cause, wanted file, wanted by", "Findings", "Severity",
                                       "Simulator", "State"};
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole && section == Findings)
        return countAlignment();
    return role == Qt::DisplayRole ? QVariant(QLatin1String(kTitles[section])) : QVariant();
}

} // namespace health
