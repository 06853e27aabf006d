// SPDX-License-Identifier: MIT
#include "document/StockReplacement.h"

#include "host/Ahead.h"
#include "host/Disk.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Text.h"
#include "stavfile/StfFile.h"

#include <algorithm>
#include <functional>
#include <new>

using host::EqualsNoCase;

namespace document {
namespace {

/// Walks all blocks of a file and counts its trains and units.
class DataBlocks
{
public:
    using Visit = std::function<void(StfNode data, int loose, int number)>;

    DataBlocks(std::string dataName, Visit visit)
        : m_dataName(std::move(dataName))
        , m_visit(std::move(visit))
    {
    }

    void Walk(const StfNodes &blocks)
    {
        for (const StfNode block : blocks) {
            const std::string name = block.Name();
            if (EqualsNoCase(name, "ActivityObject")) {
                ++m_loose;
                m_number = 0;
            }
            const bool isUnit =
                EqualsNoCase(name, install::kEngine) || EqualsNoCase(name, install::kWagon);
            const bool wasInUnit = m_inUnit;
            if (isUnit) {
                ++m_number;
                m_inUnit = true;
            }
            if (EqualsNoCase(name, m_dataName))
                m_visit(block, m_loose, m_inUnit ? m_number : 0);
            Walk(block.Children()); // at most kMaxBlockDepth deep
            m_inUnit = wasInUnit;
        }
    }

private:
    const std::string m_dataName;
    const Visit m_visit;
    int m_loose = 0, m_number = 0;
    bool m_inUnit = false;
};

std::string folderOf(const StfNode &data)
{
    std::string folder;
    for (int i = 1; i < data.NumParameters(); ++i)
        folder += (i == 1 ? "" : " ") + data.Parameter(i);
    return folder;
}

/// Sets a value in the spelling of a new value, even if the old one differs only in that.
void write(StfNode data, int index, const std::string &text)
{
    data.SetParameter(index, "-");
    data.SetParameter(index, text.find('"') == text.npos ? text : stavfile::QuotedValue(text));
}

/// Returns the plain run of a folder or the name; a word of a folder without quotes is a value.
NameSearch searchFor(std::string_view text)
{
    return NameSearch(PlainRun(text));
}

} // namespace

StockReplacement::StockReplacement(host::GameFiles &files, install::StockItem from,
                                   install::StockItem to)
    : m_files(files)
    , m_from(std::move(from))
    , m_to(std::move(to))
    , m_name(searchFor(m_from.shape))
    , m_folder(searchFor(m_from.folder))
    , m_compressed("SIMISA@F")
{
    if (m_from.type != m_to.type)
        throw host::RuntimeError(host::ErrorNumber::InvalidCall,
                                 VehicleText(m_from) + " cannot be replaced by " +
                                     VehicleText(m_to) +
                                     ": an engine can only be replaced by an engine, a wagon only "
                                     "by a wagon.");
}

/// The last three tests are for files whose names cannot be found in their bytes.
bool StockReplacement::mayUse(std::string_view bytes) const
{
    using namespace std::string_view_literals;
    constexpr std::size_t kStart = 64;
    return (m_name.IsIn(bytes) && m_folder.IsIn(bytes)) || MaySpellOddly(bytes) ||
           m_compressed.IsIn(bytes.substr(0, kStart)) || bytes.starts_with("\xFF\xFE\0\0"sv);
}

bool StockReplacement::isUsedBy(const StfNode &data) const
{
    return data.NumParameters() > 1 && EqualsNoCase(data.Parameter(0), m_from.shape) &&
           EqualsNoCase(folderOf(data), m_from.folder);
}

std::optional<FileInUse> StockReplacement::Find(const std::string &path) const
{
    FileInUse found{path, {}, {}};
    // Most paths are spelled as on the disk, which saves the search for them.
    if (host::disk::Read(path, host::GameFiles::kReadLimit, found.bytes))
        found.bytes = m_files.ReadFile(path);
    if (!mayUse(found.bytes))
        return std::nullopt;
    StfFile file(m_files);
    file.SetFileName(path);
    file.LoadBytes(found.bytes);
    if (file.Form() == stavfile::Form::NulsOnly)
        return std::nullopt;
    if (file.Form() != stavfile::Form::Text)
        throw host::RuntimeError(host::ErrorNumber::PathFileAccess,
                                 path + ": " + file.Notes().front().text);
    DataBlocks blocks(m_from.type + "Data", [&](const StfNode &data, int loose, int number) {
        if (isUsedBy(data))
            found.units.push_back({loose, number, data.Line(), data.Parameter(0), folderOf(data)});
    });
    blocks.Walk(file.Nodes());
    if (found.units.empty())
        return std::nullopt;
    return found;
}

host::FileChange StockReplacement::ChangeOf(const FileInUse &found,
                                            const std::vector<bool> &chosen) const
{
    const auto onDisk = m_files.FindFile(found.path);
    if (!onDisk)
        throw host::RuntimeError(host::ErrorNumber::FileNotFound,
                                 found.path + ": this file is gone");
    StfFile file(m_files);
    file.SetFileName(found.path);
    file.LoadBytes(found.bytes);
    std::size_t place = 0;
    DataBlocks blocks(m_from.type + "Data", [&](StfNode data, int, int) {
        if (!isUsedBy(data))
            return;
        if (chosen.empty() || (place < chosen.size() && chosen[place]))
            WriteVehicle(data, m_to);
        ++place;
    });
    blocks.Walk(file.Nodes());
    return {host::path::FromDisk(*onDisk), found.bytes, file.ToBytes()};
}

std::optional<install::StockItem> VehicleOf(std::string_view text)
{
    const std::size_t separator = text.find_last_of("/\\");
    if (separator == text.npos || separator == 0)
        return std::nullopt;
    const std::string_view file = text.substr(separator + 1);
    for (const char *const type : {install::kEngine, install::kWagon}) {
        const std::string extension = install::StockFileName(type, ""); // ".eng", ".wag"
        if (file.size() > extension.size() &&
            EqualsNoCase(file.substr(file.size() - extension.size()), extension))
            return install::StockItem{type, std::string(text.substr(0, separator)),
                                      std::string(file.substr(0, file.size() - extension.size()))};
    }
    return std::nullopt;
}

std::string VehicleText(const install::StockItem &vehicle)
{
    return vehicle.folder + '/' + install::StockFileName(vehicle.type, vehicle.shape);
}

void WriteVehicle(StfNode data, const install::StockItem &vehicle)
{
    data.SetNumParameters(2);
    write(data, 0, vehicle.shape);
    write(data, 1, vehicle.folder);
}

FoundInUse FindInUse(const StockReplacement &replacement, const std::vector<std::string> &paths,
                     const std::function<bool(std::size_t done)> &goOn)
{
    struct Searched
    {
        std::optional<FileInUse> file;
        std::string fault;
    };
    host::Ahead<Searched> searches(paths.size(), [&](std::size_t index) -> Searched {
        try {
            return {replacement.Find(paths[index]), {}};
        } catch (const host::RuntimeError &error) {
            return {std::nullopt, error.what()};
        } catch (const std::bad_alloc &) {
            return {std::nullopt, paths[index] + ": there is not enough memory to search it"};
        }
    });
    FoundInUse found;
    while (auto searched = searches.Take()) {
        if (searched->file)
            found.files.push_back(std::move(*searched->file));
        if (!searched->fault.empty())
            found.faults.push_back(std::move(searched->fault));
        if (goOn && !goOn(searches.Taken()))
            break;
    }
    return found;
}

} // namespace document
