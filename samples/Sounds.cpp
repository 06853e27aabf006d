// SPDX-License-Identifier: MIT
#include "samples/Stock.h"

#include "samples/AceWriter.h"
#include "samples/Bytes.h"
#include "samples/TextWriter.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace samples {
namespace {

struct Sound
{
    const char *path;
    std::vector<const char *> waves;
    Encoding encoding = Encoding::Utf16Le;
};

struct Control
{
    const char *block;
    const char *type;
    const char *graphic;
};

struct Cab
{
    const char *path;
    std::vector<const char *> views;
    std::vector<Control> controls;
};

// clang-format off
std::vector<Sound> sounds()
{
    return {
        {"Common.Snd/diesel.sms", {"diesel_idle.wav", "diesel_run.wav", "horn.wav"}},
        {"Common.Snd/electric.sms", {"hum.wav", "horn.wav"}},
        {"Common.Snd/freight.sms", {"clank.wav"}, Encoding::Windows1252},
        {"Common.Snd/coach.sms", {"roll.wav"}},
        {"Common.Snd/cab.sms", {"hum.wav", "click.wav"}},
        {"TARNWICK_STEAM/SOUND/TSR_Chuff.sms", {"tsr_chuff.wav", R"(..\..\Common.Snd\clank.wav)"}},
        {"TARNWICK_STEAM/SOUND/tsr_cab.sms", {"TSR_CHUFF.WAV"}, Encoding::Windows1252},
        {"Repair Sidings/Sound/rs_nowav.sms", {R"(..\..\Common.Snd\clank.wav)", "rs_squeal.wav"}},
    };
}

constexpr std::array kWaves = {
    "Common.Snd/diesel_idle.wav", "Common.Snd/diesel_run.wav", "Common.Snd/horn.wav", "Common.Snd/hum.wav",
    "Common.Snd/clank.wav", "Common.Snd/roll.wav", "Common.Snd/click.wav", "TARNWICK_STEAM/SOUND/tsr_chuff.wav",
};

std::vector<Cab> cabs()
{
    const Control speed{"Dial", "SPEEDOMETER DIAL", "speed.ace"};
    const Control throttle{"Lever", "THROTTLE LEVER", "throttle.ace"};
    return {
        {"Common.Cab/diesel.cvf", {"front.ace", "left.ace", "right.ace"}, {speed, throttle}},
        {"Common.Cab/electric.cvf", {"front.ace"}, {speed, throttle, {"TwoState", "PANTOGRAPH TWO_STATE", "switch.ace"}}},
        {"Coastline/Cabview/clr_railcar.cvf", {"clr_front.ace"},
         {{"Dial", "SPEEDOMETER DIAL", R"(..\..\Common.Cab\speed.ace)"}, {"Lever", "THROTTLE LEVER", "../../common.cab/Throttle.ace"}}},
        {"TARNWICK_STEAM/CABVIEW/tsr_steam.cvf", {"tsr_front.ace"},
         {{"Lever", "REGULATOR LEVER", "tsr_regulator.ace"}, {"Dial", "STEAM_PR DIAL", R"(..\..\Common.Cab\speed.ace)"}}},
        {"Repair Sidings/Cabview/rs_dials.cvf", {"rs_front.ace"},
         {{"Lever", "THROTTLE LEVER", R"(..\..\Common.Cab\throttle.ace)"}, {"Dial", "SPEEDOMETER DIAL", "rs_speed.ace"}}},
    };
}

struct CabPicture
{
    const char *path;
    int width;
    int height;
};

constexpr std::array kCabPictures = std::to_array<CabPicture>({
    {"Common.Cab/front.ace", 64, 48}, {"Common.Cab/left.ace", 64, 48}, {"Common.Cab/right.ace", 64, 48},
    {"Common.Cab/speed.ace", 8, 8}, {"Common.Cab/throttle.ace", 15, 9}, {"Common.Cab/switch.ace", 8, 8},
    {"Coastline/Cabview/clr_front.ace", 60, 30}, {"TARNWICK_STEAM/CABVIEW/tsr_front.ace", 64, 48},
    {"TARNWICK_STEAM/CABVIEW/tsr_regulator.ace", 15, 9},
});
// clang-format on

std::string streamText(std::size_t number, const char *wave)
{
    const std::string start =
        number == 1 ? "Initial_Trigger ( StartLoop ( 1"
                    : "Discrete_Trigger ( " + std::to_string(number + 6) + " PlayOneShot ( 1";
    return "\t\t\tStream (\n\t\t\t\tPriority ( 5 )\n\t\t\t\tTriggers ( 1\n\t\t\t\t\t" + start +
           " File ( " + Quoted(wave) +
           " -1 ) SelectionMethod ( SequentialSelection ) ) )\n\t\t\t\t)\n"
           "\t\t\t\tVolume ( 0.8 )\n\t\t\t)\n";
}

std::string soundText(const Sound &sound)
{
    std::string out = "Tr_SMS (\n\tScalabiltyGroup ( 5\n"
                      "\t\tActivation ( ExternalCam () Distance ( 1000 ) )\n"
                      "\t\tDeactivation ( ExternalCam () Distance ( 1000 ) )\n"
                      "\t\tVolume ( 1.0 )\n\t\tStereo ()\n";
    out += "\t\tStreams ( " + std::to_string(sound.waves.size()) + '\n';
    for (std::size_t i = 0; i < sound.waves.size(); ++i)
        out += streamText(i + 1, sound.waves[i]);
    return out + "\t\t)\n\t)\n)\n";
}

std::string cabText(const Cab &cab)
{
    std::string out = "Tr_CabViewFile (\n\tCabViewType ( 1 )\n";
    for (const char *view : cab.views) {
        out += "\tCabViewFile ( " + Quoted(view) + " )\n\tCabViewWindow ( 0 0 640 480 )\n";
        out += "\tCabViewWindowFile ( \"\" )\n\tPosition ( -0.7 2.9 6.1 )\n\tDirection ( 0 0 0 )\n";
    }
    out +=
        "\tEngineData ( cab )\n\tCabViewControls ( " + std::to_string(cab.controls.size()) + '\n';
    for (const Control &control : cab.controls) {
        out += "\t\t" + std::string(control.block) + " (\n\t\t\tType ( " + control.type + " )\n";
        out += "\t\t\tPosition ( 200 300 40 40 )\n\t\t\tGraphic ( " + Quoted(control.graphic);
        out += " )\n\t\t)\n";
    }
    return out + "\t)\n)\n";
}

Picture cabPicture(int width, int height)
{
    Picture picture{width, height, {}};
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.pixels.push_back(
                {static_cast<std::uint8_t>(60 + x), static_cast<std::uint8_t>(70 + y), 80, 255});
    return picture;
}

std::string inTrainset(const char *path)
{
    return std::string("TRAINS/TRAINSET/") + path;
}

} // namespace

