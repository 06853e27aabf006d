// SPDX-License-Identifier: MIT
#include "ui/document/EditorControls.h"

#include "host/Filter.h"
#include "install/Installation.h"
#include "install/Train.h"
#include "ui/document/EditorLayout.h"
#include "ui/document/FigureColumns.h"
#include "ui/document/FoldingRow.h"
#include "ui/document/ListSearch.h"
#include "ui/document/RowPictures.h"
#include "ui/document/StockFigures.h"
#include "ui/document/StockPictures.h"
#include "ui/document/TrainStrip.h"
#include "ui/view3d/VehiclePreview.h"
#include "ui/widgets/SearchField.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLocale>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

#include <initializer_list>

namespace document {

namespace {

struct MoveButton
{
    const char *toolTip, *icon;
    bool gapBefore;
};
constexpr MoveButton kMoveButtons[] = {
    {"Add stock to consist", "add", false},
    {"Remove stock from consist", "remove", false},
    {"Remove all consist items", "remove-all", false},
    {"Move stock forwards", "forwards", true},
    {"Move stock backwards", "backwards", false},
    {"Flip stock in consist", "flip", true},
};

/// The action buttons. Alt+C and Alt+S already open the menus Consist and Stock, and an ambiguous
/// key does nothing.
struct ActionButton
{
    const char *caption, *toolTip;
    bool keyIsTaken;
};
constexpr ActionButton kActionButtons[] = {
    {"&Cancel", "Abandon changes", true},
    {"&Apply", "Save changes", false},
    {"&OK", "Save changes and close window", false},
    {"View &Consist", "Show consist in 3D", true},
    {"View &Shape", "Show selected shape in 3D", true},
};

QLabel *heading(QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return label;
}

/// A group of controls side by side.
QBoxLayout *group(std::initializer_list<QWidget *> controls)
{
    auto *layout = new QHBoxLayout;
    layout->setSpacing(6);
    for (QWidget *control : controls)
        layout->addWidget(control);
    return layout;
}

QBoxLayout *listUnder(QLabel *title, SearchField *search, ListView *list)
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(4);
    layout->addWidget(title);
    layout->addWidget(search);
    layout->addWidget(list, 1);
    return layout;
}

/// Returns the widths of the columns without figures.
std::vector<int> ownWidths(const ListView &list)
{
    std::vector<int> widths = list.ColumnWidths();
    widths.resize(kStockColumns);
    return widths;
}

} // namespace

EditorControls::EditorControls(const Furnishing &furnishing, QWidget *parent)
    : QWidget(parent)
    , lvConsist(new ListView("lvConsist", QStringLiteral("Current consist items"), this))
    , lvStock(new ListView("lvStock", QStringLiteral("Available installed stock"), this))
    , searchTrain(new SearchField("searchTrain", QStringLiteral("Search the train"), this))
    , searchStock(new SearchField("searchStock", QStringLiteral("Search the stock"), this))
    , strip(new TrainStrip(*furnishing.figures, this))
    , preview(new viewer::VehiclePreview(furnishing.pictures->Maker(), this))
    , lblMaxVelocity(new QLabel(QStringLiteral("Max Velocity"), this))
    , lblDurability(new QLabel(QStringLiteral("Durability"), this))
    , m_consist(new ConsistModel(this))
    , m_stock(new StockListModel(this))
    , m_layout(furnishing.layout)
    , m_figures(*furnishing.figures)
    , m_pictures(*furnishing.pictures)
    , m_consistHeading(heading(this))
    , m_stockHeading(heading(this))
{
    m_consist->SetRemarkIcon(furnishing.icon("missing"));
    connectLists();
    if (m_layout)
        followLayout(*m_layout);
    addSearches();
    addFigureColumns();
    auto *splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(trainSide());
    splitter->addWidget(stockSide(furnishing));
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 1);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setSpacing(8);
    layout->addLayout(figures());
    layout->addWidget(splitter, 1);
    layout->addWidget(strip);
    layout->addLayout(actionRow());
    setFocusProxy(lvConsist);
    orderTabs();
    ShowStockHeading({});
    ShowChanged(false);
}

/// In reading order.
void EditorControls::orderTabs()
{
    QWidget *before = lvConsist;
    const auto next = [&before](QWidget *control) {
        setTabOrder(before, control);
        before = control;
    };
    for (QToolButton *button : cmdMove)
        next(button);
    next(lvStock);
    next(strip->cmdUnits);
    next(preview->picPreview);
    for (const EditorAction action : {EditorAction::ViewConsist, EditorAction::ViewShape,
                                      EditorAction::Ok, EditorAction::Cancel, EditorAction::Apply})
        next(actionButton(action));
}

