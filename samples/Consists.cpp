// SPDX-License-Identifier: MIT
#include "samples/Consists.h"

namespace samples {
namespace {

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
    std::vector<Unit> units = Units({"avr_d401", "<avr_d402"});
    for (int i = 0; i < 61; ++i)
        units.push_back(Units({i % 3 == 2 ? "avr_hopper_12" : "avr_hopper_11"}).front());
    units.push_back(Units({"<avr_caboose"}).front());
    return units;
}

/// Puts the vehicle without a Wagon block last, because reading the shapes of a consist ends there.
std::vector<Unit> repairTrain()
{
    std::vector<Unit> units;
    for (const Vehicle &v : Vehicles())
        if (v.folder == std::string_view("Repair Sidings") && v.fault != Fault::NoWagonBlock)
            units.push_back(UnitOf(v));
    units.push_back(Units({"rs_waggon"}).front());
    return units;
}

std::vector<Unit> steamSpecial()
{
    std::vector<Unit> units =
        Units({"TSR_462", "TSR_462_TENDER", "TSR_COACH_3RD", "<TSR_COACH_3RD", "TSR_BRAKE"});
    units.front().variables = "0.5 12.5 1 0";
    return units;
}

std::vector<Unit> quarryLocal()
{
    std::vector<Unit> units = Units({"avr_d402", "avr_hopper_11", "avr_hopper_12"});
    units.back().bare = true;
    return units;
}

std::vector<Unit> worksTrain()
{
    std::vector<Unit> units = Units({"avr_d401", "flat 6201", "avr_caboose"});
    units.back().before = kWorksNotes;
    return units;
}

std::vector<Unit> harbourTransfer()
{
    std::vector<Unit> units =
        Units({"avr_d401", "box_501", "<box_502", "van_ice", "Ochre&Co_705", "box_501"});
    units.back().file = "box_gone";
    for (std::size_t i = 0; i < units.size(); ++i)
        units[i].uid = static_cast<int>(i / 2);
    return units;
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

/// Even and odd units have Flip in different places. Both places occur in real files.
std::string unitText(const Unit &unit, const std::string &tabs, int uid)
{
    const std::string kind = unit.engine ? "Engine" : "Wagon";
    const std::string folder = unit.bare ? unit.folder : Quoted(unit.folder);
    const std::string flip = unit.flip ? tabs + "\tFlip ( )\n" : "";
    std::string out = unit.before + tabs + kind + " (\n";
    if (uid % 2 == 0)
        out += flip;
    out += tabs + "\tUiD ( " + std::to_string(uid) + " )\n";
    out += tabs + '\t' + kind + "Data ( " + Quoted(unit.file) + ' ' + folder + " )\n";
    if (uid % 2 != 0)
        out += flip;
    if (*unit.variables != '\0')
        out += tabs + "\tEngineVariables ( " + unit.variables + " )\n";
    return out + tabs + ")\n";
}

} // namespace

std::vector<Consist> Consists()
{
    using H = Head;
    constexpr int kNext = -1;
    const TextFormat utf16{};
    // File; title, name, head, first UID, next UID, default, units, tail; format, cut short.
    // clang-format off
    return {
        {"Depot Shunter", {"Depot Shunter", "Depot shunter", H::NameFirst, 0, kNext, false, Units({"TSR_060T"})}},
        {"Long Coal Drag", {"Long Coal Drag", "Long coal drag, 64 units", H::NameFirst, 0, kNext, false, coalDrag()}},
        {"coastal express", {"coastal express", "The \"Coastal\" express", H::NameFirst, 0, kNext, false,
            Units({"avr_d401", "coach_first", "<coach_second", "coach_diner", "coach_second", "<clr_railcar"})}},
        {"Steam Special", {"Steam Special", "Steam special", H::NameFirst, 0, kNext, true, steamSpecial()}},
        {"Repair Train", {"Repair Train", "To the works", H::NameFirst, 0, kNext, false, repairTrain()}},

        // Unusual head blocks, numbers or references.
        {"Quarry_Local", {"Quarry_Local", "Quarry local", H::NameFirst, 0, kNext, false, quarryLocal()}},
        {"Harbour Transfer",
         {"Harbour Transfer", "Harbour transfer", H::NameFirst, 0, 380102, false, harbourTransfer()}},
        {"night mail", {"night mail", "", H::SerialFirst, 114, kNext, false,
            Units({"nfe_10", "nfe_trailer", "<nfe_trailer", "<nfe_10"})}, {.encoding = Encoding::Utf16Be}},
        {"double (2)", {"double (2)", "", H::VelocityFirst, 0, kNext, false,
            Units({"clr_railcar", "<clr_railcar"})}, {.header = Header::None}},
        {"Ferry Goods ", {"Ferry Goods", "", H::SerialFirst, 0, kNext, false,
            Units({"fwb_e94", "fwb_güterwagen", "Ochre&Co_705", "<fwb_güterwagen", "flat 6202", "<van_ice",
                   "<Ochre&Co_705", "box_501", "avr_hopper_12", "<box_502", "<avr_caboose"})}},

        // Unusual texts.
        {"Broken Tail", {"Broken Tail", "Broken tail", H::NameFirst, 0, kNext, false,
            Units({"avr_d402", "flat 6201", "flat 6202"}), "\t\tcomment( 22.8t empty, 106.7t full\" )\n"}, utf16, true},
        {"Works Train #3", {"Works Train #3", "Works train no. 3", H::NameFirst, 0, 12, false, worksTrain()}},
        {"Förster Bummel", {"Förster Bummel", "Durch den Förstenwald", H::NameFirst, 0, kNext, false,
            Units({"fwb_e94", "fwb_abteil", "<fwb_abteil"})}, {.encoding = Encoding::Utf8}},
        {"Cafe Car", {"Cafe Car", "Café car", H::NameFirst, 0, kNext, false,
            {{"COASTLINE", "CLR_Railcar", true}, {"coastline", "Coach_Diner"}, {"Coastline", "coach_FIRST", false, true}},
            "\t\tcomment ( café à la carte )\n"}, {.encoding = Encoding::Windows1252}},
    };
    // clang-format on
}

Unit UnitOf(const Vehicle &vehicle)
{
    return {vehicle.folder, vehicle.file, IsEngine(vehicle.kind)};
}

std::vector<Unit> Units(std::initializer_list<std::string_view> files)
{
    std::vector<Unit> units;
    for (std::string_view file : files) {
        const bool flip = file.starts_with('<');
        file.remove_prefix(flip ? 1 : 0);
        units.push_back(UnitOf(FindVehicle(file)));
        units.back().flip = flip;
    }
    return units;
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
    return outer + "TrainCfg ( " + Quoted(train.title) + '\n' + headText(train, tabs, next) +
           units + train.tail + outer + ")\n";
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
