// SPDX-License-Identifier: MIT
#include "validation/ConsistCheck.h"

#include "host/Path.h"
#include "host/RuntimeError.h"
#include "install/StockFiles.h"
#include "install/Train.h"
#include "validation/Content.h"
#include "validation/Finding.h"

#include <unordered_map>

namespace validation {
namespace {

class ConsistCheck
{
public:
    ConsistCheck(const Content &content, const std::string &fileName, Findings &findings)
        : m_content(content)
        , m_file(fileName)
        , m_trainset(host::path::Join(content.Folder(), install::kTrainset))
        , m_findings(findings)
    {
    }

    Verdict Run()
    {
        if (!m_content.Exists(m_file))
            return m_findings.Record(Verdict::Missing, m_file);
        try {
            const StfNode trainCfg = install::RequireTrain(m_content.Load(m_file));
            for (const install::Unit unit : install::Units(trainCfg))
                checkUnit(unit);
        } catch (const host::RuntimeError &error) {
            m_findings.Record(Verdict::Corrupt, m_file, ErrorText(error.Code()));
            m_verdict = Verdict::Suspect;
        }
        return m_verdict;
    }

private:
    void checkUnit(const install::Unit &unit)
    {
        const auto [name, folder] = unit.Stock();
        const std::string stock =
            Below(Below(m_trainset, folder), install::StockFileName(unit.Kind(), name));
        if (!recordUse(m_file, stock))
            return;
        const std::string shape = Below(host::path::Folder(stock), shapeOf(stock));
        recordUse(stock, shape);
    }

    /// Records the use of a file; returns true if the file exists.
    bool recordUse(const std::string &user, const std::string &used)
    {
        const bool there = m_content.Exists(used);
        m_findings.Record(there ? Verdict::Referenced : Verdict::HasMissingReference, user, used);
        if (!there)
            m_verdict = Verdict::Suspect;
        return there;
    }

    /// Trains repeat their vehicles, so each is read only once.
    const std::string &shapeOf(const std::string &stock)
    {
        const auto known = m_shapes.find(stock);
        if (known != m_shapes.end())
            return known->second;
        const StfNode vehicle = install::FindVehicle(m_content.Load(stock));
        std::string shape = install::FindShape(vehicle).Parameter(0);
        return m_shapes.emplace(stock, std::move(shape)).first->second;
    }

    const Content &m_content;
    const std::string &m_file;
    std::string m_trainset;
    Findings &m_findings;
    std::unordered_map<std::string, std::string> m_shapes; ///< by stock file
    Verdict m_verdict = Verdict::Valid;
};

} // namespace

Verdict CheckConsist(Content &content, const std::string &fileName, Findings &findings)
{
    return ConsistCheck(content, fileName, findings).Run();
}

} // namespace validation
