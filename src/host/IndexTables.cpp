// SPDX-License-Identifier: MIT
#include "host/IndexTables.h"

#include "host/Digest.h"
#include "host/Packed.h"

namespace host {
namespace {

/// Increase the number when the content of an index, or the meaning of a unit's value, changes.
constexpr std::string_view kStart = "ZELK index 1\n";
constexpr std::size_t kBlock = 1 << 16; ///< texts are kept in blocks of this many bytes

void pack(Packer &out, const FileMark &mark)
{
    out.Number(mark.number);
    out.Number(mark.size);
    out.Signed(mark.modified);
    out.Signed(mark.changed);
}

FileMark unpackMark(Unpacker &in)
{
    FileMark mark;
    mark.number = in.Number();
    mark.size = in.Number();
    mark.modified = in.Signed();
    mark.changed = in.Signed();
    return mark;
}

void pack(Packer &out, const IndexTables::PlaceRow &row)
{
    out.Text(row.path);
    out.Number(std::uint64_t{row.parent} + 1);
    out.Word(row.names);
    out.Flag(row.hasLinks);
    out.Number(row.folders.size());
    for (const IndexTables::PlaceRow::Folder &folder : row.folders) {
        out.Text(folder.path == row.path ? std::string_view() : folder.path);
        pack(out, folder.mark);
        out.Flag(folder.isTrusted);
    }
}

IndexTables::PlaceRow unpackPlace(Unpacker &in)
{
    IndexTables::PlaceRow row;
    row.path = in.Text();
    const std::uint64_t parent = in.Number();
    row.parent = parent == 0 || parent > IndexTables::kNone
                     ? IndexTables::kNone
                     : static_cast<std::uint32_t>(parent - 1);
    row.names = in.Word();
    row.hasLinks = in.Flag();
    for (std::uint64_t left = in.Number(); left > 0 && in.IsGood(); --left) {
        IndexTables::PlaceRow::Folder &folder = row.folders.emplace_back();
        folder.path = in.Text();
        if (folder.path.empty())
            folder.path = row.path;
        folder.mark = unpackMark(in);
        folder.isTrusted = in.Flag();
    }
    return row;
}

void pack(Packer &out, const std::vector<std::string_view> &texts)
{
    out.Number(texts.size());
    for (const std::string_view text : texts)
        out.Text(text);
}

void pack(Packer &out, const std::vector<std::uint32_t> &numbers)
{
    out.Number(numbers.size());
    for (const std::uint32_t number : numbers)
        out.Number(number);
}

/// Reads rows until their number is reached or the bytes end, whatever that number is.
template <typename Rows, typename Read> void unpackRows(Unpacker &in, Rows &rows, const Read &read)
{
    for (std::uint64_t left = in.Number(); left > 0 && in.IsGood(); --left)
        rows.push_back(read());
}

/// Reads the numbers of rows; false if one of them is not that of a row.
bool unpackNumbers(Unpacker &in, std::size_t rows, std::vector<std::uint32_t> &numbers)
{
    for (std::uint64_t left = in.Number(); left > 0; --left) {
        const std::uint32_t number = in.Index(rows);
        if (!in.IsGood() || number == rows)
            return false;
        numbers.push_back(number);
    }
    return in.IsGood();
}

/// True if every row refers to rows that exist, and every place to an earlier one.
bool isSound(const IndexTables &tables)
{
    for (std::size_t i = 0; i < tables.places.size(); ++i)
        if (tables.places[i].parent != IndexTables::kNone && tables.places[i].parent >= i)
            return false;
    for (const IndexTables::FileRow &file : tables.files)
        if (file.folder >= tables.fileFolders.size())
            return false;
    return !tables.places.empty() && tables.places.front().parent == IndexTables::kNone;
}

} // namespace

std::string_view IndexTables::Keep(std::string_view text)
{
    if (m_texts.empty() || m_texts.back().capacity() - m_texts.back().size() < text.size()) {
        m_texts.emplace_back();
        m_texts.back().reserve(text.size() > kBlock / 4 ? text.size() : kBlock);
    }
    std::string &block = m_texts.back();
    const std::size_t begin = block.size();
    block += text; // within its capacity, so the views of it stay valid
    return std::string_view(block).substr(begin);
}

std::string IndexTables::PackDependencies(const Dependencies &dependencies)
{
    Packer out;
    for (const auto *const numbers :
         {&dependencies.folders, &dependencies.names, &dependencies.files, &dependencies.facts})
        pack(out, *numbers);
    return out.Take();
}

std::optional<IndexTables::Dependencies>
IndexTables::UnpackDependencies(std::string_view packed) const
{
    Unpacker in(packed);
    Dependencies all;
    if (unpackNumbers(in, places.size(), all.folders) &&
        unpackNumbers(in, places.size(), all.names) && unpackNumbers(in, files.size(), all.files) &&
        unpackNumbers(in, facts.size(), all.facts) && in.IsDone())
        return all;
    return std::nullopt;
}

std::string IndexTables::Pack() const
{
    Packer out;
    out.Text(identity);
    out.Signed(savedAt);
    out.Number(places.size());
    for (const PlaceRow &row : places)
        pack(out, row);
    pack(out, fileFolders);
    pack(out, facts);
    out.Number(files.size());
    for (const FileRow &row : files) {
        out.Number(row.folder);
        out.Text(row.name);
        pack(out, row.mark);
    }
    out.Number(units.size());
    for (const UnitRow &row : units) {
        out.Text(row.key);
        out.Text(row.value);
        out.Text(row.dependencies);
    }
    Packer head;
    head.Word(out.Bytes().size());
    head.Word(Digest(out.Bytes()));
    return std::string(kStart) + head.Bytes() + out.Bytes();
}

std::optional<IndexTables> IndexTables::Unpack(std::string_view bytes)
{
    constexpr std::size_t kHead = 16;
    if (!bytes.starts_with(kStart) || bytes.size() < kStart.size() + kHead)
        return std::nullopt;
    Unpacker head(bytes.substr(kStart.size(), kHead));
    const std::string_view body = bytes.substr(kStart.size() + kHead);
    if (head.Word() != body.size() || head.Word() != Digest(body))
        return std::nullopt;
    Unpacker in(body);
    IndexTables tables;
    tables.identity = in.Text();
    tables.savedAt = in.Signed();
    unpackRows(in, tables.places, [&in] { return unpackPlace(in); });
    unpackRows(in, tables.fileFolders, [&in] { return in.Text(); });
    unpackRows(in, tables.facts, [&in] { return in.Text(); });
    unpackRows(in, tables.files, [&in] {
        const std::uint32_t folder = in.Index(kNone);
        const std::string_view name = in.Text();
        return FileRow{folder, name, unpackMark(in)};
    });
    unpackRows(in, tables.units, [&in] {
        const std::string_view key = in.Text(), value = in.Text();
        return UnitRow{key, value, in.Text()};
    });
    if (!in.IsDone() || !isSound(tables))
        return std::nullopt;
    return tables;
}

} // namespace host
