// SPDX-License-Identifier: MIT
// Saved indexes: for any content with a right checksum, the tables refer only to rows that exist,
// and they are written and read again without a loss. Content with a wrong checksum is refused.
#include "Input.h"
#include "host/Digest.h"
#include "host/IndexTables.h"
#include "host/Packed.h"

namespace {

void requireRows(const std::vector<std::uint32_t> &numbers, std::size_t rows)
{
    for (const std::uint32_t number : numbers)
        Require(number < rows);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using host::IndexTables;
    const std::string_view body = Input(data, size).Rest();
    host::Packer head;
    head.Word(body.size());
    head.Word(host::Digest(body));
    const std::string bytes = "ZELK index 1\n" + std::string(head.Bytes()).append(body);
    Require(!IndexTables::Unpack(bytes + 'x') && !IndexTables::Unpack(body));
    const auto tables = IndexTables::Unpack(bytes);
    if (!tables)
        return 0;
    for (std::size_t i = 0; i < tables->places.size(); ++i)
        Require(tables->places[i].parent == IndexTables::kNone || tables->places[i].parent < i);
    for (const IndexTables::FileRow &file : tables->files)
        Require(file.folder < tables->fileFolders.size());
    for (const IndexTables::UnitRow &unit : tables->units)
        if (const auto all = tables->UnpackDependencies(unit.dependencies)) {
            requireRows(all->folders, tables->places.size());
            requireRows(all->names, tables->places.size());
            requireRows(all->files, tables->files.size());
            requireRows(all->facts, tables->facts.size());
            const std::string packed = IndexTables::PackDependencies(*all);
            Require(tables->UnpackDependencies(packed).has_value());
        }
    const std::string packed = tables->Pack();
    const auto again = IndexTables::Unpack(packed);
    Require(again && again->Pack() == packed && again->units.size() == tables->units.size());
    return 0;
}
