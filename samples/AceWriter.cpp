// SPDX-License-Identifier: MIT
#include "samples/AceWriter.h"

#include "samples/Bytes.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <limits>
#include <stdexcept>

namespace samples {
namespace {

enum Channel : std::uint64_t
{
    Mask = 2,
    Red,
    Green,
    Blue,
    Alpha
};

constexpr std::uint32_t kHasMipmaps = 0x01;
constexpr std::uint32_t kOftenSet = 0x04;
constexpr std::uint32_t kRawData = 0x10;

using Block = std::array<Colour, 16>;

std::vector<Channel> channelsOf(AceAlpha alpha)
{
    std::vector<Channel> channels = {Red, Green, Blue};
    if (alpha != AceAlpha::None)
        channels.push_back(Mask);
    if (alpha == AceAlpha::Full)
        channels.push_back(Alpha);
    return channels;
}

std::uint32_t surfaceOf(const AceFormat &format)
{
    if (format.dxt1)
        return 0x12;
    return format.alpha == AceAlpha::None ? 0x0E : format.alpha == AceAlpha::Mask ? 0x10 : 0x11;
}

bool isOpaque(const Colour &colour)
{
    return colour.alpha >= 128;
}

const Colour &pixelAt(const Picture &picture, int x, int y)
{
    return picture.pixels[static_cast<std::size_t>(y) * picture.width + x];
}

Colour meanOf(const Picture &picture, int x, int y)
{
    std::array<int, 4> sum{};
    for (int i = 0; i < 4; ++i) {
        const Colour &pixel = pixelAt(picture, x + i % 2, y + i / 2);
        sum[0] += pixel.red;
        sum[1] += pixel.green;
        sum[2] += pixel.blue;
        sum[3] += pixel.alpha;
    }
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value / 4); };
    return {byte(sum[0]), byte(sum[1]), byte(sum[2]), byte(sum[3])};
}

std::vector<Picture> levelsOf(const Picture &picture, bool mipmaps)
{
    std::vector<Picture> levels = {picture};
    while (mipmaps && levels.back().width > 1) {
        const Picture &last = levels.back();
        Picture next{last.width / 2, last.height / 2, {}};
        for (int y = 0; y < last.height; y += 2)
            for (int x = 0; x < last.width; x += 2)
                next.pixels.push_back(meanOf(last, x, y));
        levels.push_back(std::move(next));
    }
    return levels;
}

/// The most significant bit is the leftmost pixel.
void appendMaskRow(std::string &out, const Picture &picture, int y)
{
    for (int x = 0; x < picture.width; x += 8) {
        unsigned bits = 0;
        for (int i = x; i < std::min(x + 8, picture.width); ++i)
            bits |= isOpaque(pixelAt(picture, i, y)) ? 0x80U >> static_cast<unsigned>(i - x) : 0U;
        out += static_cast<char>(bits);
    }
}

std::uint8_t sampleOf(const Colour &colour, Channel channel)
{
    const std::array samples = {colour.red, colour.green, colour.blue, colour.alpha};
    return samples.at(channel - Red);
}

void appendRow(std::string &out, const Picture &picture, int y,
               const std::vector<Channel> &channels)
{
    for (const Channel channel : channels) {
        if (channel == Mask) {
            appendMaskRow(out, picture, y);
            continue;
        }
        for (int x = 0; x < picture.width; ++x)
            out += static_cast<char>(sampleOf(pixelAt(picture, x, y), channel));
    }
}

std::uint32_t to565(const Colour &c)
{
    return (c.red >> 3U) << 11U | (c.green >> 2U) << 5U | c.blue >> 3U;
}

Colour from565(std::uint32_t c)
{
    return {static_cast<std::uint8_t>((c >> 11U) * 255 / 31),
            static_cast<std::uint8_t>((c >> 5U & 63U) * 255 / 63),
            static_cast<std::uint8_t>((c & 31U) * 255 / 31), 255};
}

int distance(const Colour &a, const Colour &b)
{
    return std::abs(a.red - b.red) + std::abs(a.green - b.green) + std::abs(a.blue - b.blue);
}

Colour mix(const Colour &a, const Colour &b, int partsOfA, int partsOfB)
{
    const auto one = [&](int x, int y) {
        return static_cast<std::uint8_t>((x * partsOfA + y * partsOfB) / (partsOfA + partsOfB));
    };
    return {one(a.red, b.red), one(a.green, b.green), one(a.blue, b.blue), 255};
}

/// Returns the darkest and the brightest opaque colour, in 5-6-5 format.
std::pair<std::uint32_t, std::uint32_t> endsOf(const Block &block)
{
    const Colour black{0, 0, 0, 255};
    int low = std::numeric_limits<int>::max();
    int high = -1;
    std::pair<std::uint32_t, std::uint32_t> ends{0, 0};
    for (const Colour &c : block) {
        if (!isOpaque(c))
            continue;
        const int brightness = distance(c, black);
        if (brightness < low) {
            low = brightness;
            ends.first = to565(c);
        }
        if (brightness > high) {
            high = brightness;
            ends.second = to565(c);
        }
    }
    return ends;
}

