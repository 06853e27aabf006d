// SPDX-License-Identifier: MIT
#include "content/KnownFindings.h"

#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Text.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace content {
namespace {

std::string fileFor(const std::string &folder)
{
    const std::string key = host::Fingerprint(host::ToUpper(host::path::Normalise(folder)));
    return host::path::Join(host::path::Join(host::StateFolder(), "zelk"),
                            "health-known-" + key + ".txt");
}

} // namespace

KnownFindings::KnownFindings(host::GameFiles &files, const std::string &folder)
    : m_files(files)
    , m_file(fileFor(folder))
{
}

void KnownFindings::Load()
{
    m_findings = {};
    m_fault.clear();
    try {
        if (!m_files.FileExists(m_file))
            return;
        const std::string text = m_files.ReadFile(m_file);
        // A complete file ends with a line end.
        auto findings = text.ends_with('\n') ? Baseline::FromText(text) : std::nullopt;
        if (findings)
            m_findings = std::move(*findings);
        else
            m_fault = m_file + ": this file is damaged, or it is not a list of known findings";
    } catch (const host::RuntimeError &error) {
        m_fault = error.what();
    }
}

template <typename Change> void KnownFindings::update(const Change &change)
{
    Load();
    if (!m_fault.empty())
        throw host::RuntimeError(host::ErrorNumber::PathFileAccess,
                                 m_fault + ". Nothing was changed. Move the file away to start a "
                                           "new list.");
    Baseline changed = m_findings;
    change(changed);
    std::error_code ignored; // WriteFile reports a folder that is missing
    std::filesystem::create_directories(host::path::ToDisk(host::path::Folder(m_file)), ignored);
    m_files.WriteFile(m_file, changed.ToText());
    m_findings = std::move(changed);
}

void KnownFindings::Accept(const std::vector<const Finding *> &findings)
{
    update([&](Baseline &known) {
        for (const Finding *finding : findings)
            known.Add(*finding);
    });
}

void KnownFindings::Withdraw(const std::vector<const Finding *> &findings)
{
    update([&](Baseline &known) {
        for (const Finding *finding : findings)
            known.Remove(*finding);
    });
}

void KnownFindings::DropGone(const HealthReport &report)
{
    update([&](Baseline &known) { known.RemoveGone(report); });
}

const char *NoveltyName(Novelty novelty)
{
    constexpr const char *kNames[] = {"", "known", "changed", "new"};
    return kNames[static_cast<int>(novelty)];
}

} // namespace content
