// SPDX-License-Identifier: MIT
#pragma once

#include "content/HealthTree.h"

#include <QTimer>
#include <QWidget>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace health {

/// The controls that filter a health report: search, simulators, severities, known findings. A
/// line states how many findings they hide.
class HealthFilterBar : public QWidget
{
    Q_OBJECT

public:
    explicit HealthFilterBar(QWidget *parent = nullptr);

    content::HealthFilter Filter() const;
    /// Selects simulators without a signal.
    void SetProfiles(content::Profiles profiles);
    /// Shows the counts of the tree beside the controls.
    void ShowCounts(const content::HealthTree &tree);
    /// Sets all filters, except for the simulators, so that they hide nothing.
    void ShowAll();

    QLineEdit *txtSearch;
    QComboBox *cboSimulators;
    std::array<QCheckBox *, 3> chkSeverities; ///< by content::Severity
    QCheckBox *chkKnown;
    QLabel *lblHidden;
    QPushButton *cmdShowAll;

Q_SIGNALS:
    void Changed();
    void ProfilesChosen(content::Profiles profiles);
    /// Emitted when Return or Down is pressed in the search box.
    void Left();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void nameControls();
    void arrangeControls();
    void connectControls();

    QTimer m_typing;
};

} // namespace health
