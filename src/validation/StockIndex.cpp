// SPDX-License-Identifier: MIT
#include "validation/StockIndex.h"

#include "host/Packed.h"
#include "host/Snapshot.h"

namespace validation {
namespace {

/// Part of the identity of each index: increase it when the checks change.
constexpr std::string_view kPurpose = "check all 1";

std::string purposeOf(bool verbose, bool messages)
{
    return std::string(kPurpose) + (verbose ? " verbose" : "") + (messages ? " messages" : "");
}

std::string pack(const Outcome &outcome)
{
    host::Packer out;
    out.Number(static_cast<std::uint64_t>(CodeOf(outcome.verdict) + 1)); // from -1 on
    for (const Findings::Entry &entry : outcome.findings.Entries()) {
        const auto *const finding = std::get_if<Finding>(&entry);
        out.Flag(finding != nullptr);
        if (!finding) {
            out.Text(std::get<std::string>(entry));
            continue;
        }
        out.Number(static_cast<std::uint64_t>(CodeOf(finding->verdict) + 1));
        out.Text(finding->file);
        out.Text(finding->dependent);
    }
    return out.Take();
}

Verdict unpackVerdict(host::Unpacker &in)
{
    return static_cast<Verdict>(static_cast<int>(in.Number()) - 1);
}

} // namespace

StockIndex::StockIndex(host::Snapshot &snapshot, const host::IndexOptions &options,
                       std::int64_t begin, const std::string &installation, const Findings &empty)
    : m_verbose(empty.Verbose())
    , m_messages(empty.Messages())
    , m_index(snapshot, options, begin, installation, purposeOf(m_verbose, m_messages))
{
}

std::optional<std::vector<std::string>> StockIndex::Files(const std::string &folder,
                                                          const List &list)
{
    const std::string key = 'd' + folder;
    std::vector<std::string> names;
    if (const auto kept = m_index.Find(key)) {
        host::Unpacker in(*kept);
        while (!in.IsDone() && in.IsGood())
            names.emplace_back(in.Text());
        return names;
    }
    host::Recording recording;
    names = list(folder);
    host::Packer out;
    for (const std::string &name : names)
        out.Text(name);
    m_index.Keep(key, out.Bytes(), recording.Take());
    return std::nullopt;
}

Outcome StockIndex::OutcomeOf(const std::string &item, const Check &check)
{
    const std::string key = 'f' + item;
    if (const auto kept = m_index.Find(key))
        return unpack(*kept);
    host::Recording recording;
    Outcome outcome = check();
    if (!outcome.error)
        m_index.Keep(key, pack(outcome), recording.Take());
    return outcome;
}

Outcome StockIndex::unpack(std::string_view value) const
{
    host::Unpacker in(value);
    Outcome outcome{Findings(m_verbose, m_messages)};
    outcome.verdict = unpackVerdict(in);
    while (in.IsGood() && !in.IsDone()) {
        if (!in.Flag()) {
            outcome.findings.Message(in.Text());
            continue;
        }
        const Verdict verdict = unpackVerdict(in);
        std::string file(in.Text());
        outcome.findings.Record(verdict, std::move(file), std::string(in.Text()));
    }
    return outcome;
}

} // namespace validation
