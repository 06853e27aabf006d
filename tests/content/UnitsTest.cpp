// SPDX-License-Identifier: MIT
#include "content/Units.h"

#include <gtest/gtest.h>

#include <charconv>
#include <clocale>
#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace content {
namespace {

using State = Quantity::State;

TEST(UnitsTest, ReadsEveryFormOfRealFiles)
{
    const struct
    {
        const char *text;
        Measure measure;
        double value;
    } kRows[] = {
        {"28.4t", Measure::Mass, 28400},
        {"28.4 t", Measure::Mass, 28400},
        {"28400", Measure::Mass, 28400},
        {"30t-us", Measure::Mass, 27215.5422},
        {"22t-uk", Measure::Mass, 22353.0320},
        {"62601lb", Measure::Mass, 28395.336},
        {"62601 lbs", Measure::Mass, 28395.336},
        {"2.5*28.4t", Measure::Mass, 71000},
        {" 2.5 * 28.4 T ", Measure::Mass, 71000},
        {"10t #est", Measure::Mass, 10000},
        {"98.163t #25.754t empty, 98.163t full", Measure::Mass, 98163},
        {"+1.5e1t,", Measure::Mass, 15000},
        {"18", Measure::Length, 18},
        {"18m", Measure::Length, 18},
        {"36in/2", Measure::Length, 0.4572},
        {"-.5cm", Measure::Length, -0.005},
        {"2984kW#4000hp", Measure::Power, 2984000},
        {"4000hp", Measure::Power, 2982799.488},
        {"70mph", Measure::Speed, 31.2928},
        {"113km/h", Measure::Speed, 31.388889},
        {"70", Measure::DynamicBrakeSpeed, 31.2928},
        {"400000lb", Measure::Force, 1779288.646},
        {"1.0e6N", Measure::Force, 1000000},
        {"1.0e+6 N", Measure::Force, 1000000},
        {"5e-1kN", Measure::Force, 500},
        {"2.5*28.4t", Measure::Force, 71000},
        {"2.5N/kg*28.4t", Measure::Force, 71000},
        {"28.4t * 2.5m/s^2", Measure::Force, 71000},
        {"2.5*62601lbs", Measure::Force, 70988.340},
        {"2*220kN", Measure::Force, 440000},
        {"2*3*4", Measure::Force, 24},
        {"100*(ft^2)", Measure::Area, 9.290304},
        {"2*3*(m^2)", Measure::Area, 6},
        {"100", Measure::Area, 9.290304},
        {"100", Measure::Fuel, 0.1},
        {"1", Measure::Volume, 0.028316847},
        {"2500gals", Measure::Volume, 9.46352946},
        {"1000g-uk", Measure::Fuel, 4.54609},
        {"70psi", Measure::Pressure, 482633.011},
        {"21", Measure::Vacuum, 71114.169},
        {"1e6N/m", Measure::Stiffness, 1000000},
        {"1e6N/m/s", Measure::Damping, 1000000},
        {"180deg", Measure::Angle, 3.141592654},
        {"1.5m", Measure::Time, 90},
        {"8", Measure::Count, 8},
        {"1e-400t", Measure::Mass, 0},
    };
    for (const auto &row : kRows) {
        SCOPED_TRACE(row.text);
        const Quantity read = ReadQuantity(row.text, row.measure);
        EXPECT_TRUE(read.IsGiven());
        EXPECT_NEAR(read.value, row.value, 5e-8 * std::abs(row.value));
    }
}

TEST(UnitsTest, ValuesWithoutANumberAreNeverZero)
{
    const struct
    {
        const char *text;
        State state;
    } kRows[] = {
        {"", State::NotGiven},
        {"-", State::NotGiven},
        {" \t", State::NotGiven},
        {"# 40t", State::NotGiven},
        {"abc", State::Unreadable},
        {"t", State::Unreadable},
        {"28.4x", State::Unreadable},
        {"28.4kN", State::Unreadable},
        {"28.4t 3", State::Unreadable},
        {"28,4t", State::Unreadable},
        {"1 2", State::Unreadable},
        {"2*", State::Unreadable},
        {"*2", State::Unreadable},
        {"2t*3t", State::Unreadable},
        {"--2", State::Unreadable},
        {".", State::Unreadable},
        {"nan", State::Unreadable},
        {"inf t", State::Unreadable},
        {"0x10", State::Unreadable},
        {"2*(3)", State::Unreadable},
        {"2*(t", State::Unreadable},
        {"1*1*1*1*1*1*1*1*1", State::Unreadable},
        {"1e400", State::NotFinite},
        {"-1e400t", State::NotFinite},
        {"1e308t", State::NotFinite},
        {"1e300*1e300", State::NotFinite},
        {"1e99999999999999999999", State::NotFinite},
    };
    for (const auto &row : kRows)
        EXPECT_EQ(ReadQuantity(row.text, Measure::Mass).state, row.state) << row.text;
    EXPECT_EQ(ReadQuantity("28.4t", Measure::Force).state, State::Unreadable); // not a product
    EXPECT_EQ(ReadQuantity("2N/kg", Measure::Force).state, State::Unreadable);
    EXPECT_EQ(ReadQuantity("2N/kg*3N/kg", Measure::Force).state, State::Unreadable);
    EXPECT_EQ(ReadQuantity("2t*3t", Measure::Force).state, State::Unreadable);
}

TEST(UnitsTest, EveryNumberInEveryUnitAndFormReadsBack)
{
    std::mt19937 random(14);
    std::uniform_real_distribution<double> exponents(-12, 12);
    const std::chars_format kForms[] = {std::chars_format::fixed, std::chars_format::scientific,
                                        std::chars_format::general};
    const char *const kEnds[] = {"", " ", "#remark", " # 12t", ","};
    for (std::size_t m = 0; m < kMeasures; ++m) {
        const auto measure = static_cast<Measure>(m);
        std::vector<MeasureUnit> units(UnitsOf(measure).begin(), UnitsOf(measure).end());
        units.push_back({"", BareFactor(measure)});
        for (const MeasureUnit &unit : units)
            for (int round = 0; round < 30; ++round) {
                const double number =
                    std::pow(10.0, exponents(random)) * (random() % 2 == 0 ? 1 : -1);
                char text[64];
                const auto end = std::to_chars(text, text + 64, number, kForms[random() % 3]).ptr;
                std::string value(text, end);
                value += (random() % 2 == 0 ? " " : "") + std::string(unit.name);
                const bool isProduct = random() % 2 == 0;
                // In a product of forces, "lb" is a mass.
                const bool isPound =
                    measure == Measure::Force && unit.name.starts_with("lb") && unit.name != "lbf";
                if (isProduct && !isPound)
                    value = random() % 2 == 0 ? "4*" + value : value + " *4";
                value += kEnds[random() % 5];
                const double expected = number * unit.factor * (isProduct && !isPound ? 4 : 1);
                const Quantity read = ReadQuantity(value, measure);
                ASSERT_TRUE(read.IsGiven()) << value;
                ASSERT_NEAR(read.value, expected, 1e-14 * std::abs(expected)) << value;
            }
    }
}

TEST(UnitsTest, LocaleAndHugeInputsDoNotMatter)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char *const name : {"de_DE.UTF-8", "de_DE", "German"})
        if (std::setlocale(LC_ALL, name))
            break;
    EXPECT_EQ(ReadQuantity("28.5t", Measure::Mass).value, 28500);
    std::setlocale(LC_ALL, before.c_str());

    constexpr std::size_t kHuge = 20'000'000;
    EXPECT_EQ(ReadQuantity(std::string(kHuge, '9'), Measure::Mass).state, State::NotFinite);
    EXPECT_EQ(ReadQuantity("0." + std::string(kHuge, '0') + "1", Measure::Mass).value, 0);
    EXPECT_EQ(ReadQuantity(std::string(kHuge, ' ') + "1t", Measure::Mass).value, 1000);
    EXPECT_EQ(ReadQuantity("1" + std::string(kHuge, 't'), Measure::Mass).state, State::Unreadable);
    std::string product = "1";
    while (product.size() < kHuge)
        product += "*1";
    EXPECT_EQ(ReadQuantity(product, Measure::Mass).state, State::Unreadable);
}

} // namespace
} // namespace content
