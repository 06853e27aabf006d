// SPDX-License-Identifier: MIT
#include "ui/main/FileOpener.h"

#include "app/OpenRules.h"
#include "document/WindowMode.h"
#include "host/Dialogs.h"
#include "host/Guard.h"
#include "host/Path.h"
#include "ui/document/DocumentHost.h"
#include "viewer/LooseConsists.h"
#include "viewer/Numbers.h"
#include "viewer/VehicleReader.h"

#include <QTimer>

namespace app {

namespace {

constexpr int kBetweenWindows = 500; ///< milliseconds, so that each is drawn before the next opens

} // namespace

FileOpener::FileOpener(const install::Environment &environment, document::DocumentHost &host)
    : m_environment(environment)
    , m_host(host)
{
}

void FileOpener::Open(const std::string &path)
{
    m_host.SetStatus({});
    const OpenKind kind = KindOf(path);
    if (const std::string refusal = RefusalOf(kind); !refusal.empty()) {
        m_environment.dialogs.Message(refusal, "Open File", host::DialogIcon::Critical);
        return;
    }
    m_lastFolder = host::path::FolderWithSeparator(path);
    if (kind == OpenKind::Consist)
        m_host.OpenDocumentWindow(path, document::WindowMode::ConsistEditor, "Consist - " + path,
                                  {});
    else if (kind == OpenKind::Shape)
        m_host.OpenDocumentWindow(path, document::WindowMode::ShapeView, "Shape - " + path, {});
    else
        document::Guarded(m_environment.dialogs, "Open File",
                          [&] { kind == OpenKind::Stock ? openStock(path) : openActivity(path); });
}

void FileOpener::openStock(const std::string &path)
{
    const viewer::StockShape stock = viewer::ReadVehicleToShow(m_environment, path);
    const bool wagon = host::path::Extension(path) == "wag";
    m_host.OpenVehicleWindow(stock.shapeFile, path,
                             (wagon ? "Wagon - " : "Engine - ") + stock.name);
}

void FileOpener::openActivity(const std::string &path)
{
    const std::vector<StfNode> trains = viewer::ReadLooseConsists(m_environment.files, path);
    const int total = static_cast<int>(trains.size());
    const std::string answer =
        m_environment.dialogs
            .Input("Found " + std::to_string(total) + " loose consist(s) in activity " + path +
                       "\n\nWhich do you want to load?",
                   "Activity Loose Consists", "*")
            .value_or(std::string());
    const bool idle = m_looseConsists.empty();
    for (int i = 1; i <= total; ++i)
        if (answer == "*" || viewer::LeadingNumber(answer) == static_cast<float>(i))
            m_looseConsists.push_back({path, i, total, trains[static_cast<std::size_t>(i - 1)]});
    if (idle)
        openNextLooseConsist();
}

/// Removes the item only after its window is open, so that a single chain of calls opens windows.
void FileOpener::openNextLooseConsist()
{
    if (m_looseConsists.empty())
        return;
    const LooseConsist item = m_looseConsists.front();
    const std::string number = std::to_string(item.number);
    m_host.SetStatus("Loading item " + number + " of " + std::to_string(item.total) + " from " +
                     item.file);
    if (item.trainCfg)
        m_host.OpenDocumentWindow(item.file, document::WindowMode::ConsistView,
                                  "Loose Consist " + number + " from " + item.file, item.trainCfg);
    else
        m_environment.dialogs.Message(item.file + ": loose consist " + number +
                                          " has no Train_Config with a train in it",
                                      "Open File", host::DialogIcon::Critical);
    m_looseConsists.pop_front();
    if (!m_looseConsists.empty())
        QTimer::singleShot(kBetweenWindows, this, &FileOpener::openNextLooseConsist);
}

} // namespace app
