// SPDX-License-Identifier: MIT
#include "ui/document/FigureCells.h"

#include "ui/document/StockFigures.h"

#include <algorithm>

namespace document {

namespace {

using content::FactColumn;
using content::Figure;

QVariant alignment(FactColumn column)
{
    return content::FactFigure(column) ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
}

/// Returns the reason why a cell shows no value, for its tool tip; "" if it shows one.
QString whyUnknown(const content::StockFacts &facts, FactColumn column)
{
    if (!facts.fault.empty())
        return QStringLiteral("Not known: ") + QString::fromStdString(facts.fault);
    const std::optional<content::FigureId> figure = content::FactFigure(column);
    if (!figure)
        return {};
    switch (facts[*figure].state) {
    case Figure::State::Known:
    case Figure::State::NotApplicable:
        return {};
    case Figure::State::NotGiven:
        return QStringLiteral("The vehicle's file does not give it");
    case Figure::State::Unreadable:
    case Figure::State::NotFinite:
    case Figure::State::Negative:
        break;
    }
    return QStringLiteral("The value in the vehicle's file is not valid");
}

} // namespace

bool FigureCells::IsShown(FactColumn column) const
{
    return std::find(m_shown.begin(), m_shown.end(), column) != m_shown.end();
}

int FigureCells::PlaceOf(FactColumn column) const
{
    return static_cast<int>(std::lower_bound(m_shown.begin(), m_shown.end(), column) -
                            m_shown.begin());
}

void FigureCells::Show(FactColumn column, bool show)
{
    std::erase(m_shown, column);
    if (show)
        m_shown.insert(m_shown.begin() + PlaceOf(column), column);
}

std::shared_ptr<const content::StockFacts>
FigureCells::FactsOf(const install::StockItem &item) const
{
    return m_figures ? m_figures->Facts(item) : nullptr;
}

QVariant FigureCells::Data(const install::StockItem &item, int place, int role) const
{
    const FactColumn column = m_shown[static_cast<std::size_t>(place)];
    if (role == Qt::TextAlignmentRole)
        return alignment(column);
    if ((role != Qt::DisplayRole && role != Qt::ToolTipRole) || !m_figures)
        return {};
    const auto facts = m_figures->Facts(item);
    if (role == Qt::ToolTipRole)
        return facts ? whyUnknown(*facts, column) : QString();
    return facts ? QString::fromStdString(content::FactText(*facts, column, m_figures->Units()))
                 : QStringLiteral("\u2026");
}

QString FigureCells::Description(const install::StockItem &item) const
{
    QStringList parts{QString::fromStdString(item.shape + " in " + item.folder)};
    if (item.type.ends_with('*'))
        parts << QStringLiteral("flipped");
    const auto facts = FactsOf(item);
    for (int i = 0; facts && facts->fault.empty() && i < content::kFactColumns; ++i) {
        const auto column = static_cast<FactColumn>(i);
        const std::string text = content::FactText(*facts, column, m_figures->Units());
        if (!text.empty())
            parts << QLatin1String(content::FactTitle(column)) + QLatin1Char(' ') +
                         (text == "?" ? QStringLiteral("not known") : QString::fromStdString(text));
    }
    return parts.join(QStringLiteral(", "));
}

QVariant FigureCells::Header(int place, int role) const
{
    const FactColumn column = m_shown[static_cast<std::size_t>(place)];
    if (role == Qt::TextAlignmentRole)
        return alignment(column);
    return role == Qt::DisplayRole ? QVariant(QString::fromLatin1(content::FactTitle(column)))
                                   : QVariant();
}

} // namespace document
