// SPDX-License-Identifier: MIT
#include "validation/StockCheck.h"

#include "host/Path.h"
#include "host/Snapshot.h"
#include "host/Text.h"
#include "stavfile/Block.h"
#include "validation/Content.h"

#include <algorithm>
#include <optional>

using stavfile::Block;

namespace validation {
namespace {

/// Records each named file: an existing one as valid (which only a verbose report shows), any other
/// as missing. Returns false if one is missing.
bool recordFiles(const References &references, const std::string &fileName, Findings &findings)
{
    const std::string folder = host::path::Folder(fileName);
    bool whole = true;
    for (const References::File &file : references.files) {
        if (!file.exists)
            findings.Record(Verdict::HasMissingReference, fileName, Below(folder, file.value));
        else if (findings.Verbose())
            findings.Record(Verdict::Valid, Below(folder, file.value));
        whole = whole && file.exists;
    }
    return whole;
}

void replaceAll(std::string &text, std::string_view what, std::string_view with)
{
    for (auto at = text.find(what); at != text.npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
}

/// Normalises the value of the wagon's sound; no other value is read like this.
std::string normalised(std::string value)
{
    replaceAll(value, "/", "\\");
    replaceAll(value, "\\\\", "\\");
    std::erase(value, '\t');
    return std::string(host::TrimBlanks(value));
}

bool isEngineFile(const std::string &fileName)
{
    constexpr std::size_t kLetters = 3;
    return fileName.size() >= kLetters &&
           host::EqualsNoCase(fileName.substr(fileName.size() - kLetters), "eng");
}

Verdict judgeSound(const References &sound, const std::string &fileName, Findings &findings)
{
    if (sound.corrupt)
        return findings.Record(Verdict::Corrupt, fileName);
    const bool whole = recordFiles(sound, fileName, findings);
    return findings.Record(whole ? Verdict::Valid : Verdict::Suspect, fileName);
}

Verdict judgeCabView(const References &cab, const std::string &fileName, Findings &findings)
{
    if (cab.corrupt)
        return findings.Record(Verdict::Corrupt, fileName);
    return recordFiles(cab, fileName, findings) ? Verdict::Valid : Verdict::HasMissingReference;
}

/// Like install::FindVehicle, without a tree.
std::optional<Block> vehicleIn(const stavfile::Source &file)
{
    for (const Block block : stavfile::TopBlocks(file))
        if (host::EqualsNoCase(block.Name(), "Wagon"))
            return block;
    return std::nullopt;
}

std::optional<Block> secondBlock(const stavfile::Source &file)
{
    int place = 0;
    for (const Block block : stavfile::TopBlocks(file))
        if (++place == 2)
            return block;
    return std::nullopt;
}

/// Returns the first value of a block; "" if the block or the value is absent.
std::string valueOf(const std::optional<Block> &block)
{
    return block ? block->Value() : std::string();
}

/// Checks one vehicle, step by step. A later failure overwrites an earlier one, even a worse one.
class StockCheck
{
public:
    StockCheck(Content &content, const std::string &fileName, Findings &findings)
        : m_content(content)
        , m_file(fileName)
        , m_folder(content.Listings(), Below(host::path::Folder(fileName), ""))
        , m_findings(findings)
    {
    }

    Verdict Run()
    {
        m_findings.Message("Checking ", m_file);
        Content::Lent file(m_content);
        if (!Content::TryRead(m_folder, host::path::FileName(m_file), file))
            return m_findings.Record(Verdict::Missing, m_file);
        const std::optional<Block> wagon = vehicleIn(file.Source());
        if (!wagon)
            return m_findings.Record(Verdict::Corrupt, m_file);
        checkShape(*wagon);
        m_findings.Message("Checking sound files");
        checkSound(normalised(valueOf(wagon->Child("Sound"))));
        m_findings.Message("Checking engine related files");
        if (isEngineFile(m_file))
            checkEngine(file.Source(), *wagon);
        return m_verdict;
    }

private:
    void fault(Verdict verdict, std::string_view dependent)
    {
        m_verdict = m_findings.Record(verdict, m_file, dependent);
    }
    /// Records a fault if a file does not exist, whose name is relative to the vehicle's folder.
    void mustExist(const std::string &name)
    {
        if (!m_folder.FileExists(name))
            fault(Verdict::HasMissingReference, pathOf(name));
    }
    std::string pathOf(std::string_view name) const { return Below(m_folder.Path(), name); }

    void checkShape(const Block &wagon)
    {
        m_findings.Message("Checking shape files");
        const std::string shape = valueOf(wagon.Child("WagonShape"));
        mustExist(shape);
        mustExist(shape + 'd');
        if (const std::optional<Block> thumbnail = wagon.Child("Thumbnail"))
            mustExist(thumbnail->Value());
    }

    /// A blank value names no file: a vehicle may be silent.
    void checkSound(const std::string &value)
    {
        if (host::TrimBlanks(value).empty())
            return;
        const std::string sound = pathOf("Sound\\" + value);
        const auto references = m_content.Sound(sound);
        if (!references)
            fault(Verdict::HasMissingReference, sound);
        else if (judgeSound(*references, sound, m_findings) != Verdict::Valid)
            m_verdict = Verdict::Suspect;
    }

    /// The engine's section is the second one of the file, whatever its name.
    void checkEngine(const stavfile::Source &file, const Block &wagon)
    {
        const std::optional<Block> engine = secondBlock(file);
        if (!engine) {
            fault(Verdict::Missing, "Engine section");
            m_verdict = Verdict::Suspect;
            return;
        }
        const std::string name = engine->Value();
        if (wagon.Value() != name || valueOf(engine->Child("Wagon")) != name)
            fault(Verdict::Corrupt, "Engine and wagon names");
        m_findings.Message("Checking cabview files");
        checkCabView(engine->Child("CabView"));
        m_findings.Message("Checking sound files");
        if (const std::optional<Block> sound = engine->Child("Sound"))
            checkSound(sound->Value());
        else
            fault(Verdict::Missing, "Sound section");
    }

    void checkCabView(const std::optional<Block> &entry)
    {
        if (!entry) {
            fault(Verdict::Missing, "Cabview section");
            return;
        }
        const std::string cab = pathOf("Cabview\\" + entry->Value());
        const auto references = m_content.CabView(cab);
        if (!references)
            fault(Verdict::HasMissingReference, cab);
        else if (judgeCabView(*references, cab, m_findings) != Verdict::Valid)
            m_verdict = Verdict::Suspect;
    }

    Content &m_content;
    const std::string &m_file;
    host::Snapshot::Folder m_folder;
    Findings &m_findings;
    Verdict m_verdict = Verdict::Valid;
};

} // namespace

Verdict CheckStock(Content &content, const std::string &fileName, Findings &findings)
{
    return StockCheck(content, fileName, findings).Run();
}

Verdict CheckSound(Content &content, const std::string &fileName, Findings &findings)
{
    const auto sound = content.Sound(fileName);
    return sound ? judgeSound(*sound, fileName, findings)
                 : findings.Record(Verdict::Missing, fileName);
}

Verdict CheckCabView(Content &content, const std::string &fileName, Findings &findings)
{
    const auto cab = content.CabView(fileName);
    return cab ? judgeCabView(*cab, fileName, findings)
               : findings.Record(Verdict::Missing, fileName);
}

} // namespace validation
