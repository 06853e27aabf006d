// SPDX-License-Identifier: MIT
#include "ui/document/StockLoader.h"

#include "host/Text.h"
#include "ui/document/DocumentHost.h"
#include "ui/document/StockListModel.h"

#include <iterator>

namespace document {

namespace {

constexpr int kSliceMilliseconds = 8;
/// The view repeats its layout after every append, which costs more than the rows themselves.
constexpr int kFlushMilliseconds = 100;
/// The pause before asking again when the workers have nothing ready.
constexpr int kPauseMilliseconds = 3;

/// Returns what the list lacks, as the end of a sentence.
std::string without(const std::vector<std::string> &closed)
{
    if (closed.empty())
        return {};
    const std::string others =
        closed.size() == 1 ? "" : " and " + std::to_string(closed.size() - 1) + " more";
    return "; could not read " + closed.front() + others;
}

} // namespace

StockLoader::StockLoader(const install::Environment &environment, DocumentHost &host,
                         StockListModel &model, QObject *parent)
    : QObject(parent)
    , m_environment(environment)
    , m_host(host)
    , m_model(model)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &StockLoader::slice);
}

StockLoader::~StockLoader()
{
    if (!Running())
        return;
    m_scan.reset();
    m_host.SetProgress(0, 0);
    m_host.SetStatus("Loading installed stock list stopped: its window was closed");
    m_host.WriteLog("Stopped");
}

void StockLoader::Start(const std::string &filter)
{
    m_found.clear();
    m_model.Clear();
    m_scan = std::make_unique<StockScan>(m_environment.installation, m_environment.files, filter);
    m_sinceFlush.invalidate();
    showProgress();
    m_timer.start(0);
}

void StockLoader::Stop()
{
    if (Running())
        finish(true);
}

void StockLoader::slice()
{
    QElapsedTimer spent;
    spent.start();
    bool ready = true;
    while (ready && spent.elapsed() < kSliceMilliseconds) {
        auto folder = m_scan->TryTakeFolder();
        ready = folder.has_value();
        if (ready)
            std::move(folder->begin(), folder->end(), std::back_inserter(m_found));
    }
    if (m_scan->Done()) {
        finish(false);
        return;
    }
    if (!m_sinceFlush.isValid() || m_sinceFlush.elapsed() >= kFlushMilliseconds)
        flush();
    m_timer.start(ready ? 0 : kPauseMilliseconds);
}

void StockLoader::flush()
{
    m_sinceFlush.start();
    m_model.Append(std::exchange(m_found, {}));
    showProgress();
    Q_EMIT Progressed();
}

void StockLoader::showProgress()
{
    const auto done = m_scan->FoldersDone(), total = m_scan->Folders();
    m_host.SetStatus("Loading installed stock list... " + std::to_string(done) + " of " +
                     std::to_string(total));
    m_host.SetProgress(static_cast<int>(done), static_cast<int>(total));
}

void StockLoader::finish(bool stopped)
{
    m_timer.stop();
    const auto done = m_scan->FoldersDone(), total = m_scan->Folders();
    const std::vector<std::string> closed = m_scan->ClosedFolders();
    m_scan.reset();
    m_model.Append(std::exchange(m_found, {}));
    m_model.Resort();
    m_host.SetProgress(0, 0);
    for (const std::string &folder : closed)
        m_host.WriteLog("Could not read " + folder);
    const auto rows = static_cast<std::size_t>(m_model.ItemCount());
    const std::string items = host::Counted(rows, "item", "items") + without(closed);
    Q_EMIT Finished(stopped, stopped ? "Loading installed stock list stopped after " +
                                           std::to_string(done) + " of " +
                                           host::Counted(total, "folder", "folders") + ": " + items
                                     : "Installed stock list loaded: " + items);
}

} // namespace document
