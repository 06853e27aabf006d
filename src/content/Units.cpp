// SPDX-License-Identifier: MIT
#include "content/Units.h"

#include "content/Block.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace content {
namespace {

constexpr double kPound = 0.45359237, kInch = 0.0254, kFoot = 0.3048, kMile = 1609.344;
constexpr double kPoundForce = kPound * 9.80665;
constexpr double kCubicInch = kInch * kInch * kInch, kCubicFoot = kFoot * kFoot * kFoot;
constexpr double kLitre = 1e-3, kUsGallon = 231 * kCubicInch, kUkGallon = 4.54609e-3;
constexpr double kPsi = kPoundForce / (kInch * kInch), kInchOfMercury = 3386.389;
constexpr double kMph = kMile / 3600, kDegree = 3.14159265358979323846 / 180;

constexpr MeasureUnit kMass[] = {{"kg"},
                                 {"t", 1000},
                                 {"lb", kPound},
                                 {"lbs", kPound},
                                 {"t-uk", 2240 * kPound},
                                 {"t-us", 2000 * kPound}};
constexpr MeasureUnit kLength[] = {{"mm", 1e-3},  {"cm", 1e-2},   {"m"},
                                   {"km", 1e3},   {"in", kInch},  {"in/2", kInch / 2},
                                   {"ft", kFoot}, {"mile", kMile}};
constexpr MeasureUnit kSpeed[] = {
    {"m/s"},          {"cm/s", 1e-2},    {"mm/s", 1e-3}, {"km/h", 1 / 3.6}, {"kph", 1 / 3.6},
    {"kmh", 1 / 3.6}, {"kmph", 1 / 3.6}, {"mph", kMph},  {"ft/s", kFoot},   {"in/s", kInch}};
constexpr MeasureUnit kForce[] = {
    {"N"}, {"kN", 1e3}, {"lbf", kPoundForce}, {"lb", kPoundForce}, {"lbs", kPoundForce}};
// Which horsepower the simulators mean is not documented. This is the mechanical one.
constexpr MeasureUnit kPower[] = {{"W"}, {"kW", 1e3}, {"hp", 745.699872}};
constexpr MeasureUnit kTime[] = {{"s"}, {"m", 60}, {"h", 3600}};
constexpr MeasureUnit kVolume[] = {{"l", kLitre},
                                   {"m^3"},
                                   {"*(m^3)"},
                                   {"ft^3", kCubicFoot},
                                   {"*(ft^3)", kCubicFoot},
                                   {"in^3", kCubicInch},
                                   {"*(in^3)", kCubicInch},
                                   {"g-uk", kUkGallon},
                                   {"g-us", kUsGallon},
                                   {"gal", kUsGallon},
                                   {"gals", kUsGallon}};
constexpr MeasureUnit kArea[] = {
    {"m^2"}, {"*(m^2)"}, {"ft^2", kFoot *kFoot}, {"*(ft^2)", kFoot *kFoot}};
constexpr MeasureUnit kPressure[] = {
    {"psi", kPsi}, {"bar", 1e5}, {"kPa", 1e3}, {"inHg", kInchOfMercury}};
constexpr MeasureUnit kStiffness[] = {{"N/m"}};
constexpr MeasureUnit kDamping[] = {{"N/m/s"}, {"Ns/m"}};
constexpr MeasureUnit kAngle[] = {{"rad"}, {"deg", kDegree}};
constexpr MeasureUnit kAcceleration[] = {{"N/kg"}, {"m/s^2"}};

struct Row
{
    std::span<const MeasureUnit> units;
    double bare = 1;
};

const Row &rowOf(Measure measure)
{
    // In the order of Measure.
    static const std::array<Row, kMeasures> kRows = {{{},
                                                      {kMass},
                                                      {kLength},
                                                      {kSpeed},
                                                      {kSpeed, kMph},
                                                      {kForce},
                                                      {kPower},
                                                      {kTime},
                                                      {kVolume, kCubicFoot},
                                                      {kVolume, kLitre},
                                                      {kArea, kFoot * kFoot},
                                                      {kPressure, kPsi},
                                                      {kPressure, kInchOfMercury},
                                                      {kStiffness},
                                                      {kDamping},
                                                      {kAngle}}};
    return kRows[static_cast<std::size_t>(measure)];
}

constexpr std::string_view kBlanks = " \t\r\n";

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// True if a number that a double cannot hold is too large, false if it is too small.
bool isTooLarge(std::string_view number)
{
    const std::size_t e = number.find_first_of("eE");
    const std::string_view mantissa = number.substr(0, e);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == mantissa.npos)
        return false;
    const double digits = static_cast<double>(point) - static_cast<double>(first);
    double exponent = 0;
    for (const char c : e == number.npos ? std::string_view() : number.substr(e + 1))
        if (isDigit(c))
            exponent = std::min(exponent * 10 + (c - '0'), 1e15);
    const bool isNegative = e != number.npos && number.substr(e + 1).starts_with('-');
    return digits + (isNegative ? -exponent : exponent) > 0;
}

