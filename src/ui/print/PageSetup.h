// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QPageLayout>

#include <array>

class QComboBox;
class QDoubleSpinBox;
class QFormLayout;

namespace app {

/// Asks for paper and margins where the system has no dialog for them: when printing to a file.
class PageSetup : public QDialog
{
    Q_OBJECT

public:
    explicit PageSetup(const QPageLayout &layout, QWidget *parent = nullptr);

    /// Returns the chosen layout.
    QPageLayout Layout() const;

private:
    void addPaper(QFormLayout &form);
    void addMargins(QFormLayout &form);

    QPageLayout m_layout;
    QComboBox *cboPaper;
    QComboBox *cboOrientation;
    std::array<QDoubleSpinBox *, 4> txtMargin{}; ///< left, right, top, bottom, in millimetres
};

} // namespace app
