// SPDX-License-Identifier: MIT
// The files of the health cases. The lines of the texts matter: HealthCases.cpp refers to them. The
// header line and the blank line after it are lines 1 and 2.
#include "samples/AceWriter.h"
#include "samples/Bytes.h"
#include "samples/Consists.h"
#include "samples/HealthCases.h"
#include "samples/ShapeWriter.h"
#include "samples/Stock.h"
#include "samples/TextWriter.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace samples {
namespace {

struct Text
{
    const char *path;
    const char *kind; ///< code of the header line; "" for a file without one
    const char *body;
};

constexpr std::array kTexts = std::to_array<Text>({
    // Vehicles that are in order, except for what the cases say.
    {"TRAINS/TRAINSET/Health Cars/hc_van.wag", "D0", R"(Wagon ( hc_van
	Type ( Freight )
	WagonShape ( hc_van.s )
	Sound ( hc_own.sms )
	Coupling (
		FrontCouplerAnim ( hc_link.s 0 0 0 )
		RearAirHoseDisconnectedAnim ( hc_hose.s 0 0 0 )
	)
	Lights ( 2
		Light ( ORTSGraphic ( "hc_glow.png" ) )
		Light ( ORTSGraphic ( "hc_halo.png" ) )
	)
)
)"},
    {"TRAINS/TRAINSET/Health Cars/hc_load.wag", "D0", R"(Wagon ( hc_load
	Type ( Freight )
	WagonShape ( hc_van.s )
	FreightAnim ( hc_coal.s 1 1 )
	FreightAnim ( hc_ore.s 1 1 )
	ORTSFreightAnims (
		FreightAnimContinuous ( Shape ( hc_coal.s ) MaxHeight ( 1 ) )
		FreightAnimStatic ( Shape ( hc_crate.s ) )
		FreightAnimStatic ( FreightWeight ( 2t ) )
	)
)
)"},
    {"TRAINS/TRAINSET/Health Cars/hc_coach.wag", "D0", R"(Wagon ( hc_coach
	Type ( Carriage )
	WagonShape ( hc_van.s )
	Thumbnail ( hc_van.ace )
	Sound ( hc_root.sms hc_second.sms )
	Inside (
		Sound ( hc_beside.sms )
		PassengerCabinFile ( hc_seats.s )
	)
)
)"},
    {"TRAINS/TRAINSET/Health Cars/hc_saloon.wag", "D0", R"(Wagon ( hc_saloon
	Type ( Carriage )
	WagonShape ( hc_van.s )
	Sound ( hc_lost.sms )
	Inside (
		Sound ( hc_inner.sms )
		PassengerCabinFile ( hc_sofa.s )
	)
)
)"},
    {"TRAINS/TRAINSET/Health Cars/hc_brake.wag", "D0", R"(Wagon ( hc_brake
	Type ( Freight )
	WagonShape ( hc_van.s )
	Sound ( hc_default.sms )
	Inside (
		Sound ( "..\\..\\Health Shapes\\SOUND\\hs_far.sms" )
	)
)
)"},
    {"TRAINS/TRAINSET/Health Cars/hc_echo.wag", "D0", R"(Wagon ( hc_echo
	Type ( Freight )
	WagonShape ( hc_van.s )
	Sound ( hc_echo.sms )
)
)"},
    {"TRAINS/TRAINSET/Health Cars/hc_alias.wag", "D0", R"(Wagon ( hc_alias
	Type ( Freight )
	WagonShape ( "..\\Health Shapes\\hs_far.s" )
)
)"},
    {"TRAINS/TRAINSET/Health Cars/hc_skin.wag", "D0", R"(Wagon ( hc_skin
	Type ( Freight )
	WagonShape ( "../Health Shapes/hs_skin.s" )
)
)"},
    {"TRAINS/TRAINSET/Health Cars/hc_bare.wag", "D0", R"(Wagon ( hc_bare
	Type ( Freight )
	WagonShape ( "../Health Shapes//HS_Bare.S" )
)
)"},
    {"TRAINS/TRAINSET/Health Cars/hc_loco.eng", "D0", R"(Wagon ( hc_loco
	Type ( Engine )
	WagonShape ( hc_van.s )
	Sound ( hc_root.sms )
)
Engine ( hc_loco
	Wagon ( hc_loco )
	Type ( Diesel )
	CabView ( hc_loco.cvf )
	Sound ( hc_root.sms )
	ORTSTrainControlSystem ( "hc_guard" )
	ORTSTrainControlSystemParameters ( "hc_guard.ini" )
	ORTSTrainControlSystemSound ( hc_root.sms )
	ORTSCircuitBreaker ( Automatic )
	ORTSPowerSupply ( "hc_power.cs" )
)
)"},

    // Overrides. The first line of a file without a header line must be blank.
    {"TRAINS/TRAINSET/Health Overrides/ho_van.wag", "D0", R"(Wagon ( ho_van
	Type ( Freight )
	WagonShape ( ho_plain.s )
	Lights ( 1
		Light ( ORTSGraphic ( "ho_glow.png" ) )
	)
)
)"},
    {"TRAINS/TRAINSET/Health Overrides/OpenRails/ho_van.wag", "", R"(
include ( "../ho_van.wag" )
Wagon (
	WagonShape ( ho_new.s )
	Lights ( 1
		Light ( Type ( 0 ) )
	)
)
)"},
    {"TRAINS/TRAINSET/Health Overrides/ho_swap.wag", "D0", R"(Wagon ( ho_swap
	Type ( Freight )
	WagonShape ( ho_old.s )
)
)"},
    {"TRAINS/TRAINSET/Health Overrides/OpenRails/ho_swap.wag", "", R"(
include ( "..\\[[SameName]].wag" )
Wagon (
	WagonShape ( ho_new.s )
)
)"},
    {"TRAINS/TRAINSET/Health Overrides/OpenRails/ho_only.wag", "", R"(
Wagon ( ho_only
	Type ( Freight )
	WagonShape ( ho_new.s )
)
)"},
    {"TRAINS/TRAINSET/Health Overrides/ho_inner.wag", "D0", R"(Wagon ( ho_inner
	Type ( Freight )
	WagonShape ( ho_plain.s )
)
)"},
    {"TRAINS/TRAINSET/Health Overrides/OpenRails/ho_inner.wag", "", R"(
include ( "../ho_inner.wag" )
Wagon (
	WagonShape ( ho_inner.s )
)
)"},
    {"TRAINS/TRAINSET/Health Overrides/ho_early.wag", "D0", R"(Wagon ( ho_early
	Type ( Freight )
	WagonShape ( ho_plain.s )
)
)"},
    {"TRAINS/TRAINSET/Health Overrides/OpenRails/ho_early.wag", "",
     R"(include ( "../ho_early.wag" )
Wagon (
	Mass ( 20t )
)
)"},
    {"TRAINS/TRAINSET/Health Overrides/ho_parts.wag", "D0", R"(Wagon ( ho_parts
	Type ( Freight )
	WagonShape ( ho_plain.s )
	include ( ho_lost.inc )
	include ( ho_first.inc )
	include ( ho_torn.inc )
	include ( ho_ring_a.inc )
)
)"},
    {"TRAINS/TRAINSET/Health Overrides/ho_first.inc", "", "Mass ( 20t )\n"},
    {"TRAINS/TRAINSET/Health Overrides/ho_ring_a.inc", "", "\ninclude ( ho_ring_b.inc )\n"},
    {"TRAINS/TRAINSET/Health Overrides/ho_ring_b.inc", "",
     "\nMass ( 20t )\ninclude ( ho_ring_a.inc )\n"},

    // Shapes and their textures.
    {"TRAINS/TRAINSET/Health Shapes/hs_dds.wag", "D0", R"(Wagon ( hs_dds
	Type ( Freight )
	WagonShape ( hs_dds.s )
)
)"},
    {"TRAINS/TRAINSET/Health Shapes/hs_night.wag", "D0", R"(Wagon ( hs_night
	Type ( Freight )
	WagonShape ( hs_night.s )
)
)"},
    {"TRAINS/TRAINSET/Health Shapes/hs_packed.wag", "D0", R"(Wagon ( hs_packed
	Type ( Freight )
	WagonShape ( hs_packed.s )
)
)"},
    {"TRAINS/TRAINSET/Health Shapes/hs_torn_1.wag", "D0", R"(Wagon ( hs_torn_1
	Type ( Freight )
	WagonShape ( hs_torn.s )
)
)"},
    {"TRAINS/TRAINSET/Health Shapes/hs_torn_2.wag", "D0", R"(Wagon ( hs_torn_2
	Type ( Freight )
	WagonShape ( HS_TORN.S )
)
)"},
    {"TRAINS/TRAINSET/Health Shapes/hs_stray.wag", "D0", R"(Wagon ( hs_stray
	Type ( Freight )
	WagonShape ( hc_van.s )
)
)"},

    // Cabs.
    {"TRAINS/TRAINSET/Health Cabs/hb_flat.eng", "D0", R"(Wagon ( hb_flat
	Type ( Engine )
	WagonShape ( hb_flat.s )
	Sound ( hc_default.sms )
)
Engine ( hb_flat
	Wagon ( hb_flat )
	Type ( Electric )
	CabView ( hb_flat.cvf )
)
)"},
    {"TRAINS/TRAINSET/Health Cabs/hb_deep.eng", "D0", R"(Wagon ( hb_deep
	Type ( Engine )
	WagonShape ( hb_flat.s )
	ORTS3DCab (
		ORTS3DCabFile ( hb_deep.s )
	)
	ORTSAlternate3DCabViewPoints ( 1
		ORTSAlternate3DCabViewPoint (
			ORTS3DCabFile ( hb_rear.s )
		)
	)
)
Engine ( hb_deep
	Wagon ( hb_deep )
	Type ( Electric )
)
)"},
    {"TRAINS/TRAINSET/Health Cabs/hb_mixed.eng", "D0", R"(Wagon ( hb_mixed
	Type ( Engine )
	WagonShape ( hb_flat.s )
	ORTS3DCab (
		ORTS3DCabFile ( hb_mixed.s )
	)
)
Engine ( hb_mixed
	Wagon ( hb_mixed )
	Type ( Electric )
	CabView ( "..\\..\\Health Cabs\\CABVIEW\\hb_flat.cvf" )
)
)"},
    {"TRAINS/TRAINSET/Health Cabs/hb_blind.eng", "D0", R"(Wagon ( hb_blind
	Type ( Engine )
	WagonShape ( hb_flat.s )
	ORTS3DCab (
		ORTS3DCabFile ( hb_mixed.s )
	)
)
Engine ( hb_blind
	Wagon ( hb_blind )
	Type ( Electric )
)
)"},
    {"TRAINS/TRAINSET/Health Cabs/hb_loose.eng", "D0", R"(Wagon ( hb_loose
	Type ( Engine )
	WagonShape ( hb_flat.s )
)
Engine ( hb_loose
	Wagon ( hb_loose )
	Type ( Electric )
	CabView ( hb_loose.cvf )
)
)"},
    {"TRAINS/TRAINSET/Health Cars/CABVIEW/hc_loco.cvf", "h0", R"(Tr_CabViewFile (
	CabViewType ( 1 )
	CabViewFile ( hc_front.ace )
	CabViewWindowFile ( "" )
	CabViewControls ( 1
		Digital ( Type ( SPEEDOMETER DIGITAL ) Position ( 9 9 9 9 ) )
	)
)
)"},
    {"TRAINS/TRAINSET/Health Cabs/CABVIEW/hb_flat.cvf", "h0", R"(Tr_CabViewFile (
	CabViewType ( 1 )
	CabViewFile ( hb_front.ace )
	CabViewFile ( hb_side.ace )
	CabViewControls ( 3
		Dial ( Type ( SPEEDOMETER DIAL ) Graphic ( hb_dial.ace ) )
		Lever ( Type ( THROTTLE LEVER ) Graphic ( "../../Common.Cab/throttle.ace" ) )
		Digital ( Type ( SPEEDOMETER DIGITAL ) Graphic ( hb_digits.ace ) )
	)
)
)"},
    {"TRAINS/TRAINSET/Health Cabs/CABVIEW3D/hb_deep.cvf", "h0", R"(Tr_CabViewFile (
	CabViewType ( 1 )
)
)"},
    {"TRAINS/TRAINSET/Health Cabs/hb_loose.cvf", "h0", R"(Tr_CabViewFile (
	CabViewType ( 1 )
)
)"},

    // Sounds.
    {"TRAINS/TRAINSET/Health Cars/SOUND/hc_own.sms", "x1", R"(Tr_SMS (
	File ( hc_own.wav -1 )
	File ( hc_root.wav -1 )
	File ( "..\\hc_up.wav" -1 )
	File ( hc_lost.wav -1 )
)
)"},
    {"TRAINS/TRAINSET/Health Cars/SOUND/hc_echo.sms", "x1", R"(Tr_SMS (
	File ( hc_echo.sms -1 )
)
)"},
    {"TRAINS/TRAINSET/Health Cars/hc_beside.sms", "x1", "Tr_SMS ( )\n"},
    {"TRAINS/TRAINSET/Health Cars/OpenRails/hc_inner.sms", "x1", "Tr_SMS ( )\n"},
    {"TRAINS/TRAINSET/Health Shapes/SOUND/hs_far.sms", "x1", "Tr_SMS ( )\n"},
    {"SOUND/hc_root.sms", "x1", "Tr_SMS (\n\tFile ( hc_root.wav -1 )\n)\n"},

    // Scripts.
    {"TRAINS/TRAINSET/Health Cars/Script/hc_guard.cs", "", "\n// Does nothing.\n"},
    {"TRAINS/TRAINSET/Health Cars/Script/hc_guard.ini", "", "\n[General]\n"},

    // End-of-train devices.
    {"TRAINS/ORTS_EOT/Health Devices/hd_lamp.eot", "D0", R"(Wagon ( hd_lamp
	Type ( Freight )
	WagonShape ( hd_lamp.s )
	ORTSEOT ( Level ( "OneWay" ) )
)
)"},
    {"TRAINS/ORTS_EOT/Health Devices/hd_flag.eot", "D0", R"(Wagon ( hd_flag
	Type ( Freight )
	WagonShape ( hd_flag.s )
	ORTSEOT ( Level ( "NoComm" ) )
)
)"},

    // Consists.
    {"TRAINS/CONSISTS/Health Train.con", "D0", R"(Train (
	TrainCfg ( "Health Train"
		Name ( "Health train" )
		Serial ( 1 )
		MaxVelocity ( 27.77778 0.10000 )
		NextWagonUID ( 8 )
		Durability ( 0.50000 )
		Engine ( EngineData ( hc_loco "Health Cars" ) UiD ( 0 ) )
		Wagon ( WagonData ( ho_van "Health Overrides" ) UiD ( 1 ) )
		Wagon ( WagonData ( ho_only "Health Overrides" ) UiD ( 2 ) )
		Wagon ( WagonData ( hc_gone "Health Cars" ) UiD ( 3 ) )
		Wagon ( WagonData ( hc_van "Health Cabs" ) UiD ( 4 ) )
		Wagon ( WagonData ( hc_loco "Health Cars" ) UiD ( 5 ) )
		ORTSEot ( EOTData ( hd_lamp "Health Devices" ) UiD ( 6 ) )
		ORTSEot ( EOTData ( hd_disc "Health Devices" ) UiD ( 7 ) )
	)
)
)"},
    {"TRAINS/CONSISTS/Health Valley.con", "D0", R"(Train (
	TrainCfg ( "Health Valley"
		Name ( "Goods to the valley" )
		Serial ( 1 )
		MaxVelocity ( 27.77778 0.10000 )
		NextWagonUID ( 4 )
		Durability ( 0.50000 )
		Engine ( EngineData ( lv_loco "Lost Valley" ) UiD ( 0 ) )
		Wagon ( WagonData ( lv_van "Lost Valley" ) UiD ( 1 ) )
		Wagon ( WagonData ( lv_van "Lost Valley" ) UiD ( 2 ) )
		Wagon ( WagonData ( hc_load "LOST VALLEY" ) UiD ( 3 ) )
	)
)
)"},

    // A route with services, activities and timetables.
    {"ROUTES/Health Branch/Health Branch.trk", "r0", R"(Tr_RouteFile (
	RouteID ( "Health Branch" )
	Name ( "Health Branch" )
	FileName ( "Health Branch" )
)
)"},
    {"ROUTES/Health Branch/WORLD/w-006000+014000.w", "w0", R"(Tr_Worldfile (
	Static ( UiD ( 1 ) FileName ( hw_hut.s ) )
	Static ( UiD ( 2 ) FileName ( hw_shed.s ) )
	Static ( UiD ( 3 ) FileName ( hw_tree.s ) )
	TrackObj ( UiD ( 4 ) FileName ( hw_track.s ) )
)
)"},
    {"ROUTES/Health Branch/WORLD/OpenRails/w-006000+014000.w", "w0", R"(Tr_Worldfile (
	Static ( UiD ( 5 ) FileName ( hw_mast.s ) )
)
)"},
    {"ROUTES/Health Branch/SERVICES/Health 1.srv", "v0", R"(Service_Definition (
	Serial ( 1 )
	Name ( "Early goods" )
	Train_Config ( "Health Train" )
)
)"},
    {"ROUTES/Health Branch/SERVICES/Health 2.srv", "v0", R"(Service_Definition (
	Serial ( 1 )
	Name ( "Health 2" )
	Train_Config ( "Goods to the valley" )
)
)"},
    {"ROUTES/Health Branch/SERVICES/Health 3.srv", "v0", R"(Service_Definition (
	Serial ( 1 )
	Name ( "Health 3" )
	Train_Config ( "Health Gone" )
)
)"},
    {"ROUTES/Health Branch/SERVICES/Health 4.srv", "v0", R"(Service_Definition (
	Serial ( 1 )
	Name ( "Health 4" )
	Train_Config ( "Health Hidden" )
)
)"},
    {"ROUTES/Health Branch/TRAFFIC/health.trf", "f0", R"(Traffic_Definition ( health
	Serial ( 1 )
	Service_Definition ( "Health 2" 36000 )
)
)"},
    {"ROUTES/Health Branch/ACTIVITIES/Health day.act", "a0", R"(Tr_Activity (
	Serial ( 1 )
	Tr_Activity_Header ( RouteID ( "Health Branch" ) Name ( "Health day" ) )
	Tr_Activity_File (
		Player_Service_Definition ( "Early goods" UiD ( 0 ) )
		Traffic_Definition ( health
			Service_Definition ( "Health 2" 36000 UiD ( 1 ) )
		)
		ActivityObjects (
			ActivityObject ( ObjectType ( WagonsList ) Train_Config ( TrainCfg ( ""
				Wagon ( WagonData ( hc_van "Health Cars" ) UiD ( 0 ) )
				Wagon ( WagonData ( hc_gone "Health Cars" ) UiD ( 1 ) )
				Wagon ( WagonData ( lv_van "Lost Valley" ) UiD ( 2 ) )
			) ) )
		)
	)
)
)"},
    {"ROUTES/Health Branch/ACTIVITIES/Health night.act", "a0", R"(Tr_Activity (
	Serial ( 1 )
	Tr_Activity_Header ( RouteID ( "Health Branch" ) Name ( "Health night" ) )
	Tr_Activity_File (
		Player_Service_Definition ( "Night goods" UiD ( 0 ) )
		Traffic_Definition ( darkness
			Service_Definition ( "Night ferry" 36000 UiD ( 1 ) )
		)
	)
)
)"},
    {"ROUTES/Health Branch/ACTIVITIES/OpenRails/Day.timetable-or", "",
     ";Train 1;Train 2;#comment;$static\n"
     "#comment;No Train;No Train;No Train;No Train\n"
     "#path;branch;branch;branch;branch\n"
     "#consist;Health Local $reverse;<Health a+b>$reverse + <$Health c>;No Train;Health Local\n"
     ";+ Health Parcels;+ Health Milk;No Train;\n"
     "#start;10:00;11:00;;12:00\n"
     "Junction;10:20 $detach /consist=Health Parcels;$transfer /consist=Health Mail+Health "
     "Local;;\n"
     "#note;;$detach /consist=<Health d+e> /power;;\n"
     "#dispose;/out $detach /consist=Health Sleeper;$stable;;\n"},
    {"ROUTES/Health Branch/ACTIVITIES/OpenRails/Night.timetable_or", "",
     ",Train 3\n#path,branch\n#consist,Health Owl\n"},
    {"ROUTES/Health Branch/ACTIVITIES/OpenRails/Tabs.timetable-or", "",
     "\tTrain 4\n#path\tbranch\n#consist\tHealth Local\n"},
    {"ROUTES/Health Branch/ACTIVITIES/OpenRails/All.timetablelist-or", "",
     "#All days\nDay.timetable-or\nNight.timetable_or\n"},
});

