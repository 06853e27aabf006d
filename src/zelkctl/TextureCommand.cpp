// SPDX-License-Identifier: MIT
#include "zelkctl/TextureCommand.h"

#include "korvat/formats/Png.h"
#include "korvat/formats/Texture.h"
#include "zelkctl/Session.h"

#include <memory>

namespace zelkctl {
namespace {

struct TextureOptions
{
    std::string file;
    std::optional<std::string> out;
    std::size_t level = 0;
};

korvat::Texture read(Session &session, const std::string &path)
{
    std::string bytes;
    NamingFile(path, [&] { bytes = session.files.ReadFile(path); });
    korvat::TextureFile file = korvat::ReadTexture(bytes);
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

void texture(Session &session, const TextureOptions &options)
{
    const korvat::Texture picture = read(session, options.file);
    if (!options.out)
        return writeFacts(session.out, picture);
    const std::size_t count = picture.levels.size();
    if (options.level >= count)
        throw Failure(options.file + ": there is no level " + std::to_string(options.level) +
                      ", the last one is " + std::to_string(count - 1));
    const korvat::TextureLevel &level = picture.levels[options.level];
    const std::string png =
        korvat::EncodePng(level.width, level.height, picture.Decoded(options.level));
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