struct Factor
{
    double number = 0;
    std::string_view unit;
};

/// Takes a value apart.
class Scanner
{
public:
    explicit Scanner(std::string_view text)
        : m_rest(text)
    {
    }

    /// Reads all factors. Returns false if the text is not a product of numbers with units.
    bool Read()
    {
        do {
            if (m_count == m_factors.size() || !readNumber(m_factors[m_count]))
                return false;
            readUnit(m_factors[m_count++]);
        } while (skipped('*'));
        return m_rest.empty();
    }
    std::span<const Factor> Factors() const { return std::span(m_factors).first(m_count); }

private:
    void skipBlanks()
    {
        m_rest.remove_prefix(std::min(m_rest.find_first_not_of(kBlanks), m_rest.size()));
    }
    bool skipped(char c)
    {
        if (!m_rest.starts_with(c))
            return false;
        m_rest.remove_prefix(1);
        return true;
    }

    bool readNumber(Factor &factor)
    {
        skipBlanks();
        const bool isNegative = m_rest.starts_with('-');
        if (isNegative || m_rest.starts_with('+'))
            m_rest.remove_prefix(1);
        if (m_rest.empty() || !(isDigit(m_rest.front()) || m_rest.front() == '.'))
            return false;
        const char *const end = m_rest.data() + m_rest.size();
        const auto result = std::from_chars(m_rest.data(), end, factor.number);
        if (result.ec == std::errc::invalid_argument)
            return false;
        const auto length = static_cast<std::size_t>(result.ptr - m_rest.data());
        if (result.ec == std::errc::result_out_of_range)
            factor.number =
                isTooLarge(m_rest.substr(0, length)) ? std::numeric_limits<double>::infinity() : 0;
        if (isNegative)
            factor.number = -factor.number;
        m_rest.remove_prefix(length);
        return true;
    }

    void readUnit(Factor &factor)
    {
        skipBlanks();
        // "*(ft^2)" is a unit.
        const std::size_t end =
            m_rest.starts_with("*(") ? m_rest.find(')') : m_rest.find_first_of(" \t\r\n*") - 1;
        factor.unit = m_rest.substr(0, end + 1);
        m_rest.remove_prefix(factor.unit.size());
        skipBlanks();
    }

    static constexpr std::size_t kMostFactors = 8;
    std::string_view m_rest;
    std::array<Factor, kMostFactors> m_factors;
    std::size_t m_count = 0;
};

const MeasureUnit *find(std::span<const MeasureUnit> units, std::string_view name)
{
    const auto found = std::find_if(units.begin(), units.end(), [&](const MeasureUnit &unit) {
        return Block::SameName(unit.name, name);
    });
    return found == units.end() ? nullptr : &*found;
}

/// Multiplies factors of which at most one has one of these units. Returns nothing else.
Quantity product(std::span<const Factor> factors, std::span<const MeasureUnit> units, double bare)
{
    double value = 1, scale = bare;
    bool hasUnit = false;
    for (const Factor &factor : factors) {
        value *= factor.number;
        if (factor.unit.empty())
            continue;
        const MeasureUnit *const unit = find(units, factor.unit);
        if (!unit || hasUnit)
            return {Quantity::State::Unreadable};
        hasUnit = true;
        scale = unit->factor;
    }
    value *= scale;
    return std::isfinite(value) ? Quantity{Quantity::State::Given, value}
                                : Quantity{Quantity::State::NotFinite};
}

/// Reads a force that is an acceleration times a mass with a unit.
Quantity acceleratedMass(std::span<const Factor> factors)
{
    const Factor *mass = nullptr, *acceleration = nullptr;
    for (const Factor &factor : factors) {
        const Factor *&place = find(kMass, factor.unit) ? mass : acceleration;
        if (place)
            return {Quantity::State::Unreadable};
        place = &factor;
    }
    if (!mass || !acceleration)
        return {Quantity::State::Unreadable};
    const bool hasUnit = !acceleration->unit.empty();
    if (hasUnit && !find(kAcceleration, acceleration->unit))
        return {Quantity::State::Unreadable};
    const Factor plain[] = {{acceleration->number, {}}, *mass};
    return product(plain, kMass, 1);
}

} // namespace

std::span<const MeasureUnit> UnitsOf(Measure measure)
{
    return rowOf(measure).units;
}

double BareFactor(Measure measure)
{
    return rowOf(measure).bare;
}

Quantity ReadQuantity(std::string_view text, Measure measure)
{
    text = trimmed(text.substr(0, text.find('#')));
    if (text.ends_with(','))
        text = trimmed(text.substr(0, text.size() - 1));
    if (text.empty() || text == "-")
        return {};
    Scanner scanner(text);
    if (!scanner.Read())
        return {Quantity::State::Unreadable};
    const std::span<const Factor> factors = scanner.Factors();
    if (measure == Measure::Force && factors.size() > 1)
        if (const Quantity force = acceleratedMass(factors);
            force.state != Quantity::State::Unreadable)
            return force;
    return product(factors, UnitsOf(measure), BareFactor(measure));
}

} // namespace content
