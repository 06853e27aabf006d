// SPDX-License-Identifier: MIT
#pragma once

#include "document/ConsistTree.h"
#include "host/Ahead.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {
class GameFiles;
class Snapshot;
} // namespace host
namespace install {
class Installation;
}

namespace document {

/// Reads the installed stock folder by folder, ahead on worker threads, and delivers it in listing
/// order. Reads the trainset folders whose names have no dot and match the filter, and lists the
/// files whose extension has three characters and ends in g. A file is an "Engine" if its extension
/// is exactly "eng", otherwise a "Wagon".
class StockScan
{
public:
    StockScan(const install::Installation &installation, host::GameFiles &files,
              std::string_view filter, std::size_t workers = host::DefaultWorkers());

    /// Returns the items of the next folder without waiting; nothing if they are not ready or all
    /// folders are done.
    std::optional<std::vector<StockItem>> TryTakeFolder() { return itemsOf(m_ahead->TryTake()); }
    /// Returns the items of the next folder, and waits for them; nothing if all folders are done.
    std::optional<std::vector<StockItem>> TakeFolder() { return itemsOf(m_ahead->Take()); }
    /// Returns the paths of the folders taken so far that could not be read; an unreadable trainset
    /// folder comes first.
    const std::vector<std::string> &ClosedFolders() const { return m_closed; }
    bool Done() const { return m_ahead->Done(); }
    std::size_t FoldersDone() const { return m_ahead->Taken(); }
    std::size_t Folders() const { return m_ahead->Count(); }
    void Stop() { m_ahead->Stop(); }

private:
    struct Found
    {
        std::vector<StockItem> items;
        std::string closed; ///< the folder's path if it could not be read
    };
    static Found stockOfFolder(host::Snapshot &files, const std::string &trainset,
                               const std::string &folder);
    std::optional<std::vector<StockItem>> itemsOf(std::optional<Found> found);

    std::unique_ptr<host::Ahead<Found>> m_ahead;
    std::vector<std::string> m_closed;
};

/// The order of the stock list: listing order until the user clicks a column header.
struct StockOrder
{
    int column = -1; ///< 0 Type, 1 Folder, 2 Shape; -1 not sorted
    bool ascending = true;

    /// Handles a click on a column header: another column sorts ascending, the same one reverses
    /// the order.
    void Click(int clicked);
};

/// Returns the order in which to show the items, as indexes into `items`. Ignores letter case.
/// Items that compare equal keep their given order, also in descending order.
std::vector<int> SortedIndexes(const std::vector<StockItem> &items, const StockOrder &order);

} // namespace document
