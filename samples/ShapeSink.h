// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace samples {

/// A value that text files show as eight hexadecimal digits.
struct Hex
{
    std::uint32_t value = 0;
};

/// Receives a shape block by block, value by value, in file order.
class ShapeSink
{
public:
    virtual ~ShapeSink() = default;
    virtual void Begin(std::string_view name, std::string_view label = {}) = 0;
    virtual void End() = 0;
    virtual void Put(std::int64_t value) = 0;
    virtual void Put(Hex value) = 0;
    virtual void Put(float value) = 0;
    virtual void Put(std::string_view value) = 0;
    void Put(std::integral auto value) { Put(static_cast<std::int64_t>(value)); }

    /// Begins a block with these values.
    template <typename... Values> void Open(std::string_view name, const Values &...values)
    {
        Begin(name);
        (Put(values), ...);
    }
    /// Writes a block that holds only these values.
    template <typename... Values> void Block(std::string_view name, const Values &...values)
    {
        Open(name, values...);
        End();
    }
    /// Writes a block that holds the number of items, then each item by calling `put`.
    template <typename Items, typename PutItem>
    void List(std::string_view name, const Items &items, const PutItem &put)
    {
        Open(name, items.size());
        for (const auto &item : items)
            put(item);
        End();
    }
};

/// Writes the text form, with LF line ends and indented with tabs. Each block begins a line, except
/// vertex_uvs and tex_idxs.
class TextShapeSink : public ShapeSink
{
public:
    using ShapeSink::Put;
    void Begin(std::string_view name, std::string_view label) override;
    void End() override;
    void Put(std::int64_t value) override;
    void Put(Hex value) override;
    void Put(float value) override;
    void Put(std::string_view value) override;
    const std::string &Result() const { return m_out; }

private:
    std::string m_out;
    std::size_t m_depth = 0;
};

/// Writes the binary form. Texts must be ASCII. Throws std::invalid_argument for a block name
/// without a token.
class BinaryShapeSink : public ShapeSink
{
public:
    using ShapeSink::Put;
    void Begin(std::string_view name, std::string_view label) override;
    void End() override;
    void Put(std::int64_t value) override;
    void Put(Hex value) override;
    void Put(float value) override;
    void Put(std::string_view value) override;
    const std::string &Result() const { return m_out; }

private:
    std::string m_out;
    std::vector<std::size_t> m_open; ///< offsets of the contents of the open blocks
};

} // namespace samples
