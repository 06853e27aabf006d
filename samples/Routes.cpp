// SPDX-License-Identifier: MIT
#include "samples/Routes.h"

#include "samples/AceWriter.h"
#include "samples/Consists.h"
#include "samples/Stock.h"
#include "samples/TextWriter.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace samples {
namespace {

constexpr const char *kVale = "TARNWICK";
constexpr const char *kCoast = "Ochre Coast";

struct Service
{
    const char *route;
    const char *file;
    const char *consist;
    const char *path;
};

// clang-format off
constexpr std::array kServices = std::to_array<Service>({
    {kVale, "Long coal", "Long Coal Drag", "vale_up"},
    {kVale, "Long coal back", "Long Coal Drag", "vale_down"},
    {kVale, "Quarry #3", "Quarry_Local", "vale_up"},
    {kVale, "Harbour", "Harbour Transfer", "vale_down"},
    {kVale, "Steam special", "Steam Special", "vale_up"},
    {kVale, "Works", "Works Train #3", "vale_up"},
    {kVale, "Broken", "Broken Tail", "vale_down"},
    {kVale, "To the works", "Repair Train", "vale_down"},
    {kVale, "Ghost", "Vanished Freight", "vale_up"},
    {kCoast, "Express 1", "coastal express", "coast line"},
    {kCoast, "Night mail", "night mail", "coast line"},
    {kCoast, "Railcar (double)", "double (2)", "coast line"},
    {kCoast, "Ferry", "Ferry Goods ", "ferry_pier"},
    {kCoast, "Bummel", "Förster Bummel", "ferry_pier"},
    {kCoast, "Café", "Cafe Car", "coast line"},
});

using S = ShapeForm;
using B = Building;
constexpr std::array kShapes = std::to_array<RouteShape>({
    {kVale, "station", S::TextUtf16, B::Station, 0, "b"},
    {kVale, "!signal hut", S::Text8Bit, B::SignalHut, 1, "bs"},
    {kVale, "gas_lamp", S::TextUtf16, B::GasLamp, 257, "bsn"},
    {kVale, "water_tower", S::Compressed, B::WaterTower, 0, "b"},
    {kVale, "cottage", S::TextUtf16, B::Cottage, 252 + 256, "bspPaAwWn"},
    {kVale, "barn", S::TextUtf16, B::Barn, 252, "b"},
    {kVale, "chapel", S::TextUtf16, B::Chapel, 257, "bs"},
    {kCoast, "Fährhaus", S::TextUtf16, B::FerryHouse, 0, "b"},
    {kCoast, "crane", S::Binary, B::Crane, 0, "b"},
    {kCoast, "pier", S::TextUtf16, B::Pier, 256, "b"},
    {kCoast, "shed", S::TextUtf16, B::Shed, -1, "b"},
    {kCoast, "bridge", S::TextUtf16, B::Bridge, 0, ""},
});
// clang-format on

/// An object of an activity, such as a loose consist.
struct ActivityObject
{
    const char *type;
    std::vector<Unit> units;
};

struct Activity
{
    const char *route;
    const char *file;
    const char *service;
    const char *traffic;
    const char *path;
    std::vector<ActivityObject> objects;
};

// Route, file, service, traffic, path, objects.
// clang-format off
std::vector<Activity> activities()
{
    const char *cut = "WagonsList";
    return {
        {kVale, "Morning coal", "Long coal", "vale", "vale_up",
         {{cut, Units({"avr_hopper_11", "avr_hopper_11", "avr_caboose"})}}},
        {kVale, "Five cuts", "Harbour", "vale", "vale_down",
         {{cut, Units({"box_501", "<van_ice"})}, {cut, Units({"flat 6201"})}, {cut, Units({"avr_hopper_11"})},
          {cut, Units({"TSR_060T"})}, {cut, Units({"<van_ice", "box_501", "box_501"})}}},
        {kVale, "Light engine", "Steam special", "vale", "vale_up", {}},
        {kCoast, "Harbour shunt", "Ferry", "coast", "ferry_pier",
         {{cut, Units({"fwb_güterwagen", "fwb_güterwagen"})}, {"PickupArea", {}},
          {cut, Units({"<van_ice", "fwb_güterwagen"})}}},
        {kCoast, "Autumn leaves", "Bummel", "coast", "ferry_pier",
         {{cut, Units({"fwb_güterwagen"})}, {cut, Units({"box_501"})}}},
    };
}
// clang-format on

std::string inRoute(std::string_view route, std::string_view rest)
{
    return "ROUTES/" + std::string(route) + '/' + std::string(rest);
}

std::string routeText(std::string_view folder, std::string_view name)
{
    const std::string id = Quoted(folder);
    return "Tr_RouteFile (\n\tRouteID ( " + id + " )\n\tName ( " + Quoted(name) +
           " )\n\tDescription ( \"Made up for the sample installation.\\n\"+\n"
           "\t              \"No train ever ran here.\" )\n\tGraphic ( graphic.ace )\n"
           "\tLoadingScreen ( load.ace )\n\tFileName ( " +
           id + " )\n\tElectrified ( 00000001 )\n\tSpeedLimit ( 44.44 )\n)\n";
}

std::string serviceText(const Service &service)
{
    return "Service_Definition (\n\tSerial ( 1 )\n\tName ( " + Quoted(service.file) +
           " )\n\tTrain_Config ( " + Quoted(service.consist) + " )\n\tPathID ( " +
           Quoted(service.path) +
           " )\n\tMaxWheelAcceleration ( 0.5 )\n\tEfficiency ( 0.9 )\n"
           "\tTimeTable (\n\t\tStartingSpeed ( 0 )\n\t\tEndingSpeed ( 0 )\n"
           "\t\tStartInWorld ( 1 )\n\t\tEndInWorld ( 1 )\n\t)\n)\n";
}

std::string pathText(std::string_view name)
{
    return "Serial ( 1 )\nTrackPDPs (\n\tTrackPDP ( -6000 14000 100 0 0 1 1 )\n"
           "\tTrackPDP ( -6000 14001 220.5 0 300 1 1 )\n)\nTrackPath (\n\tTrPathName ( " +
           Quoted(name) + " )\n\tTrPathFlags ( 00000000 )\n\tName ( " + Quoted(name) +
           " )\n\tTrPathStart ( West )\n\tTrPathEnd ( East )\n\tTrPathNodes ( 2\n"
           "\t\tTrPathNode ( 00000000 1 4294967295 0 )\n"
           "\t\tTrPathNode ( 00000000 4294967295 4294967295 1 )\n\t)\n)\n";
}

std::string trafficText(std::string_view name, std::string_view service)
{
    return "Traffic_Definition ( " + Quoted(name) + "\n\tSerial ( 1 )\n\tService_Definition ( " +
           Quoted(service) +
           " 36000\n\t\tArrivalTime ( 36600 )\n\t\tDepartTime ( 36660 )\n"
           "\t\tSkipCount ( 0 )\n\t\tDistanceDownPath ( 400.5 )\n\t\tPlatformStartID ( 0 )\n"
           "\t)\n)\n";
}

std::string objectText(const ActivityObject &object, int id)
{
    std::string out = "\t\t\tActivityObject (\n\t\t\t\tObjectType ( " + std::string(object.type);
    out += " )\n";
    if (!object.units.empty()) {
        const Train train{.title = "", .name = "Loose consist", .units = object.units};
        out += "\t\t\t\tTrain_Config (\n" + TrainText(train, 5) + "\t\t\t\t)\n";
    }
    return out + "\t\t\t\tDirection ( 0 )\n\t\t\t\tID ( " + std::to_string(id) +
           " )\n\t\t\t\tTile ( -6000 14000 " + std::to_string(100 + 25 * id) +
           ".25 40.5 )\n\t\t\t)\n";
}

std::string activityHeader(const Activity &activity)
{
    return "\tSerial ( 1 )\n\tTr_Activity_Header (\n\t\tRouteID ( " + Quoted(activity.route) +
           " )\n\t\tName ( " + Quoted(activity.file) +
           " )\n\t\tDescription ( \"A day's work.\" )\n\t\tBriefing ( \"Mind the signals.\" )\n"
           "\t\tCompleteActivity ( 1 )\n\t\tType ( 0 )\n\t\tMode ( 2 )\n"
           "\t\tStartTime ( 10 0 0 )\n\t\tSeason ( 3 )\n\t\tWeather ( 0 )\n\t\tPathID ( " +
           Quoted(activity.path) + " )\n\t\tDuration ( 1 30 )\n\t\tDifficulty ( 1 )\n\t)\n";
}

std::string activityText(const Activity &activity)
{
    std::string out = "Tr_Activity (\n" + activityHeader(activity) + "\tTr_Activity_File (\n";
    out += "\t\tPlayer_Service_Definition ( " + Quoted(activity.service) +
           "\n\t\t\tPlayer_Traffic_Definition ( 36000 )\n\t\t\tUiD ( 0 )\n\t\t)\n";
    out += "\t\tNextServiceUID ( 1 )\n\t\tNextActivityObjectUID ( 32768 )\n";
    out += "\t\tTraffic_Definition ( " + Quoted(activity.traffic) + " )\n\t\tEvents ( )\n";
    if (!activity.objects.empty()) {
        out += "\t\tActivityObjects (\n";
        int id = 0;
        for (const ActivityObject &object : activity.objects)
            out += objectText(object, id++);
        out += "\t\t)\n";
    }
    return out + "\t)\n)\n";
}

std::string picture(Colour base)
{
    return AceBytes(PanelPicture(8, base, {60, 60, 64, 255}),
                    {.mipmaps = true, .compressed = true});
}

struct SeasonFolder
{
    char letter;
    Season season;
    const char *folder;
};

constexpr std::array kSeasons = std::to_array<SeasonFolder>({
    {'b', Season::Summer, ""},
    {'s', Season::Snow, "Snow/"},
    {'n', Season::Night, "Night/"},
    {'p', Season::Spring, "Spring/"},
    {'P', Season::SpringSnow, "SpringSnow/"},
    {'a', Season::Autumn, "Autumn/"},
    {'A', Season::AutumnSnow, "AutumnSnow/"},
    {'w', Season::Winter, "Winter/"},
    {'W', Season::WinterSnow, "WinterSnow/"},
});

/// The base texture is compressed. Snow and Night are uncompressed, all others are DXT1.
AceFormat formatOf(Season season)
{
    const bool plain = season == Season::Snow || season == Season::Night;
    return {.mipmaps = true,
            .dxt1 = season != Season::Summer && !plain,
            .compressed = season == Season::Summer};
}

void addShape(SampleFiles &files, const RouteShape &shape)
{
    const std::string file = std::string(shape.name) + ".s";
    const std::string image = std::string(shape.name) + ".ace";
    const PaintedModel built = BuildScenery(shape.building, Season::Summer, image);
    files.push_back({inRoute(shape.route, "SHAPES/" + file), ShapeBytes(built.model, shape.form)});
    if (shape.alternative >= 0)
        files.push_back({inRoute(shape.route, "SHAPES/" + file + 'd'),
                         DescriptorBytes(file, shape.alternative, built.low, built.high)});
    const std::string_view pictures = shape.pictures;
    for (const SeasonFolder &at : kSeasons) {
        if (pictures.find(at.letter) == std::string_view::npos)
            continue;
        const PaintedModel seasonal = BuildScenery(shape.building, at.season, image);
        files.push_back({inRoute(shape.route, std::string("TEXTURES/") + at.folder + image),
                         AceBytes(seasonal.picture, formatOf(at.season))});
    }
}

void addRoute(SampleFiles &files, const char *folder, const std::string &trk)
{
    files.push_back({inRoute(folder, folder + std::string(".trk")), trk});
    for (const char *name : {"graphic.ace", "load.ace"})
        files.push_back({inRoute(folder, name), picture({90, 120, 150, 255})});
}

void addTraffic(SampleFiles &files)
{
    for (const auto &[route, path] :
         {std::pair{kVale, "vale_up"}, std::pair{kVale, "vale_down"},
          std::pair{kCoast, "coast line"}, std::pair{kCoast, "ferry_pier"}})
        files.push_back({inRoute(route, "PATHS/" + std::string(path) + ".pat"),
                         EncodeText("P0", pathText(path))});
    files.push_back({inRoute(kVale, "TRAFFIC/vale.trf"),
                     EncodeText("f0", trafficText("vale", "Long coal back"))});
    files.push_back({inRoute(kCoast, "TRAFFIC/coast.trf"),
                     EncodeText("f0", trafficText("coast", "Express 1"))});
}

} // namespace

std::span<const RouteShape> RouteShapes()
{
    return kShapes;
}

SampleFiles RouteFiles()
{
    SampleFiles files;
    addRoute(files, kVale,
             EncodeText("r0", "_OpenRails (\n\tORTSDefaultDieselTowerSMS ( none )\n)\n" +
                                  routeText(kVale, "Tarnwick Vale")));
    addRoute(files, kCoast,
             EncodeText("r0", routeText(kCoast, "Ochre Coast and Vallée"),
                        {.encoding = Encoding::Windows1252}));
    files.push_back({inRoute("Old.Backup", "Old.Backup.trk"),
                     EncodeText("r0", routeText("Old.Backup", "Put away"))});
    for (const Service &service : kServices)
        files.push_back({inRoute(service.route, "SERVICES/" + std::string(service.file) + ".srv"),
                         EncodeText("v0", serviceText(service))});
    addTraffic(files);
    for (const Activity &activity : activities())
        files.push_back(
            {inRoute(activity.route, "ACTIVITIES/" + std::string(activity.file) + ".act"),
             EncodeText("a0", activityText(activity))});
    for (const RouteShape &shape : kShapes)
        addShape(files, shape);
    return files;
}

} // namespace samples
