// SPDX-License-Identifier: MIT
#include "samples/Large.h"

#include "samples/Consists.h"
#include "samples/Stock.h"

#include <array>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace samples {
namespace {

constexpr std::size_t kLongestTrain = 60;

/// Random numbers that are the same with every standard library.
class Dice
{
public:
    explicit Dice(std::uint64_t seed)
        : m_engine(seed)
    {
    }
    /// Returns a number from 0 to `limit` - 1.
    std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(m_engine() % limit); }

private:
    std::mt19937_64 m_engine;
};

std::string padded(std::size_t number, std::size_t digits)
{
    std::string text = std::to_string(number);
    return text.size() < digits ? text.insert(0, digits - text.size(), '0') : text;
}

struct GeneratedFolder
{
    std::string name;
    std::size_t stock = 0;
};

std::string folderName(std::size_t number)
{
    constexpr std::array endings = {"", " Freight", " COACHES", "_pack"};
    return "Stock " + padded(number, 5) + endings[number % endings.size()];
}

/// Gives each folder one vehicle as long as there are enough, then spreads the rest at random.
std::vector<GeneratedFolder> foldersOf(const Extra &extra, Dice &dice)
{
    std::vector<GeneratedFolder> folders;
    for (std::size_t i = 0; i < static_cast<std::size_t>(extra.folders); ++i)
        folders.push_back({folderName(i + 1)});
    for (std::size_t i = 0; i < static_cast<std::size_t>(extra.stock); ++i)
        ++folders[i < folders.size() ? i : dice.Below(folders.size())].stock;
    return folders;
}

/// The text of one kind of stock file, with placeholders for the names.
class Template
{
public:
    explicit Template(std::string_view likeFile)
        : m_engine(IsEngine(FindVehicle(likeFile).kind))
    {
        Vehicle vehicle = FindVehicle(likeFile);
        vehicle.file = "@FILE@";
        vehicle.shape = "@SHAPE@";
        vehicle.title = "Generated";
        vehicle.thumbnail = "";
        m_text = StockText(vehicle);
    }
    bool Engine() const { return m_engine; }
    std::string Bytes(std::string_view file, std::string_view shape) const
    {
        std::string text = m_text;
        replace(text, "\"@FILE@\"", file);
        replace(text, "\"@SHAPE@\"", shape);
        return EncodeText("D0", text);
    }

private:
    static void replace(std::string &text, std::string_view mark, std::string_view value)
    {
        for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark, at))
            text.replace(at, mark.size(), value);
    }

    std::string m_text;
    bool m_engine;
};

/// Writes the shape that all stock of a folder shares, named after the first stock file.
void writeShape(Output &output, const std::string &path, const std::string &shape, ShapeForm form)
{
    output.Write(path + shape + ".s", ShapeBytes(SmallestShape({shape + ".ace"}), form));
    output.Write(path + shape + ".sd",
                 DescriptorBytes(shape + ".s", 0, {-1.5F, 0, -6}, {1.5F, 4, 6}));
    const Picture panel = PanelPicture(8, {130, 90, 60, 255}, {40, 40, 44, 255});
    output.Write(path + shape + ".ace",
                 AceBytes(panel, {.mipmaps = true, .compressed = !IsTextForm(form)}));
}

/// Writes the folders and adds all stock to `pool`.
void writeFolders(Output &output, const std::vector<GeneratedFolder> &folders, Dice &dice,
                  std::vector<Unit> &pool)
{
    constexpr std::array forms = {ShapeForm::Compressed, ShapeForm::Compressed, ShapeForm::Binary,
                                  ShapeForm::TextUtf16};
    const std::array kinds = {Template("avr_d401"), Template("avr_hopper_11"), Template("box_501"),
                              Template("coach_first"), Template("flat 6201")};
    for (std::size_t number = 0; number < folders.size(); ++number) {
        const GeneratedFolder &folder = folders[number];
        const std::string path = "TRAINS/TRAINSET/" + folder.name + '/';
        const std::string prefix = "s" + padded(number + 1, 5) + '_';
        output.MakeFolder(path.substr(0, path.size() - 1));
        if (folder.stock > 0)
            writeShape(output, path, prefix + "1", forms[number % forms.size()]);
        for (std::size_t i = 0; i < folder.stock; ++i) {
            const std::string file = prefix + std::to_string(i + 1);
            const Template &kind = kinds[dice.Below(kinds.size())];
            output.Write(path + file + (kind.Engine() ? ".eng" : ".wag"),
                         kind.Bytes(file, prefix + "1.s"));
            pool.push_back({.folder = folder.name, .file = file, .engine = kind.Engine()});
        }
    }
}

/// Returns the vehicles of the default sample, except faulty ones and the one that no consist uses.
std::vector<Unit> defaultPool()
{
    std::vector<Unit> pool;
    for (const Vehicle &v : Vehicles())
        if (v.folder != std::string_view("Repair Sidings") && v.file != std::string_view("tank_21"))
            pool.push_back(UnitOf(v));
    return pool;
}

void writeConsists(Output &output, int number, Dice &dice, const std::vector<Unit> &pool)
{
    for (int i = 1; i <= number; ++i) {
        Train train;
        train.title = "Generated " + padded(static_cast<std::size_t>(i), 5);
        train.name = train.title;
        train.head = i % 3 == 0 ? Head::SerialFirst : Head::NameFirst;
        const std::size_t length = 1 + dice.Below(kLongestTrain);
        for (std::size_t unit = 0; unit < length; ++unit) {
            train.units.push_back(pool[dice.Below(pool.size())]);
            train.units.back().flip = dice.Below(8) == 0;
        }
        output.Write("TRAINS/CONSISTS/" + train.title + ".con",
                     EncodeText("D0", ConsistText(train)));
    }
}

} // namespace

void WriteExtra(Output &output, const Extra &extra)
{
    Dice dice(extra.seed);
    std::vector<Unit> pool = defaultPool();
    writeFolders(output, foldersOf(extra, dice), dice, pool);
    writeConsists(output, extra.consists, dice, pool);
}

} // namespace samples