QLayout *EditorControls::figures()
{
    lblMaxVelocity->setObjectName("lblMaxVelocity");
    lblDurability->setObjectName("lblDurability");
    txtMaxVelocity[0] = figureBox("txtMaxVelocity0", QStringLiteral("Max Velocity"));
    txtMaxVelocity[1] = figureBox("txtMaxVelocity1", QStringLiteral("Max Velocity, second value"));
    txtDurability = figureBox("txtDurability", QStringLiteral("Durability"));
    return new FoldingRow(group({lblMaxVelocity, txtMaxVelocity[0], txtMaxVelocity[1]}),
                          group({lblDurability, txtDurability}), FoldingRow::Second::Beside, 24);
}

QLineEdit *EditorControls::figureBox(const char *name, const QString &title)
{
    auto *box = new QLineEdit(this);
    box->setObjectName(name);
    box->setAccessibleName(title);
    box->setAccessibleDescription(QString::fromLatin1(name));
    box->setToolTip(title + QStringLiteral(" (for display only)"));
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::ClickFocus);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("000000.00000")) + 16);
    QPalette colours = box->palette();
    colours.setColor(QPalette::Base, colours.color(QPalette::Window));
    box->setPalette(colours);
    return box;
}

QWidget *EditorControls::trainSide()
{
    auto *train = new QWidget(this);
    QBoxLayout *layout = listUnder(m_consistHeading, searchTrain, lvConsist);
    layout->setContentsMargins(0, 0, 2, 0);
    train->setLayout(layout);
    auto *side = new QSplitter(Qt::Vertical, this);
    side->setChildrenCollapsible(false);
    side->addWidget(train);
    side->addWidget(preview);
    side->setStretchFactor(0, 2);
    side->setStretchFactor(1, 1);
    return side;
}

QWidget *EditorControls::stockSide(const Furnishing &furnishing)
{
    auto *side = new QWidget(this);
    auto *layout = new QHBoxLayout(side);
    layout->setContentsMargins(2, 0, 0, 0);
    layout->setSpacing(8);
    layout->addLayout(moveColumn(furnishing));
    layout->addLayout(listUnder(m_stockHeading, searchStock, lvStock), 1);
    return side;
}

QBoxLayout *EditorControls::moveColumn(const Furnishing &furnishing)
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(4);
    layout->addStretch(1);
    for (int i = 0; i < static_cast<int>(cmdMove.size()); ++i) {
        const MoveButton &button = kMoveButtons[i];
        auto *command = new QToolButton(this);
        const QString toolTip = QString::fromLatin1(button.toolTip);
        command->setObjectName(QStringLiteral("cmdMove%1").arg(i));
        command->setAccessibleName(toolTip);
        command->setAccessibleDescription(command->objectName());
        command->setToolTip(toolTip);
        command->setIcon(furnishing.icon(button.icon));
        command->setIconSize({24, 24});
        command->setFixedSize(36, 34);
        command->setFocusPolicy(Qt::TabFocus);
        connect(command, &QToolButton::clicked, this,
                [this, i] { Q_EMIT MovePressed(static_cast<Move>(i)); });
        if (button.gapBefore)
            layout->addSpacing(8);
        layout->addWidget(command);
        cmdMove[static_cast<std::size_t>(i)] = command;
    }
    layout->addStretch(1);
    return layout;
}

QLayout *EditorControls::actionRow()
{
    for (int i = 0; i < static_cast<int>(cmdAction.size()); ++i) {
        const ActionButton &row = kActionButtons[i];
        auto *command = new QPushButton(QString::fromLatin1(row.caption), this);
        command->setAccessibleName(command->text().remove(QLatin1Char('&')));
        command->setObjectName(QStringLiteral("cmdAction%1").arg(i));
        command->setAccessibleDescription(command->objectName());
        command->setToolTip(QString::fromLatin1(row.toolTip));
        command->setAutoDefault(false);
        command->setFocusPolicy(Qt::TabFocus); // a click keeps the focus in the list
        if (row.keyIsTaken)
            command->setShortcut({});
        connect(command, &QPushButton::clicked, this,
                [this, i] { Q_EMIT ActionPressed(static_cast<EditorAction>(i)); });
        cmdAction[static_cast<std::size_t>(i)] = command;
    }
    return new FoldingRow(
        group({actionButton(EditorAction::ViewConsist), actionButton(EditorAction::ViewShape)}),
        group({actionButton(EditorAction::Ok), actionButton(EditorAction::Cancel),
               actionButton(EditorAction::Apply)}),
        FoldingRow::Second::AtRight, 6);
}

