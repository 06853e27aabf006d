// SPDX-License-Identifier: MIT
#include "validation/Run.h"

#include "host/OutOfMemory.h"
#include "host/Path.h"
#include "install/Installation.h"
#include "validation/Finding.h"

using validation::Finding;
using validation::Outcome;
using validation::Verdict;

TSValidation::Run::Run(TSValidation &owner)
    : m_owner(owner)
    , m_content(owner.m_files, *owner.m_snapshot, owner.m_installation.CurrentFolder())
    , m_verbose(owner.m_verboseMessages)
    , m_wantsMessages(owner.MessageRaised != nullptr)
{
    owner.refuseWhileRunning();
    owner.m_running = true;
}

std::string TSValidation::Run::PathOf(std::string_view relative) const
{
    return host::path::Join(m_content.Folder(), relative);
}

void TSValidation::Run::RaiseMessage(const std::string &message, std::int16_t level) const
{
    if (m_owner.MessageRaised)
        m_owner.MessageRaised(message, level);
}

void TSValidation::Run::RaiseProgress(std::size_t index, std::size_t total) const
{
    if (m_owner.ProgressRaised)
        m_owner.ProgressRaised(index + 1, total);
}

Verdict TSValidation::Run::Record(Verdict verdict, const std::string &file,
                                  const std::string &dependent)
{
    Outcome outcome{validation::Findings(m_verbose), verdict};
    outcome.findings.Record(verdict, file, dependent);
    return Deliver(outcome);
}

std::int16_t TSValidation::Run::CheckFile(validation::FileCheck check, std::string_view fileName)
{
    const std::string file(fileName);
    Verdict verdict = Verdict::Valid;
    if (m_owner.ProcessEvents)
        Each<Outcome>(
            1, [&](std::size_t) { return OutcomeOf(check, file); },
            [&](std::size_t, const Outcome &outcome) { verdict = Deliver(outcome); });
    else if (!m_owner.m_stopped)
        verdict = Deliver(OutcomeOf(check, file));
    return validation::CodeOf(verdict);
}

Outcome TSValidation::Run::OutcomeOf(validation::FileCheck check, const std::string &fileName,
                                     bool messages)
{
    Outcome outcome{NewFindings(messages)};
    try {
        outcome.verdict = host::NamingIfOutOfMemory(
            fileName, [&] { return check(m_content, fileName, outcome.findings); });
    } catch (...) {
        outcome.error = std::current_exception();
    }
    return outcome;
}

Verdict TSValidation::Run::Deliver(const Outcome &outcome)
{
    for (const validation::Findings::Entry &entry : outcome.findings.Entries())
        if (const auto *finding = std::get_if<Finding>(&entry))
            report(*finding);
        else
            RaiseMessage(std::get<std::string>(entry));
    if (outcome.error)
        std::rethrow_exception(outcome.error);
    return outcome.verdict;
}

void TSValidation::Run::pump() const
{
    if (m_owner.ProcessEvents)
        m_owner.ProcessEvents();
}

void TSValidation::Run::report(const Finding &finding)
{
    if (finding.verdict != Verdict::Valid) {
        m_owner.m_findings.push_back(finding);
        m_owner.m_errors.push_back(validation::ResultKey(finding));
        if (m_owner.ErrorRaised)
            m_owner.ErrorRaised(finding.dependent, finding.file, CodeOf(finding.verdict));
    }
    if (m_verbose)
        RaiseMessage(validation::ReportLine(finding), finding.verdict == Verdict::Valid ? 1 : 2);
    if (m_owner.ResultRecorded)
        m_owner.ResultRecorded(finding);
}
