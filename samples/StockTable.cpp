// SPDX-License-Identifier: MIT
#include "samples/Stock.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace samples {
namespace {

constexpr const char *kArdmoor = "Ardmoor Valley";
constexpr const char *kFlats = "Kestrel 62' Flats";
constexpr const char *kForest = "Förstenwalder Bahn";
constexpr const char *kSteam = "TARNWICK_STEAM";
constexpr const char *kElectric = "northfold_electric";
constexpr const char *kCoast = "Coastline";
constexpr const char *kBoxes = "Boxes & Vans";
constexpr const char *kRepair = "Repair Sidings";

constexpr const char *kDieselSound = R"(..\..\Common.Snd\diesel.sms)";
constexpr const char *kElectricSound = R"(..\..\Common.Snd\electric.sms)";
constexpr const char *kFreightSound = R"(..\..\Common.Snd\freight.sms)";
constexpr const char *kFreightSlash = "../../common.snd/Freight.sms";
constexpr const char *kCoachSound = R"(..\..\Common.Snd\coach.sms)";
constexpr const char *kCabSound = R"(..\..\Common.Snd\cab.sms)";
constexpr const char *kDieselCab = R"(..\..\Common.Cab\diesel.cvf)";
constexpr const char *kElectricCab = R"(..\..\Common.Cab\electric.cvf)";

constexpr TextFormat kUtf16 = {};
constexpr TextFormat kAscii = {.encoding = Encoding::Windows1252};
constexpr TextFormat kUtf8 = {.encoding = Encoding::Utf8};
constexpr TextFormat kUtf8Bom = {.encoding = Encoding::Utf8Bom};
constexpr TextFormat kNoBom = {.encoding = Encoding::Utf16LeNoBom};
constexpr TextFormat kBigEndian = {.encoding = Encoding::Utf16Be};
constexpr TextFormat kUnix = {.encoding = Encoding::Windows1252, .lineEnd = LineEnd::Lf};
constexpr TextFormat kDoubled = {.lineEnd = LineEnd::CrCrLf};

using K = Kind;
using Q = Quirk;
using F = Fault;

// One row per stock file: folder, file, kind, title, length, shape, sound, then for engines cab
// view and cab sound, then thumbnail, encoding, quirk, fault.
// clang-format off
constexpr std::array kVehicles = std::to_array<Vehicle>({
    {kArdmoor, "avr_d401", K::Diesel, "Ardmoor Valley D401", 17.2F, "avr_d401.s", kDieselSound, kDieselCab, kCabSound, "avr_d401.ace", kUtf16, Q::None},
    {kArdmoor, "avr_d402", K::Diesel, "Ardmoor Valley D402", 17.2F, "AVR_D401.S", kDieselSound, kDieselCab, kCabSound, "", kAscii, Q::HashNote},
    {kArdmoor, "avr_hopper_11", K::Freight, "Coal hopper 11", 11.5F, "avr_hopper_11.s", kFreightSound, "", "", "", kUtf16, Q::DisabledSize},
    {kArdmoor, "avr_hopper_12", K::Freight, "Coal hopper 12", 11.5F, "avr_hopper_11.s", kFreightSound, "", "", "", kAscii, Q::TightComment},
    {kArdmoor, "avr_caboose", K::Freight, "Caboose", 10.4F, "avr_caboose.s", kFreightSlash, "", "", "", kUtf16, Q::SkippedProse},
    {kFlats, "flat 6201", K::Freight, "62 foot flat, empty", 18.9F, "flat 6201.s", kFreightSound, "", "", "", kUtf16, Q::SurplusBracket},
    {kFlats, "flat 6202", K::Freight, "62 foot flat, \"pipes\"", 18.9F, "flat 6202.s", kFreightSound, "", "", "", kUtf16, Q::BracketInComment},
    {kForest, "fwb_e94", K::Electric, "Förstenwalder E 94", 18.6F, "fwb_e94.s", kElectricSound, kElectricCab, kCabSound, "", kUtf16, Q::None},
    {kForest, "fwb_abteil", K::Carriage, "Abteilwagen", 13.9F, "fwb_abteil.s", kCoachSound, "", "", "", kUtf8, Q::None},
    {kForest, "fwb_güterwagen", K::Freight, "Gedeckter Güterwagen", 9.1F, "fwb_güterwagen.s", kFreightSound, "", "", "", kUtf8Bom, Q::None},
    {kSteam, "TSR_462", K::Steam, "Tarnwick Pacific", 13.1F, "tsr_462.s", "TSR_Chuff.sms", "tsr_steam.cvf", "tsr_cab.sms", "", kUtf16, Q::LineComment},
    {kSteam, "TSR_462_TENDER", K::Tender, "Tender of the Pacific", 7.9F, "TSR_462_Tender.s", kFreightSound, "", "", "", kUtf16, Q::None},
    {kSteam, "TSR_060T", K::Steam, "Tarnwick tank engine", 9.4F, "TSR_060T.S", "TSR_Chuff.sms", "tsr_steam.cvf", "tsr_cab.sms", "", kBigEndian, Q::MissingBracket},
    {kSteam, "TSR_COACH_3RD", K::Carriage, "Third class coach", 16.2F, "TSR_COACH_3RD.S", kCoachSound, "", "", "", kNoBom, Q::None},
    {kSteam, "TSR_BRAKE", K::Carriage, "Brake coach", 14.3F, "TSR_BRAKE.S", kCoachSound, "", "", "", kDoubled, Q::None},
    {kElectric, "nfe_10", K::Electric, "Northfold motor coach 10", 20.1F, "nfe_10.s", kElectricSound, kElectricCab, kCabSound, "", kUtf16, Q::None},
    {kElectric, "nfe_trailer", K::Carriage, "Northfold trailer", 19.8F, "nfe_trailer.s", kCoachSound, "", "", "", kUnix, Q::Include},
    {kCoast, "clr_railcar", K::Diesel, "Coastline railcar", 22.5F, "clr_railcar.s", kDieselSound, "clr_railcar.cvf", kCabSound, "", kUtf16, Q::None},
    {kCoast, "coach_first", K::Carriage, "First class coach", 23, "coach_first.s", kCoachSound, "", "", "", kUtf16, Q::None},
    {kCoast, "coach_second", K::Carriage, "Second class coach", 23, "coach_second.s", kCoachSound, "", "", "", kUtf16, Q::None},
    {kCoast, "coach_diner", K::Carriage, "Dining coach", 23, "coach_diner.s", kCoachSound, "", "", "", kUtf16, Q::LoneQuote},
    {kBoxes, "box_501", K::Freight, "Box car 501", 12.4F, "box_501.s", kFreightSound, "", "", "", kUtf16, Q::None},
    {kBoxes, "box_502", K::Freight, "Box car 502", 12.4F, "box_501.s", kFreightSound, "", "", "", kUtf16, Q::None},
    {kBoxes, "van_ice", K::Freight, "Ice van", 11.8F, "van_ice.s", kFreightSound, "", "", "", kUtf16, Q::None},
    {kBoxes, "Ochre&Co_705", K::Freight, "Ochre & Co. tank car", 12.9F, "Ochre&Co_705.s", kFreightSound, "", "", "", kUtf16, Q::None},
    {kBoxes, "tank_21", K::Freight, "Tank car 21", 12.9F, "tank_21.s", kFreightSound, "", "", "", kUtf16, Q::None},

    {kRepair, "rs_box", K::Freight, "Thumbnail is gone", 12.4F, "rs_box.s", kFreightSound, "", "", "rs_box_small.ace"},
    {kRepair, "rs_noshape", K::Freight, "Shape is gone", 12.4F, "rs_noshape.s", kFreightSound},
    {kRepair, "rs_nodesc", K::Freight, "Shape descriptor is gone", 12.4F, "rs_nodesc.s", kFreightSound},
    {kRepair, "rs_waggon", K::Freight, "Not a wagon block", 12.4F, "rs_box.s", kFreightSound, "", "", "", kUtf16, Q::None, F::NoWagonBlock},
    {kRepair, "rs_quiet", K::Freight, "Sound file is gone", 12.4F, "rs_box.s", "rs_gone.sms"},
    {kRepair, "rs_mute", K::Freight, "Names no sound", 12.4F, "rs_box.s", "", "", "", "", kUtf16, Q::None, F::NoSound},
    {kRepair, "rs_badsms", K::Freight, "Sound file is no sound file", 12.4F, "rs_box.s", "rs_broken.sms"},
    {kRepair, "rs_nowav", K::Freight, "A wave file is gone", 12.4F, "rs_box.s", "rs_nowav.sms"},
    {kRepair, "rs_paint", K::Freight, "Texture is gone", 12.4F, "rs_paint.s", kFreightSound},
    {kRepair, "rs_over", K::Freight, "Declares too many textures", 12.4F, "rs_over.s", kFreightSound},
    {kRepair, "rs_under", K::Freight, "Declares too few textures", 12.4F, "rs_under.s", kFreightSound},
    {kRepair, "rs_loco", K::Diesel, "Cab sound is gone", 15, "rs_loco.s", kDieselSound, kDieselCab, "rs_cab.sms"},
    {kRepair, "rs_noengine", K::Diesel, "Has no engine block", 15, "rs_loco.s", kDieselSound, "", "", "", kUtf16, Q::None, F::NoEngineBlock},
    {kRepair, "rs_names", K::Diesel, "Engine and wagon names differ", 15, "rs_loco.s", kDieselSound, kDieselCab, kCabSound, "", kUtf16, Q::None, F::NamesDiffer},
    {kRepair, "rs_nocab", K::Diesel, "Names no cab view", 15, "rs_loco.s", kDieselSound, "", kCabSound, "", kUtf16, Q::None, F::NoCabView},
    {kRepair, "rs_cabgone", K::Diesel, "Cab view is gone", 15, "rs_loco.s", kDieselSound, "rs_cabgone.cvf", kCabSound},
    {kRepair, "rs_badcvf", K::Diesel, "Cab view is no cab view", 15, "rs_loco.s", kDieselSound, "rs_broken.cvf", kCabSound},
    {kRepair, "rs_dials", K::Diesel, "Cab graphics are gone", 15, "rs_loco.s", kDieselSound, "rs_dials.cvf", kCabSound},
    {kRepair, "rs_silent", K::Diesel, "Names no cab sound", 15, "rs_loco.s", kDieselSound, kDieselCab, "", "", kUtf16, Q::None, F::NoEngineSound},
});

using S = ShapeForm;
using D = Design;
constexpr Colour kBlue{40, 60, 120, 255}, kCream{230, 220, 190, 255}, kBlack{44, 44, 48, 255}, kBrown{110, 70, 45, 255};
constexpr Colour kRed{150, 40, 40, 255}, kGrey{120, 124, 128, 255}, kGreen{40, 92, 58, 255}, kYellow{220, 180, 60, 255};
constexpr Colour kWhite{235, 238, 240, 255}, kOchre{190, 125, 45, 255};
constexpr AceFormat kPlain{}, kLevels{.mipmaps = true}, kPacked{.mipmaps = true, .compressed = true};
constexpr AceFormat kMask{.alpha = AceAlpha::Mask}, kFull{.alpha = AceAlpha::Full, .compressed = true};
constexpr AceFormat kDxt{.mipmaps = true, .dxt1 = true}, kDxtMask{.alpha = AceAlpha::Mask, .mipmaps = true, .dxt1 = true, .compressed = true};

// One row per shape: folder, name, form, design, lettering, colours, texture, faults.
constexpr std::array kShapes = std::to_array<StockShape>({
    {kArdmoor, "avr_d401", S::TextUtf16, D::HoodDiesel, "ARDMOOR VALLEY", "D401", kBlue, kCream, kLevels},
    {kArdmoor, "avr_hopper_11", S::Binary, D::Hopper, "AVR", "11", kBlack, kWhite, kPacked},
    {kArdmoor, "avr_caboose", S::TextUtf16, D::Caboose, "AVR", "7", kRed, kYellow, kMask},
    {kFlats, "flat 6201", S::Compressed, D::FlatCar, "KFX", "6201", kBrown, kWhite, kDxt},
    {kFlats, "flat 6202", S::TextUtf16, D::PipeFlat, "KFX", "6202", kBrown, kYellow, kPlain},
    {kForest, "fwb_e94", S::CompressedTrailingBytes, D::ElectricEngine, "FWB", "E 94", kGreen, kCream, kDxtMask},
    {kForest, "fwb_abteil", S::Text8Bit, D::CompartmentCoach, "FWB", "204", kGreen, kCream, kFull},
    {kForest, "fwb_güterwagen", S::TextUtf16, D::GoodsVan, "FWB", "1420", kBrown, kWhite, kPlain},
    {kSteam, "TSR_462", S::TextLateMark, D::ExpressSteam, "TSR", "462", kGreen, kCream, kPacked},
    {kSteam, "TSR_462_TENDER", S::Compressed, D::Tender, "TARNWICK", "462", kGreen, kCream, kLevels},
    {kSteam, "TSR_060T", S::TextUtf16, D::TankSteam, "TSR", "60", kBlack, kRed, kPlain},
    {kSteam, "TSR_COACH_3RD", S::TextUtf16, D::CompartmentCoach, "TSR", "31", kRed, kCream, kDxt},
    {kSteam, "TSR_BRAKE", S::CompressedOddHeader, D::BrakeCoach, "TSR", "44", kRed, kCream, kMask},
    {kElectric, "nfe_10", S::TextUtf16, D::MotorCoach, "NORTHFOLD", "10", kWhite, kBlue, kFull},
    {kElectric, "nfe_trailer", S::Compressed, D::Trailer, "NORTHFOLD", "52", kWhite, kBlue, kPacked},
    {kCoast, "clr_railcar", S::TextUtf16, D::Railcar, "COASTLINE", "3", kOchre, kCream, kDxtMask},
    {kCoast, "coach_first", S::TextUtf16, D::Coach, "COASTLINE", "11", kOchre, kWhite, kMask},
    {kCoast, "coach_second", S::Compressed, D::Trailer, "COASTLINE", "27", kOchre, kCream, kPacked},
    {kCoast, "coach_diner", S::TextUtf16, D::DiningCar, "COASTLINE", "31", kOchre, kRed, kLevels},
    {kBoxes, "box_501", S::TextUtf16, D::BoxCar, "BVX", "501", kBrown, kWhite, kPlain},
    {kBoxes, "van_ice", S::Text8Bit, D::IceVan, "BVX", "88", kWhite, kBlue, kPacked},
    {kBoxes, "Ochre&Co_705", S::Binary, D::TankCar, "OCHRE & CO", "705", kOchre, kBlack, kDxt},
    {kBoxes, "tank_21", S::TextUtf16, D::TankCar, "BVX", "21", kGrey, kBlack, kPlain},
    {kRepair, "rs_box", S::TextUtf16, D::BoxCar, "RS", "12", kGrey, kBlack, kPlain},
    {kRepair, "rs_loco", S::TextUtf16, D::HoodDiesel, "RS", "9", kGrey, kRed, kPlain},
    {.folder = kRepair, .name = "rs_nodesc", .form = S::TextUtf16, .design = D::BoxCar, .initials = "RS", .number = "12", .base = kGrey, .trim = kBlack, .descriptor = false},
    {.folder = kRepair, .name = "rs_paint", .form = S::TextUtf16, .design = D::BoxCar, .initials = "RS", .number = "12", .base = kGrey, .trim = kBlack, .pictureThere = false},
    {.folder = kRepair, .name = "rs_over", .form = S::TextUtf16, .design = D::BoxCar, .initials = "RS", .number = "12", .base = kGrey, .trim = kBlack, .images = 2, .imagesDeclared = 3},
    {.folder = kRepair, .name = "rs_under", .form = S::TextUtf16, .design = D::BoxCar, .initials = "RS", .number = "12", .base = kGrey, .trim = kBlack, .images = 2, .imagesDeclared = 1},
});
// clang-format on

} // namespace

std::span<const Vehicle> Vehicles()
{
    return kVehicles;
}

std::span<const StockShape> StockShapes()
{
    return kShapes;
}

const Vehicle &FindVehicle(std::string_view file)
{
    const auto at = std::find_if(kVehicles.begin(), kVehicles.end(),
                                 [&](const Vehicle &v) { return v.file == file; });
    if (at == kVehicles.end())
        throw std::out_of_range("no vehicle " + std::string(file));
    return *at;
}

} // namespace samples
