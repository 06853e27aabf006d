// SPDX-License-Identifier: MIT
#include "ui/document/StockFigures.h"

#include "host/Ahead.h"
#include "install/Installation.h"
#include "ui/document/EditorLayout.h"

#include <QLocale>

#include <algorithm>

namespace document {

namespace {

constexpr int kPollMilliseconds = 50;

/// Leaves one core to the window.
std::size_t workers()
{
    return std::max<std::size_t>(2, host::DefaultWorkers()) - 1;
}

content::UnitSystem unitsOfLocale()
{
    switch (QLocale().measurementSystem()) {
    case QLocale::ImperialUSSystem:
        return content::UnitSystem::Us;
    case QLocale::ImperialUKSystem:
        return content::UnitSystem::Uk;
    case QLocale::MetricSystem:
        break;
    }
    return content::UnitSystem::Metric;
}

} // namespace

StockFigures::StockFigures(const install::Environment &environment, EditorLayout &layout,
                           QObject *parent)
    : QObject(parent)
    , m_environment(environment)
    , m_layout(layout)
{
    m_timer.setInterval(kPollMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, &StockFigures::poll);
}

StockFigures::~StockFigures() = default;

/// Returns null if there is no installation.
content::StockReader *StockFigures::reader()
{
    const std::string folder = m_environment.installation.CurrentFolder();
    if (m_reader && folder != m_folder)
        Forget();
    if (!m_reader && !folder.empty()) {
        m_folder = folder;
        m_reader = std::make_unique<content::StockReader>(
            folder, workers(), host::IndexOptions{host::SavedIndex::UserFolder()});
        m_seen = 0;
    }
    m_timer.start();
    return m_reader.get();
}

void StockFigures::WantFacts(std::vector<install::StockItem> items)
{
    if (content::StockReader *reads = reader())
        reads->ReadFacts(std::move(items));
}

void StockFigures::WantUnits(std::vector<install::StockItem> items)
{
    if (content::StockReader *reads = reader())
        reads->ReadUnits(std::move(items));
}

void StockFigures::WantSheet(const std::shared_ptr<content::ConsistSheet> &sheet)
{
    if (content::StockReader *reads = reader())
        reads->ReadConsist(sheet);
}

std::shared_ptr<const content::StockFacts> StockFigures::Facts(const install::StockItem &item) const
{
    return m_reader ? m_reader->Facts(item) : nullptr;
}

std::shared_ptr<const content::SheetVehicle>
StockFigures::Unit(const install::StockItem &item) const
{
    return m_reader ? m_reader->Unit(item) : nullptr;
}

void StockFigures::poll()
{
    const bool busy = IsBusy();
    const std::size_t done = m_reader ? m_reader->Done() : 0;
    if (!busy)
        m_timer.stop();
    if (done != m_seen || !busy) {
        m_seen = done;
        Q_EMIT Arrived();
    }
}

void StockFigures::Forget()
{
    if (!m_reader)
        return;
    m_reader.reset();
    Q_EMIT Forgotten();
}

content::UnitSystem StockFigures::Units() const
{
    constexpr int systems = 3;
    return m_layout.units >= 0 && m_layout.units < systems
               ? static_cast<content::UnitSystem>(m_layout.units)
               : unitsOfLocale();
}

void StockFigures::SetUnits(content::UnitSystem units)
{
    if (units == Units())
        return;
    m_layout.units = static_cast<int>(units);
    Q_EMIT UnitsChanged();
}

} // namespace document