void EditorControls::connectLists()
{
    lvConsist->setModel(m_consist);
    lvStock->setModel(m_stock);
    for (ListView *list : {lvConsist, lvStock}) {
        list->FitFirstColumn(QStringLiteral("Engine*"));
        list->SetSearchColumn(2);
        list->setSelectionMode(QAbstractItemView::ExtendedSelection);
        connect(list, &ListView::SelectedFromOutside, list, [list] {
            list->setFocus();
            Q_EMIT list->Focused(); // also in a window that is not active
        });
        connect(list, &ListView::MenuWanted, this, &EditorControls::MenuWanted);
    }
    connect(lvStock, &ListView::InsertPressed, this, [this] { Q_EMIT MovePressed(Move::Add); });
    connect(lvStock, &ListView::doubleClicked, this, &EditorControls::StockChosen);
    connect(lvStock, &ListView::ReturnPressed, this, [this](Qt::KeyboardModifiers modifiers) {
        if (modifiers == Qt::NoModifier)
            Q_EMIT StockChosen();
    });
    connect(lvConsist, &ListView::DeletePressed, this, [this](Qt::KeyboardModifiers modifiers) {
        Q_EMIT MovePressed(modifiers == Qt::ShiftModifier ? Move::RemoveAll : Move::Remove);
    });
    lvConsist->SetHint(QStringLiteral(
        "An empty train.\n\nDouble click stock in the list on the right to add it, or "
        "select it and press Enter."));
    lvStock->header()->setSectionsClickable(true);
    lvStock->header()->setToolTip(
        QStringLiteral("To sort, click a title, or press Ctrl+1, Ctrl+2 or Ctrl+3 in the list"));
    connect(lvStock->header(), &QHeaderView::sectionClicked, this, &EditorControls::sortStock);
    for (int column = 0; column < 9; ++column) {
        auto *key = new QShortcut(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + column), lvStock);
        key->setContext(Qt::WidgetShortcut);
        connect(key, &QShortcut::activated, this, [this, column] { sortStock(column); });
    }
}

void EditorControls::addSearches()
{
    new TrainSearch(*searchTrain, *lvConsist, *m_consist, m_figures, this);
    m_stockSearch = new StockSearch(*searchStock, *lvStock, *m_stock, m_figures, this);
    auto *key = new QShortcut(Qt::CTRL | Qt::Key_K, this);
    key->setContext(Qt::WidgetWithChildrenShortcut);
    connect(key, &QShortcut::activated, this, &EditorControls::focusSearch);
}

/// Focuses the field of the list that was last entered. From a field, goes to the other one.
void EditorControls::focusSearch()
{
    const bool stock = searchStock->hasFocus()   ? false
                       : searchTrain->hasFocus() ? true
                                                 : focusProxy() == lvStock;
    SearchField *field = stock ? searchStock : searchTrain;
    field->setFocus(Qt::ShortcutFocusReason);
    field->selectAll();
}

void EditorControls::ReadStockFigures()
{
    m_stockSearch->ReadAll();
}

void EditorControls::addFigureColumns()
{
    auto *train = new FigureColumns(
        *lvConsist, m_consist->Figures(),
        [this](content::FactColumn column, bool show) { m_consist->ShowFigure(column, show); },
        kStockColumns, m_layout ? &m_layout->consistFigures : nullptr, this);
    auto *stock = new FigureColumns(
        *lvStock, m_stock->Figures(),
        [this](content::FactColumn column, bool show) { m_stock->ShowFigure(column, show); },
        kStockColumns, m_layout ? &m_layout->stockFigures : nullptr, this);
    connect(&m_figures, &StockFigures::Arrived, train, &FigureColumns::Refresh);
    connect(m_stockSearch, &StockSearch::FactsTaken, stock, &FigureColumns::Refresh);
    for (FigureColumns *columns : {train, stock})
        connect(&m_figures, &StockFigures::UnitsChanged, columns, &FigureColumns::Refresh);
    addPictures(*stock);
    connect(stock, &FigureColumns::Changed, this, &EditorControls::showStockOrder);
    if (m_stock->Order().column >= kStockColumns)
        showStockOrder();
}

void EditorControls::addPictures(FigureColumns &stockColumns)
{
    new RowPictures(
        *lvStock, *m_stock, m_pictures,
        [this](const StockItem &item) {
            return install::StockPath(m_figures.Environment().installation.CurrentFolder(), item);
        },
        this);
    auto *choice = new QAction(QStringLiteral("Pictures"), this);
    choice->setObjectName("mnuStockPictures");
    choice->setCheckable(true);
    choice->setChecked(m_pictures.ShowsRows());
    connect(choice, &QAction::triggered, &m_pictures, &StockPictures::ShowRows);
    connect(&m_pictures, &StockPictures::RowsChanged, choice,
            [this, choice] { choice->setChecked(m_pictures.ShowsRows()); });
    stockColumns.AddChoice(choice);
}

int EditorControls::heightForWidth(int width) const
{
    return layout()->totalMinimumHeightForWidth(width);
}

