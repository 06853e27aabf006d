// SPDX-License-Identifier: MIT
// Smaller levels of compressed textures: for any blocks there are all levels down to one pixel, and
// each can be decoded. The first bytes give format and size.
#include "Input.h"
#include "TextureFuzz.h"
#include "korvat/formats/Mipmaps.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Input input(data, size);
    constexpr korvat::PixelFormat kFormats[] = {
        korvat::PixelFormat::Dxt1, korvat::PixelFormat::Dxt3, korvat::PixelFormat::Dxt5};
    const korvat::PixelFormat format = kFormats[input.Below(3)];
    korvat::TextureFile file;
    korvat::Texture &texture = file.texture;
    texture.width = 1u << input.Below(8);
    texture.height = 1u << input.Below(8);
    texture.alphaBits = format == korvat::PixelFormat::Dxt1 ? input.Below(2) : 8;
    const std::size_t bytes = LevelSize(format, texture.width, texture.height);
    const std::string_view blocks = input.Text(bytes);
    texture.data.assign(blocks.begin(), blocks.end());
    texture.data.resize(bytes);
    texture.levels.push_back({texture.width, texture.height, format, 0, bytes});
    const std::vector<std::uint8_t> largest = texture.Decoded(0);
    MakeSmallerLevels(texture);
    CheckTexture(file, bytes);
    Require(texture.Decoded(0) == largest);
    for (std::size_t i = 1; i < texture.levels.size(); ++i)
        Require(texture.levels[i].width == std::max(texture.width >> i, 1u) &&
                texture.levels[i].height == std::max(texture.height >> i, 1u));
    return 0;
}
