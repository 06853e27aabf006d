// SPDX-License-Identifier: MIT
#include "validation/ConsistCheck.h"

#include "host/GameFiles.h"
#include "host/RuntimeError.h"
#include "install/StockFiles.h"
#include "install/Train.h"
#include "validation/Content.h"
#include "validation/Finding.h"
#include "validation/TSValidation.h"

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

    std::int16_t Run()
    {
        if (!m_content.Exists(m_file))
            return m_findings.Record(TSValidation::IsMissing, m_file);
        try {
            const StfNode trainCfg = install::RequireTrain(m_content.Load(m_file));
            for (const install::Unit unit : install::Units(trainCfg))
                checkUnit(unit);
        } catch (const host::RuntimeError &error) {
            m_findings.Record(TSValidation::IsCorrupt, m_file, ErrorText(error.Code()));
            m_verdict = TSValidation::IsSuspect;
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
        const std::string shape = Below(FolderOf(stock), shapeOf(stock));
        recordUse(stock, shape);
    }

    /// True when the file that is used is there.
    bool recordUse(const std::string &user, const std::string &used)
    {
        const bool there = m_content.Exists(used);
        m_findings.Record(there ? TSValidation::IsReferenced : TSValidation::HasMissingReference,
                          user, used);
        if (!there)
            m_verdict = TSValidation::IsSuspect;
        return there;
    }

    /// Trains repeat their vehicles: each is read once.
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
    std::int16_t m_verdict = TSValidation::IsValid;
};

} // namespace

std::int16_t CheckConsist(Content &content, const std::string &fileName, Findings &findings)
{
    return ConsistCheck(content, fileName, findings).Run();
}

} // namespace validation