/// Consists without a fault: one van. Only timetables name them, except for the last, which is
/// where no simulator looks for it.
constexpr std::array kConsists = {"Health Local", "Health a+b", "$Health c", "Health Parcels",
                                  "OpenRails/Health Hidden"};

struct Shape
{
    const char *path; ///< without extension
    std::vector<std::string> images;
    int alternative = 0;
    ShapeForm form = ShapeForm::TextUtf16;
};

std::vector<Shape> shapes()
{
    return {
        {"TRAINS/TRAINSET/Health Cars/hc_van", {"hc_van.ace"}},
        {"TRAINS/TRAINSET/Health Cars/hc_coal", {"hc_van.ace"}},
        {"TRAINS/TRAINSET/Health Cars/hc_link", {"hc_van.ace"}},
        {"TRAINS/TRAINSET/Health Cars/hc_seats", {"hc_van.ace"}},
        {"TRAINS/TRAINSET/Health Overrides/ho_plain", {"ho_plain.ace"}},
        {"TRAINS/TRAINSET/Health Overrides/ho_new", {"ho_plain.ace"}},
        {"TRAINS/TRAINSET/Health Overrides/OpenRails/ho_inner", {"ho_plain.ace"}},
        {"TRAINS/TRAINSET/Health Shapes/hs_far", {"hs_far.ace"}},
        {"TRAINS/TRAINSET/Health Shapes/hs_skin", {"hs_skin.ace"}},
        {"TRAINS/TRAINSET/Health Shapes/hs_bare", {"hs_bare.ace"}},
        {"TRAINS/TRAINSET/Health Shapes/hs_dds", {"hs_both.ace", "hs_dds.ace", "hs_ace.dds"}},
        {"TRAINS/TRAINSET/Health Shapes/hs_night", {"hs_lit.ace", "hs_dark.ace"}, 257},
        {"TRAINS/TRAINSET/Health Shapes/hs_packed", {"hs_packed.ace"}, 0, ShapeForm::Compressed},
        {"TRAINS/TRAINSET/Health Cabs/hb_flat", {"hb_flat.ace"}},
        {"TRAINS/TRAINSET/Health Cabs/CABVIEW3D/hb_deep", {"hb_deep.ace"}, 256},
        {"TRAINS/TRAINSET/Health Cabs/CABVIEW3D/hb_mixed", {"hb_deep.ace"}},
        {"TRAINS/ORTS_EOT/Health Devices/hd_lamp", {"hd_lamp.ace"}},
        {"ROUTES/Health Branch/SHAPES/hw_hut", {"hw_hut.ace", "hw_roof.ace", "hw_door.ace"}},
        {"ROUTES/Health Branch/SHAPES/hw_tree", {"hw_hut.ace", "hw_tree.ace"}, 1},
        {"GLOBAL/SHAPES/hw_track", {"hw_track.ace"}},
    };
}

