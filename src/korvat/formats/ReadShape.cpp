// SPDX-License-Identifier: MIT
#include "korvat/formats/ReadShape.h"

#include "korvat/formats/BinaryBlock.h"
#include "korvat/formats/Container.h"
#include "korvat/formats/Limits.h"
#include "korvat/formats/PlainText.h"
#include "korvat/formats/Shape.h"
#include "korvat/formats/TextBlock.h"
#include "stavfile/TextCodec.h"

#include <type_traits>
#include <utility>

namespace korvat {
namespace {

/// Reads the blocks of a shape, with one function for each, in the order of docs/formats.md,
/// "Blocks of a shape". `Block` is BinaryBlock, PlainBlock or TextBlock. Unknown blocks are
/// skipped.
template <typename Block> class ShapeReader
{
public:
    explicit ShapeReader(Shape &shape)
        : m_shape(shape)
    {
    }

    /// Returns false if `top` holds no shape.
    bool Run(Block &top)
    {
        while (auto block = top.Next()) {
            if (block->Is(Token::Shape)) {
                sections(*block, [this](Block &section) { readSection(section); });
                return true;
            }
        }
        return false;
    }

private:
    static constexpr bool kIsBinary = std::is_same_v<Block, BinaryBlock>;

    template <typename Read> static void sections(Block &block, Read read)
    {
        while (auto section = block.Next())
            read(*section);
    }

    /// Reads a counted list of blocks. `size` is the minimum size of an item's content.
    template <typename Item, typename Read>
    static void list(Block &block, Token token, std::size_t size, std::vector<Item> &items,
                     Read read)
    {
        items.clear();
        items.reserve(block.Count(size));
        if constexpr (kIsBinary && isRecord<Item>())
            block.Records(token, items);
        else if constexpr (kIsBinary && std::is_same_v<Item, Vertex>)
            usualVertices(block, items);
        while (auto item = block.Next())
            if (item->Is(token))
                items.push_back(read(*item));
    }

    /// True for items of nothing but floats, in the order of the file.
    template <typename Item> static constexpr bool isRecord()
    {
        return std::is_same_v<Item, Vec3> || std::is_same_v<Item, Uv> ||
               std::is_same_v<Item, Colour>;
    }

    static void usualVertices(Block &block, std::vector<Vertex> &vertices)
    {
        while (const auto numbers = block.UsualVertex())
            vertices.push_back({(*numbers)[1], (*numbers)[2], (*numbers)[5]});
    }

    void readSection(Block &section)
    {
        using Section = std::pair<Token, void (ShapeReader::*)(Block &)>;
        static constexpr Section kSections[] = {
            {Token::Volumes, &ShapeReader::volumes},
            {Token::ShaderNames, &ShapeReader::shaders},
            {Token::TextureFilterNames, &ShapeReader::filters},
            {Token::Points, &ShapeReader::points},
            {Token::UvPoints, &ShapeReader::uvs},
            {Token::Normals, &ShapeReader::normals},
            {Token::Colours, &ShapeReader::colours},
            {Token::Matrices, &ShapeReader::matrices},
            {Token::Images, &ShapeReader::images},
            {Token::Textures, &ShapeReader::textures},
            {Token::LightMaterials, &ShapeReader::lightMaterials},
            {Token::LightModelCfgs, &ShapeReader::lightModels},
            {Token::VtxStates, &ShapeReader::vertexStates},
            {Token::PrimStates, &ShapeReader::primStates},
            {Token::LodControls, &ShapeReader::lodControls},
            {Token::Animations, &ShapeReader::animations},
        };
        for (const Section &known : kSections)
            if (section.Is(known.first))
                return (this->*known.second)(section);
    }

    static Vec3 vec3(Block &block)
    {
        const float x = block.F32(), y = block.F32(), z = block.F32();
        return {x, y, z};
    }
    static std::string text(Block &block) { return block.Text(); }

    void volumes(Block &block)
    {
        list(block, Token::VolSphere, 25, m_shape.volumes, [](Block &item) {
            Sphere sphere;
            if (auto centre = item.Next())
                sphere.centre = vec3(*centre);
            sphere.radius = item.F32();
            return sphere;
        });
    }
    void shaders(Block &block) { list(block, Token::NamedShader, 2, m_shape.shaders, text); }
    void filters(Block &block) { list(block, Token::NamedFilterMode, 2, m_shape.filters, text); }
    void points(Block &block) { list(block, Token::Point, 12, m_shape.points, vec3); }
    void normals(Block &block) { list(block, Token::Vector, 12, m_shape.normals, vec3); }
    void images(Block &block) { list(block, Token::Image, 2, m_shape.images, text); }

    void uvs(Block &block)
    {
        list(block, Token::UvPoint, 8, m_shape.uvs, [](Block &item) {
            const float u = item.F32(), v = item.F32();
            return Uv{u, v};
        });
    }

    void colours(Block &block)
    {
        list(block, Token::Colour, 16, m_shape.colours, [](Block &item) {
            Colour colour;
            for (float *part : {&colour.alpha, &colour.red, &colour.green, &colour.blue})
                *part = item.F32();
            return colour;
        });
    }

    void matrices(Block &block)
    {
        list(block, Token::Matrix, 48, m_shape.matrices, [](Block &item) {
            NamedMatrix matrix{item.Label(), {}};
            for (float &number : matrix.matrix.rows)
                number = item.F32();
            return matrix;
        });
    }

    void textures(Block &block)
    {
        list(block, Token::Texture, 12, m_shape.textures, [](Block &item) {
            TextureSlot slot;
            slot.image = item.U32();
            slot.filter = item.U32();
            slot.mipLodBias = item.F32();
            if (item.HasMore())
                slot.borderColour = item.Hex();
            return slot;
        });
    }

    void lightMaterials(Block &block)
    {
        list(block, Token::LightMaterial, 24, m_shape.lightMaterials, [](Block &item) {
            LightMaterial material;
            material.flags = item.Hex();
            for (auto *part :
                 {&material.diffuse, &material.ambient, &material.specular, &material.emissive})
                *part = item.U32();
            material.power = item.F32();
            return material;
        });
    }

    void lightModels(Block &block)
    {
        list(block, Token::LightModelCfg, 4, m_shape.lightModels, [](Block &item) {
            LightModel model;
            model.flags = item.Hex();
            if (auto operations = item.Next(); operations && operations->Is(Token::UvOps)) {
                operations->U32();
                if (auto first = operations->Next(); first && first->Is(Token::UvOpCopy))
                    if (const std::uint32_t mode = first->U32(); mode >= 1 && mode <= 4)
                        model.address = static_cast<AddressMode>(mode);
            }
            return model;
        });
    }

    void vertexStates(Block &block)
    {
        list(block, Token::VtxState, 20, m_shape.vertexStates, [](Block &item) {
            VertexState state;
            state.flags = item.Hex();
            state.matrix = item.I32();
            state.lightMaterial = item.I32();
            state.lightModel = item.I32();
            state.lightFlags = item.Hex();
            if (item.HasMore())
                state.matrix2 = item.I32();
            return state;
        });
    }

    void primStates(Block &block)
    {
        list(block, Token::PrimState, 41, m_shape.primStates, [](Block &item) {
            PrimState state;
            state.name = item.Label();
            state.flags = item.Hex();
            state.shader = item.U32();
            if (auto slots = item.Next(); slots && slots->Is(Token::TexIdxs))
                slots->Numbers(state.textures);
            state.zBias = item.F32();
            state.vertexState = item.I32();
            state.alphaTestMode = item.U32();
            state.lightConfig = item.U32();
            state.zBufferMode = item.U32();
            return state;
        });
    }

    void lodControls(Block &block)
    {
        list(block, Token::LodControl, 0, m_shape.lodControls, [](Block &item) {
            LodControl control;
            sections(item, [&control](Block &part) {
                if (part.Is(Token::DistanceLevels))
                    list(part, Token::DistanceLevel, 0, control.levels, level);
            });
            return control;
        });
    }

    static Level level(Block &block)
    {
        Level result;
        sections(block, [&result](Block &part) {
            if (part.Is(Token::DistanceLevelHeader))
                levelHeader(part, result);
            else if (part.Is(Token::SubObjects))
                list(part, Token::SubObject, 0, result.subObjects, subObject);
        });
        return result;
    }

    static void levelHeader(Block &block, Level &result)
    {
        sections(block, [&result](Block &part) {
            if (part.Is(Token::DlevelSelection))
                result.distance = part.F32();
            else if (part.Is(Token::Hierarchy))
                part.Numbers(result.parents);
        });
    }

    static SubObject subObject(Block &block)
    {
        SubObject result;
        sections(block, [&result](Block &part) {
            if (part.Is(Token::SubObjectHeader)) {
                result.flags = part.Hex();
                result.sortVector = part.I32();
            } else if (part.Is(Token::Vertices)) {
                list(part, Token::Vertex, 33, result.vertices, vertex);
            } else if (part.Is(Token::VertexSets)) {
                list(part, Token::VertexSet, 12, result.vertexSets, vertexSet);
            } else if (part.Is(Token::Primitives)) {
                primitives(part, result);
            }
        });
        return result;
    }

    static Vertex vertex(Block &block)
    {
        Vertex result;
        block.Hex();
        result.point = block.U32();
        result.normal = block.U32();
        block.Hex();
        block.Hex();
        if (auto uvs = block.Next(); uvs && uvs->Is(Token::VertexUvs) && uvs->NumberCount() > 0)
            result.uv = uvs->U32();
        return result;
    }

    static VertexSet vertexSet(Block &block)
    {
        VertexSet set;
        set.vertexState = block.U32();
        set.first = block.U32();
        set.count = block.U32();
        return set;
    }

    /// A state applies to all lists of triangles up to the next state.
    static void primitives(Block &block, SubObject &result)
    {
        std::uint32_t state = 0;
        block.U32();
        sections(block, [&](Block &part) {
            if (part.Is(Token::PrimStateIdx)) {
                state = part.U32();
            } else if (part.Is(Token::IndexedTrilist)) {
                const std::size_t first = result.indices.size();
                sections(part, [&result](Block &indices) {
                    if (indices.Is(Token::VertexIdxs))
                        indices.Numbers(result.indices);
                });
                result.triangles.push_back({state, first, result.indices.size() - first});
            }
        });
    }

    void animations(Block &block)
    {
        list(block, Token::Animation, 8, m_shape.animations, [](Block &item) {
            Animation animation;
            animation.frames = item.U32();
            animation.frameRate = item.U32();
            sections(item, [&animation](Block &nodes) {
                if (nodes.Is(Token::AnimNodes))
                    list(nodes, Token::AnimNode, 0, animation.nodes, animNode);
            });
            return animation;
        });
    }

    static AnimNode animNode(Block &block)
    {
        AnimNode node;
        node.name = block.Label();
        sections(block, [&node](Block &controllers) {
            if (controllers.Is(Token::Controllers)) {
                controllers.U32();
                sections(controllers, [&node](Block &item) { controller(item, node); });
            }
        });
        return node;
    }

    /// Ignores tension, continuity and bias of a key: they are 0 in known shapes.
    static void controller(Block &block, AnimNode &node)
    {
        const bool turns = block.Is(Token::TcbRot);
        const bool moves = block.Is(Token::LinearPos) || block.Is(Token::TcbPos);
        if (!turns && !moves)
            return;
        block.U32();
        sections(block, [&node, turns](Block &key) {
            if (!key.Is(Token::TcbKey) && !key.Is(Token::SlerpRot) && !key.Is(Token::LinearKey))
                return;
            const std::uint32_t frame = key.U32();
            const Vec3 place = vec3(key);
            if (turns)
                node.rotations.push_back({frame, place.x, place.y, place.z, key.F32()});
            else
                node.positions.push_back({frame, place});
        });
    }

    Shape &m_shape;
};

ReadError notAShape()
{
    return {Status::NotThisFormat, 0, "there is no shape in the file"};
}

void readBinary(const Container &container, ShapeFile &file)
{
    Trouble trouble;
    ByteReader content(container.payload, container.base);
    content.Skip(kSubHeaderSize);
    BinaryBlock top(content, trouble);
    const bool found = ShapeReader<BinaryBlock>(file.shape).Run(top);
    file.error = trouble.Met() || found ? trouble.Error() : notAShape();
}

/// Returns UTF-16 of nothing but ASCII with a byte for each character; empty for other text.
std::string narrowed(std::string_view utf16)
{
    std::string text(utf16.size() / 2, '\0');
    const char *from = utf16.data();
    char *to = text.data();
    unsigned char other = utf16.size() % 2;
    for (std::size_t i = 0, count = text.size(); i < count; ++i) {
        to[i] = from[2 * i];
        other |= static_cast<unsigned char>(from[2 * i + 1] | (from[2 * i] & 0x80));
    }
    return other ? std::string() : text;
}

bool isAscii(std::string_view text)
{
    unsigned char all = 0;
    for (const char c : text)
        all |= static_cast<unsigned char>(c);
    return all < 0x80;
}

/// Reads a text in the usual spelling. Returns false for another one.
bool readPlainText(std::string_view bytes, ShapeFile &file)
{
    stavfile::DecodedText decoded;
    std::string_view text = bytes;
    if (bytes.starts_with("\xFF\xFE") || !isAscii(bytes)) {
        decoded.text = bytes.starts_with("\xFF\xFE") ? narrowed(bytes.substr(2)) : "";
        if (decoded.text.empty())
            decoded = stavfile::Decode(std::string(bytes));
        text = decoded.text;
    }
    PlainText plain(text, decoded.encoding);
    PlainBlock top(plain);
    if (ShapeReader<PlainBlock>(file.shape).Run(top) && plain.IsComplete())
        return true;
    file.shape = {};
    return false;
}

void readText(std::string_view bytes, ShapeFile &file)
{
    if (readPlainText(bytes, file))
        return;
    Trouble trouble;
    const auto source = stavfile::ReadSource(std::string(bytes));
    for (const stavfile::Note &note : source->notes)
        file.notes.push_back("line " + std::to_string(note.line) + ": " + note.text);
    TextBlock top(*source, trouble);
    const bool found = ShapeReader<TextBlock>(file.shape).Run(top);
    file.error = trouble.Met() || found ? trouble.Error() : notAShape();
}

/// Returns compressed text as a text file. After its sub-header it has one byte per character,
/// unless the inflated content is a complete file with its own header.
std::string inflatedText(const Container &container)
{
    const std::string_view text(reinterpret_cast<const char *>(container.payload.data()),
                                container.payload.size());
    return (text.starts_with("JINX0") ? "SIMISA@@@@@@@@@@" : "") + std::string(text);
}

} // namespace

const char *ShapeFormName(ShapeForm form)
{
    return form == ShapeForm::Text ? "text" : form == ShapeForm::Binary ? "binary" : "compressed";
}

ShapeFile ReadShape(std::string_view bytes)
{
    ShapeFile file;
    Container container;
    const ReadError error = OpenContainer(bytes, kMaxShapeBytes, container);
    file.notes = std::move(container.notes);
    if (error.status == Status::NotThisFormat) {
        readText(bytes, file); // some texts have no header line
        file.error = file.error.status == Status::NotThisFormat ? error : file.error;
        return file;
    }
    file.error = error;
    if (error)
        return file;
    using Content = Container::Content;
    file.form = container.compressed                   ? ShapeForm::Compressed
                : container.content == Content::Binary ? ShapeForm::Binary
                                                       : ShapeForm::Text;
    if (container.content == Content::Raw)
        file.error = notAShape();
    else if (container.content == Content::Binary)
        readBinary(container, file);
    else if (container.compressed)
        readText(inflatedText(container), file);
    else
        readText(bytes, file);
    if (container.kind != 0 && container.kind != 's')
        file.notes.emplace_back("the header is that of another kind of file");
    return file;
}

} // namespace korvat
