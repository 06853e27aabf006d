// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace samples {

/// Takes a shape block by block, value by value, in the order of the file.
class ShapeSink
{
public:
    virtual ~ShapeSink() = default;
    virtual void Begin(std::string_view name, std::string_view label = {}) = 0;
    virtual void End() = 0;
    virtual void Hex(std::uint32_t value) = 0;
    virtual void Count(std::uint32_t value) = 0;
    virtual void Integer(std::int32_t value) = 0;
    virtual void Real(float value) = 0;
    virtual void Text(std::string_view value) = 0;
};

/// Writes the text form: one block a line but for short ones, indented with tabs, LF line ends.
class TextShapeSink : public ShapeSink
{
public:
    void Begin(std::string_view name, std::string_view label) override;
    void End() override;
    void Hex(std::uint32_t value) override;
    void Count(std::uint32_t value) override;
    void Integer(std::int32_t value) override;
    void Real(float value) override;
    void Text(std::string_view value) override;
    const std::string &Result() const { return m_out; }

private:
    std::string m_out;
    int m_depth = 0;
};

/// Writes the binary form. Text is ASCII. Throws std::invalid_argument for a block name without
/// a token.
class BinaryShapeSink : public ShapeSink
{
public:
    void Begin(std::string_view name, std::string_view label) override;
    void End() override;
    void Hex(std::uint32_t value) override;
    void Count(std::uint32_t value) override;
    void Integer(std::int32_t value) override;
    void Real(float value) override;
    void Text(std::string_view value) override;
    const std::string &Result() const { return m_out; }

private:
    std::string m_out;
    std::vector<std::size_t> m_open; ///< where the contents of the open blocks begin
};

} // namespace samples