/// Textures, in the format that the extension says.
constexpr std::array kPictures = {
    "TRAINS/TRAINSET/Health Cars/hc_van.ace",
    "TRAINS/TRAINSET/Health Cars/hs_skin.ace",
    "TRAINS/TRAINSET/Health Cars/CABVIEW/hc_front.ace",
    "TRAINS/TRAINSET/Health Overrides/ho_plain.ace",
    "TRAINS/TRAINSET/Health Shapes/hs_far.ace",
    "TRAINS/TRAINSET/Health Shapes/hs_both.ace",
    "TRAINS/TRAINSET/Health Shapes/hs_both.dds",
    "TRAINS/TRAINSET/Health Shapes/hs_dds.dds",
    "TRAINS/TRAINSET/Health Shapes/hs_ace.ace",
    "TRAINS/TRAINSET/Health Shapes/hs_lit.ace",
    "TRAINS/TRAINSET/Health Shapes/hs_dark.ace",
    "TRAINS/TRAINSET/Health Shapes/SNOW/hs_lit.ace",
    "TRAINS/TRAINSET/Health Shapes/NIGHT/HS_LIT.ACE",
    "TRAINS/TRAINSET/Health Shapes/SNOW/hs_dark.ace",
    "TRAINS/TRAINSET/Health Cabs/hb_flat.ace",
    "TRAINS/TRAINSET/Health Cabs/CABVIEW/hb_front.ace",
    "TRAINS/TRAINSET/Health Cabs/CABVIEW/hb_dial.dds",
    "TRAINS/TRAINSET/Health Cabs/CABVIEW3D/hb_deep.ace",
    "TRAINS/TRAINSET/Health Cabs/CABVIEW3D/NIGHT/hb_deep.ace",
    "TRAINS/ORTS_EOT/Health Devices/hd_lamp.ace",
    "ROUTES/Health Branch/TEXTURES/hw_hut.ace",
    "ROUTES/Health Branch/TEXTURES/hw_roof.dds",
    "ROUTES/Health Branch/TEXTURES/hw_tree.ace",
    "ROUTES/Health Branch/TEXTURES/SNOW/hw_hut.ace",
    "GLOBAL/TEXTURES/hw_track.ace",
};