void EditorControls::sortStock(int column)
{
    if (column >= m_stock->columnCount())
        return;
    m_stock->ClickHeader(column);
    showStockOrder();
    if (m_layout)
        m_layout->stockOrder = m_stock->Order();
}

void EditorControls::showStockOrder()
{
    const StockOrder &order = m_stock->Order();
    const int column = m_stock->ColumnOfOrder(order.column);
    lvStock->header()->setSortIndicatorShown(column >= 0);
    lvStock->header()->setSortIndicator(column,
                                        order.ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    const bool isFigure = order.column > kStockColumns; // not the vehicle's own name
    lvStock->SetSearchColumn(column <= 0 || isFigure ? 2 : column);
}

/// Applies the layout, and stores the user's changes in it.
void EditorControls::followLayout(EditorLayout &layout)
{
    lvConsist->SizeColumns(layout.consistWidths);
    lvStock->SizeColumns(layout.stockWidths);
    connect(lvConsist, &ListView::ColumnSized, this,
            [this, &layout] { layout.consistWidths = ownWidths(*lvConsist); });
    connect(lvStock, &ListView::ColumnSized, this,
            [this, &layout] { layout.stockWidths = ownWidths(*lvStock); });
    if (layout.stockOrder.column < 0 ||
        layout.stockOrder.column >= kStockColumns + content::kFactColumns)
        return;
    m_stock->SetOrder(layout.stockOrder);
    showStockOrder();
}

void EditorControls::ShowConsist(const ConsistTree &consist)
{
    m_consist->SetRows(consist.Rows());
    showConsistHeading();
    showFigures(consist);
    for (int i = 0; i < 2; ++i)
        txtMaxVelocity[static_cast<std::size_t>(i)]->setText(
            QString::fromStdString(consist.MaxVelocity(i)));
    txtDurability->setText(QString::fromStdString(consist.Durability()));
    for (QLineEdit *box : {txtMaxVelocity[0], txtMaxVelocity[1], txtDurability})
        box->setCursorPosition(0);
}

void EditorControls::showFigures(const ConsistTree &consist)
{
    std::vector<StockItem> units;
    for (const ConsistRow &row : consist.Rows())
        units.push_back(row.item);
    strip->ShowUnits(std::move(units),
                     content::OwnMaximumOf(install::FindTrain(consist.Document())));
}

void EditorControls::ShowConsistAgain(const ConsistTree &consist)
{
    const int row = SelectedConsistRow(), scrolled = lvConsist->verticalScrollBar()->value();
    ShowConsist(consist);
    SelectConsistRow(row);
    lvConsist->doItemsLayout(); // the scroll bar has no range before this call
    lvConsist->verticalScrollBar()->setValue(scrolled);
}

void EditorControls::showConsistHeading()
{
    const QString text = QStringLiteral("Current consist items (%1)%2")
                             .arg(QLocale().toString(m_consist->rowCount()))
                             .arg(QLatin1String(m_changed ? ", changed" : ""));
    m_consistHeading->setText(text);
    m_consistHeading->setToolTip(text); // the list may be too narrow for the text
}

void EditorControls::ShowChanged(bool changed)
{
    m_changed = changed;
    showConsistHeading();
    // A disabled button passes the focus to the next control; give it to the active list instead.
    QPushButton *apply = actionButton(EditorAction::Apply), *ok = actionButton(EditorAction::Ok);
    if (!changed && (apply->hasFocus() || ok->hasFocus()))
        setFocus();
    apply->setEnabled(changed);
    ok->setEnabled(changed);
}

void EditorControls::ShowStockHeading(const std::string &filter)
{
    QString text = QStringLiteral("Available installed stock (%1)")
                       .arg(QLocale().toString(m_stock->ItemCount()));
    QString nothing = QStringLiteral("No stock found");
    if (!host::MatchesEverything(filter)) {
        const QString name = QString::fromStdString(filter);
        text += QStringLiteral(", filtered on ") + name;
        nothing += QStringLiteral(" in folders that match ") + name;
    }
    lvStock->SetHint(nothing);
    m_stockHeading->setText(text);
    m_stockHeading->setToolTip(text);
}

const StockItem *EditorControls::SelectedStock() const
{
    const int row = lvStock->SelectedRow();
    return row < 0 ? nullptr : &m_stock->Item(row);
}

std::vector<StockItem> EditorControls::SelectedStockItems() const
{
    std::vector<StockItem> items;
    for (const int row : lvStock->SelectedRows())
        items.push_back(m_stock->Item(row));
    return items;
}

const StockItem *EditorControls::SelectedUnit() const
{
    const int row = lvConsist->SelectedRow();
    return row < 0 ? nullptr : &m_consist->Item(row);
}

} // namespace document
