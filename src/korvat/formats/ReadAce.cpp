// SPDX-License-Identifier: MIT
#include "korvat/formats/ReadAce.h"

#include "korvat/formats/Container.h"
#include "korvat/formats/Limits.h"
#include "korvat/formats/TextureBuilder.h"

#include <algorithm>
#include <array>
#include <bit>

namespace korvat {
namespace {

constexpr std::uint32_t kHasMipmaps = 0x01, kRawData = 0x10; // options
constexpr std::size_t kChannelTable = 152;

enum ChannelType : std::uint64_t
{
    Mask = 2,
    Red,
    Green,
    Blue,
    Alpha
};

struct Channel
{
    std::uint64_t bits = 0, type = 0;
};

std::size_t rowSize(const Channel &channel, std::size_t width)
{
    return channel.bits == 1 ? (width + 7) / 8 : width;
}

class AceReader
{
public:
    explicit AceReader(TextureFile &file)
        : m_file(file)
        , m_texture(file.texture)
    {
    }

    ReadError Run(ByteReader payload)
    {
        if (ReadError error = header(payload))
            return error;
        if (ReadError error = channels(payload))
            return error;
        m_where = payload.Where();
        const bool raw = m_options & kRawData;
        if (!raw)
            m_texture.storage = "structured";
        else if (ReadError error = storage())
            return error;
        // The table's offsets are wrong in some files, and the data is always in sequence.
        if (!payload.Skip(4 * tableSize(raw)))
            return tooShort();
        for (std::size_t level = 0; level < levelCount(); ++level)
            if (!(raw ? rawLevel(payload, level) : structuredLevel(payload, level, false)))
                break;
        if (m_texture.levels.empty())
            return tooShort();
        if (m_texture.levels.size() < levelCount())
            m_file.notes.emplace_back("the smaller levels are missing");
        return {};
    }

private:
    ReadError tooShort() const
    {
        return {Status::Damaged, m_where, "the texture ends before most of its picture"};
    }

    ReadError header(ByteReader &payload)
    {
        m_where = payload.Where();
        const auto head = payload.TakeReader(kChannelTable);
        if (!head)
            return {Status::Damaged, m_where, "the texture ends within its header"};
        ByteReader fields = *head;
        if (fields.ReadU32() != 1U)
            return {Status::NotThisFormat, m_where, "there is no texture in the file"};
        m_options = *fields.ReadU32();
        m_texture.width = *fields.ReadU32();
        m_texture.height = *fields.ReadU32();
        m_surface = *fields.ReadU32();
        m_texture.channels = *fields.ReadU32();
        return CheckTextureSize(m_texture.width, m_texture.height, m_where + 8);
    }

    ReadError channels(ByteReader &payload)
    {
        m_where = payload.Where();
        if (m_texture.channels == 0 || m_texture.channels > kMaxChannels)
            return {Status::Unsupported, m_where,
                    "the texture has " + std::to_string(m_texture.channels) + " channels"};
        for (unsigned i = 0; i < m_texture.channels; ++i) {
            const auto bits = payload.ReadU64(), type = payload.ReadU64();
            if (!type)
                return {Status::Damaged, m_where, "the texture ends within its channel table"};
            const bool known = *type >= Mask && *type <= Alpha;
            if (!known || *bits != (*type == Mask ? 1U : 8U) || has(*type))
                return {Status::Unsupported, m_where + std::size_t{16} * i,
                        "the texture has a channel of type " + std::to_string(*type) + " with " +
                            std::to_string(*bits) + " bits"};
            m_channels.push_back({*bits, *type});
        }
        if (!has(Red) || !has(Green) || !has(Blue))
            return {Status::Unsupported, m_where, "the texture lacks red, green or blue"};
        m_texture.alphaBits = has(Alpha) ? 8 : has(Mask) ? 1 : 0;
        return {};
    }

    ReadError storage()
    {
        switch (m_surface) {
        case 0x0E:
            m_texture.storage = "565";
            return {};
        case 0x10:
            m_texture.storage = "1555";
            return {};
        case 0x11:
            m_texture.storage = "4444";
            return {};
        case 0x12:
            return blocks("dxt1", PixelFormat::Dxt1);
        case 0x14:
            return blocks("dxt3", PixelFormat::Dxt3);
        case 0x16:
            return blocks("dxt5", PixelFormat::Dxt5);
        default:
            return {Status::Unsupported, m_where,
                    "the texture's pixels are of the unknown kind " + std::to_string(m_surface)};
        }
    }

    ReadError blocks(const char *name, PixelFormat format)
    {
        m_texture.storage = name;
        m_format = format;
        return {};
    }

    bool has(std::uint64_t type) const
    {
        return std::any_of(m_channels.begin(), m_channels.end(),
                           [type](const Channel &channel) { return channel.type == type; });
    }

    std::size_t levelCount() const
    {
        return m_options & kHasMipmaps ? std::bit_width(m_texture.width) : 1;
    }

    /// Returns the number of offsets: one per row, or one per level if raw.
    std::size_t tableSize(bool raw) const
    {
        if (raw)
            return levelCount();
        std::size_t rows = 0;
        for (std::size_t level = 0; level < levelCount(); ++level)
            rows += SideOf(m_texture.height, level);
        return rows;
    }

