// SPDX-License-Identifier: MIT
// The part of HealthRun that keeps its units in the saved index.
#include "content/HealthRun.h"
#include "content/KeptUnits.h"
#include "host/Text.h"

namespace content {

/// Everything but the disk that units depend on. The texts of folders appear in findings.
std::string HealthRun::indexPurpose() const
{
    std::string purpose = "health" + std::string(kKeptVersion);
    purpose += ProfileName(m_options.profiles);
    purpose += m_options.routes ? " routes" : "";
    for (const std::string *folder : {&m_folders.root, &m_folders.trainset, &m_folders.eot,
                                      &m_folders.consists, &m_folders.sound, &m_folders.routes})
        purpose += '\n' + *folder;
    return purpose;
}

void HealthRun::openIndex(std::int64_t begin)
{
    // Reports of everything, or of a few consists, are made rarely and differ from all others.
    if (m_options.index.folder.empty() || m_options.keepAll || !m_options.consists.empty())
        return;
    m_index = std::make_unique<host::SavedIndex>(*m_snapshot, m_options.index, begin,
                                                 m_folders.root, indexPurpose());
    m_index->FactHolds = [this](std::string_view fact) {
        return m_stock.contains(std::string(fact));
    };
    m_shared.UseIndex(*m_index);
}

void HealthRun::saveIndex()
{
    if (m_index && !m_stopped && m_options.filter.empty())
        m_index->Save(host::SavedIndex::Extent::Whole);
}

void HealthRun::pack(host::Packer &out, const Unit &unit)
{
    out.Text(unit.user);
    Pack(out, unit.drafts);
    out.Number(unit.uses.size());
    for (const Unit::Use &use : unit.uses) {
        out.Number(static_cast<std::uint64_t>(use.file->kind));
        out.Text(use.file->path);
        out.Text(use.file->stock);
        Pack(out, use.profiles);
    }
    out.Text(unit.name);
}

HealthRun::Unit HealthRun::unpack(host::Unpacker &in) const
{
    Unit unit;
    unit.user = in.Text();
    unit.drafts = UnpackDrafts(in);
    for (std::uint64_t left = in.Number(); left > 0 && in.IsGood(); --left) {
        const auto kind = UnpackKind(in);
        const std::string path(in.Text()), stock(in.Text());
        unit.uses.push_back({m_shared.Get(kind, path, stock), UnpackProfiles(in)});
    }
    unit.name = in.Text();
    return unit;
}

template <typename Make>
HealthRun::Units HealthRun::kept(const std::string &key, const Make &make) const
{
    if (!m_index)
        return make();
    Units units;
    if (const auto value = m_index->Find(key)) {
        host::Unpacker in(*value);
        while (in.IsGood() && !in.IsDone())
            units.push_back(unpack(in));
        return units;
    }
    host::Recording recording;
    units = make();
    host::Packer out;
    for (const Unit &unit : units)
        pack(out, unit);
    m_index->Keep(key, out.Bytes(), recording.Take());
    return units;
}

HealthRun::Units HealthRun::keptStockFolder(const std::string &folder, bool isEot) const
{
    return kept((isEot ? "eot " : "stock ") + folder, [&] { return stockFolder(folder, isEot); });
}

HealthRun::Unit HealthRun::keptConsist(const std::string &path) const
{
    Units units = kept("consist " + path, [&] {
        Units made;
        made.push_back(consist(path));
        return made;
    });
    return units.empty() ? consist(path) : std::move(units.front());
}

/// True for a unit that names an installed vehicle. A recorded result then depends on that fact and
/// on no look-up.
bool HealthRun::isInStock(const std::string &key) const
{
    const std::string upper = host::ToUpper(key);
    if (!m_stock.contains(upper))
        return false;
    if (host::Recording *const recording = host::Recording::Current(); recording && m_index)
        recording->AddFact(m_index->FactOf(upper));
    return true;
}

bool HealthRun::isKnownSpelling(const KnownTexts &spellings, std::string_view text) const
{
    const std::optional<std::uint32_t> fact = spellings.Find(text);
    if (host::Recording *const recording = host::Recording::Current(); fact && recording && m_index)
        recording->AddFact(*fact);
    return fact.has_value();
}

/// Remembers the data block of a unit that is in order. With an index, only of a vehicle in the
/// stock, since the number is a fact.
void HealthRun::addSpelling(KnownTexts &spellings, std::string_view text,
                            const std::string &key) const
{
    if (!m_index)
        spellings.Add(text, 0);
    else if (const std::string upper = host::ToUpper(key); m_stock.contains(upper))
        spellings.Add(text, m_index->FactOf(upper));
}

} // namespace content
