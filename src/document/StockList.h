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

/// Reads the installed stock folder by folder, ahead on worker threads, delivering in listing
/// order: every file of the trainset folders without a dot that match the filter whose extension
/// has three characters and ends in g. "Engine" is decided by the exact letters "eng", all else is
/// "Wagon".
class StockScan
{
public:
    StockScan(const install::Installation &installation, host::GameFiles &files,
              std::string_view filter, std::size_t workers = host::DefaultWorkers());

    /// The items of the next folder when they are ready, at once; nothing when they are not or when
    /// all folders are done.
    std::optional<std::vector<StockItem>> TryTakeFolder() { return itemsOf(m_ahead->TryTake()); }
    /// The same, waiting for them.
    std::optional<std::vector<StockItem>> TakeFolder() { return itemsOf(m_ahead->Take()); }
    /// The paths of those folders taken so far whose names could not be read; the trainset folder
    /// first when it is one.
    const std::vector<std::string> &ClosedFolders() const { return m_closed; }
    bool Done() const { return m_ahead->Done(); }
    std::size_t FoldersDone() const { return m_ahead->Taken(); }
    std::size_t Folders() const { return m_ahead->Count(); }
    void Stop() { m_ahead->Stop(); }

private:
    struct Found
    {
        std::vector<StockItem> items;
        std::string closed; ///< the folder's path when it could not be read
    };
    static Found stockOfFolder(host::Snapshot &files, const std::string &trainset,
                               const std::string &folder);
    std::optional<std::vector<StockItem>> itemsOf(std::optional<Found> found);

    std::unique_ptr<host::Ahead<Found>> m_ahead;
    std::vector<std::string> m_closed;
};

/// How the stock list is sorted: not at all (listing order) until a column header is clicked.
struct StockOrder
{
    int column = -1; ///< 0 Type, 1 Folder, 2 Shape; -1 not sorted
    bool ascending = true;

    /// A click on a column header: another column sorts ascending, the same one turns round.
    void Click(int clicked);
};

/// The order in which to show the items: indexes into `items`, letter case ignored, items that
/// compare equal in their given order (also when descending).
std::vector<int> SortedIndexes(const std::vector<StockItem> &items, const StockOrder &order);

} // namespace document
