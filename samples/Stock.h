// SPDX-License-Identifier: MIT
#pragma once

#include "samples/AceWriter.h"
#include "samples/Output.h"
#include "samples/ShapeWriter.h"
#include "samples/TextWriter.h"
#include "samples/Vehicles.h"

#include <span>
#include <string>
#include <string_view>

/// The rolling stock of the sample: its tables, and the files made from them.
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

/// Irregular notations that occur in real stock files; readers must accept them.
enum class Quirk
{
    None,
    DisabledSize,    ///< `#Size ( ... )` before the valid `Size`
    HashNote,        ///< `#( text )` between blocks
    LoneQuote,       ///< a comment with one quote, which extends to the end of the file
    SurplusBracket,  ///< one `)` too many at the end
    MissingBracket,  ///< the last `)` is missing
    TightComment,    ///< `45t #est)`
    LineComment,     ///< `// text` at the end of a line
    SkippedProse,    ///< `_skip ( prose )`
    Include,         ///< a file that only Open Rails reads
    BracketInComment ///< an unbalanced bracket in quotes in a comment
};

/// A fault in the blocks of a stock file. References to missing files need no entry here.
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

/// One .eng or .wag. References are spelled as in the file, after decoding.
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

/// One shape in a stock folder. It uses its own texture and those that the folder shares. In the
/// repair sidings, it uses only its own.
struct StockShape
{
    const char *folder;
    const char *name; ///< without extension; its first texture has the same name
    ShapeForm form;
    Design design;
    const char *initials; ///< painted on the sides, with the number
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

/// Returns the vehicle with this file name, which is unique. Throws std::out_of_range if there is
/// none.
const Vehicle &FindVehicle(std::string_view file);

/// Width and height of a vehicle without a model, in metres.
inline constexpr Vec2 kPlainSection{3, 4};

/// Returns the text of an .eng or .wag, with LF line ends.
std::string StockText(const Vehicle &vehicle, Vec2 section = kPlainSection);
/// Returns "TRAINS/TRAINSET/<folder>/<file>.eng" or ".wag".
std::string StockPath(const Vehicle &vehicle);

/// Returns a shape descriptor with this bounding box. A negative `alternative` omits the setting.
std::string DescriptorBytes(std::string_view shapeFile, int alternative, const Vec3 &low,
                            const Vec3 &high);

/// Returns the bytes of a wave file: a short square wave, 8-bit mono.
std::string WaveBytes();

/// Returns the shape file of a shape, in another form than the sample's if so wanted.
std::string StockShapeBytes(const StockShape &shape, ShapeForm form);

/// Returns all stock files, shapes, descriptors and textures.
SampleFiles StockFiles();
/// Returns all sound files (.sms) with their wave files.
SampleFiles SoundFiles();
/// Returns all cab views with their textures.
SampleFiles CabFiles();

} // namespace samples
