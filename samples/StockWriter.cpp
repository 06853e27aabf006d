// SPDX-License-Identifier: MIT
#include "samples/Stock.h"
#include "samples/Vehicles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace samples {
namespace {

constexpr std::string_view kTrainset = "TRAINS/TRAINSET/";
constexpr const char *kRepair = "Repair Sidings";
constexpr const char *kWeathered = "weathered.ace";

// In the order of Kind.
constexpr std::array kTypes = {"Diesel", "Electric", "Steam", "Tender", "Carriage", "Freight"};

std::string line(std::string_view name, std::string_view values)
{
    return "\t" + std::string(name) + " ( " + std::string(values) + " )\n";
}

/// Rounds to centimetres.
float rounded(float value)
{
    return std::round(value * 100) / 100;
}

std::string metres(float value)
{
    return Number(value) + "m";
}

std::string sizeLine(Vec2 section, float length)
{
    return line("Size", metres(section.x) + ' ' + metres(section.y) + ' ' + metres(length));
}

/// Returns the irregular lines at the end of the Wagon block. Checks need only the lines before
/// them, so it does not matter how a reader interprets these.
std::string quirkLines(Quirk quirk)
{
    switch (quirk) {
    case Quirk::HashNote:
        return "\t#( second of its class )\n";
    case Quirk::LoneQuote:
        return "\tcomment( 22.8t empty, 106.7t full\" )\n";
    case Quirk::TightComment:
        return "\tMaxHandbrakeForce ( 45kN #est)\n";
    case Quirk::LineComment:
        return "\tNumWheels ( 6 ) // drivers only\n";
    case Quirk::SkippedProse:
        return "\t_skip ( Written down from memory (more or less), to be measured )\n";
    case Quirk::Include:
        return "\tinclude ( \"..\\\\Common.Inc\\\\brakes.inc\" )\n";
    case Quirk::BracketInComment:
        return "\tcomment ( \"pipes :-) are a load\" )\n";
    default:
        return {};
    }
}

std::string wagonBlock(const Vehicle &v, Vec2 section)
{
    const bool engine = IsEngine(v.kind);
    std::string out = v.fault == Fault::NoWagonBlock ? "Waggon ( " : "Wagon ( ";
    out += Quoted(v.file) + '\n';
    out += line("Type", engine ? "Engine" : kTypes.at(static_cast<std::size_t>(v.kind)));
    out += line("Name", Quoted(v.title));
    out += line("WagonShape", Quoted(v.shape));
    if (*v.thumbnail != '\0')
        out += line("Thumbnail", Quoted(v.thumbnail));
    if (v.quirk == Quirk::DisabledSize)
        out += "\t#" + sizeLine(section, v.length + 1).substr(1);
    out += sizeLine(section, v.length);
    out += line("Mass", Number(v.length * (engine ? 5.0F : 2.0F)) + "t");
    out += line("WheelRadius", "0.46m");
    out += line("NumWheels", "4");
    out += "\tCoupling (\n\t\tType ( Automatic )\n\t\tSpring (\n\t\t\tStiffness ( 1e6N/m 5e6N/m )\n"
           "\t\t\tBreak ( 5e6N 5e6N )\n\t\t)\n\t)\n";
    if (v.fault != Fault::NoSound)
        out += line("Sound", Quoted(v.sound));
    return out + quirkLines(v.quirk) + ")\n";
}

std::string engineBlock(const Vehicle &v)
{
    const std::string name = Quoted(v.file);
    std::string out = "\nEngine ( " + name + '\n';
    out +=
        line("Wagon", v.fault == Fault::NamesDiffer ? Quoted(v.file + std::string("_old")) : name);
    out += line("Type", kTypes.at(static_cast<std::size_t>(v.kind)));
    out += line("Name", Quoted(v.title));
    out += line("MaxPower", "1200kW");
    out += line("MaxForce", "220kN");
    out += line("MaxVelocity", "120km/h");
    if (v.fault != Fault::NoCabView)
        out += line("CabView", Quoted(v.cab));
    if (v.fault != Fault::NoEngineSound)
        out += line("Sound", Quoted(v.cabSound));
    out += "\tDescription ( \"Made up for the sample installation.\\n\"+\n"
           "\t              \"No such engine ever ran.\" )\n";
    return out + ")\n";
}

std::string folderPath(std::string_view folder)
{
    return std::string(kTrainset) + std::string(folder) + '/';
}

/// Returns the length of the vehicle that the shape is named after. All vehicles that share a shape
/// have the same length.
float lengthFor(const StockShape &shape)
{
    for (const Vehicle &v : Vehicles())
        if (v.folder == std::string_view(shape.folder) && v.file == std::string_view(shape.name))
            return v.length;
    return 12;
}

bool isAlone(const StockShape &shape)
{
    return shape.folder == std::string_view(kRepair);
}

std::vector<std::string> imagesOf(const StockShape &shape)
{
    std::vector<std::string> images = {std::string(shape.name) + ".ace"};
    if (!isAlone(shape))
        images.insert(images.end(), {kGearFile, kGlassFile});
    else if (shape.images > 1)
        images.emplace_back(kWeathered);
    return images;
}

PaintedModel built(const StockShape &shape)
{
    PaintedModel vehicle = BuildVehicle(shape.design, {.length = lengthFor(shape),
                                                       .base = shape.base,
                                                       .trim = shape.trim,
                                                       .initials = shape.initials,
                                                       .number = shape.number,
                                                       .alpha = shape.picture.alpha,
                                                       .alone = isAlone(shape),
                                                       .images = imagesOf(shape)});
    if (shape.imagesDeclared != 0)
        vehicle.model.imagesDeclared = static_cast<std::uint32_t>(shape.imagesDeclared);
    return vehicle;
}

void addShape(SampleFiles &files, const StockShape &shape, const PaintedModel &vehicle)
{
    const std::string path = folderPath(shape.folder) + shape.name;
    files.push_back({path + ".s", ShapeBytes(vehicle.model, shape.form)});
    if (shape.descriptor)
        files.push_back({path + ".sd", DescriptorBytes(shape.name + std::string(".s"), 0,
                                                       vehicle.low, vehicle.high)});
    if (shape.pictureThere)
        files.push_back({path + ".ace", AceBytes(vehicle.picture, shape.picture)});
}

/// Adds the textures that the vehicles of a folder share. In every second folder, gear is DXT1.
void addShared(SampleFiles &files)
{
    std::set<std::string_view> folders;
    for (const StockShape &shape : StockShapes())
        if (!isAlone(shape))
            folders.insert(shape.folder);
    bool blocks = false;
    for (const std::string_view folder : folders) {
        const AceFormat gear{
            .alpha = AceAlpha::Mask, .mipmaps = true, .dxt1 = blocks, .compressed = !blocks};
        const AceFormat glass{.alpha = AceAlpha::Full, .mipmaps = true};
        files.push_back({folderPath(folder) + kGearFile, AceBytes(GearPicture(), gear)});
        files.push_back({folderPath(folder) + kGlassFile, AceBytes(GlassPicture(), glass)});
        blocks = !blocks;
    }
}

std::string lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return text;
}

