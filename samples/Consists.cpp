// SPDX-License-Identifier: MIT
#include "samples/Consists.h"

#include "samples/Stock.h"

#include <utility>

namespace samples {
namespace {

constexpr const char *kArdmoor = "Ardmoor Valley";
constexpr const char *kFlats = "Kestrel 62' Flats";
constexpr const char *kForest = "Förstenwalder Bahn";
constexpr const char *kSteam = "TARNWICK_STEAM";
constexpr const char *kElectric = "northfold_electric";
constexpr const char *kCoast = "Coastline";
constexpr const char *kBoxes = "Boxes & Vans";

constexpr const char *kWorksNotes = "\n"
                                    "\t\tcomment ( the flats go back empty (see the notice) )\n"
                                    "\n"
                                    "\t\t#Wagon (\n"
                                    "\t\t\tWagonData ( \"flat 6203\" \"Kestrel 62' Flats\" )\n"
                                    "\t\t\tUiD ( 9 )\n"
                                    "\t\t)\n"
                                    "\t\tORTSEOT (\n"
                                    "\t\t\tEOTData ( flasher \"End of train\" )\n"
                                    "\t\t\tUiD ( 8 )\n"
                                    "\t\t)\n"
                                    "\n";

std::vector<Unit> coalDrag()
{
    std::vector<Unit> units = {UnitOf(kArdmoor, "avr_d401"), UnitOf(kArdmoor, "avr_d402", true)};
    for (int i = 0; i < 61; ++i)
        units.push_back(UnitOf(kArdmoor, i % 3 == 2 ? "avr_hopper_12" : "avr_hopper_11"));
    units.push_back(UnitOf(kArdmoor, "avr_caboose", true));
    return units;
}

/// The vehicle without a Wagon block comes last: reading a consist for its shapes ends there.
std::vector<Unit> repairTrain()
{
    std::vector<Unit> units;
    for (const Vehicle &v : Vehicles())
        if (v.folder == std::string_view("Repair Sidings") && v.fault != Fault::NoWagonBlock)
            units.push_back(UnitOf(v.folder, v.file));
    units.push_back(UnitOf("Repair Sidings", "rs_waggon"));
    return units;
}

std::vector<Unit> harbourTransfer()
{
    std::vector<Unit> units = {UnitOf(kArdmoor, "avr_d401"), UnitOf(kBoxes, "box_501"),
                               UnitOf(kBoxes, "box_502", true), UnitOf(kBoxes, "van_ice"),
                               UnitOf(kBoxes, "Ochre&Co_705")};
    units.push_back({.folder = kBoxes, .file = "box_gone"});
    for (std::size_t i = 0; i < units.size(); ++i)
        units[i].uid = static_cast<int>(i / 2);
    return units;
}

/// The train of the pictures: an engine and something of everything that carries goods.
std::vector<Unit> ferryGoods()
{
    return {UnitOf(kForest, "fwb_e94"),           UnitOf(kForest, "fwb_güterwagen"),
            UnitOf(kBoxes, "Ochre&Co_705"),       UnitOf(kForest, "fwb_güterwagen", true),
            UnitOf(kFlats, "flat 6202"),          UnitOf(kBoxes, "van_ice", true),
            UnitOf(kBoxes, "Ochre&Co_705", true), UnitOf(kBoxes, "box_501"),
            UnitOf(kArdmoor, "avr_hopper_12"),    UnitOf(kBoxes, "box_502", true),
            UnitOf(kArdmoor, "avr_caboose", true)};
}

std::vector<Unit> cafeCar()
{
    return {{.folder = "COASTLINE", .file = "CLR_Railcar", .engine = true},
            {.folder = "coastline", .file = "Coach_Diner"},
            {.folder = "Coastline", .file = "coach_FIRST", .flip = true}};
}

/// Trains that a user meets first.
std::vector<Consist> plainConsists()
{
    Unit pacific = UnitOf(kSteam, "TSR_462");
    pacific.variables = "0.5 12.5 1 0";
    return {
        {"Depot Shunter",
         {.title = "Depot Shunter",
          .name = "Depot shunter",
          .units = {UnitOf(kSteam, "TSR_060T")}}},
        {"Long Coal Drag",
         {.title = "Long Coal Drag", .name = "Long coal drag, 64 units", .units = coalDrag()}},
        {"coastal express",
         {.title = "coastal express",
          .name = "The \"Coastal\" express",
          .units = {UnitOf(kArdmoor, "avr_d401"), UnitOf(kCoast, "coach_first"),
                    UnitOf(kCoast, "coach_second", true), UnitOf(kCoast, "coach_diner"),
                    UnitOf(kCoast, "coach_second"), UnitOf(kCoast, "clr_railcar", true)}}},
        {"Steam Special",
         {.title = "Steam Special",
          .name = "Steam special",
          .isDefault = true,
          .units = {pacific, UnitOf(kSteam, "TSR_462_TENDER"), UnitOf(kSteam, "TSR_COACH_3RD"),
                    UnitOf(kSteam, "TSR_COACH_3RD", true), UnitOf(kSteam, "TSR_BRAKE")}}},
        {"Repair Train", {.title = "Repair Train", .name = "To the works", .units = repairTrain()}},
    };
}

/// Trains whose head blocks, numbers or references are unusual.
std::vector<Consist> unusualConsists()
{
    Unit bare = UnitOf(kArdmoor, "avr_hopper_12");
    bare.bare = true;
    return {
        {"Quarry_Local",
         {.title = "Quarry_Local",
          .name = "Quarry local",
          .units = {UnitOf(kArdmoor, "avr_d402"), UnitOf(kArdmoor, "avr_hopper_11"), bare}}},
        {"Harbour Transfer",
         {.title = "Harbour Transfer",
          .name = "Harbour transfer",
          .nextUid = 380102,
          .units = harbourTransfer()}},
        {"night mail",
         {.title = "night mail",
          .head = Head::SerialFirst,
          .firstUid = 114,
          .units = {UnitOf(kElectric, "nfe_10"), UnitOf(kElectric, "nfe_trailer"),
                    UnitOf(kElectric, "nfe_trailer", true), UnitOf(kElectric, "nfe_10", true)}},
         {.encoding = Encoding::Utf16Be}},
        {"double (2)",
         {.title = "double (2)",
          .head = Head::VelocityFirst,
          .units = {UnitOf(kCoast, "clr_railcar"), UnitOf(kCoast, "clr_railcar", true)}},
         {.header = Header::None}},
        {"Ferry Goods ",
         {.title = "Ferry Goods", .head = Head::SerialFirst, .units = ferryGoods()}},
    };
}

/// Trains whose files are unusual as texts.
std::vector<Consist> oddlyWrittenConsists()
{
    Unit caboose = UnitOf(kArdmoor, "avr_caboose");
    caboose.before = kWorksNotes;
    return {
        {"Broken Tail",
         {.title = "Broken Tail",
          .name = "Broken tail",
          .units = {UnitOf(kArdmoor, "avr_d402"), UnitOf(kFlats, "flat 6201"),
                    UnitOf(kFlats, "flat 6202")},
          .tail = "\t\tcomment( 22.8t empty, 106.7t full\" )\n"},
         {},
         true},
        {"Works Train #3",
         {.title = "Works Train #3",
          .name = "Works train no. 3",
          .nextUid = 12,
          .units = {UnitOf(kArdmoor, "avr_d401"), UnitOf(kFlats, "flat 6201"), caboose}}},
        {"Förster Bummel",
         {.title = "Förster Bummel",
          .name = "Durch den Förstenwald",
          .units = {UnitOf(kForest, "fwb_e94"), UnitOf(kForest, "fwb_abteil"),
                    UnitOf(kForest, "fwb_abteil", true)}},
         {.encoding = Encoding::Utf8}},
        {"Cafe Car",
         {.title = "Cafe Car",
          .name = "Café car",
          .units = cafeCar(),
          .tail = "\t\tcomment ( café à la carte )\n"},
         {.encoding = Encoding::Windows1252}},
    };
}

std::string headText(const Train &train, const std::string &tabs, int nextUid)
{
    const std::string serial = tabs + "Serial ( 1 )\n";
    const std::string velocity = tabs + "MaxVelocity ( 27.77778 0.10000 )\n";
    std::string out;
    if (train.head == Head::NameFirst)
        out += tabs + "Name ( " + Quoted(train.name) + " )\n";
    out += train.head == Head::VelocityFirst ? velocity + serial : serial + velocity;
    out += tabs + "NextWagonUID ( " + std::to_string(nextUid) + " )\n";
    out += tabs + "Durability ( 0.50000 )\n";
    if (train.isDefault)
        out += tabs + "Default ( )\n";
    return out;
}

std::string unitText(const Unit &unit, const std::string &tabs, int uid)
{
    const std::string kind = unit.engine ? "Engine" : "Wagon";
    std::string out = unit.before + tabs + kind + " (\n";
    const std::string folder = unit.bare ? unit.folder : Quoted(unit.folder);
    const std::string flip = unit.flip ? tabs + "\tFlip ( )\n" : std::string();
    // Both places of Flip are met.
    out += uid % 2 == 0 ? flip : std::string();
    out += tabs + "\tUiD ( " + std::to_string(uid) + " )\n";
    out += tabs + '\t' + kind + "Data ( " + Quoted(unit.file) + ' ' + folder + " )\n";
    out += uid % 2 != 0 ? flip : std::string();
    if (*unit.variables != '\0')
        out += tabs + "\tEngineVariables ( " + unit.variables + " )\n";
    return out + tabs + ")\n";
}

} // namespace

std::vector<Consist> Consists()
{
    std::vector<Consist> all = plainConsists();
    for (auto group : {unusualConsists(), oddlyWrittenConsists()})
        for (Consist &consist : group)
            all.push_back(std::move(consist));
    return all;
}

Unit UnitOf(std::string_view folder, std::string_view file, bool flip)
{
    const Vehicle &vehicle = FindVehicle(folder, file);
    return {.folder = vehicle.folder,
            .file = vehicle.file,
            .engine = IsEngine(vehicle.kind),
            .flip = flip};
}

std::string TrainText(const Train &train, int depth)
{
    const std::string outer(static_cast<std::size_t>(depth), '\t');
    const std::string tabs = outer + '\t';
    std::string units;
    int uid = train.firstUid;
    for (const Unit &unit : train.units) {
        units += unitText(unit, tabs, unit.uid < 0 ? uid : unit.uid);
        ++uid;
    }
    const int next = train.nextUid < 0 ? uid : train.nextUid;
    const std::string title = train.title.empty() ? "\"\"" : Quoted(train.title);
    return outer + "TrainCfg ( " + title + '\n' + headText(train, tabs, next) + units + train.tail +
           outer + ")\n";
}

std::string ConsistText(const Train &train)
{
    return "Train (\n" + TrainText(train, 1) + ")\n";
}

SampleFiles ConsistFiles()
{
    SampleFiles files;
    for (const Consist &consist : Consists()) {
        std::string text = ConsistText(consist.train);
        if (consist.cutShort)
            text.erase(text.rfind(')'));
        files.push_back(
            {"TRAINS/CONSISTS/" + consist.file + ".con", EncodeText("D0", text, consist.format)});
    }
    return files;
}

} // namespace samples
