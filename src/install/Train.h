// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/StfFile.h"

#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

/// Trains as structured files hold them. A train is a block `TrainCfg`, of a consist file or of a
/// loose consist in an activity. Its units are the children `Engine` and `Wagon`; each names a
/// stock file in its block `EngineData` or `WagonData`, and the stock file names the shape.
namespace install {

/// The kinds of stock, as types of a StockItem and as names of units.
inline constexpr const char *kEngine = "Engine", *kWagon = "Wagon";

/// The block of a train in a consist file and in a loose consist, and the block around it in each.
inline constexpr const char *kTrainCfg = "TrainCfg", *kTrain = "Train",
                            *kTrainConfig = "Train_Config";

/// A stock item by its three list columns.
struct StockItem
{
    std::string type; ///< "Engine" or "Wagon"; in a list of a consist "*" is appended when flipped
    std::string folder; ///< below Trains\Trainset
    std::string shape;  ///< base name of the .eng or .wag file

    friend bool operator==(const StockItem &, const StockItem &) = default;
};

/// The name of a stock file without its folder. The extension is the first three letters of the
/// type in lower case.
std::string StockFileName(std::string_view type, std::string_view baseName);
/// The path of a stock item's file below an installation folder.
std::string StockPath(std::string_view installFolder, const StockItem &item);

/// A stock file as units name it, whatever their kind.
struct StockName
{
    std::string base;   ///< the file name less its last four characters
    std::string folder; ///< the name of its folder, "." for a path without one

    static StockName Of(std::string_view stockPath);

    friend bool operator==(const StockName &, const StockName &) = default;
};

/// One unit of a train: a handle on its block. Its functions read the tree at each call.
class Unit
{
public:
    explicit Unit(StfNode block, std::int16_t position = 0)
        : m_block(std::move(block))
        , m_position(position)
    {
    }

    /// "Engine" or "Wagon".
    std::string Kind() const { return m_block.Name(); }
    bool IsFlipped() const;
    /// The stock item as lists and views show it. A folder name with a blank that was not quoted
    /// comes as two values, which are joined. Values that are missing are "". Error 91 with file
    /// and line when there is no data block.
    StockItem Item() const;
    /// The first two values of the data block, no others, which is what checks look at. Error 91
    /// without a data block, 9 when a value is missing.
    StockName Stock() const;
    /// True when the first two values of the data block are this name, letter case included.
    bool Names(const StockName &stock) const;

    /// The 1-based place among the children of the train, when a walk through Units led here.
    std::int16_t Position() const { return m_position; }

private:
    StfNode data() const;

    StfNode m_block;
    std::int16_t m_position;
};

/// The units of a train in file order, for `for (const Unit &unit : Units(trainCfg))`. Going to a
/// unit whose position is beyond 16 bits is error 6. The tree must not change on the way.
class Units
{
public:
    /// No object has no units.
    explicit Units(StfNode trainCfg)
        : m_train(std::move(trainCfg))
    {
    }

    class Iterator
    {
    public:
        using value_type = Unit;
        using difference_type = std::ptrdiff_t;

        Unit operator*() const { return Unit(m_train->Children().Item(m_position), m_position); }
        Iterator &operator++();
        void operator++(int) { ++*this; }
        friend bool operator==(const Iterator &at, std::default_sentinel_t) { return !at.m_train; }

    private:
        friend class Units;
        explicit Iterator(const StfNode *train)
            : m_train(train)
        {
        }

        const StfNode *m_train; ///< null at the end
        std::int16_t m_position = 0;
    };
    Iterator begin() const;
    std::default_sentinel_t end() const { return std::default_sentinel; }

private:
    StfNode m_train;
};

/// The train of a consist file, or no object.
StfNode FindTrain(const StfFile &consist);
/// Like FindTrain, but error 91 when there is none: with the file's name and the block that is
/// missing, or why the file is not text.
StfNode RequireTrain(const StfFile &consist);
/// The values of the block, joined by single blanks and trimmed; "" for no object.
std::string TrainTitle(const StfNode &trainCfg);

/// The block of an engine or wagon file that describes the vehicle, or no object. Engines have one,
/// too.
StfNode FindVehicle(const StfFile &stockFile);
/// Like FindVehicle, but error 91 with the file's name when there is none.
StfNode RequireVehicle(const StfFile &stockFile);
/// The entry of a vehicle whose first value is the shape file, relative to the folder of the stock
/// file; no object when there is none. Error 91 without a vehicle.
StfNode FindShape(const StfNode &vehicle);

} // namespace install
