// SPDX-License-Identifier: MIT
#include "samples/Defects.h"

#include "samples/Routes.h"
#include "samples/Stock.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <utility>

namespace samples {
namespace {

constexpr int kSubscriptOutOfRange = 9;
constexpr int kTypeMismatch = 13;
constexpr const char *kRepairOnDisk = "TRAINS/TRAINSET/Repair Sidings/";

/// Returns the path of a file in the repair sidings as the checks of stock and consists spell it.
std::string repair(std::string_view file)
{
    return R"(<MSTS>\Trains\Trainset\Repair Sidings\)" + std::string(file);
}

/// Returns the path of a file as it is spelled on disk.
std::string onDisk(std::string path)
{
    std::replace(path.begin(), path.end(), '/', '\\');
    return R"(<MSTS>\)" + path;
}

std::string missing(const std::string &file, const std::string &dependent)
{
    return "ERROR: " + file + " references missing file " + dependent;
}

std::string referenced(std::string_view subject, const std::string &file, std::string_view verdict)
{
    return "ERROR: " + std::string(subject) + " referenced by " + file + ' ' + std::string(verdict);
}

/// Returns the defect of a file in the repair sidings that names missing files.
Defect stockMissing(const char *file, const char *what, const std::vector<std::string> &dependents)
{
    Defect defect{Check::Stock, std::string(kRepairOnDisk) + file, what};
    for (const std::string &dependent : dependents)
        defect.report.push_back(missing(repair(file), repair(dependent)));
    return defect;
}

Defect stockFault(const char *file, const char *what, std::vector<std::string> report)
{
    return {Check::Stock, std::string(kRepairOnDisk) + file, what, std::move(report)};
}

// File, fault, then the missing files or the lines of the report.
// clang-format off
std::vector<Defect> wagonDefects()
{
    const std::string corrupt = " appears CORRUPT";
    const std::string squeal = repair(R"(Sound\rs_nowav.sms)");
    return {
        stockMissing("rs_box.wag", "names a thumbnail that is not there", {"rs_box_small.ace"}),
        stockMissing("rs_noshape.wag", "names a shape that is not there, nor is its descriptor",
                     {"rs_noshape.s", "rs_noshape.sd"}),
        stockMissing("rs_nodesc.wag", "the shape has no descriptor", {"rs_nodesc.sd"}),
        stockFault("rs_waggon.wag", "has no `Wagon` block", {"ERROR: " + repair("rs_waggon.wag") + corrupt}),
        stockMissing("rs_quiet.wag", "names a sound file that is not there", {R"(Sound\rs_gone.sms)"}),
        {Check::None, std::string(kRepairOnDisk) + "rs_mute.wag", "names no sound file, which is no fault"},
        stockFault("rs_badsms.wag", "its sound file has no `Tr_SMS` block",
                   {"ERROR: " + repair(R"(Sound\rs_broken.sms)") + corrupt}),
        stockFault("rs_nowav.wag", "its sound file names a wave file that is not there",
                   {missing(squeal, repair(R"(Sound\rs_squeal.wav)")),
                    "ERROR: " + squeal + " is SUSPECT due to problems with dependent files"}),
    };
}

std::vector<Defect> engineDefects()
{
    const std::string dials = repair(R"(Cabview\rs_dials.cvf)");
    const auto pseudo = [](const char *file, const char *what, const char *subject, const char *verdict) {
        return stockFault(file, what, {referenced(subject, repair(file), verdict)});
    };
    return {
        stockMissing("rs_loco.eng", "names a cab sound that is not there", {R"(Sound\rs_cab.sms)"}),
        pseudo("rs_noengine.eng", "has no `Engine` block", "Engine section", "is MISSING"),
        pseudo("rs_names.eng", "the `Wagon` block and the `Engine` block name different wagons",
               "Engine and wagon names", "appears CORRUPT"),
        pseudo("rs_nocab.eng", "names no cab view", "Cabview section", "is MISSING"),
        stockMissing("rs_cabgone.eng", "names a cab view that is not there", {R"(Cabview\rs_cabgone.cvf)"}),
        stockFault("rs_badcvf.eng", "its cab view has no `Tr_CabViewFile` block",
                   {"ERROR: " + repair(R"(Cabview\rs_broken.cvf)") + " appears CORRUPT"}),
        stockFault("rs_dials.eng", "its cab view names a view and a dial that are not there",
                   {missing(dials, repair(R"(Cabview\rs_front.ace)")),
                    missing(dials, repair(R"(Cabview\rs_speed.ace)"))}),
        pseudo("rs_silent.eng", "names no cab sound", "Sound section", "is MISSING"),
    };
}

std::vector<Defect> stockShapeDefects()
{
    const std::string paint = std::string(kRepairOnDisk) + "rs_paint";
    const std::string over = std::string(kRepairOnDisk) + "rs_over.s";
    return {
        {Check::Shape, paint + ".s", "names a texture that is not there",
         {missing(onDisk(paint + ".s"), onDisk(paint + ".ace"))}},
        {Check::Shape, over, "declares 3 textures and names 2",
         {referenced("Image count", onDisk(over), "is SUSPECT due to problems with dependent files")}},
        {Check::Shape, std::string(kRepairOnDisk) + "rs_under.s", "declares 1 texture and names 2", {},
         kSubscriptOutOfRange},
    };
}
// clang-format on

/// Returns the defect of a route shape whose texture is missing from these folders.
Defect routeShape(const std::string &route, const std::string &name, const char *what,
                  const std::vector<const char *> &folders)
{
    const std::string shapes = "ROUTES/" + route + "/SHAPES/";
    Defect defect{Check::Shape, shapes + name + ".s", what};
    for (const char *folder : folders) {
        std::string texture = shapes + "../Textures/";
        texture.append(folder).append(name).append(".ace");
        defect.report.push_back(missing(onDisk(defect.file), onDisk(texture)));
    }
    return defect;
}

std::vector<Defect> routeShapeDefects()
{
    Defect pier = routeShape("Ochre Coast", "pier", "asks for alternative textures 256", {});
    Defect shed = routeShape("Ochre Coast", "shed", "has no descriptor", {});
    pier.error = shed.error = kTypeMismatch;
    return {
        routeShape("Ochre Coast", "bridge", "names a texture that is not there", {""}),
        routeShape("TARNWICK", "barn", "asks for alternative textures 252 and has none",
                   {"Autumn/", "AutumnSnow/", "Spring/", "SpringSnow/", "Winter/", "WinterSnow/"}),
        routeShape("TARNWICK", "chapel", "asks for alternative textures 257, the night one is gone",
                   {"Night/"}),
        pier,
        shed,
    };
}

// clang-format off
std::vector<Defect> consistDefects()
{
    const auto file = [](const std::string &name) { return "TRAINS/CONSISTS/" + name + ".con"; };
    const auto path = [](const std::string &name) { return R"(<MSTS>\Trains\Consists\)" + name + ".con"; };
    const auto stock = [](const std::string &name) { return R"(<MSTS>\Trains\Trainset\)" + name + ".wag"; };
    return {
        {Check::Consist, file("Harbour Transfer"), "names a wagon that is not there",
         {missing(path("Harbour Transfer"), stock(R"(Boxes & Vans\box_gone)"))}},
        {Check::Consist, file("Quarry_Local"),
         "a folder with a blank is not quoted, so that its first word is looked for",
         {missing(path("Quarry_Local"), stock(R"(Ardmoor\avr_hopper_12)"))}},
        {Check::Consist, file("Repair Train"),
         "a vehicle has no shape, and the last one has no `Wagon` block: the check ends there",
         {missing(repair("rs_noshape.wag"), repair("rs_noshape.s")),
          referenced("Error 91 - Object variable or With block variable not set", path("Repair Train"),
                     "appears CORRUPT")}},
        {Check::Usage, "TRAINS/TRAINSET/Boxes & Vans/tank_21.wag", "is used nowhere",
         {referenced(stock(R"(Boxes & Vans\tank_21)"), "all consists", "is MISSING")}},
        {Check::Usage, file("Depot Shunter"), "is used in no service"},
        {Check::None, "ROUTES/TARNWICK/SERVICES/Ghost.srv", "names a consist that is not there"},
    };
}
// clang-format on

std::vector<Defect> binaryShapes()
{
    std::vector<Defect> all;
    const auto add = [&](const std::string &path, ShapeForm form) {
        const char *what = form == ShapeForm::Binary ? "is binary" : "is compressed";
        if (!IsTextForm(form))
            all.push_back(
                {Check::Shape, path, what, {"ERROR: " + onDisk(path) + " is COMPRESSED"}});
    };
    for (const StockShape &shape : StockShapes())
        add("TRAINS/TRAINSET/" + std::string(shape.folder) + '/' + shape.name + ".s", shape.form);
    for (const RouteShape &shape : RouteShapes())
        add("ROUTES/" + std::string(shape.route) + "/SHAPES/" + shape.name + ".s", shape.form);
    return all;
}

} // namespace

const char *CheckName(Check check)
{
    // In the order of Check.
    constexpr std::array names = {"stock", "shape", "consist", "usage", "-"};
    return names.at(static_cast<std::size_t>(check));
}

std::vector<Defect> Defects()
{
    std::vector<Defect> all;
    for (auto group : {wagonDefects(), engineDefects(), stockShapeDefects(), routeShapeDefects(),
                       consistDefects(), binaryShapes()})
        std::move(group.begin(), group.end(), std::back_inserter(all));
    return all;
}

} // namespace samples
