// SPDX-License-Identifier: MIT
#include "samples/HealthCases.h"

#include <array>

namespace samples {
namespace {

// Short names for the table.
constexpr Judgement kHere = {"here", {}, {}, {}};
constexpr Judgement kIgnored = {};
constexpr Judgement kNotNeeded = {"not-needed", {}, {}, {}};
constexpr std::string_view kError = "error", kWarning = "warning", kNote = "note";
constexpr std::string_view kFolder = "wrong-folder", kExtension = "wrong-extension";
constexpr std::string_view kLostValley = "folder:trains/trainset/lost valley";
constexpr std::string_view kNoStock = "missing-folder";
constexpr std::string_view kSingle = "single-files";
constexpr InSample kAll = InSample::All, kRoutes = InSample::Routes;

constexpr Judgement elsewhere(std::string_view place)
{
    return {"elsewhere", {}, {}, place};
}
constexpr Judgement nowhere(std::string_view severity, std::string_view rule)
{
    return {"nowhere", severity, rule, {}};
}
constexpr Judgement misplaced(std::string_view severity, std::string_view rule,
                              std::string_view candidate = {})
{
    return {"misplaced", severity, rule, candidate};
}
/// A file that is there but at fault.
constexpr Judgement faulty(std::string_view severity, std::string_view rule)
{
    return {"here", severity, rule, {}};
}

// File, line, kind, value, point of the case; MSTS, Open Rails; cause; samples.
// clang-format off
constexpr std::array kCases = std::to_array<HealthCase>({
    // Vehicles of consists.
    {"TRAINS/CONSISTS/Health Train.con", 10, "consist-vehicle", "hc_loco Health Cars", "the engine exists", kHere, kHere},
    {"TRAINS/CONSISTS/Health Train.con", 11, "consist-vehicle", "ho_van Health Overrides", "Open Rails prefers the override", kHere, elsewhere("TRAINS/TRAINSET/Health Overrides/OpenRails/ho_van.wag")},
    {"TRAINS/CONSISTS/Health Train.con", 12, "consist-vehicle", "ho_only Health Overrides", "only the override exists", misplaced(kError, kFolder, "TRAINS/TRAINSET/Health Overrides/OpenRails/ho_only.wag"), elsewhere("TRAINS/TRAINSET/Health Overrides/OpenRails/ho_only.wag")},
    {"TRAINS/CONSISTS/Health Train.con", 13, "consist-vehicle", "hc_gone Health Cars", "the vehicle is missing", nowhere(kError, "missing-vehicle"), nowhere(kError, "missing-vehicle")},
    {"TRAINS/CONSISTS/Health Train.con", 14, "consist-vehicle", "hc_van Health Cabs", "the vehicle is in another folder", misplaced(kError, kFolder, "TRAINS/TRAINSET/Health Cars/hc_van.wag"), misplaced(kError, kFolder, "TRAINS/TRAINSET/Health Cars/hc_van.wag")},
    {"TRAINS/CONSISTS/Health Train.con", 15, "consist-vehicle", "hc_loco Health Cars", "the wagon is an engine", misplaced(kError, kExtension, "TRAINS/TRAINSET/Health Cars/hc_loco.eng"), misplaced(kError, kExtension, "TRAINS/TRAINSET/Health Cars/hc_loco.eng")},
    {"TRAINS/CONSISTS/Health Valley.con", 10, "consist-vehicle", "lv_loco Lost Valley", "the stock folder is absent", nowhere(kError, kNoStock), nowhere(kError, kNoStock), kLostValley},
    {"TRAINS/CONSISTS/Health Valley.con", 11, "consist-vehicle", "lv_van Lost Valley", "named twice, reported once", nowhere(kError, kNoStock), nowhere(kError, kNoStock), kLostValley},
    {"TRAINS/CONSISTS/Health Valley.con", 13, "consist-vehicle", "hc_load LOST VALLEY", "absent folder in other letter case; another folder has the file", misplaced(kError, kFolder, "TRAINS/TRAINSET/Health Cars/hc_load.wag"), misplaced(kError, kFolder, "TRAINS/TRAINSET/Health Cars/hc_load.wag"), kLostValley},
    {"TRAINS/CONSISTS/Health Train.con", 16, "consist-eot", "hd_lamp Health Devices", "the end-of-train device exists", kIgnored, kHere},
    {"TRAINS/CONSISTS/Health Train.con", 17, "consist-eot", "hd_disc Health Devices", "the end-of-train device is missing", kIgnored, nowhere(kWarning, "missing-eot")},
    {"TRAINS/ORTS_EOT/Health Devices/hd_flag.eot", 5, "shape", "hd_flag.s", "the shape of a device is missing", kIgnored, nowhere(kError, "missing-shape")},

    // Overrides and includes.
    {"TRAINS/TRAINSET/Health Overrides/OpenRails/ho_van.wag", 2, "include", "../ho_van.wag", "the override includes its base", kIgnored, kHere},
    {"TRAINS/TRAINSET/Health Overrides/OpenRails/ho_van.wag", 4, "shape", "ho_new.s", "shapes of an override are in the stock folder", kIgnored, kHere},
    {"TRAINS/TRAINSET/Health Overrides/ho_van.wag", 5, "shape", "ho_plain.s", "MSTS uses the shape of the base", kHere, kIgnored},
    {"TRAINS/TRAINSET/Health Overrides/ho_swap.wag", 5, "shape", "ho_old.s", "missing, but the override replaces it", nowhere(kError, "missing-shape"), kIgnored},
    {"TRAINS/TRAINSET/Health Overrides/OpenRails/ho_swap.wag", 2, "include", "..\\[[SameName]].wag", "`[[SameName]]` is the name of the override", kIgnored, kHere},
    {"TRAINS/TRAINSET/Health Overrides/OpenRails/ho_only.wag", 4, "shape", "ho_new.s", "an override without base", kIgnored, kHere},
    {"TRAINS/TRAINSET/Health Overrides/OpenRails/ho_inner.wag", 4, "shape", "ho_inner.s", "a shape beside the override", kIgnored, misplaced(kError, kFolder, "TRAINS/TRAINSET/Health Overrides/OpenRails/ho_inner.s")},
    {"TRAINS/TRAINSET/Health Overrides/OpenRails/ho_early.wag", 1, "include", "ho_early.wag", "the first line of the including file is not blank", kIgnored, faulty(kNote, "include-first-line")},
    {"TRAINS/TRAINSET/Health Overrides/ho_parts.wag", 6, "include", "ho_lost.inc", "the included file is missing", kIgnored, nowhere(kError, "broken-include")},
    {"TRAINS/TRAINSET/Health Overrides/ho_first.inc", 1, "include", "ho_first.inc", "the first line of the included file is not blank", kIgnored, faulty(kNote, "include-first-line")},
    {"TRAINS/TRAINSET/Health Overrides/ho_torn.inc", 0, "include", "ho_torn.inc", "the included file is damaged", kIgnored, faulty(kError, "damaged-include")},
    {"TRAINS/TRAINSET/Health Overrides/ho_ring_a.inc", 2, "include", "ho_ring_b.inc", "the included file includes another", kIgnored, kHere},
    {"TRAINS/TRAINSET/Health Overrides/ho_ring_b.inc", 3, "include", "ho_ring_a.inc", "includes in a cycle", kIgnored, faulty(kError, "include-cycle")},

    // Shapes and textures.
    {"TRAINS/TRAINSET/Health Cars/hc_alias.wag", 5, "shape", "..\\Health Shapes\\hs_far.s", "a shape of another folder", kHere, kHere},
    {"TRAINS/TRAINSET/Health Shapes/hs_far.s", 0, "texture", "hs_far.ace", "the texture is beside that shape", kHere, kHere},
    {"TRAINS/TRAINSET/Health Cars/hc_skin.wag", 5, "shape", "../Health Shapes/hs_skin.s", "the same with other separators", kHere, kHere},
    {"TRAINS/TRAINSET/Health Shapes/hs_skin.s", 0, "texture", "hs_skin.ace", "the texture is beside the vehicle", elsewhere("TRAINS/TRAINSET/Health Cars/hs_skin.ace"), elsewhere("TRAINS/TRAINSET/Health Cars/hs_skin.ace")},
    {"TRAINS/TRAINSET/Health Shapes/hs_bare.s", 0, "texture", "hs_bare.ace", "the texture is beside neither", nowhere(kWarning, "missing-texture"), nowhere(kError, "missing-texture")},
    {"TRAINS/TRAINSET/Health Shapes/hs_stray.wag", 5, "shape", "hc_van.s", "another folder has the shape", misplaced(kError, kFolder, "TRAINS/TRAINSET/Health Cars/hc_van.s"), misplaced(kError, kFolder, "TRAINS/TRAINSET/Health Cars/hc_van.s")},
    {"TRAINS/TRAINSET/Health Shapes/hs_dds.s", 0, "texture", "hs_both.ace", "`.dds` beside the named `.ace`", kHere, elsewhere("TRAINS/TRAINSET/Health Shapes/hs_both.dds")},
    {"TRAINS/TRAINSET/Health Shapes/hs_dds.s", 0, "texture", "hs_dds.ace", "`.dds` instead of `.ace`", misplaced(kWarning, kExtension, "TRAINS/TRAINSET/Health Shapes/hs_dds.dds"), elsewhere("TRAINS/TRAINSET/Health Shapes/hs_dds.dds")},
    {"TRAINS/TRAINSET/Health Shapes/hs_dds.s", 0, "texture", "hs_ace.dds", "`.ace` instead of `.dds`", misplaced(kWarning, kExtension, "TRAINS/TRAINSET/Health Shapes/hs_ace.ace"), elsewhere("TRAINS/TRAINSET/Health Shapes/hs_ace.ace")},
    {"TRAINS/TRAINSET/Health Shapes/hs_night.s", 0, "season-texture", "Snow/hs_lit.ace", "the texture for snow exists", kHere, kHere},
    {"TRAINS/TRAINSET/Health Shapes/hs_night.s", 0, "season-texture", "Night/hs_lit.ace", "the texture for the night exists", kHere, kHere},
    {"TRAINS/TRAINSET/Health Shapes/hs_night.s", 0, "season-texture", "Night/hs_dark.ace", "Open Rails shows the plain texture", nowhere(kNote, "missing-season-texture"), elsewhere("TRAINS/TRAINSET/Health Shapes/hs_dark.ace")},
    {"TRAINS/TRAINSET/Health Shapes/hs_packed.s", 0, "texture", "hs_packed.ace", "a compressed shape without its texture", nowhere(kWarning, "missing-texture"), nowhere(kError, "missing-texture")},
    {"TRAINS/TRAINSET/Health Shapes/hs_torn.s", 0, "shape", "hs_torn.s", "a damaged shape that two vehicles name", faulty(kError, "damaged-shape"), faulty(kError, "damaged-shape"), "damaged:trains/trainset/health shapes/hs_torn.s"},

    // Loads, couplers, lights, views.
    {"TRAINS/TRAINSET/Health Cars/hc_load.wag", 6, "freight-animation", "hc_coal.s", "the load exists", kHere, kHere},
    {"TRAINS/TRAINSET/Health Cars/hc_load.wag", 7, "freight-animation", "hc_ore.s", "a load of MSTS is missing", nowhere(kWarning, "missing-freight-animation"), nowhere(kWarning, "missing-freight-animation")},
    {"TRAINS/TRAINSET/Health Cars/hc_load.wag", 10, "freight-animation", "hc_crate.s", "a load of Open Rails is missing", kIgnored, nowhere(kWarning, "missing-freight-animation")},
    {"TRAINS/TRAINSET/Health Cars/hc_van.wag", 8, "coupler-shape", "hc_link.s", "the coupler exists", kIgnored, kHere},
    {"TRAINS/TRAINSET/Health Cars/hc_van.wag", 9, "coupler-shape", "hc_hose.s", "the hose is missing", kIgnored, nowhere(kWarning, "missing-coupler-shape")},
    {"TRAINS/TRAINSET/Health Cars/hc_van.wag", 12, "light-image", "hc_glow.png", "the glow exists", kIgnored, kHere},
    {"TRAINS/TRAINSET/Health Cars/hc_van.wag", 13, "light-image", "hc_halo.png", "the default glow is shown", kIgnored, nowhere(kNote, "missing-light-image")},
    {"TRAINS/TRAINSET/Health Cars/hc_coach.wag", 10, "passenger-view", "hc_seats.s", "the view from inside exists", kHere, kHere},
    {"TRAINS/TRAINSET/Health Cars/hc_saloon.wag", 9, "passenger-view", "hc_sofa.s", "the view from inside is missing", nowhere(kWarning, "missing-passenger-view"), nowhere(kWarning, "missing-passenger-view")},
    {"TRAINS/TRAINSET/Health Cars/hc_coach.wag", 6, "thumbnail", "hc_van.ace", "the thumbnail exists", kHere, kHere},

    // Sounds.
    {"TRAINS/TRAINSET/Health Cars/hc_van.wag", 6, "sound", "hc_own.sms", "the sound is in the folder's SOUND", kHere, kHere},
    {"TRAINS/TRAINSET/Health Cars/hc_coach.wag", 7, "sound", "hc_root.sms", "the sound is in the root SOUND", elsewhere("SOUND/hc_root.sms"), elsewhere("SOUND/hc_root.sms")},
    {"TRAINS/TRAINSET/Health Cars/hc_coach.wag", 7, "sound", "hc_second.sms", "only Open Rails reads a second sound", kIgnored, nowhere(kWarning, "missing-sound")},
    {"TRAINS/TRAINSET/Health Cars/hc_coach.wag", 9, "sound", "hc_beside.sms", "the sound is beside the vehicle", misplaced(kWarning, kFolder, "TRAINS/TRAINSET/Health Cars/hc_beside.sms"), misplaced(kWarning, kFolder, "TRAINS/TRAINSET/Health Cars/hc_beside.sms")},
    {"TRAINS/TRAINSET/Health Cars/hc_saloon.wag", 8, "sound", "hc_inner.sms", "the folder OpenRails is not for sounds", misplaced(kWarning, kFolder, "TRAINS/TRAINSET/Health Cars/OpenRails/hc_inner.sms"), misplaced(kWarning, kFolder, "TRAINS/TRAINSET/Health Cars/OpenRails/hc_inner.sms")},
    {"TRAINS/TRAINSET/Health Cars/hc_saloon.wag", 6, "sound", "hc_lost.sms", "the sound is missing", nowhere(kWarning, "missing-sound"), nowhere(kWarning, "missing-sound")},
    {"TRAINS/TRAINSET/Health Cars/hc_brake.wag", 6, "sound", "hc_default.sms", "stock of several folders names this missing sound", nowhere(kWarning, "missing-sound"), nowhere(kWarning, "missing-sound"), "default-sounds"},
    {"TRAINS/TRAINSET/Health Cabs/hb_flat.eng", 6, "sound", "hc_default.sms", "stock of several folders names this missing sound", nowhere(kWarning, "missing-sound"), nowhere(kWarning, "missing-sound"), "default-sounds"},
    {"TRAINS/TRAINSET/Health Cars/hc_brake.wag", 8, "sound", "..\\..\\Health Shapes\\SOUND\\hs_far.sms", "paths count from SOUND", kHere, kHere},
    {"TRAINS/TRAINSET/Health Cars/hc_loco.eng", 6, "sound", "hc_root.sms", "also for the train control system", elsewhere("SOUND/hc_root.sms"), elsewhere("SOUND/hc_root.sms")},
    {"TRAINS/TRAINSET/Health Cars/SOUND/hc_own.sms", 4, "sound-file", "hc_own.wav", "the wave file is beside the sound", kHere, kHere},
    {"TRAINS/TRAINSET/Health Cars/SOUND/hc_own.sms", 5, "sound-file", "hc_root.wav", "the wave file is in the root SOUND", elsewhere("SOUND/hc_root.wav"), elsewhere("SOUND/hc_root.wav")},
    {"TRAINS/TRAINSET/Health Cars/SOUND/hc_own.sms", 6, "sound-file", "..\\hc_up.wav", "paths count from the sound", kHere, kHere},
    {"TRAINS/TRAINSET/Health Cars/SOUND/hc_own.sms", 7, "sound-file", "hc_lost.wav", "the wave file is missing", nowhere(kWarning, "missing-sound-file"), nowhere(kWarning, "missing-sound-file")},
    {"SOUND/hc_root.sms", 4, "sound-file", "hc_root.wav", "the wave file of a common sound", kHere, kHere},
    {"TRAINS/TRAINSET/Health Cars/SOUND/hc_echo.sms", 4, "sound-file", "hc_echo.sms", "the sound names itself", faulty(kWarning, "self-reference"), faulty(kWarning, "self-reference")},

    // Cabs.
    {"TRAINS/TRAINSET/Health Cars/hc_loco.eng", 11, "cab", "hc_loco.cvf", "a cab with a digital display without picture", kHere, kHere},
    {"TRAINS/TRAINSET/Health Cars/CABVIEW/hc_loco.cvf", 5, "cab-image", "hc_front.ace", "the view exists; the window without a name is no entry", kHere, kHere},
    {"TRAINS/TRAINSET/Health Cabs/hb_mixed.eng", 13, "cab", "..\\..\\Health Cabs\\CABVIEW\\hb_flat.cvf", "paths count from CABVIEW", kHere, kHere},
    {"TRAINS/TRAINSET/Health Cabs/hb_loose.eng", 10, "cab", "hb_loose.cvf", "the cab is beside the vehicle", misplaced(kError, kFolder, "TRAINS/TRAINSET/Health Cabs/hb_loose.cvf"), misplaced(kWarning, kFolder, "TRAINS/TRAINSET/Health Cabs/hb_loose.cvf")},
    {"TRAINS/TRAINSET/Health Cabs/CABVIEW/hb_flat.cvf", 6, "cab-image", "hb_side.ace", "the view is missing", nowhere(kWarning, "missing-cab-image"), nowhere(kError, "missing-cab-image")},
    {"TRAINS/TRAINSET/Health Cabs/CABVIEW/hb_flat.cvf", 8, "cab-image", "hb_dial.ace", "`.dds` instead of `.ace`", misplaced(kWarning, kExtension, "TRAINS/TRAINSET/Health Cabs/CABVIEW/hb_dial.dds"), elsewhere("TRAINS/TRAINSET/Health Cabs/CABVIEW/hb_dial.dds")},
    {"TRAINS/TRAINSET/Health Cabs/CABVIEW/hb_flat.cvf", 9, "cab-image", "../../Common.Cab/throttle.ace", "paths count from the cab", kHere, kHere},
    {"TRAINS/TRAINSET/Health Cabs/CABVIEW/hb_flat.cvf", 10, "cab-image", "hb_digits.ace", "a digital display needs no picture", kNotNeeded, kNotNeeded},
    {"TRAINS/TRAINSET/Health Cabs/hb_deep.eng", 7, "cab-3d", "hb_deep.s", "the 3D cab exists", kIgnored, kHere},
    {"TRAINS/TRAINSET/Health Cabs/hb_deep.eng", 7, "cab", "hb_deep.cvf", "with a cab view of the same name", kIgnored, kHere},
    {"TRAINS/TRAINSET/Health Cabs/CABVIEW3D/hb_deep.s", 0, "season-texture", "Night/hb_deep.ace", "with a texture for the night", kIgnored, kHere},
    {"TRAINS/TRAINSET/Health Cabs/hb_deep.eng", 11, "cab-3d", "hb_rear.s", "the 3D cab of another view point is missing", kIgnored, nowhere(kWarning, "missing-3d-cab")},
    {"TRAINS/TRAINSET/Health Cabs/hb_mixed.eng", 7, "cab", "hb_mixed.cvf", "the cab view of the 2D cab serves", kIgnored, elsewhere({})},
    {"TRAINS/TRAINSET/Health Cabs/hb_blind.eng", 7, "cab", "hb_mixed.cvf", "a 3D cab without any cab view", kIgnored, nowhere(kWarning, "missing-cab")},

    // Scripts.
    {"TRAINS/TRAINSET/Health Cars/hc_loco.eng", 13, "script", "hc_guard", "the script exists, named without `.cs`", kIgnored, kHere},
    {"TRAINS/TRAINSET/Health Cars/hc_loco.eng", 14, "script", "hc_guard.ini", "its parameters exist", kIgnored, kHere},
    {"TRAINS/TRAINSET/Health Cars/hc_loco.eng", 16, "script", "Automatic", "a reserved word", kIgnored, kNotNeeded},
    {"TRAINS/TRAINSET/Health Cars/hc_loco.eng", 17, "script", "hc_power.cs", "the script is missing", kIgnored, nowhere(kWarning, "missing-script")},

    // Services, activities and timetables.
    {"ROUTES/Health Branch/SERVICES/Health 1.srv", 6, "service-consist", "Health Train", "the consist exists", kHere, kHere},
    {"ROUTES/Health Branch/SERVICES/Health 2.srv", 6, "service-consist", "Goods to the valley", "the Name in a consist, not its file name", elsewhere("TRAINS/CONSISTS/Health Valley.con"), nowhere(kError, "missing-consist")},
    {"ROUTES/Health Branch/SERVICES/Health 3.srv", 6, "service-consist", "Health Gone", "the consist is missing", nowhere(kError, "missing-consist"), nowhere(kError, "missing-consist")},
    {"ROUTES/Health Branch/SERVICES/Health 4.srv", 6, "service-consist", "Health Hidden", "the folder OpenRails is not for consists", misplaced(kError, kFolder, "TRAINS/CONSISTS/OpenRails/Health Hidden.con"), misplaced(kError, kFolder, "TRAINS/CONSISTS/OpenRails/Health Hidden.con")},
    {"ROUTES/Health Branch/ACTIVITIES/Health day.act", 7, "activity-service", "Early goods", "the Name in a service, not its file name", elsewhere("ROUTES/Health Branch/SERVICES/Health 1.srv"), nowhere(kError, "missing-service")},
    {"ROUTES/Health Branch/ACTIVITIES/Health day.act", 8, "activity-traffic", "health", "the traffic exists", kHere, kHere},
    {"ROUTES/Health Branch/ACTIVITIES/Health day.act", 9, "activity-service", "Health 2", "the service of the traffic exists", kHere, kHere},
    {"ROUTES/Health Branch/ACTIVITIES/Health day.act", 13, "activity-vehicle", "hc_van Health Cars", "the loose vehicle exists", kHere, kHere},
    {"ROUTES/Health Branch/ACTIVITIES/Health day.act", 14, "activity-vehicle", "hc_gone Health Cars", "the loose vehicle is missing", nowhere(kError, "missing-vehicle"), nowhere(kError, "missing-vehicle")},
    {"ROUTES/Health Branch/ACTIVITIES/Health day.act", 15, "activity-vehicle", "lv_van Lost Valley", "the stock folder is absent", nowhere(kError, kNoStock), nowhere(kError, kNoStock), kLostValley},
    {"ROUTES/Health Branch/ACTIVITIES/Health night.act", 7, "activity-service", "Night goods", "the player's service is missing", nowhere(kError, "missing-service"), nowhere(kError, "missing-service")},
    {"ROUTES/Health Branch/ACTIVITIES/Health night.act", 8, "activity-traffic", "darkness", "the traffic is missing", nowhere(kError, "missing-traffic"), nowhere(kWarning, "missing-traffic")},
    {"ROUTES/Health Branch/ACTIVITIES/Health night.act", 9, "activity-service", "Night ferry", "the service of the traffic is missing", nowhere(kError, "missing-service"), nowhere(kError, "missing-service")},
    {"ROUTES/Health Branch/ACTIVITIES/OpenRails/Day.timetable-or", 4, "timetable-consist", "Health Local", "only timetables name this consist; `$reverse`", kIgnored, kHere},
    {"ROUTES/Health Branch/ACTIVITIES/OpenRails/Day.timetable-or", 4, "timetable-consist", "Health a+b", "the name has a `+`", kIgnored, kHere},
    {"ROUTES/Health Branch/ACTIVITIES/OpenRails/Day.timetable-or", 4, "timetable-consist", "$Health c", "the name has a `$`", kIgnored, kHere},
    {"ROUTES/Health Branch/ACTIVITIES/OpenRails/Day.timetable-or", 5, "timetable-consist", "Health Parcels", "the row continues the one above", kIgnored, kHere},
    {"ROUTES/Health Branch/ACTIVITIES/OpenRails/Day.timetable-or", 5, "timetable-consist", "Health Milk", "its sibling is missing", kIgnored, nowhere(kError, "missing-consist")},
    {"ROUTES/Health Branch/ACTIVITIES/OpenRails/Day.timetable-or", 7, "timetable-consist", "Health Mail", "missing; `/consist=` in a row of times", kIgnored, nowhere(kError, "missing-consist")},
    {"ROUTES/Health Branch/ACTIVITIES/OpenRails/Day.timetable-or", 8, "timetable-consist", "Health d+e", "missing; `/consist=` in `#note`", kIgnored, nowhere(kError, "missing-consist")},
    {"ROUTES/Health Branch/ACTIVITIES/OpenRails/Day.timetable-or", 9, "timetable-consist", "Health Sleeper", "missing; `/consist=` in `#dispose`", kIgnored, nowhere(kError, "missing-consist")},
    {"ROUTES/Health Branch/ACTIVITIES/OpenRails/Night.timetable_or", 3, "timetable-consist", "Health Owl", "missing; commas, and the other extension", kIgnored, nowhere(kError, "missing-consist")},
    {"ROUTES/Health Branch/ACTIVITIES/OpenRails/Tabs.timetable-or", 3, "timetable-consist", "Health Local", "tabs between the cells", kIgnored, kHere},

    // Shapes and textures of routes.
    {"ROUTES/Health Branch/WORLD/w-006000+014000.w", 4, "route-shape", "hw_hut.s", "the shape exists", kHere, kHere, kSingle, kRoutes},
    {"ROUTES/Health Branch/WORLD/w-006000+014000.w", 5, "route-shape", "hw_shed.s", "the shape is missing", nowhere(kWarning, "missing-route-shape"), nowhere(kWarning, "missing-route-shape"), kSingle, kRoutes},
    {"ROUTES/Health Branch/WORLD/w-006000+014000.w", 7, "route-shape", "hw_track.s", "a common piece of track", elsewhere("GLOBAL/SHAPES/hw_track.s"), elsewhere("GLOBAL/SHAPES/hw_track.s"), kSingle, kRoutes},
    {"ROUTES/Health Branch/WORLD/OpenRails/w-006000+014000.w", 4, "route-shape", "hw_mast.s", "missing, in a piece that only Open Rails reads", kIgnored, nowhere(kWarning, "missing-route-shape"), kSingle, kRoutes},
    {"GLOBAL/SHAPES/hw_track.s", 0, "route-texture", "hw_track.ace", "the texture of the common piece", kHere, kHere, kSingle, kRoutes},
    {"ROUTES/Health Branch/SHAPES/hw_hut.s", 0, "route-texture", "hw_hut.ace", "the texture exists", kHere, kHere, kSingle, kRoutes},
    {"ROUTES/Health Branch/SHAPES/hw_hut.s", 0, "route-texture", "hw_roof.ace", "`.dds` instead of `.ace`", misplaced(kWarning, kExtension, "ROUTES/Health Branch/TEXTURES/hw_roof.dds"), elsewhere("ROUTES/Health Branch/TEXTURES/hw_roof.dds"), kSingle, kRoutes},
    {"ROUTES/Health Branch/SHAPES/hw_hut.s", 0, "route-texture", "hw_door.ace", "the texture is missing", nowhere(kWarning, "missing-route-texture"), nowhere(kError, "missing-route-texture"), kSingle, kRoutes},
    {"ROUTES/Health Branch/SHAPES/hw_tree.s", 0, "season-texture", "Snow/hw_hut.ace", "the texture for snow exists", kHere, kHere, kSingle, kRoutes},
    {"ROUTES/Health Branch/SHAPES/hw_tree.s", 0, "season-texture", "Snow/hw_tree.ace", "Open Rails shows the plain texture", nowhere(kNote, "missing-season-texture"), elsewhere("ROUTES/Health Branch/TEXTURES/hw_tree.ace"), kSingle, kRoutes},

    // What the report says about the defects of the default sample.
    {"TRAINS/TRAINSET/Repair Sidings/rs_box.wag", 7, "thumbnail", "rs_box_small.ace", "the thumbnail is missing", nowhere(kNote, "missing-thumbnail"), kNotNeeded, kSingle, kAll},
    {"TRAINS/TRAINSET/Repair Sidings/rs_noshape.wag", 6, "shape", "rs_noshape.s", "the shape is missing", nowhere(kError, "missing-shape"), nowhere(kError, "missing-shape"), kSingle, kAll},
    {"TRAINS/TRAINSET/Repair Sidings/rs_nodesc.s", 0, "descriptor", "rs_nodesc.sd", "the descriptor is missing", nowhere(kNote, "missing-descriptor"), kNotNeeded, kSingle, kAll},
    {"TRAINS/TRAINSET/Repair Sidings/rs_waggon.wag", 0, "consist-vehicle", "rs_waggon.wag", "there is no `Wagon` block", faulty(kError, "damaged-vehicle"), faulty(kError, "damaged-vehicle"), kSingle, kAll},
    {"TRAINS/TRAINSET/Repair Sidings/rs_quiet.wag", 18, "sound", "rs_gone.sms", "the sound is missing", nowhere(kWarning, "missing-sound"), nowhere(kWarning, "missing-sound"), kSingle, kAll},
    {"TRAINS/TRAINSET/Repair Sidings/Sound/rs_broken.sms", 0, "sound", "rs_broken.sms", "there is no `Tr_SMS` block", faulty(kWarning, "damaged-sound"), faulty(kWarning, "damaged-sound"), kSingle, kAll},
    {"TRAINS/TRAINSET/Repair Sidings/Sound/rs_nowav.sms", 20, "sound-file", "rs_squeal.wav", "the wave file is missing", nowhere(kWarning, "missing-sound-file"), nowhere(kWarning, "missing-sound-file"), kSingle, kAll},
    {"TRAINS/TRAINSET/Repair Sidings/rs_loco.eng", 29, "sound", "rs_cab.sms", "the sound in the cab is missing", nowhere(kWarning, "missing-sound"), nowhere(kWarning, "missing-sound"), kSingle, kAll},
    {"TRAINS/TRAINSET/Repair Sidings/rs_cabgone.eng", 28, "cab", "rs_cabgone.cvf", "the cab view is missing", nowhere(kError, "missing-cab"), nowhere(kWarning, "missing-cab"), kSingle, kAll},
    {"TRAINS/TRAINSET/Repair Sidings/Cabview/rs_broken.cvf", 0, "cab", "rs_broken.cvf", "there is no `Tr_CabViewFile` block", faulty(kError, "damaged-cab"), faulty(kError, "damaged-cab"), kSingle, kAll},
    {"TRAINS/TRAINSET/Repair Sidings/Cabview/rs_dials.cvf", 5, "cab-image", "rs_front.ace", "the view is missing", nowhere(kWarning, "missing-cab-image"), nowhere(kError, "missing-cab-image"), kSingle, kAll},
    {"TRAINS/TRAINSET/Repair Sidings/Cabview/rs_dials.cvf", 20, "cab-image", "rs_speed.ace", "the dial is missing", nowhere(kWarning, "missing-cab-image"), nowhere(kError, "missing-cab-image"), kSingle, kAll},
    {"TRAINS/TRAINSET/Repair Sidings/rs_paint.s", 0, "texture", "rs_paint.ace", "the texture is missing", nowhere(kWarning, "missing-texture"), nowhere(kError, "missing-texture"), kSingle, kAll},
    {"TRAINS/CONSISTS/Harbour Transfer.con", 33, "consist-vehicle", "box_gone Boxes & Vans", "the wagon is missing", nowhere(kError, "missing-vehicle"), nowhere(kError, "missing-vehicle"), kSingle, kAll},
    {"TRAINS/CONSISTS/Quarry_Local.con", 20, "consist-vehicle", "avr_hopper_12 Ardmoor", "a folder with a blank is not quoted", misplaced(kError, "unquoted-name", "TRAINS/TRAINSET/Ardmoor Valley/avr_hopper_12.wag"), misplaced(kError, "unquoted-name", "TRAINS/TRAINSET/Ardmoor Valley/avr_hopper_12.wag"), kSingle, kAll},
    {"TRAINS/CONSISTS/Works Train #3.con", 26, "consist-eot", "flasher End of train", "no end-of-train devices are installed", kIgnored, nowhere(kWarning, kNoStock), "folder:trains/orts_eot", InSample::DefaultOnly},
    {"TRAINS/CONSISTS/Works Train #3.con", 26, "consist-eot", "flasher End of train", "the folder of the device is absent", kIgnored, nowhere(kWarning, kNoStock), "folder:trains/orts_eot/end of train"},
    {"ROUTES/TARNWICK/SERVICES/Ghost.srv", 6, "service-consist", "Vanished Freight", "the consist is missing", nowhere(kError, "missing-consist"), nowhere(kError, "missing-consist"), kSingle, kAll},
    {"TRAINS/TRAINSET/Ardmoor Valley/avr_d401.eng", 7, "thumbnail", "avr_d401.ace", "the thumbnail exists", kHere, kHere, kSingle, kAll},
    {"TRAINS/TRAINSET/northfold_electric/nfe_trailer.wag", 19, "include", "..\\Common.Inc\\brakes.inc", "the included file exists", kIgnored, kHere, kSingle, kAll},
    {"TRAINS/TRAINSET/Coastline/coach_first.wag", 18, "sound", "..\\..\\Common.Snd\\coach.sms", "paths count from SOUND", kHere, kHere, kSingle, kAll},
    {"TRAINS/CONSISTS/Cafe Car.con", 16, "consist-vehicle", "Coach_Diner coastline", "letter case does not matter", kHere, kHere, kSingle, kAll},
});
// clang-format on

} // namespace

std::vector<HealthCase> HealthCases()
{
    return {kCases.begin(), kCases.end()};
}

} // namespace samples
