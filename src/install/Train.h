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

/// The kinds of stock: the types of a StockItem, which are also the names of units.
inline constexpr const char *kEngine = "Engine", *kWagon = "Wagon";

/// The block of a train, and the block around it in a consist file and in a loose consist.
inline constexpr const char *kTrainCfg = "TrainCfg", *kTrain = "Train",
                            *kTrainConfig = "Train_Config";

/// A stock item with the texts of its three list columns.
struct StockItem
{
    std::string type; ///< "Engine" or "Wagon"; in a list of a consist "*" is appended when flipped
    std::string folder; ///< below Trains\Trainset
    std::string shape;  ///< base name of the .eng or .wag file

    friend bool operator==(const StockItem &, const StockItem &) = default;
};

/// Returns the name of a stock file without its folder. The extension is the first three letters of
/// the type in lower case.
std::string StockFileName(std::string_view type, std::string_view baseName);
/// Returns the path of a stock item's file below an installation folder.
std::string StockPath(std::string_view installFolder, const StockItem &item);

/// A stock file, as a unit of any kind names it.
struct StockName
{
    std::string base;   ///< the file name without its last four characters
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

    /// Returns "Engine" or "Wagon".
    std::string Kind() const { return m_block.Name(); }
    bool IsFlipped() const;
    /// Returns the stock item as lists and views show it. An unquoted folder name with a blank is
    /// read as two values, which are joined. Missing values are "". Throws error 91 with file and
    /// line if there is no data block.
    StockItem Item() const;
    /// Returns the first two values of the data block and ignores all others, as checks do. Throws
    /// error 91 without a data block, 9 if a value is missing.
    StockName Stock() const;
    /// True if the first two values of the data block are this name, letter case included.
    bool Names(const StockName &stock) const;

    /// Returns the 1-based position among the children of the train; 0 for a unit that does not
    /// come from Units.
    std::int16_t Position() const { return m_position; }

private:
    StfNode data() const;

    StfNode m_block;
    std::int16_t m_position;
};

/// The units of a train in file order, for `for (const Unit &unit : Units(trainCfg))`. Throws error
/// 6 on the step to a unit whose position is beyond 16 bits. The tree must not change during the
/// walk.
class Units
{
public:
    /// If `trainCfg` is no object, there are no units.
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

/// Returns the train of a consist file, or no object.
StfNode FindTrain(const StfFile &consist);
/// Like FindTrain, but throws error 91 if there is none: with the file's name and the missing
/// block, or the reason why the file is not text.
StfNode RequireTrain(const StfFile &consist);
/// Returns the values of the block, joined by single blanks and trimmed; "" for no object.
std::string TrainTitle(const StfNode &trainCfg);

/// Returns the block of an engine or wagon file that describes the vehicle, or no object. Engines
/// have this block, too.
StfNode FindVehicle(const StfFile &stockFile);
/// Like FindVehicle, but throws error 91 with the file's name if there is none.
StfNode RequireVehicle(const StfFile &stockFile);
/// Returns the entry of a vehicle whose first value is the shape file, relative to the folder of
/// the stock file; no object if there is none. Throws error 91 if there is no vehicle.
StfNode FindShape(const StfNode &vehicle);

} // namespace install
