// SPDX-License-Identifier: MIT
#pragma once

#include "content/StockFacts.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace content {

struct SearchTerm;

/// A vehicle as searches see it. Made before the search, so that comparing is fast.
struct SearchedStock
{
    std::string key;         ///< folder, file and own name in upper case, separated by line ends
    std::uint32_t file = 0;  ///< where the file begins in the key
    std::uint32_t name = 0;  ///< where the own name begins in the key
    bool isEngine = false;   ///< its file is an .eng
    bool lacksFiles = false; ///< the vehicle or its shape is missing
    std::shared_ptr<const StockFacts> facts; ///< null until they were read

    std::string_view Folder() const { return std::string_view(key).substr(0, file); }
    std::string_view File() const { return std::string_view(key).substr(file, name - file); }
    std::string_view Name() const { return std::string_view(key).substr(name); }
};
/// `facts` may be null. The item may be a flipped unit.
SearchedStock SearchedStockOf(const install::StockItem &item,
                              std::shared_ptr<const StockFacts> facts);

/// A search for vehicles. Words match folder, file and the vehicle's own name. Terms:
///
///     type:engine  folder:text  file:text  name:text  coupling:text  brakes:text
///     missing:shape  missing:vehicle
///     length>20  mass<30t  power>=2000kW  speed<100km/h  effort  axles
///
/// A number without a unit has the unit that lists show. A vehicle whose figure is not known does
/// not match. A term with another key matches as text. A term whose value cannot be used is left
/// out, and Remark states why.
class StockQuery
{
public:
    StockQuery() = default;
    StockQuery(std::string_view text, UnitSystem system);

    bool IsEmpty() const { return m_terms.empty(); }
    /// True if Matches needs SearchedStock::lacksFiles.
    bool NeedsMissing() const;
    bool Matches(const SearchedStock &vehicle) const;
    /// Returns a remark for the user about the last term that was left out; "" if there is none.
    const std::string &Remark() const { return m_remark; }

private:
    enum class Kind : std::uint8_t
    {
        Text,
        Folder,
        File,
        Name,
        Type,
        Coupling,
        Brakes,
        MissingShape,
        MissingVehicle,
        Figure
    };
    enum class Relation : std::uint8_t
    {
        Less,
        LessOrEqual,
        Equal,
        GreaterOrEqual,
        Greater
    };
    struct Term
    {
        Kind kind = Kind::Text;
        std::string text; ///< in upper case
        FigureId figure = FigureId::Length;
        Relation relation = Relation::Equal;
        double value = 0;
    };
    bool addText(const SearchTerm &term);
    bool addMissing(const SearchTerm &term);
    bool addFigure(const SearchTerm &term, UnitSystem system);
    static bool matches(const Term &term, const SearchedStock &vehicle);
    static bool matchesType(const Term &term, const SearchedStock &vehicle);
    static bool matchesFigure(const Term &term, const SearchedStock &vehicle);

    std::vector<Term> m_terms;
    std::string m_remark;
};

} // namespace content
