// SPDX-License-Identifier: MIT
#pragma once

#include "install/Environment.h"
#include "install/Train.h"

#include <QDialog>
#include <QIcon>

#include <optional>

class QLabel;
class QPushButton;

namespace replace {
class BackgroundJob;
class VehiclePicker;
} // namespace replace

/// A modal dialog that lists the installed vehicles that may replace a vehicle of a train, the
/// nearest first.
class frmCandidates : public QDialog
{
    Q_OBJECT

public:
    /// Starts the search at once, on a thread.
    frmCandidates(const install::Environment &environment, const install::StockItem &vehicle,
                  const QIcon &missing, QWidget *parent = nullptr);
    ~frmCandidates() override;

    /// Returns the candidate that the user has accepted; nothing if there is none.
    std::optional<install::StockItem> Choice() const;

    replace::VehiclePicker *picker;
    QPushButton *cmdUse, *cmdCancel;

private:
    void arrangeControls();
    void start(const install::Environment &environment, const install::StockItem &vehicle);

    replace::BackgroundJob *m_search;
};
