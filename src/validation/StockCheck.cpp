// SPDX-License-Identifier: MIT
#include "validation/StockCheck.h"

#include "host/Path.h"
#include "host/Text.h"
#include "install/Train.h"
#include "validation/Content.h"

#include <algorithm>

using stavfile::ValueAt;

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

/// Checks one vehicle, step by step. A later failure overwrites an earlier one, even a worse one.
class StockCheck
{
public:
    StockCheck(Content &content, const std::string &fileName, Findings &findings)
        : m_content(content)
        , m_file(fileName)
        , m_folder(host::path::Folder(fileName))
        , m_findings(findings)
    {
    }

    Verdict Run()
    {
        m_findings.Message("Checking " + m_file);
        const std::optional<StfFile> found = m_content.TryLoadExisting(m_file);
        if (!found)
            return m_findings.Record(Verdict::Missing, m_file);
        const StfFile &file = *found;
        const StfNode wagon = install::FindVehicle(file);
        if (!wagon)
            return m_findings.Record(Verdict::Corrupt, m_file);
        checkShape(wagon);
        m_findings.Message("Checking sound files");
        checkSound(normalised(ValueAt(wagon.Child("Sound"))));
        m_findings.Message("Checking engine related files");
        if (isEngineFile(m_file))
            checkEngine(file, wagon);
        return m_verdict;
    }

private:
    void fault(Verdict verdict, std::string dependent)
    {
        m_verdict = m_findings.Record(verdict, m_file, std::move(dependent));
    }
    /// Returns false, and records a fault, if the file does not exist.
    bool isThere(const std::string &path)
    {
        const bool there = m_content.Exists(path);
        if (!there)
            fault(Verdict::HasMissingReference, path);
        return there;
    }

    void checkShape(const StfNode &wagon)
    {
        m_findings.Message("Checking shape files");
        const std::string shape = Below(m_folder, ValueAt(install::FindShape(wagon)));
        isThere(shape);
        isThere(shape + 'd');
        if (const StfNode thumbnail = wagon.Child("Thumbnail"))
            isThere(Below(m_folder, ValueAt(thumbnail)));
    }

    /// A blank value names no file: a vehicle may be silent.
    void checkSound(const std::string &value)
    {
        if (host::TrimBlanks(value).empty())
            return;
        const std::string sound = Below(m_folder, "Sound\\" + value);
        if (isThere(sound) && CheckSound(m_content, sound, m_findings) != Verdict::Valid)
            m_verdict = Verdict::Suspect;
    }

    /// The engine's section is the second one of the file, whatever its name.
    void checkEngine(const StfFile &file, const StfNode &wagon)
    {
        if (file.Nodes().Count() < 2) {
            fault(Verdict::Missing, "Engine section");
            m_verdict = Verdict::Suspect;
            return;
        }
        const StfNode engine = file.Nodes().Item(2);
        const std::string name = ValueAt(engine);
        if (ValueAt(wagon) != name || ValueAt(engine.Child("Wagon")) != name)
            fault(Verdict::Corrupt, "Engine and wagon names");
        m_findings.Message("Checking cabview files");
        checkCabView(engine.Child("CabView"));
        m_findings.Message("Checking sound files");
        if (const StfNode sound = engine.Child("Sound"))
            checkSound(ValueAt(sound));
        else
            fault(Verdict::Missing, "Sound section");
    }

    void checkCabView(const StfNode &entry)
    {
        if (!entry) {
            fault(Verdict::Missing, "Cabview section");
            return;
        }
        const std::string cab = Below(m_folder, "Cabview\\" + ValueAt(entry));
        if (isThere(cab) && CheckCabView(m_content, cab, m_findings) != Verdict::Valid)
            m_verdict = Verdict::Suspect;
    }

    Content &m_content;
    const std::string &m_file;
    std::string m_folder;
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
    if (!content.Exists(fileName))
        return findings.Record(Verdict::Missing, fileName);
    const auto sound = content.Sound(fileName);
    if (sound->corrupt)
        return findings.Record(Verdict::Corrupt, fileName);
    const bool whole = recordFiles(*sound, fileName, findings);
    return findings.Record(whole ? Verdict::Valid : Verdict::Suspect, fileName);
}

Verdict CheckCabView(Content &content, const std::string &fileName, Findings &findings)
{
    if (!content.Exists(fileName))
        return findings.Record(Verdict::Missing, fileName);
    const auto cab = content.CabView(fileName);
    if (cab->corrupt)
        return findings.Record(Verdict::Corrupt, fileName);
    return recordFiles(*cab, fileName, findings) ? Verdict::Valid : Verdict::HasMissingReference;
}

} // namespace validation
