// SPDX-License-Identifier: MIT
#include "samples/Looks.h"

#include "samples/Modeller.h"
#include "samples/Stock.h"

#include <string>

namespace samples {
namespace {

constexpr const char *kFolder = "TRAINS/TRAINSET/Night Line/";
constexpr int kSnowAndNight = 1 + 256;

constexpr const char *kRailcar = R"(Wagon ( nl_railcar
	Type ( Engine )
	WagonShape ( nl_railcar.s )
	Size ( 2.8m 3.6m 14.6m )
	Mass ( 32t )
	Coupling ( Type ( Automatic ) )
	Lights ( 7
		Light ( Type ( 0 ) Conditions ( Headlight ( 3 ) Unit ( 2 ) )
			States ( 1 State ( LightColour ( ffffeec0 ) Position ( -0.9 1.5 7.1 ) Azimuth ( 0 0 0 ) Radius ( 1.1 ) ) ) )
		Light ( Type ( 0 ) Conditions ( Headlight ( 3 ) Unit ( 2 ) )
			States ( 1 State ( LightColour ( ffffeec0 ) Position ( 0.9 1.5 7.1 ) Azimuth ( 0 0 0 ) Radius ( 1.1 ) ) ) )
		Light ( Type ( 0 ) Conditions ( Headlight ( 2 ) Unit ( 2 ) )
			States ( 1 State ( LightColour ( 8000ff00 ) Position ( 0 3.4 7.1 ) Azimuth ( 0 0 0 ) Radius ( 1 ) ) ) )
		Light ( Type ( 1 ) Conditions ( Headlight ( 3 ) Unit ( 2 ) TimeOfDay ( 2 ) )
			States ( 1 State ( LightColour ( ffffeec0 ) Position ( 0 3 7.2 ) Azimuth ( 0 0 0 ) Radius ( 120 ) Angle ( 18 ) ) ) )
		Light ( Type ( 0 ) Conditions ( Unit ( 3 ) )
			States ( 2
				State ( Duration ( 0.35 ) LightColour ( ffff2010 ) Position ( -0.9 1.5 -7.1 ) Azimuth ( 180 180 180 ) Radius ( 0.6 ) )
				State ( Duration ( 0.35 ) LightColour ( 00000000 ) Position ( -0.9 1.5 -7.1 ) Azimuth ( 180 180 180 ) Radius ( 0.6 ) ) ) )
		Light ( Type ( 0 ) Conditions ( Unit ( 3 ) )
			States ( 1 State ( LightColour ( ffff2010 ) Position ( 0.9 1.5 -7.1 ) Azimuth ( 180 180 180 ) Radius ( 0.6 ) ) ) )
		Light ( Type ( 0 ) Conditions ( Service ( 1 ) )
			States ( 1 State ( LightColour ( ff2040ff ) Position ( 0 3.6 0 ) Radius ( 1 ) ) ) )
	)
)
Engine ( nl_railcar
	Wagon ( nl_railcar )
	Name ( "Night railcar" )
	Type ( Diesel )
	MaxPower ( 250kW )
)
)";

constexpr const char *kVan = R"(Wagon ( nl_van
	Type ( Freight )
	Name ( "Van without its texture" )
	WagonShape ( nl_van.s )
	Size ( 2.7m 3.5m 10.6m )
	Mass ( 12t )
	Coupling ( Type ( Automatic ) )
	Lights ( 2
		Light ( Type ( 0 ) Conditions ( Unit ( 3 ) )
			States ( 1 State ( LightColour ( ffff2010 ) Position ( -1 1.6 -5.1 ) Azimuth ( 180 180 180 ) Radius ( 0.6 ) ) ) )
		Light ( Type ( 0 ) Conditions ( Unit ( 3 ) )
			States ( 1 State ( LightColour ( ffff2010 ) Position ( 1 1.6 -5.1 ) Azimuth ( 180 180 180 ) Radius ( 0.6 ) ) ) )
	)
)
)";

constexpr const char *kConsist = R"(Train (
	TrainCfg ( "Night Line"
		Name ( "Night line" )
		Serial ( 1 )
		MaxVelocity ( 22.22222 0.10000 )
		NextWagonUID ( 3 )
		Durability ( 0.50000 )
		Engine ( EngineData ( nl_railcar "Night Line" ) UiD ( 0 ) )
		Wagon ( WagonData ( nl_van "Night Line" ) UiD ( 1 ) )
		Wagon ( WagonData ( nl_van "Night Line" ) UiD ( 2 ) )
	)
)";

PaintedModel built(const char *definition, const char *season, const char *image)
{
    Modeller modeller(256, {90, 94, 98, 255}, {image});
    modeller.BeginLevel(2000);
    modeller.script.Set("season", season);
    modeller.script.Run("looks");
    modeller.script.Call(definition);
    return modeller.Finish(modeller.sheet.Pixels());
}

void addShape(SampleFiles &files, const std::string &file, int alternative,
              const PaintedModel &model)
{
    files.push_back({kFolder + file, ShapeBytes(model.model, ShapeForm::Compressed)});
    files.push_back(
        {kFolder + file + 'd', DescriptorBytes(file, alternative, model.low, model.high)});
}

} // namespace

SampleFiles LookFiles()
{
    constexpr const char *image = "nl_railcar.ace";
    SampleFiles files;
    files.push_back({std::string(kFolder) + "nl_railcar.eng", EncodeText("D0", kRailcar)});
    files.push_back({std::string(kFolder) + "nl_van.wag", EncodeText("D0", kVan)});
    files.push_back({"TRAINS/CONSISTS/Night Line.con", EncodeText("D0", kConsist)});
    addShape(files, "nl_railcar.s", kSnowAndNight, built("Railcar", "Summer", image));
    addShape(files, "nl_van.s", 0, built("Van", "Summer", "nl_gone.ace"));
    for (const std::string season : {"Summer", "Snow", "Night"})
        files.push_back({kFolder + (season == "Summer" ? "" : season + '/') + image,
                         AceBytes(built("Railcar", season.c_str(), image).picture, {})});
    return files;
}

} // namespace samples
