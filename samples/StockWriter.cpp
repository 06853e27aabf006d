// SPDX-License-Identifier: MIT
#include "samples/Stock.h"

#include <string>

namespace samples {
namespace {

constexpr std::string_view kTrainset = "TRAINS/TRAINSET/";
constexpr int kPictureSide = 8;

std::string_view typeOf(Kind kind)
{
    switch (kind) {
    case Kind::Diesel:
        return "Diesel";
    case Kind::Electric:
        return "Electric";
    case Kind::Steam:
        return "Steam";
    case Kind::Tender:
        return "Tender";
    case Kind::Carriage:
        return "Carriage";
    case Kind::Freight:
        return "Freight";
    }
    return {};
}

std::string line(std::string_view name, std::string_view values)
{
    return "\t" + std::string(name) + " ( " + std::string(values) + " )\n";
}

std::string metres(float value)
{
    return Number(value) + "m";
}

std::string sizeLine(float length)
{
    return line("Size", "3m 4m " + metres(length));
}

/// Lines at the end of the Wagon block: whatever a reader makes of them, what a check needs has
/// been read by then.
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

std::string wagonBlock(const Vehicle &v)
{
    const bool engine = IsEngine(v.kind);
    std::string out = v.fault == Fault::NoWagonBlock ? "Waggon ( " : "Wagon ( ";
    out += Quoted(v.file) + '\n';
    out += line("Type", engine ? "Engine" : typeOf(v.kind));
    out += line("Name", Quoted(v.title));
    out += line("WagonShape", Quoted(v.shape));
    if (*v.thumbnail != '\0')
        out += line("Thumbnail", Quoted(v.thumbnail));
    if (v.quirk == Quirk::DisabledSize)
        out += "\t#" + sizeLine(v.length + 1).substr(1);
    out += sizeLine(v.length);
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
    out += line("Type", typeOf(v.kind));
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

/// The length of the first vehicle that has the shape: their boxes are alike.
float lengthFor(const StockShape &shape)
{
    for (const Vehicle &v : Vehicles())
        if (v.folder == std::string_view(shape.folder) && v.file == std::string_view(shape.name))
            return v.length;
    return 12;
}

void addShape(SampleFiles &files, const StockShape &shape)
{
    const std::string path = folderPath(shape.folder) + shape.name;
    const std::string picture = std::string(shape.name) + ".ace";
    std::vector<std::string> images = {picture};
    if (shape.images > 1)
        images.emplace_back("weathered.ace");
    ShapeModel model = SmallestShape(images);
    if (shape.imagesDeclared != 0)
        model.imagesDeclared = static_cast<std::uint32_t>(shape.imagesDeclared);
    files.push_back({path + ".s", ShapeBytes(model, shape.form)});
    if (shape.descriptor)
        files.push_back(
            {path + ".sd", DescriptorBytes(shape.name + std::string(".s"), 0, lengthFor(shape))});
    const bool window = shape.picture.alpha != AceAlpha::None;
    if (shape.pictureThere)
        files.push_back(
            {path + ".ace",
             AceBytes(PanelPicture(kPictureSide, shape.base, shape.trim, window), shape.picture)});
}

} // namespace

std::string StockText(const Vehicle &vehicle)
{
    std::string text = wagonBlock(vehicle);
    if (IsEngine(vehicle.kind) && vehicle.fault != Fault::NoEngineBlock)
        text += engineBlock(vehicle);
    if (vehicle.quirk == Quirk::SurplusBracket)
        text += ")\n";
    if (vehicle.quirk == Quirk::MissingBracket)
        text.erase(text.rfind(')'));
    return text;
}

std::string StockBytes(const Vehicle &vehicle)
{
    return EncodeText("D0", StockText(vehicle), vehicle.format);
}

std::string StockPath(const Vehicle &vehicle)
{
    return folderPath(vehicle.folder) + vehicle.file + (IsEngine(vehicle.kind) ? ".eng" : ".wag");
}

std::string DescriptorBytes(std::string_view shapeFile, int alternative, float length)
{
    std::string text = "shape ( " + Quoted(shapeFile) + '\n';
    text += line("ESD_Detail_Level", "0");
    if (alternative >= 0)
        text += line("ESD_Alternative_Texture", std::to_string(alternative));
    const std::string half = Number(length / 2);
    text += line("ESD_Bounding_Box", "-1.5 0 -" + half + " 1.5 4 " + half);
    return EncodeText("t1", text + ")\n");
}

SampleFiles StockFiles()
{
    SampleFiles files;
    for (const Vehicle &vehicle : Vehicles())
        files.push_back({StockPath(vehicle), StockBytes(vehicle)});
    for (const StockShape &shape : StockShapes())
        addShape(files, shape);
    const Picture rust = PanelPicture(kPictureSide, {120, 80, 60, 255}, {90, 60, 45, 255}, false);
    files.push_back({folderPath("Repair Sidings") + "weathered.ace", AceBytes(rust, {})});
    files.push_back({std::string(kTrainset) + "Common.Inc/brakes.inc",
                     EncodeText("D0", "\nMaxBrakeForce ( 60kN )\n",
                                {.encoding = Encoding::Windows1252, .header = Header::None})});
    return files;
}

} // namespace samples