/// Returns the key by which vehicles find a shape: folder and file in lower case.
std::string keyOf(std::string_view folder, std::string_view shapeFile)
{
    return lower(std::string(folder) + '/' + std::string(shapeFile));
}

} // namespace

std::string StockText(const Vehicle &vehicle, Vec2 section)
{
    std::string text = wagonBlock(vehicle, section);
    if (IsEngine(vehicle.kind) && vehicle.fault != Fault::NoEngineBlock)
        text += engineBlock(vehicle);
    if (vehicle.quirk == Quirk::SurplusBracket)
        text += ")\n";
    if (vehicle.quirk == Quirk::MissingBracket)
        text.erase(text.rfind(')'));
    return text;
}

std::string StockPath(const Vehicle &vehicle)
{
    return folderPath(vehicle.folder) + vehicle.file + (IsEngine(vehicle.kind) ? ".eng" : ".wag");
}

std::string DescriptorBytes(std::string_view shapeFile, int alternative, const Vec3 &low,
                            const Vec3 &high)
{
    std::string text = "shape ( " + Quoted(shapeFile) + '\n';
    text += line("ESD_Detail_Level", "0");
    if (alternative >= 0)
        text += line("ESD_Alternative_Texture", std::to_string(alternative));
    std::string box;
    for (const float value : {low.x, low.y, low.z, high.x, high.y, high.z})
        box += (box.empty() ? "" : " ") + Number(rounded(value));
    text += line("ESD_Bounding_Box", box);
    return EncodeText("t1", text + ")\n");
}

std::string StockShapeBytes(const StockShape &shape, ShapeForm form)
{
    return ShapeBytes(built(shape).model, form);
}

SampleFiles StockFiles()
{
    SampleFiles shapes;
    std::map<std::string, Vec2> sections;
    for (const StockShape &shape : StockShapes()) {
        const PaintedModel vehicle = built(shape);
        addShape(shapes, shape, vehicle);
        sections[keyOf(shape.folder, shape.name + std::string(".s"))] = {
            rounded(vehicle.high.x - vehicle.low.x), rounded(vehicle.high.y)};
    }
    SampleFiles files;
    for (const Vehicle &vehicle : Vehicles()) {
        const auto at = sections.find(keyOf(vehicle.folder, vehicle.shape));
        const Vec2 section = at != sections.end() ? at->second : kPlainSection;
        files.push_back(
            {StockPath(vehicle), EncodeText("D0", StockText(vehicle, section), vehicle.format)});
    }
    std::move(shapes.begin(), shapes.end(), std::back_inserter(files));
    addShared(files);
    const Picture rust = PanelPicture(8, {120, 80, 60, 255}, {90, 60, 45, 255});
    files.push_back({folderPath(kRepair) + kWeathered, AceBytes(rust, {})});
    files.push_back({std::string(kTrainset) + "Common.Inc/brakes.inc",
                     EncodeText("D0", "\nMaxBrakeForce ( 60kN )\n",
                                {.encoding = Encoding::Windows1252, .header = Header::None})});
    return files;
}

} // namespace samples