/// If the first end colour is greater, the block has four colours. Else index 3 is transparent.
void appendBlock(std::string &out, const Block &block)
{
    const bool holes = !std::all_of(block.begin(), block.end(), isOpaque);
    auto [first, second] = endsOf(block);
    if (holes == (first > second))
        std::swap(first, second);
    const Colour a = from565(first);
    const Colour b = from565(second);
    const bool four = first > second;
    const std::array<Colour, 4> palette = {a, b, four ? mix(a, b, 2, 1) : mix(a, b, 1, 1),
                                           four ? mix(a, b, 1, 2) : Colour{0, 0, 0, 0}};
    std::uint32_t indices = 0;
    for (unsigned i = 0; i < 16; ++i) {
        const auto worse = [&](const Colour &x, const Colour &y) {
            return distance(x, block[i]) < distance(y, block[i]);
        };
        const auto nearest =
            std::min_element(palette.begin(), palette.begin() + (four ? 4 : 3), worse);
        const auto index = isOpaque(block[i]) ? nearest - palette.begin() : 3;
        indices |= static_cast<std::uint32_t>(index) << (2 * i);
    }
    AppendU16(out, static_cast<std::uint16_t>(first));
    AppendU16(out, static_cast<std::uint16_t>(second));
    AppendU32(out, indices);
}

std::string blocksOf(const Picture &picture)
{
    std::string out;
    AppendU32(out, static_cast<std::uint32_t>(picture.width * picture.height / 2));
    for (int y = 0; y < picture.height; y += 4) {
        for (int x = 0; x < picture.width; x += 4) {
            Block block;
            for (int i = 0; i < 16; ++i)
                block[static_cast<std::size_t>(i)] = pixelAt(picture, x + i % 4, y + i / 4);
            appendBlock(out, block);
        }
    }
    return out;
}

/// Returns the data after the channel table: one piece per row, or per level with DXT1.
std::vector<std::string> piecesOf(const Picture &picture, const AceFormat &format)
{
    std::vector<std::string> pieces;
    const std::vector<Channel> channels = channelsOf(format.alpha);
    for (const Picture &level : levelsOf(picture, format.mipmaps)) {
        if (format.dxt1 && level.width >= 4) {
            pieces.push_back(blocksOf(level));
            continue;
        }
        for (int y = 0; y < level.height; ++y) {
            if (!format.dxt1 || y == 0)
                pieces.emplace_back();
            appendRow(pieces.back(), level, y, channels);
        }
    }
    return pieces;
}

std::string headerOf(const Picture &picture, const AceFormat &format)
{
    const std::vector<Channel> channels = channelsOf(format.alpha);
    std::string out;
    AppendU32(out, 1);
    AppendU32(out, kOftenSet | (format.mipmaps ? kHasMipmaps : 0) | (format.dxt1 ? kRawData : 0));
    AppendU32(out, static_cast<std::uint32_t>(picture.width));
    AppendU32(out, static_cast<std::uint32_t>(picture.height));
    AppendU32(out, surfaceOf(format));
    AppendU32(out, static_cast<std::uint32_t>(channels.size()));
    AppendU32(out, 0);
    out += "Unknown";
    out.resize(152, '\0');
    for (const Channel channel : channels) {
        AppendU64(out, channel == Mask ? 1 : 8);
        AppendU64(out, channel);
    }
    return out;
}

void requireFitting(const Picture &picture, const AceFormat &format)
{
    const auto side = static_cast<unsigned>(picture.width);
    if (picture.width <= 0 || picture.height <= 0 ||
        picture.pixels.size() != static_cast<std::size_t>(picture.width) * picture.height)
        throw std::invalid_argument("texture: pixels do not match the size");
    if (format.mipmaps && (picture.width != picture.height || !std::has_single_bit(side)))
        throw std::invalid_argument("texture: smaller levels need a square power of two");
    if (format.dxt1 && (picture.width % 4 != 0 || picture.height % 4 != 0))
        throw std::invalid_argument("texture: blocks need sides that are multiples of 4");
}

} // namespace

std::string AceBytes(const Picture &picture, const AceFormat &format)
{
    requireFitting(picture, format);
    std::string payload = headerOf(picture, format);
    const std::vector<std::string> pieces = piecesOf(picture, format);
    std::size_t at = payload.size() + pieces.size() * 4;
    for (const std::string &piece : pieces) {
        AppendU32(payload, static_cast<std::uint32_t>(at));
        at += piece.size();
    }
    for (const std::string &piece : pieces)
        payload += piece;
    return format.compressed ? CompressPayload(payload) : StorePayload(payload);
}

Picture PanelPicture(int side, Colour base, Colour trim)
{
    Picture picture{side, side, {}};
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const bool edge = y == 0 || x == 0 || x == side - 1;
            picture.pixels.push_back(edge ? trim : base);
        }
    }
    return picture;
}

} // namespace samples