constexpr std::array kWaves = {
    "TRAINS/TRAINSET/Health Cars/SOUND/hc_own.wav",
    "TRAINS/TRAINSET/Health Cars/hc_up.wav",
    "SOUND/hc_root.wav",
};

/// Returns an uncompressed DDS texture with 8 bits for each of red, green and blue.
std::string ddsBytes(const Picture &picture)
{
    constexpr std::uint32_t kFields = 0x1007, kColours = 0x40, kTexture = 0x1000;
    constexpr std::uint32_t kHeaderSize = 124, kFormatSize = 32, kBits = 32;
    const auto height = static_cast<std::uint32_t>(picture.height);
    const auto width = static_cast<std::uint32_t>(picture.width);
    std::string out = "DDS ";
    for (const std::uint32_t value : {kHeaderSize, kFields, height, width, 0U, 0U, 1U})
        AppendU32(out, value);
    out.append(44, '\0');
    for (const std::uint32_t value :
         {kFormatSize, kColours, 0U, kBits, 0xFF0000U, 0xFF00U, 0xFFU, 0U, kTexture})
        AppendU32(out, value);
    out.append(16, '\0');
    for (const Colour &pixel : picture.pixels)
        for (const std::uint8_t channel : {pixel.blue, pixel.green, pixel.red, pixel.alpha})
            out += static_cast<char>(channel);
    return out;
}

