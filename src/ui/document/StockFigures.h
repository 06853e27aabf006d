// SPDX-License-Identifier: MIT
#pragma once

#include "content/StockReader.h"
#include "install/Environment.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <string>
#include <vector>

namespace document {

struct EditorLayout;

/// The figures of the installed vehicles, read in the background and kept until the user refreshes
/// a window or chooses another installation. All document windows share them, and the units in
/// which they are shown.
class StockFigures : public QObject
{
    Q_OBJECT

public:
    /// `layout`, which holds the user's choice of units, must outlive this object.
    StockFigures(const install::Environment &environment, EditorLayout &layout,
                 QObject *parent = nullptr);
    ~StockFigures() override;

    const install::Environment &Environment() const { return m_environment; }

    /// Request figures as content::StockReader does. Arrived follows.
    void WantFacts(std::vector<install::StockItem> items);
    void WantUnits(std::vector<install::StockItem> items);
    void WantSheet(const std::shared_ptr<content::ConsistSheet> &sheet);
    /// Return what is known of a vehicle; null if it was not read yet.
    std::shared_ptr<const content::StockFacts> Facts(const install::StockItem &item) const;
    std::shared_ptr<const content::SheetVehicle> Unit(const install::StockItem &item) const;
    /// True while requested figures are being read.
    bool IsBusy() const { return m_reader && m_reader->IsBusy(); }
    /// Drops everything that was read, to look at the disk again.
    void Forget();

    content::UnitSystem Units() const;
    void SetUnits(content::UnitSystem units);

Q_SIGNALS:
    /// There are new results, or nothing is left to read.
    void Arrived();
    /// Everything was dropped; windows request again what they show.
    void Forgotten();
    void UnitsChanged();

private:
    content::StockReader *reader();
    void poll();

    install::Environment m_environment;
    EditorLayout &m_layout;
    std::string m_folder; ///< the installation folder of the reader
    std::unique_ptr<content::StockReader> m_reader;
    std::size_t m_seen = 0; ///< results that were reported
    QTimer m_timer;
};

} // namespace document
