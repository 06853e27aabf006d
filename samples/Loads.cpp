// SPDX-License-Identifier: MIT
#include "samples/Loads.h"

#include "samples/Modeller.h"
#include "samples/Stock.h"

#include <array>
#include <string>

namespace samples {
namespace {

constexpr const char *kFolder = "TRAINS/TRAINSET/Loaded Cars/";
constexpr const char *kImage = "lc_load.ace";

struct Car
{
    const char *file, *title;
    const char *entries; ///< of the Wagon block
};

constexpr std::array kCars = std::to_array<Car>({
    {"lc_crates", "Flat with crates", R"(	FreightAnim ( lc_crates.s 1 1 )
)"},
    {"lc_pair", "Flat with two crates", R"(	ORTSFreightAnims (
		WagonEmptyWeight ( 24t )
		FreightAnimStatic (
			Shape ( lc_crate.s )
			Offset ( 0, 1.27, 5 )
			FreightWeight ( 3t )
		)
		FreightAnimStatic (
			Shape ( lc_crate.s )
			Offset ( 0, 1.27, -5 )
			FreightWeight ( 3t )
			Flip ( )
		)
	)
	Coupling (
		Type ( Automatic )
		FrontCouplerAnim ( lc_hook.s 0 0.95 0 )
		FrontCouplerOpenAnim ( lc_open.s 0 0.95 0 )
		RearCouplerAnim ( lc_hook.s 0 0.95 0 )
		RearCouplerOpenAnim ( lc_open.s 0 0.95 0 )
		FrontAirHoseAnim ( lc_hose.s 0.6 0.95 0 )
		RearAirHoseAnim ( lc_hose.s 0.6 0.95 0 )
	)
)"},
    {"lc_ore", "Flat with ore", R"(	ORTSFreightAnims (
		WagonEmptyWeight ( 24t )
		FreightAnimContinuous (
			Shape ( lc_ore.s )
			Offset ( 0, 1.07, 0 )
			MinHeight ( -0.5 )
			MaxHeight ( 0.2 )
			FreightWeightWhenFull ( 40t )
			FullAtStart ( 1 )
		)
		FreightAnimContinuous (
			Shape ( lc_crates.s )
			MaxHeight ( 1 )
			FullAtStart ( 0 )
		)
	)
)"},
});

constexpr const char *kConsist = R"(Train (
	TrainCfg ( "Loaded Cars"
		Name ( "Loaded cars" )
		Serial ( 1 )
		MaxVelocity ( 22.22222 0.10000 )
		NextWagonUID ( 5 )
		Durability ( 0.50000 )
		Engine ( EngineData ( avr_d401 "Ardmoor Valley" ) UiD ( 0 ) )
		Wagon ( WagonData ( lc_crates "Loaded Cars" ) UiD ( 1 ) )
		Wagon ( WagonData ( lc_pair "Loaded Cars" ) UiD ( 2 ) )
		Wagon ( WagonData ( lc_ore "Loaded Cars" ) UiD ( 3 ) )
		Wagon ( WagonData ( lc_pair "Loaded Cars" ) UiD ( 4 ) Flip ( ) )
	)
)";

/// Returns the text of a flat car of another folder; its deck is 1.27 m above the rails.
std::string textOf(const Car &car)
{
    return "Wagon ( " + std::string(car.file) + "\n\tType ( Freight )\n\tName ( " +
           Quoted(car.title) + " )\n\tWagonShape ( \"..\\\\Kestrel 62' Flats\\\\flat 6201.s\" )\n" +
           "\tSize ( 3m 3m 18.9m )\n\tMass ( 24t )\n" +
           "\tSound ( \"..\\\\..\\\\Common.Snd\\\\freight.sms\" )\n" + car.entries + ")\n";
}

/// The shapes by file and definition in the script.
constexpr std::array<std::array<const char *, 2>, 6> kShapes = {{{"lc_crates", "Crates"},
                                                                 {"lc_crate", "Crate"},
                                                                 {"lc_ore", "Ore"},
                                                                 {"lc_hook", "Hook"},
                                                                 {"lc_open", "OpenHook"},
                                                                 {"lc_hose", "Hose"}}};

PaintedModel built(const char *definition)
{
    Modeller modeller(256, {140, 130, 110, 255}, {kImage});
    modeller.BeginLevel(2000);
    modeller.script.Run("loads");
    modeller.script.Call(definition);
    return modeller.Finish(modeller.sheet.Pixels());
}

} // namespace

SampleFiles LoadFiles()
{
    SampleFiles files;
    for (const Car &car : kCars)
        files.push_back({std::string(kFolder) + car.file + ".wag", EncodeText("D0", textOf(car))});
    files.push_back({"TRAINS/CONSISTS/Loaded Cars.con", EncodeText("D0", kConsist)});
    for (const auto &[file, definition] : kShapes) {
        const PaintedModel model = built(definition);
        const std::string path = std::string(kFolder) + file;
        files.push_back({path + ".s", ShapeBytes(model.model, ShapeForm::Compressed)});
        files.push_back(
            {path + ".sd", DescriptorBytes(std::string(file) + ".s", 0, model.low, model.high)});
    }
    files.push_back({std::string(kFolder) + kImage, AceBytes(built("Crate").picture, {})});
    return files;
}

} // namespace samples