/// Returns the bytes of a PNG image with one white pixel.
std::string pngBytes()
{
    constexpr std::array<std::uint8_t, 67> kBytes = {
        0x89, 0x50, 0x4E, 0x47, 0x0D, 0x0A, 0x1A, 0x0A, 0x00, 0x00, 0x00, 0x0D, 0x49, 0x48,
        0x44, 0x52, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x01, 0x08, 0x00, 0x00, 0x00,
        0x00, 0x3A, 0x7E, 0x9B, 0x55, 0x00, 0x00, 0x00, 0x0A, 0x49, 0x44, 0x41, 0x54, 0x78,
        0xDA, 0x63, 0xF8, 0x0F, 0x00, 0x01, 0x01, 0x01, 0x00, 0x1C, 0xB0, 0x8C, 0x99, 0x00,
        0x00, 0x00, 0x00, 0x49, 0x45, 0x4E, 0x44, 0xAE, 0x42, 0x60, 0x82};
    return {kBytes.begin(), kBytes.end()};
}

/// Returns a file that claims to be compressed and ends too early.
std::string tornBytes()
{
    std::string out = CompressPayload(std::string(64, ' '));
    out.resize(20);
    return out;
}

void addShape(SampleFiles &files, const Shape &shape)
{
    const std::string path = shape.path;
    const std::string name = path.substr(path.rfind('/') + 1) + ".s";
    files.push_back({path + ".s", ShapeBytes(SmallestShape(shape.images), shape.form)});
    files.push_back({path + ".sd", DescriptorBytes(name, shape.alternative, {0, 0, 0}, {1, 1, 1})});
}

