// SPDX-License-Identifier: MIT
#pragma once

#include "content/StockFacts.h"
#include "install/Train.h"

#include <QString>
#include <QVariant>

#include <memory>
#include <vector>

namespace document {

class StockFigures;

/// The columns of figures of a list of vehicles, to the right of its other columns. A column that
/// is not shown is not part of the list's model.
class FigureCells
{
public:
    void SetSource(const StockFigures *figures) { m_figures = figures; }

    const std::vector<content::FactColumn> &Shown() const { return m_shown; }
    bool IsShown(content::FactColumn column) const;
    /// Returns where the column is, or would be if it were shown, counted from 0.
    int PlaceOf(content::FactColumn column) const;
    void Show(content::FactColumn column, bool show);

    /// Return what a model returns for the column at this place.
    QVariant Data(const install::StockItem &item, int place, int role) const;
    QVariant Header(int place, int role) const;

    /// Returns the vehicle and all that is known of it in a sentence, whatever columns are shown.
    QString Description(const install::StockItem &item) const;

    /// Returns the vehicle's facts; null if they are not known yet.
    std::shared_ptr<const content::StockFacts> FactsOf(const install::StockItem &item) const;

private:
    const StockFigures *m_figures = nullptr;
    std::vector<content::FactColumn> m_shown; ///< in the order of the enumeration
};

} // namespace document
