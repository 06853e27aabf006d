// SPDX-License-Identifier: MIT
#include "ui/document/UnitCommands.h"

#include "document/UnitClipboard.h"
#include "host/Dialogs.h"
#include "host/Number.h"
#include "host/Text.h"
#include "ui/document/DocumentHost.h"
#include "ui/document/EditorControls.h"
#include "ui/document/UnitMime.h"
#include "ui/document/frmDocument.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QScrollBar>

#include <algorithm>
#include <limits>
#include <numeric>

namespace document {

namespace {

constexpr char kAddSeveral[] = "Add Several", kPaste[] = "Paste";

std::string unitsWere(std::size_t count, const char *what)
{
    return host::Counted(count, "unit was ", "units were ") + what + '.';
}

bool isSameVehicle(const StockItem &a, const StockItem &b)
{
    return a.type.substr(0, 1) == b.type.substr(0, 1) && host::EqualsNoCase(a.folder, b.folder) &&
           host::EqualsNoCase(a.shape, b.shape);
}

/// Selects these rows, from 1, and scrolls to them.
void selectRows(ListView &list, const std::vector<int> &rows)
{
    list.SelectRow(rows.empty() ? -1 : rows.back() - 1);
    if (rows.size() < 2)
        return;
    std::vector<int> more;
    for (const int row : rows)
        more.push_back(row - 1);
    list.SelectMore(more);
    list.scrollTo(list.model()->index(rows.front() - 1, 0));
}

} // namespace

UnitCommands::UnitCommands(frmDocument &window, DocumentHost &host, ConsistTree &consist,
                           EditorControls &controls, QObject *parent)
    : QObject(parent)
    , m_window(window)
    , m_host(host)
    , m_consist(consist)
    , m_controls(controls)
{
}

std::vector<int> UnitCommands::selectedRows() const
{
    std::vector<int> rows = m_controls.lvConsist->SelectedRows();
    for (int &row : rows)
        ++row;
    return rows;
}

std::vector<StockItem> UnitCommands::selectedStock() const
{
    return m_controls.SelectedStockItems();
}

/// Returns 0, the end of the train, if no unit is selected.
int UnitCommands::placeBehindSelection() const
{
    const std::vector<int> rows = selectedRows();
    return rows.empty() ? 0 : rows.back() + 1;
}

void UnitCommands::Press(Move move)
{
    show(m_consist.Edit(move, selectedRows(), selectedStock()), true);
}

void UnitCommands::Run(UnitCommand command)
{
    switch (command) {
    case UnitCommand::AddAtEnd:
    case UnitCommand::AddBehind:
    case UnitCommand::AddSeveral:
        runOnStock(command);
        break;
    case UnitCommand::Paste:
        paste();
        break;
    case UnitCommand::Undo:
    case UnitCommand::Redo:
        step(command == UnitCommand::Redo);
        break;
    default:
        runOnUnits(command);
    }
}

void UnitCommands::runOnStock(UnitCommand command)
{
    const std::vector<StockItem> stock = selectedStock();
    const bool wasChanged = m_consist.Changed();
    if (stock.empty())
        m_host.SetStatus("No installed stock is selected.");
    else if (command == UnitCommand::AddSeveral)
        addSeveral(stock);
    else
        show(
            m_consist.Insert(stock, command == UnitCommand::AddBehind ? placeBehindSelection() : 0),
            wasChanged);
}

void UnitCommands::addSeveral(std::vector<StockItem> stock)
{
    host::Dialogs &dialogs = m_window.Environment().dialogs;
    const std::string what = stock.size() == 1
                                 ? "How many of " + stock.front().shape + "?"
                                 : "How many times the " + std::to_string(stock.size()) +
                                       " selected vehicles, in this order?";
    const std::optional<std::string> answer = dialogs.Input(what, kAddSeveral, "2");
    if (!answer)
        return;
    const int most = std::numeric_limits<std::int16_t>::max() / static_cast<int>(stock.size());
    const std::optional<int> times = host::NumberIn<int>(host::TrimBlanks(*answer));
    if (!times || *times < 1 || *times > most) {
        dialogs.Message("\"" + *answer + "\" is not a number from 1 to " + std::to_string(most) +
                            ".",
                        kAddSeveral, host::DialogIcon::Critical);
        return;
    }
    const std::vector<StockItem> once = stock;
    for (int i = 1; i < *times; ++i)
        stock.insert(stock.end(), once.begin(), once.end());
    const bool wasChanged = m_consist.Changed();
    show(m_consist.Insert(stock, 0), wasChanged);
}

void UnitCommands::runOnUnits(UnitCommand command)
{
    const std::vector<int> rows = selectedRows();
    if (rows.empty() && command != UnitCommand::Reverse) {
        m_host.SetStatus("No unit is selected.");
        return;
    }
    if (command == UnitCommand::SelectKind) {
        selectKind(rows);
        return;
    }
    if (command == UnitCommand::Copy || command == UnitCommand::Cut)
        copy(rows);
    if (command == UnitCommand::Copy)
        return;
    const bool wasChanged = m_consist.Changed();
    show(edited(command, rows), wasChanged);
}

/// Performs an edit. The result selects the units that were selected before; after a removal, the
/// unit that takes the place of the first one.
EditResult UnitCommands::edited(UnitCommand command, const std::vector<int> &rows)
{
    const auto selecting = [](EditResult result, std::vector<int> selected) {
        result.selectedRows = std::move(selected);
        return result;
    };
    const auto afterRemoval = [&](EditResult result) {
        const int last = static_cast<int>(m_consist.Rows().size());
        return selecting(std::move(result), last == 0 ? std::vector<int>()
                                                      : std::vector{std::min(rows.front(), last)});
    };
    switch (command) {
    case UnitCommand::Remove:
        return afterRemoval(m_consist.Edit(Move::Remove, rows));
    case UnitCommand::Cut:
        return afterRemoval(m_consist.Cut(rows));
    case UnitCommand::Flip:
        return selecting(m_consist.Edit(Move::Flip, rows), rows);
    case UnitCommand::MoveUp:
        return m_consist.Edit(Move::Forwards, rows);
    case UnitCommand::MoveDown:
        return m_consist.Edit(Move::Backwards, rows);
    default:
        return m_consist.Reverse(rows);
    }
}

void UnitCommands::selectKind(const std::vector<int> &rows)
{
    const auto item = [this](int row) -> const StockItem & {
        return m_consist.Rows()[static_cast<std::size_t>(row - 1)].item;
    };
    std::vector<int> same(m_consist.Rows().size());
    std::iota(same.begin(), same.end(), 1);
    std::erase_if(same, [&](int row) {
        return std::none_of(rows.begin(), rows.end(),
                            [&](int selected) { return isSameVehicle(item(row), item(selected)); });
    });
    selectRows(*m_controls.lvConsist, same);
    m_host.SetStatus(host::Counted(same.size(), "unit is", "units are") + " selected.");
}

CopiedUnits UnitCommands::Selected() const
{
    return CopyUnits(m_consist, selectedRows(), m_window.Environment().files);
}

void UnitCommands::copy(const std::vector<int> &rows)
{
    // The clipboard takes the content over.
    QGuiApplication::clipboard()->setMimeData(UnitMime(Selected()).release());
    m_host.SetStatus(unitsWere(rows.size(), "copied"));
}

void UnitCommands::paste()
{
    const QMimeData *content = QGuiApplication::clipboard()->mimeData();
    if (!content || content->formats().isEmpty())
        m_host.SetStatus("The clipboard is empty.");
    else if (HoldsUnits(*content))
        Insert(*content, placeBehindSelection());
    else
        m_window.Environment().dialogs.Message("There are no units of a train on the clipboard.",
                                               kPaste, host::DialogIcon::Critical);
}

void UnitCommands::Insert(const QMimeData &content, int place)
{
    const bool wasChanged = m_consist.Changed();
    show(m_consist.Paste(UnitsIn(content, m_window.Environment().files), place), wasChanged);
}

void UnitCommands::MoveTo(int place)
{
    const bool wasChanged = m_consist.Changed();
    show(m_consist.MoveTo(selectedRows(), place), wasChanged);
}

void UnitCommands::Replace(const StockItem &vehicle)
{
    const int row = m_controls.SelectedConsistRow();
    const bool wasChanged = m_consist.Changed();
    EditResult result = m_consist.Replace({row}, vehicle);
    if (result.isStep)
        result.message = "The unit is " + vehicle.folder + '/' + vehicle.shape + " now.";
    show(result, wasChanged);
}

void UnitCommands::step(bool redo)
{
    const std::string name = redo ? m_consist.RedoName() : m_consist.UndoName();
    if (name.empty())
        return;
    EditResult result = redo ? m_consist.Redo() : m_consist.Undo();
    result.message = (redo ? "Redone: " : "Undone: ") + name + '.';
    show(result, true);
}

/// Shows the train after an edit. `wasChanged` is true if it counts as changed in any case.
void UnitCommands::show(const EditResult &result, bool wasChanged)
{
    if (!result.isStep && !wasChanged)
        m_consist.SetChanged(false);
    if (result.refused) {
        Q_EMIT Edited();
        m_host.SetStatus(result.message);
        return;
    }
    ListView &list = *m_controls.lvConsist;
    const int scrolled = list.verticalScrollBar()->value();
    m_controls.ShowConsist(m_consist);
    Q_EMIT Edited();
    list.doItemsLayout(); // the scroll bar has no range before this call
    list.verticalScrollBar()->setValue(scrolled);
    selectRows(list, result.selectedRows);
    m_host.SetStatus(result.message);
}

} // namespace document
