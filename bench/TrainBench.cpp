// SPDX-License-Identifier: MIT
// Measures the cost of a train of 100 vehicles without the graphics card: opening it, compared with
// reading and inflating its files once, and each of its frames.
#include "Measure.h"
#include "Processes.h"
#include "SampleTrain.h"
#include "host/GameFiles.h"
#include "host/Settings.h"
#include "host/UnansweredDialogs.h"
#include "install/Environment.h"
#include "install/Installation.h"
#include "korvat/draw/SceneCanvas.h"
#include "korvat/formats/Container.h"
#include "korvat/formats/Limits.h"
#include "korvat/model/ModelLibrary.h"
#include "viewer/Stage.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

constexpr int kFrames = 200;

[[noreturn]] void giveUp(const std::string &what)
{
    std::fprintf(stderr, "zelk-train-bench: %s\n", what.c_str());
    std::exit(1);
}

/// Dialogs that end the program: no file may be missing here.
class NoDialogs : public host::UnansweredDialogs
{
public:
    host::DialogAnswer Message(const std::string &text, const std::string &, host::DialogIcon,
                               host::DialogButtons) override
    {
        giveUp(text);
    }
};

/// A device that draws nothing and takes no time.
class NoDevice : public korvat::Device
{
public:
    unsigned UploadMesh(std::span<const korvat::DrawVertex>,
                        std::span<const std::uint32_t>) override
    {
        return ++m_given;
    }
    unsigned UploadTexture(const korvat::Texture &) override { return ++m_given; }
    void ReleaseMesh(unsigned) override {}
    void ReleaseTexture(unsigned) override {}
    void BeginShadow(const korvat::ShadowMap &, std::size_t number) override
    {
        if (number == 0)
            shadows = 0;
    }
    void DrawShadow(const korvat::ShadowCall &, std::span<const korvat::Transform>) override
    {
        ++shadows;
    }
    void BeginFrame(const korvat::FrameSetup &) override { draws = 0; }
    void Draw(const korvat::DrawCall &, std::span<const korvat::Transform>) override { ++draws; }
    void EndFrame() override {}

    std::size_t draws = 0, shadows = 0; ///< of the last frame

private:
    unsigned m_given = 0;
};

class Canvas : public korvat::SceneCanvas
{
public:
    void Paint(korvat::Device &device) { renderer().Paint(device, 1280, 800); }
    void SetShadows(bool shadows) { renderer().SetShadows(shadows); }
    /// Far enough away to see the whole train.
    void LookAtAll(float trainMiddle)
    {
        renderer().SetCamera({-2 * trainMiddle, 30, trainMiddle}, {0, 0, trainMiddle});
        SetRangeFar(static_cast<long>(-4 * trainMiddle) + 100);
    }
};

/// A train opened in a scene.
struct Window
{
    explicit Window(const bench::SampleTrain &train)
        : settings(train.folder + "/settings.ini")
        , library(files)
        , stage({dialogs, files, settings, installation, library}, &canvas,
                [](const std::string &) {})
    {
        stage.RenderConsist(train.consist, train.folder);
        while (stage.Step())
            continue;
        canvas.Paint(device);
    }
    NoDialogs dialogs;
    NoDevice device;
    host::GameFiles files;
    host::IniSettings settings;
    install::Installation installation;
    korvat::ModelLibrary library;
    Canvas canvas;
    viewer::Stage stage;
};

void readAndInflate(const std::vector<std::string> &paths)
{
    for (const std::string &path : paths) {
        std::ifstream file(path, std::ios::binary | std::ios::ate);
        std::string bytes(static_cast<std::size_t>(file.tellg()), '\0');
        file.seekg(0).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        korvat::Container container;
        if (bytes.starts_with("SIMISA@F"))
            korvat::OpenContainer(bytes, korvat::kMaxShapeBytes, container);
    }
}

/// Returns the size of a file that has been inflated.
std::size_t inflatedSize(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    korvat::Container container;
    const bool packed = bytes.starts_with("SIMISA@F") &&
                        !korvat::OpenContainer(bytes, korvat::kMaxShapeBytes, container);
    return packed ? container.payload.size() : bytes.size();
}

/// Compares the memory of an open train with the size of its files.
bench::Row memoryRow(const bench::SampleTrain &train)
{
    constexpr double kMebibyte = 1024 * 1024;
    std::size_t size = 0;
    for (const std::string &path : train.Files())
        size += inflatedSize(path);
    return {"memory of an open train, peak", "its files, inflated",
            bench::PeakMebibytes([&train] { Window window(train); }),
            static_cast<double>(size) / kMebibyte, "MB"};
}

bench::Row frameRow(Window &window, bool shadows, const char *name)
{
    window.canvas.LookAtAll(window.stage.TrainMiddle());
    window.canvas.SetShadows(shadows);
    window.canvas.Paint(window.device);
    const double before = bench::ProcessorMilliseconds();
    for (int i = 0; i < kFrames; ++i) {
        window.stage.View()->ShowModels();
        window.canvas.Paint(window.device);
    }
    const double each = (bench::ProcessorMilliseconds() - before) / kFrames;
    return {name, "limit", each, 1};
}

int run(const bench::SampleTrain &train, const bench::SampleTrain &textTrain)
{
    const bench::Row memory = memoryRow(train); // first, while this process holds little memory
    const std::vector<std::string> paths = train.Files();
    const std::vector<std::string> textPaths = textTrain.Files();
    const bench::Row open = bench::Compare(
        "open a train to its first frame, no card", [&] { Window window(train); },
        "read and inflate its files once", [&] { readAndInflate(paths); }, 15);
    const bench::Row openText = bench::Compare(
        "the same, all shapes text", [&] { Window window(textTrain); },
        "read and inflate its files once", [&] { readAndInflate(textPaths); }, 15);
    Window window(train);
    const bench::Row frame = frameRow(window, false, "a frame of the train, processor time");
    const bench::Row shadows = frameRow(window, true, "a frame with shadows, processor time");
    const auto draws = static_cast<double>(window.device.draws);
    const auto casts = static_cast<double>(window.device.shadows);
    bench::PrintTable({open,
                       openText,
                       memory,
                       frame,
                       shadows,
                       {"draw calls of a frame", "limit", draws, 300, "calls"},
                       {"draw calls of its shadows", "limit", casts, 300, "calls"}});
    std::printf("%d vehicles, %zu files\n", window.stage.Total(), paths.size());
    return 0;
}

} // namespace

int main()
{
    const std::filesystem::path folder = bench::MakeTemporaryFolder();
    const int result = run(bench::MakeSampleTrain(folder / "mixed"),
                           bench::MakeSampleTrain(folder / "text", bench::Shapes::Text));
    std::filesystem::remove_all(folder);
    return result;
}
