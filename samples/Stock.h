// SPDX-License-Identifier: MIT
#pragma once

#include "samples/AceWriter.h"
#include "samples/SampleFile.h"
#include "samples/ShapeWriter.h"
#include "samples/TextWriter.h"
#include "samples/Vehicles.h"

#include <span>
#include <string>
#include <string_view>

/// The rolling stock of the sample: tables of what there is, and the files made from them.
namespace samples {

enum class Kind
{
    Diesel,
    Electric,
    Steam,
    Tender,
    Carriage,
    Freight
};

inline bool IsEngine(Kind kind)
{
    return kind == Kind::Diesel || kind == Kind::Electric || kind == Kind::Steam;
}

/// Ways of writing that real stock files have and readers have to cope with.
enum class Quirk
{
    None,
    DisabledSize,    ///< `#Size ( ... )` before the live one
    HashNote,        ///< `#( text )` between blocks
    LoneQuote,       ///< a comment with one quote: it swallows the rest of the file
    SurplusBracket,  ///< one `)` too many at the end
    MissingBracket,  ///< the last `)` is not there
    TightComment,    ///< `45t #est)`
    LineComment,     ///< `// text` at a line's end
    SkippedProse,    ///< `_skip ( prose )`
    Include,         ///< a file that only the successor of the simulator reads
    BracketInComment ///< an unequal bracket within quotes within a comment
};

/// What is wrong with the blocks of a stock file, where no missing file says it.
enum class Fault
{
    None,
    NoWagonBlock,
    NoSound,
    NoEngineBlock,
    NamesDiffer,
    NoCabView,
    NoEngineSound
};

/// One .eng or .wag. References stand as they are in the file, decoded.
struct Vehicle
{
    const char *folder;
    const char *file; ///< without extension
    Kind kind;
    const char *title;
    float length;
    const char *shape;
    const char *sound;
    const char *cab = "";
    const char *cabSound = "";
    const char *thumbnail = "";
    TextFormat format = {};
    Quirk quirk = Quirk::None;
    Fault fault = Fault::None;
};

/// One shape in a stock folder, with its pictures: its own and those that the folder shares; in the
/// repair sidings its own only.
struct StockShape
{
    const char *folder;
    const char *name; ///< without extension; also that of its first picture
    ShapeForm form;
    Design design;
    const char *initials; ///< painted on, with the number
    const char *number;
    Colour base;
    Colour trim;
    AceFormat picture = {};
    bool descriptor = true;
    bool pictureThere = true;
    int images = 1;         ///< the second is "weathered.ace"
    int imagesDeclared = 0; ///< 0 for the true count
};

std::span<const Vehicle> Vehicles();
std::span<const StockShape> StockShapes();

/// The vehicle of this folder and file; throws std::out_of_range.
const Vehicle &FindVehicle(std::string_view folder, std::string_view file);

/// Width and height of a vehicle that has no model of its own, in metres.
inline constexpr Vec2 kPlainSection{3, 4};

/// The text of an .eng or .wag, LF line ends.
std::string StockText(const Vehicle &vehicle, Vec2 section = kPlainSection);
/// "TRAINS/TRAINSET/<folder>/<file>.eng" or ".wag".
std::string StockPath(const Vehicle &vehicle);

/// A shape descriptor with this bounding box; a negative `alternative` leaves the setting out.
std::string DescriptorBytes(std::string_view shapeFile, int alternative, const Vec3 &low,
                            const Vec3 &high);

/// All stock files, shapes, descriptors and pictures.
SampleFiles StockFiles();

} // namespace samples
