// SPDX-License-Identifier: MIT
#include "document/StockList.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Snapshot.h"
#include "host/Text.h"
#include "install/Installation.h"
#include "install/StockFiles.h"

#include <algorithm>
#include <new>
#include <numeric>

namespace document {
namespace {

const std::string &columnOf(const StockItem &item, int column)
{
    return column == 0 ? item.type : column == 1 ? item.folder : item.shape;
}

} // namespace

StockScan::Found StockScan::stockOfFolder(host::Snapshot &files, const std::string &trainset,
                                          const std::string &folder)
{
    constexpr std::size_t kExtension = 4; // ".eng", ".wag" and others of three letters
    Found found;
    for (std::string &name : install::StockFiles(files, trainset, folder)) {
        const bool engine = name.ends_with("eng");
        name.resize(name.size() - kExtension);
        found.items.push_back(
            {engine ? install::kEngine : install::kWagon, folder, std::move(name)});
    }
    if (found.items.empty() && files.IsClosed(host::path::Join(trainset, folder)))
        found.closed = host::path::Join(trainset, folder);
    return found;
}

std::optional<std::vector<StockItem>> StockScan::itemsOf(std::optional<Found> found)
{
    if (!found)
        return std::nullopt;
    if (!found->closed.empty())
        m_closed.push_back(std::move(found->closed));
    return std::move(found->items);
}

StockScan::StockScan(const install::Installation &installation, host::GameFiles &files,
                     std::string_view filter, std::size_t workers)
{
    const std::string trainset = installation.PathOf(install::kTrainset);
    const auto snapshot = std::make_shared<host::Snapshot>(files);
    std::vector<std::string> folders = install::StockFolders(*snapshot, trainset, filter);
    const std::size_t count = folders.size();
    if (count == 0 && snapshot->IsClosed(trainset))
        m_closed.push_back(trainset);
    m_ahead = std::make_unique<host::Ahead<Found>>(
        count,
        [snapshot, trainset, folders = std::move(folders)](std::size_t i) {
            try {
                return stockOfFolder(*snapshot, trainset, folders[i]);
            } catch (const std::bad_alloc &) { // must not leave the worker
                return Found{{}, host::path::Join(trainset, folders[i])};
            }
        },
        workers);
}

void StockOrder::Click(int clicked)
{
    ascending = clicked == column ? !ascending : true;
    column = clicked;
}

std::vector<int> SortedIndexes(const std::vector<StockItem> &items, const StockOrder &order)
{
    std::vector<int> indexes(items.size());
    std::iota(indexes.begin(), indexes.end(), 0);
    if (order.column < 0)
        return indexes;
    std::vector<std::string> keys;
    keys.reserve(items.size());
    for (const StockItem &item : items)
        keys.push_back(host::ToUpper(columnOf(item, order.column)));
    const auto before = [&](int a, int b) {
        const int compared =
            keys[static_cast<std::size_t>(a)].compare(keys[static_cast<std::size_t>(b)]);
        return order.ascending ? compared < 0 : compared > 0;
    };
    std::stable_sort(indexes.begin(), indexes.end(), before);
    return indexes;
}

} // namespace document
