// SPDX-License-Identifier: MIT
#include "zelkctl/TextureCommand.h"

#include "korvat/formats/Png.h"
#include "korvat/formats/Texture.h"
#include "zelkctl/Session.h"

#include <cstdint>
#include <memory>

namespace zelkctl {
namespace {

/// 8192 x 8192: 256 MB when decoded, and four times the largest texture in use. A compressed file
/// of a few KB can hold more.
constexpr std::uint64_t kMaxSavedPixels = 1u << 26;

struct TextureOptions
{
    std::string file;
    std::optional<std::string> out;
    std::size_t level = 0;
};

korvat::Texture read(Session &session, const std::string &path)
{
    korvat::TextureFile file;
    NamingFile(path, [&] { file = korvat::ReadTexture(session.files.ReadFile(path)); });
    if (file.error)
        throw Failure(path + ": " + file.error.text);
    return std::move(file.texture);
}

void writeFacts(Output &out, const korvat::Texture &texture)
{
    out.Write("{\"width\":" + std::to_string(texture.width) +
              ",\"height\":" + std::to_string(texture.height) + ",\"format\":\"" + texture.storage +
              "\",\"channels\":" + std::to_string(texture.channels) +
              ",\"levels\":" + std::to_string(texture.levels.size()) +
              ",\"alpha\":" + std::to_string(texture.alphaBits) + "}\n");
}

void checkLevel(const korvat::Texture &texture, const TextureOptions &options)
{
    const std::string number = std::to_string(options.level);
    const std::size_t count = texture.levels.size();
    if (options.level >= count)
        throw Failure(options.file + ": there is no level " + number + ", the last one is " +
                      std::to_string(count - 1));
    const korvat::TextureLevel &level = texture.levels[options.level];
    if (std::uint64_t{level.width} * level.height > kMaxSavedPixels)
        throw Failure(options.file + ": level " + number + " has " + std::to_string(level.width) +
                      " x " + std::to_string(level.height) + " pixels, more than the " +
                      std::to_string(kMaxSavedPixels) +
                      " that can be saved: choose a smaller level with --level");
}

std::string pngOf(const korvat::Texture &texture, std::size_t level)
{
    korvat::PngRows rows(texture.levels[level].width, texture.levels[level].height);
    texture.Decode(level, rows.FirstPixel(), rows.Stride());
    return korvat::EncodePng(rows);
}

void texture(Session &session, const TextureOptions &options)
{
    const korvat::Texture texture = read(session, options.file);
    if (!options.out)
        return writeFacts(session.out, texture);
    checkLevel(texture, options);
    std::string png;
    NamingFile(options.file, [&] { png = pngOf(texture, options.level); });
    NamingFile(*options.out, [&] { session.files.WriteFile(*options.out, png); });
}

} // namespace

void AddTextureCommand(CLI::App &app, Session &session)
{
    const auto options = std::make_shared<TextureOptions>();
    CLI::App *command = app.add_subcommand(
        "texture", "Show what a texture (.ace, .dds) holds as JSON, or save it as a picture");
    command->add_option("file", options->file, "The texture")->required()->type_name("FILE");
    CLI::Option *out = command->add_option("--out", options->out, "The picture to write (PNG)");
    out->type_name("PNG");
    command->add_option("--level", options->level, "Which level; 0 is the largest")
        ->type_name("N")
        ->needs(out);
    command->callback([&session, options] { texture(session, *options); });
}

} // namespace zelkctl