    /// Reads a level of a raw texture. A level too small for a block is stored in rows, without a
    /// byte count.
    bool rawLevel(ByteReader &payload, std::size_t level)
    {
        const std::uint32_t width = SideOf(m_texture.width, level);
        const std::uint32_t height = SideOf(m_texture.height, level);
        if (width < 4 || height < 4)
            return structuredLevel(payload, level, true);
        const auto count = payload.ReadU32();
        if (!count)
            return false;
        const bool packed = m_format == PixelFormat::Rgba8;
        const std::size_t wanted =
            packed ? std::size_t{2} * width * height : LevelSize(m_format, width, height);
        const Bytes there = *payload.Take(std::min<std::size_t>(*count, payload.Left()));
        const Share share = ShareOf(there.size(), wanted, level);
        if (share == Share::None)
            return false;
        if (there.size() != wanted)
            m_file.notes.push_back("level " + std::to_string(level) +
                                   " does not have the number of bytes that its size asks for");
        const std::span<std::uint8_t> out = AddLevel(m_texture, level, m_format);
        if (packed)
            Unpack16(m_texture.storage, there, out);
        else
            std::copy_n(there.begin(), std::min(wanted, there.size()), out.begin());
        if (packed && m_texture.alphaBits == 0)
            makeOpaque(out);
        return share == Share::Whole;
    }

    /// Returns the channels of a row. In the rows of a raw texture's small levels, alpha is absent
    /// if there is no mask.
    std::vector<Channel> rowChannels(bool ofRaw) const
    {
        std::vector<Channel> channels = m_channels;
        if (ofRaw && !has(Mask))
            std::erase_if(channels, [](const Channel &one) { return one.type == Alpha; });
        return channels;
    }

    bool structuredLevel(ByteReader &payload, std::size_t level, bool ofRaw)
    {
        const std::vector<Channel> channels = rowChannels(ofRaw);
        const std::size_t width = SideOf(m_texture.width, level);
        const std::size_t height = SideOf(m_texture.height, level);
        std::size_t row = 0;
        for (const Channel &channel : channels)
            row += rowSize(channel, width);
        const Share share = ShareOf(payload.Left() / row, height, level);
        if (share == Share::None)
            return false;
        const std::span<std::uint8_t> out = AddLevel(m_texture, level, PixelFormat::Rgba8);
        m_alpha.assign(width, 255);
        for (std::size_t y = 0; y < height; ++y) {
            const auto bytes = payload.Take(row);
            if (!bytes) {
                makeOpaque(out.subspan(y * width * 4));
                m_file.notes.push_back("the last " + std::to_string(height - y) +
                                       " rows of the picture are missing");
                return false;
            }
            readRow(*bytes, channels, out.subspan(y * width * 4, width * 4));
        }
        return true;
    }

    /// Unpacks a row. An alpha channel takes precedence over a mask, in either order.
    void readRow(Bytes row, const std::vector<Channel> &channels, std::span<std::uint8_t> pixels)
    {
        const std::size_t width = pixels.size() / 4;
        std::array<const std::uint8_t *, 4> samples{};
        samples[Alpha - Red] = m_alpha.data();
        for (const Channel &channel : channels) {
            const Bytes one = row.first(rowSize(channel, width));
            row = row.subspan(one.size());
            if (channel.type != Mask)
                samples[channel.type - Red] = one.data();
            else if (!has(Alpha))
                for (std::size_t x = 0; x < width; ++x)
                    m_alpha[x] = one[x / 8] << x % 8 & 0x80 ? 255 : 0;
        }
        join(samples, pixels.data(), width);
    }

    /// Writes pixels whose parts are in four places.
    static void join(const std::array<const std::uint8_t *, 4> &samples, std::uint8_t *to,
                     std::size_t count)
    {
        const auto [red, green, blue, alpha] = samples;
        for (std::size_t x = 0; x < count; ++x) {
            to[4 * x] = red[x];
            to[4 * x + 1] = green[x];
            to[4 * x + 2] = blue[x];
            to[4 * x + 3] = alpha[x];
        }
    }

    static void makeOpaque(std::span<std::uint8_t> pixels)
    {
        for (std::size_t at = 3; at < pixels.size(); at += 4)
            pixels[at] = 255;
    }

    TextureFile &m_file;
    Texture &m_texture;
    std::uint32_t m_options = 0, m_surface = 0;
    PixelFormat m_format = PixelFormat::Rgba8;
    std::vector<Channel> m_channels;
    std::vector<std::uint8_t> m_alpha; ///< of a row without an alpha channel
    std::size_t m_where = 0;
};

} // namespace

TextureFile ReadAce(std::string_view bytes)
{
    TextureFile file;
    Container container;
    file.error = OpenContainer(bytes, kMaxTextureBytes, container);
    file.notes = std::move(container.notes);
    if (!file.error && container.content != Container::Content::Raw)
        file.error = {Status::NotThisFormat, 0, "there is no texture in the file"};
    if (!file.error)
        file.error = AceReader(file).Run(ByteReader(container.payload, container.base));
    return file;
}

} // namespace korvat