std::string WaveBytes()
{
    constexpr std::uint32_t rate = 11025;
    constexpr std::uint32_t samples = 64;
    std::string out = "RIFF";
    AppendU32(out, 36 + samples);
    out += "WAVEfmt ";
    AppendU32(out, 16);
    AppendU16(out, 1);
    AppendU16(out, 1);
    AppendU32(out, rate);
    AppendU32(out, rate);
    AppendU16(out, 1);
    AppendU16(out, 8);
    out += "data";
    AppendU32(out, samples);
    for (std::uint32_t i = 0; i < samples; ++i)
        out += static_cast<char>(i % 16 < 8 ? 0x90 : 0x70);
    return out;
}

SampleFiles SoundFiles()
{
    SampleFiles files;
    for (const Sound &sound : sounds())
        files.push_back({inTrainset(sound.path),
                         EncodeText("x1", soundText(sound), {.encoding = sound.encoding})});
    for (const char *wave : kWaves)
        files.push_back({inTrainset(wave), WaveBytes()});
    files.push_back({inTrainset("Repair Sidings/Sound/rs_broken.sms"),
                     EncodeText("x1", "Tr_Sound (\n\tVolume ( 1.0 )\n)\n")});
    return files;
}

SampleFiles CabFiles()
{
    SampleFiles files;
    for (const Cab &cab : cabs())
        files.push_back({inTrainset(cab.path), EncodeText("h0", cabText(cab))});
    for (const CabPicture &picture : kCabPictures)
        files.push_back(
            {inTrainset(picture.path), AceBytes(cabPicture(picture.width, picture.height), {})});
    files.push_back({inTrainset("Repair Sidings/Cabview/rs_broken.cvf"),
                     EncodeText("h0", "Tr_CabView (\n\tCabViewType ( 1 )\n)\n")});
    return files;
}

} // namespace samples
