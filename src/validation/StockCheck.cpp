// SPDX-License-Identifier: MIT
#include "validation/StockCheck.h"

#include "host/Text.h"
#include "install/Train.h"
#include "validation/Content.h"
#include "validation/TSValidation.h"

#include <algorithm>

using stavfile::ValueAt;

namespace validation {
namespace {

/// Records each file that is named: what is there as valid (which only a verbose report shows),
/// what is not as missing. False when one is not.
bool recordFiles(const References &references, const std::string &fileName, Findings &findings)
{
    const std::string folder = FolderOf(fileName);
    bool whole = true;
    for (const References::File &file : references.files) {
        if (!file.exists)
            findings.Record(TSValidation::HasMissingReference, fileName, Below(folder, file.value));
        else if (findings.Verbose())
            findings.Record(TSValidation::IsValid, Below(folder, file.value));
        whole = whole && file.exists;
    }
    return whole;
}

void replaceAll(std::string &text, std::string_view what, std::string_view with)
{
    for (auto at = text.find(what); at != text.npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
}

/// How the wagon's sound is read, and only that.
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

/// One run over one vehicle. A step that fails overwrites the verdict: the last one counts, also
/// where an earlier one was worse.
class StockCheck
{
public:
    StockCheck(Content &content, const std::string &fileName, Findings &findings)
        : m_content(content)
        , m_file(fileName)
        , m_folder(FolderOf(fileName))
        , m_findings(findings)
    {
    }

    std::int16_t Run()
    {
        m_findings.Message("Checking " + m_file);
        const std::optional<StfFile> found = m_content.TryLoadExisting(m_file);
        if (!found)
            return m_findings.Record(TSValidation::IsMissing, m_file);
        const StfFile &file = *found;
        const StfNode wagon = install::FindVehicle(file);
        if (!wagon)
            return m_findings.Record(TSValidation::IsCorrupt, m_file);
        checkShape(wagon);
        m_findings.Message("Checking sound files");
        checkSound(normalised(ValueAt(wagon.Child("Sound"))));
        m_findings.Message("Checking engine related files");
        if (isEngineFile(m_file))
            checkEngine(file, wagon);
        return m_verdict;
    }

private:
    void fault(std::int16_t code, std::string dependent)
    {
        m_verdict = m_findings.Record(code, m_file, std::move(dependent));
    }
    /// False, and a fault, when the file is not there.
    bool isThere(const std::string &path)
    {
        const bool there = m_content.Exists(path);
        if (!there)
            fault(TSValidation::HasMissingReference, path);
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
        if (isThere(sound) && CheckSound(m_content, sound, m_findings) != TSValidation::IsValid)
            m_verdict = TSValidation::IsSuspect;
    }

    /// The engine's section is the second of the file, whatever its name.
    void checkEngine(const StfFile &file, const StfNode &wagon)
    {
        if (file.Nodes().Count() < 2) {
            fault(TSValidation::IsMissing, "Engine section");
            m_verdict = TSValidation::IsSuspect;
            return;
        }
        const StfNode engine = file.Nodes().Item(2);
        const std::string name = ValueAt(engine);
        if (ValueAt(wagon) != name || ValueAt(engine.Child("Wagon")) != name)
            fault(TSValidation::IsCorrupt, "Engine and wagon names");
        m_findings.Message("Checking cabview files");
        checkCabView(engine.Child("CabView"));
        m_findings.Message("Checking sound files");
        if (const StfNode sound = engine.Child("Sound"))
            checkSound(ValueAt(sound));
        else
            fault(TSValidation::IsMissing, "Sound section");
    }

    void checkCabView(const StfNode &entry)
    {
        if (!entry) {
            fault(TSValidation::IsMissing, "Cabview section");
            return;
        }
        const std::string cab = Below(m_folder, "Cabview\\" + ValueAt(entry));
        if (isThere(cab) && CheckCabView(m_content, cab, m_findings) != TSValidation::IsValid)
            m_verdict = TSValidation::IsSuspect;
    }

    Content &m_content;
    const std::string &m_file;
    std::string m_folder;
    Findings &m_findings;
    std::int16_t m_verdict = TSValidation::IsValid;
};

} // namespace

std::int16_t CheckStock(Content &content, const std::string &fileName, Findings &findings)
{
    return StockCheck(content, fileName, findings).Run();
}

std::int16_t CheckSound(Content &content, const std::string &fileName, Findings &findings)
{
    if (!content.Exists(fileName))
        return findings.Record(TSValidation::IsMissing, fileName);
    const auto sound = content.Sound(fileName);
    if (sound->corrupt)
        return findings.Record(TSValidation::IsCorrupt, fileName);
    const bool whole = recordFiles(*sound, fileName, findings);
    return findings.Record(whole ? TSValidation::IsValid : TSValidation::IsSuspect, fileName);
}

std::int16_t CheckCabView(Content &content, const std::string &fileName, Findings &findings)
{
    if (!content.Exists(fileName))
        return findings.Record(TSValidation::IsMissing, fileName);
    const auto cab = content.CabView(fileName);
    if (cab->corrupt)
        return findings.Record(TSValidation::IsCorrupt, fileName);
    return recordFiles(*cab, fileName, findings) ? TSValidation::IsValid
                                                 : TSValidation::HasMissingReference;
}

} // namespace validation