std::string vanText(std::string_view name)
{
    const Train train{.title = std::string(name.substr(name.rfind('/') + 1)),
                      .name = std::string(name),
                      .units = {{"Health Cars", "hc_van"}}};
    return ConsistText(train);
}

} // namespace

SampleFiles HealthFiles()
{
    SampleFiles files;
    for (const Text &text : kTexts) {
        const Header header = *text.kind == '\0' ? Header::None : Header::Usual;
        files.push_back({text.path, EncodeText(text.kind, text.body, {.header = header})});
    }
    for (const char *name : kConsists)
        files.push_back(
            {"TRAINS/CONSISTS/" + std::string(name) + ".con", EncodeText("D0", vanText(name))});
    for (const Shape &shape : shapes())
        addShape(files, shape);
    const Picture panel = PanelPicture(8, {120, 110, 90, 255}, {60, 60, 64, 255});
    for (const std::string_view path : kPictures)
        files.push_back(
            {std::string(path), path.ends_with(".dds") ? ddsBytes(panel) : AceBytes(panel, {})});
    for (const char *wave : kWaves)
        files.push_back({wave, WaveBytes()});
    const std::string trainset = "TRAINS/TRAINSET/";
    files.push_back({trainset + "Health Cars/hc_glow.png", pngBytes()});
    files.push_back({trainset + "Health Shapes/hs_torn.s", tornBytes()});
    files.push_back({trainset + "Health Shapes/hs_torn.sd",
                     DescriptorBytes("hs_torn.s", 0, {0, 0, 0}, {1, 1, 1})});
    files.push_back({trainset + "Health Overrides/ho_torn.inc", tornBytes()});
    return files;
}

} // namespace samples
