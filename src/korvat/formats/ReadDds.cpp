// SPDX-License-Identifier: MIT
#include "korvat/formats/ReadDds.h"

#include "korvat/formats/Dxt.h"
#include "korvat/formats/TextureBuilder.h"

#include <algorithm>
#include <array>
#include <bit>

namespace korvat {
namespace {

constexpr std::uint32_t kHeaderSize = 124;
constexpr std::uint32_t kHasAlpha = 0x01, kHasFourCc = 0x04, kHasColours = 0x40; // pixel flags
constexpr std::size_t kMagic = 4, kPicture = kMagic + kHeaderSize;

constexpr std::uint32_t fourCc(const char (&name)[5])
{
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;)
        value = value << 8 | static_cast<unsigned char>(name[i]);
    return value;
}

class DdsReader
{
public:
    explicit DdsReader(TextureFile &file)
        : m_file(file)
        , m_texture(file.texture)
    {
    }

    ReadError Run(ByteReader reader)
    {
        if (ReadError error = header(reader))
            return error;
        for (std::size_t level = 0; level < m_levelCount; ++level)
            if (!readLevel(reader, level))
                break;
        if (m_texture.levels.empty())
            return {Status::Damaged, kPicture, "the texture ends before most of its picture"};
        if (m_texture.levels.size() < m_levelCount)
            m_file.notes.emplace_back("the smaller levels are missing");
        if (m_format == PixelFormat::Dxt1)
            m_texture.alphaBits = HasHoles(m_texture.LevelBytes(0)) ? 1 : 0;
        return {};
    }

private:
    ReadError header(ByteReader &reader)
    {
        if (reader.ReadU32() != fourCc("DDS "))
            return {Status::NotThisFormat, 0, "the file does not begin with DDS"};
        const auto head = reader.TakeReader(kHeaderSize);
        if (!head)
            return {Status::Damaged, kMagic, "the texture ends within its header"};
        ByteReader fields = *head;
        if (fields.ReadU32() != kHeaderSize)
            return {Status::Damaged, kMagic, "the length in the texture's header is wrong"};
        fields.Skip(4); // which fields are used; often wrong
        m_texture.height = *fields.ReadU32();
        m_texture.width = *fields.ReadU32();
        if (ReadError error = CheckTextureSize(m_texture.width, m_texture.height, 12))
            return error;
        fields.Skip(8); // row length and depth
        const std::uint32_t most = std::bit_width(std::max(m_texture.width, m_texture.height));
        m_levelCount = std::clamp(*fields.ReadU32(), 1U, most);
        fields.Skip(44 + 4); // reserved, and the size of what follows
        return pixelFormat(fields);
    }

    ReadError pixelFormat(ByteReader &fields)
    {
        const std::size_t where = fields.Where();
        const std::uint32_t flags = *fields.ReadU32(), code = *fields.ReadU32();
        m_bits = *fields.ReadU32();
        for (std::uint32_t &mask : m_masks)
            mask = *fields.ReadU32();
        if (flags & kHasFourCc)
            return blockFormat(code, where);
        const bool fits = m_bits == 24 || m_bits == 32;
        if (!(flags & kHasColours) || !fits || !m_masks[0] || !m_masks[1] || !m_masks[2])
            return {Status::Unsupported, where, "the texture's pixel format is not known"};
        m_masks[3] = flags & kHasAlpha ? m_masks[3] : 0;
        m_texture.storage = "uncompressed";
        m_texture.channels = m_masks[3] ? 4 : 3;
        m_texture.alphaBits = m_masks[3] ? 8 : 0;
        return {};
    }

    ReadError blockFormat(std::uint32_t code, std::size_t where)
    {
        struct Known
        {
            std::uint32_t code;
            const char *name;
            PixelFormat format;
        };
        static constexpr Known kKnown[] = {
            {fourCc("DXT1"), "dxt1", PixelFormat::Dxt1},
            {fourCc("DXT3"), "dxt3", PixelFormat::Dxt3},
            {fourCc("DXT5"), "dxt5", PixelFormat::Dxt5},
        };
        const auto *const known = std::find_if(std::begin(kKnown), std::end(kKnown),
                                               [code](const Known &k) { return k.code == code; });
        if (known == std::end(kKnown))
            return {Status::Unsupported, where, "the texture's compression is not known"};
        m_format = known->format;
        m_texture.storage = known->name;
        m_texture.channels = 4;
        m_texture.alphaBits = 8;
        return {};
    }

    bool readLevel(ByteReader &reader, std::size_t level)
    {
        const std::uint32_t width = SideOf(m_texture.width, level);
        const std::uint32_t height = SideOf(m_texture.height, level);
        const bool plain = m_format == PixelFormat::Rgba8;
        const std::size_t wanted =
            plain ? std::size_t{width} * height * (m_bits / 8) : LevelSize(m_format, width, height);
        const Share share = ShareOf(reader.Left(), wanted, level);
        if (share == Share::None)
            return false;
        const Bytes there = *reader.Take(std::min(wanted, reader.Left()));
        const std::span<std::uint8_t> out = AddLevel(m_texture, level, m_format);
        if (plain)
            unpack(there, out);
        else
            std::copy(there.begin(), there.end(), out.begin());
        if (share == Share::Part)
            m_file.notes.emplace_back("the end of the picture is missing");
        return share == Share::Whole;
    }

    /// Returns the bits of a mask, scaled to a byte.
    static std::uint8_t sample(std::uint32_t value, std::uint32_t mask)
    {
        const int shift = std::countr_zero(mask);
        const std::uint64_t most = mask >> shift;
        return static_cast<std::uint8_t>(((value & mask) >> shift) * std::uint64_t{255} / most);
    }

    void unpack(Bytes from, std::span<std::uint8_t> to) const
    {
        const std::size_t step = m_bits / 8;
        for (std::size_t at = 0, out = 0; from.size() - at >= step; at += step, out += 4) {
            std::uint32_t value = 0;
            for (std::size_t i = step; i-- > 0;)
                value = value << 8 | from[at + i];
            for (std::size_t i = 0; i < 3; ++i)
                to[out + i] = sample(value, m_masks[i]);
            to[out + 3] = m_masks[3] ? sample(value, m_masks[3]) : std::uint8_t{255};
        }
    }

    TextureFile &m_file;
    Texture &m_texture;
    PixelFormat m_format = PixelFormat::Rgba8;
    std::size_t m_levelCount = 1;
    std::uint32_t m_bits = 0;
    std::array<std::uint32_t, 4> m_masks{};
};

} // namespace

TextureFile ReadDds(std::string_view bytes)
{
    TextureFile file;
    file.error = DdsReader(file).Run(ByteReader(BytesOf(bytes)));
    return file;
}

} // namespace korvat
