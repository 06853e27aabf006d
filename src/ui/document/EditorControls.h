// SPDX-License-Identifier: MIT
#pragma once

#include "document/ConsistTree.h"
#include "ui/document/ConsistModel.h"
#include "ui/document/EditorAction.h"
#include "ui/document/Furnishing.h"
#include "ui/document/StockListModel.h"
#include "ui/widgets/ListView.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>

#include <array>
#include <string>
#include <vector>

class QBoxLayout;
class QLayout;
class QSplitter;

namespace viewer {
class VehiclePreview;
}

namespace document {

class FigureColumns;
class SearchField;
class StockPictures;
class StockSearch;
class TrainStrip;

/// The controls of a consist editor: the train on the left, the installed stock on the right, the
/// editing buttons between them, the consist's figures above and the window's buttons below.
class EditorControls : public QWidget
{
    Q_OBJECT

public:
    explicit EditorControls(const Furnishing &furnishing, QWidget *parent = nullptr);

    void ShowConsist(const ConsistTree &consist);
    /// Like ShowConsist, but keeps selection and scroll position as far as the train allows.
    void ShowConsistAgain(const ConsistTree &consist);
    /// Enables Apply and OK, and marks the heading of the train as changed, while the consist
    /// differs from its file.
    void ShowChanged(bool changed);
    /// Updates the heading of the stock list.
    void ShowStockHeading(const std::string &filter);

    /// Rows count from 1; 0 means "none selected".
    int SelectedConsistRow() const { return lvConsist->SelectedRow() + 1; }
    void SelectConsistRow(int row) { lvConsist->SelectRow(row - 1); }
    /// Returns the selected installed stock item, or null.
    const StockItem *SelectedStock() const;
    /// Returns all selected installed stock items, in the order of the list.
    std::vector<StockItem> SelectedStockItems() const;
    /// Returns the selected unit of the train, or null.
    const StockItem *SelectedUnit() const;
    /// Reads the figures of the stock list, which has been filled.
    void ReadStockFigures();
    StockListModel &Stock() { return *m_stock; }
    ConsistModel &Train() { return *m_consist; }

    /// Returns the minimum height for a width: in a narrow window the rows of controls fold.
    int heightForWidth(int width) const override;

    ListView *lvConsist;
    ListView *lvStock;
    SearchField *searchTrain;
    SearchField *searchStock;
    TrainStrip *strip;
    viewer::VehiclePreview *preview;
    std::array<QToolButton *, 6> cmdMove{};
    std::array<QPushButton *, 5> cmdAction{};
    QLabel *lblMaxVelocity;
    QLabel *lblDurability;
    std::array<QLineEdit *, 2> txtMaxVelocity{};
    QLineEdit *txtDurability;

Q_SIGNALS:
    void MovePressed(Move move);
    void ActionPressed(EditorAction action);
    /// Emitted when the user double-clicks stock or presses Enter in its list.
    void StockChosen();
    void MenuWanted(const QPoint &globalPosition);

private:
    QLayout *figures();
    QWidget *trainSide();
    QWidget *stockSide(const Furnishing &furnishing);
    QBoxLayout *moveColumn(const Furnishing &furnishing);
    QLayout *actionRow();
    QPushButton *actionButton(EditorAction action) const
    {
        return cmdAction[static_cast<std::size_t>(action)];
    }
    QLineEdit *figureBox(const char *name, const QString &title);
    void connectLists();
    void orderTabs();
    void sortStock(int column);
    void showConsistHeading();
    void showFigures(const ConsistTree &consist);
    void showStockOrder();
    void followLayout(EditorLayout &layout);
    void addSearches();
    void addFigureColumns();
    void addPictures(FigureColumns &stockColumns);
    void focusSearch();

    ConsistModel *m_consist;
    StockListModel *m_stock;
    EditorLayout *m_layout;
    StockFigures &m_figures;
    StockPictures &m_pictures;
    StockSearch *m_stockSearch = nullptr;
    QLabel *m_consistHeading;
    QLabel *m_stockHeading;
    bool m_changed = false;
};

} // namespace document
