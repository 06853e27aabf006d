// SPDX-License-Identifier: MIT
#pragma once

#include "ui/replace/PickerModel.h"

#include <QTimer>
#include <QWidget>

#include <optional>
#include <string>
#include <vector>

class QLabel;

namespace document {
class ListView;
class SearchField;
} // namespace document

namespace replace {

/// A list from which the user picks a vehicle, with a heading and a search field. The field finds
/// words as they are typed; in the list, typing searches among the file names.
class VehiclePicker : public QWidget
{
    Q_OBJECT

public:
    struct Texts
    {
        const char *name; ///< at the end of the controls' names
        QString heading;  ///< with the mnemonic of the list
        QString search;   ///< what the search field is for
        QString remark;   ///< header of the third column
    };
    VehiclePicker(const Texts &texts, const QIcon &missing, QWidget *parent = nullptr);

    /// Shows these vehicles. The picked one stays picked if it is among them; Picked follows only
    /// if it is not.
    void SetVehicles(std::vector<VehicleRow> vehicles);
    /// Picks a vehicle and scrolls to it. If it is not in the list, picks none.
    void Pick(const std::optional<install::StockItem> &vehicle);
    const std::optional<install::StockItem> &PickedVehicle() const { return m_picked; }
    /// Returns true if the picked vehicle is shown as missing.
    bool PickedIsMissing() const;
    /// Sets the text that is shown while there are no vehicles.
    void SetHint(const QString &hint);
    void FocusSearch();
    /// Goes to the list, and picks the first vehicle if none is picked.
    void Enter();

    document::ListView *list;
    document::SearchField *search;

Q_SIGNALS:
    /// Another vehicle was picked, or none.
    void Picked();
    /// The user double-clicked a vehicle, or pressed Enter in the list.
    void Chosen();

private:
    void connectControls();
    void searchFor(const QString &words);
    void takeSelection();
    void showCount();

    QLabel *m_heading;
    PickerModel *m_model;
    std::optional<install::StockItem> m_picked;
    bool m_filling = false;
};

} // namespace replace
