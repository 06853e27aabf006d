// SPDX-License-Identifier: MIT
#pragma once

#include "content/HealthTree.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

/// Makes health reports without an installation. Paths are below "/game".
class MadeReport
{
public:
    /// Adds a finding of a missing file to the cause with this id.
    content::Finding &Add(const std::string &cause, const std::string &user,
                          const std::string &path,
                          content::Severity severity = content::Severity::Error,
                          content::Profiles profiles = content::Profiles::Both())
    {
        content::Finding finding;
        finding.rule = "missing-vehicle";
        finding.severity = severity;
        finding.profiles = profiles;
        finding.file = "/game/" + user;
        finding.line = 7;
        finding.kind = content::Kind::ConsistVehicle;
        finding.wants = path.substr(path.rfind('/') + 1);
        finding.looked = {"/game/" + path};
        finding.answer = content::Answer::Nowhere;
        finding.neededBy = {userOf(finding.file)};
        finding.cause = cause;
        finding.id = "id" + std::to_string(m_report.findings.size());
        causeOf(cause).findings.push_back(m_report.findings.size());
        m_report.findings.push_back(std::move(finding));
        return m_report.findings.back();
    }
    const content::HealthReport &Report() const { return m_report; }
    std::shared_ptr<const content::HealthIndex> Index(bool isComplete = true) const
    {
        return std::make_shared<const content::HealthIndex>(m_report, "/game", isComplete);
    }

    /// Half of the findings want files of one absent folder, the others have no common cause.
    static MadeReport Large(std::size_t findings)
    {
        MadeReport made;
        for (std::size_t i = 0; i < findings; ++i) {
            const std::string number = std::to_string(i);
            const bool single = i % 2 == 1;
            made.Add(single ? "single-files" : "folder:gone",
                     "consists/train" + std::to_string(i / 10) + ".con",
                     single ? "stock/file" + number + ".wag" : "gone/w" + number + ".wag",
                     static_cast<content::Severity>(i % 3));
        }
        return made;
    }

private:
    std::uint32_t userOf(const std::string &path)
    {
        auto &users = m_report.users;
        if (users.empty() || users.back() != path) {
            const auto known = std::find(users.begin(), users.end(), path);
            if (known != users.end())
                return static_cast<std::uint32_t>(known - users.begin());
            users.push_back(path);
        }
        return static_cast<std::uint32_t>(users.size() - 1);
    }
    content::Cause &causeOf(const std::string &id)
    {
        auto &causes = m_report.causes;
        for (content::Cause &cause : causes)
            if (cause.id == id)
                return cause;
        causes.emplace_back().id = id;
        causes.back().what = "Cause " + id;
        causes.back().isSingles = id == "single-files";
        return causes.back();
    }

    content::HealthReport m_report;
};
