// SPDX-License-Identifier: MIT
#include "validation/TSValidation.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Snapshot.h"
#include "install/Route.h"
#include "install/StockFiles.h"
#include "validation/ConsistCheck.h"
#include "validation/Finding.h"
#include "validation/Run.h"
#include "validation/ShapeCheck.h"
#include "validation/StockCheck.h"
#include "validation/StockIndex.h"
#include "validation/UsageCheck.h"

using host::path::Join;
using install::StockName;
using validation::ConsistUse;
using validation::Outcome;
using validation::Verdict;

TSValidation::TSValidation(const install::Installation &installation, host::GameFiles &files,
                           std::size_t workers)
    : m_installation(installation)
    , m_files(files)
    , m_workers(workers)
{
    Reset();
}

TSValidation::~TSValidation() = default;

void TSValidation::refuseWhileRunning() const
{
    if (m_running)
        throw host::RuntimeError(host::ErrorNumber::InvalidCall, "a check is running already");
}

void TSValidation::Reset()
{
    refuseWhileRunning();
    m_errors = {};
    m_findings = {};
    m_messages = {};
    m_stopped = false;
    m_begin = m_index.now();
    m_snapshot = std::make_unique<host::Snapshot>(m_files);
}

std::string TSValidation::TranslateError(std::string_view key)
{
    const bool isKey = key.find('|') != key.npos;
    return isKey ? validation::ReportLine(validation::FindingOf(key)) : std::string(key);
}

std::int16_t TSValidation::CheckSound(std::string_view fileName)
{
    return Run(*this).CheckFile(validation::CheckSound, fileName);
}

std::int16_t TSValidation::CheckCabView(std::string_view fileName)
{
    return Run(*this).CheckFile(validation::CheckCabView, fileName);
}

std::int16_t TSValidation::CheckStock(std::string_view fileName)
{
    return Run(*this).CheckFile(validation::CheckStock, fileName);
}

std::int16_t TSValidation::CheckShape(std::string_view fileName)
{
    return Run(*this).CheckFile(validation::CheckShape, fileName);
}

std::int16_t TSValidation::CheckConsist(std::string_view fileName)
{
    return Run(*this).CheckFile(validation::CheckConsist, fileName);
}

/// Records a folder that cannot be listed, since nothing in it is checked.
void TSValidation::tellIfClosed(Run &run, const std::string &folder) const
{
    if (m_snapshot->IsClosed(folder))
        run.Record(Verdict::Corrupt, folder,
                   validation::ErrorText(host::ErrorNumber::PathFileAccess));
}

std::vector<std::string> TSValidation::stockItems(Run &run, validation::StockIndex *index,
                                                  const std::string &trainset,
                                                  std::string_view filter) const
{
    if (!m_snapshot->FolderExists(trainset))
        run.Record(Verdict::Missing, trainset, {});
    tellIfClosed(run, trainset);
    const auto folders = install::StockFolders(*m_snapshot, trainset, filter);
    std::vector<std::string> items;
    const auto list = [&](const std::string &name) {
        return install::StockFiles(*m_snapshot, trainset, name);
    };
    run.Each<StockFolder>(
        folders.size(),
        [&](std::size_t i) -> StockFolder {
            if (index)
                if (auto files = index->Files(folders[i], list))
                    return {std::move(*files), false};
            return {list(folders[i]), m_snapshot->IsClosed(Join(trainset, folders[i]))};
        },
        [&](std::size_t i, const StockFolder &folder) {
            if (folder.isClosed)
                tellIfClosed(run, Join(trainset, folders[i]));
            for (const std::string &file : folder.files)
                items.push_back(Join(folders[i], file));
        });
    return items;
}

/// Does work that can take longer than a window may pause.
template <typename Work> void TSValidation::onWorker(Run &run, const Work &work)
{
    run.Each<bool>(
        1,
        [&](std::size_t) {
            work();
            return true;
        },
        [](std::size_t, bool) {});
}

/// Returns null without an index.
std::unique_ptr<validation::StockIndex> TSValidation::openIndex(Run &run) const
{
    std::unique_ptr<validation::StockIndex> index;
    if (!m_index.folder.empty())
        onWorker(run, [&] {
            index = std::make_unique<validation::StockIndex>(*m_snapshot, m_index, m_begin,
                                                             run.Files().Folder(),
                                                             run.NewFindings(m_stepMessages));
        });
    return index;
}

std::int16_t TSValidation::CheckAllStock(std::string_view filter)
{
    Run run(*this);
    if (m_stopped)
        return IsValid;
    run.RaiseMessage("Checking your TS Installation");
    const std::string trainset = run.PathOf(install::kTrainset);
    const std::size_t before = m_errors.size();
    const bool steps = m_stepMessages;
    const std::unique_ptr<validation::StockIndex> index = openIndex(run);
    const auto items = stockItems(run, index.get(), trainset, filter);
    const std::string total = std::to_string(items.size());
    std::int16_t verdict = m_errors.size() == before ? IsValid : IsSuspect;
    run.Each<Outcome>(
        items.size(),
        [&](std::size_t i) {
            const auto check = [&] {
                return run.OutcomeOf(validation::CheckStock, Join(trainset, items[i]), steps);
            };
            return index ? index->OutcomeOf(items[i], check) : check();
        },
        [&](std::size_t i, const Outcome &outcome) {
            run.RaiseProgress(i, items.size());
            if (run.WantsMessages())
                run.RaiseMessage("Checking (" + std::to_string(i + 1) + " of " + total + ") " +
                                 items[i]);
            if (run.Deliver(outcome) != Verdict::Valid)
                verdict = IsSuspect;
        });
    if (m_stopped)
        return verdict;
    using Extent = host::SavedIndex::Extent;
    if (index)
        onWorker(run, [&] { index->Save(filter.empty() ? Extent::Whole : Extent::Part); });
    run.RaiseMessage("TS Installation check complete");
    return verdict;
}

std::int16_t TSValidation::CheckStockInConsists(std::string_view stockPath)
{
    Run run(*this);
    const std::string folder = run.PathOf("Trains/Consists"), stock(stockPath);
    const std::vector<std::string> consists = m_snapshot->ListFiles(folder, "*.con");
    const StockName name = StockName::Of(stock);
    bool found = false;
    if (!m_stopped)
        tellIfClosed(run, folder);
    run.Each<ConsistUse>(
        consists.size(),
        [&](std::size_t i) {
            return validation::UseInConsist(run.Files(), Join(folder, consists[i]), name);
        },
        [&](std::size_t i, const ConsistUse &use) {
            run.RaiseProgress(i, consists.size());
            if (run.WantsMessages())
                run.RaiseMessage("Checking " + consists[i]);
            // Once one is found, another counts only if the file is its first vehicle.
            if (found ? use.first : use.any) {
                run.Record(Verdict::Referenced, Join(folder, consists[i]), stock);
                found = true;
            }
        });
    if (m_stopped)
        return IsValid;
    const Verdict verdict =
        found ? Verdict::Valid : run.Record(Verdict::Missing, "all consists", stock);
    run.RaiseMessage("Done");
    return CodeOf(verdict);
}

template <typename CountUses>
std::int16_t TSValidation::searchRoute(Run &run, const RouteSearch &search, CountUses countUses)
{
    const std::string route = Join(run.PathOf(install::kRoutes), search.route);
    if (m_stopped)
        return IsValid;
    if (!m_snapshot->FolderExists(route))
        return CodeOf(run.Record(Verdict::Missing, "Route " + search.route, {}));
    const std::string folder = Join(route, search.folder);
    const std::vector<std::string> files = m_snapshot->ListFiles(folder, search.pattern);
    bool found = false;
    tellIfClosed(run, folder);
    run.Each<int>(
        files.size(), [&](std::size_t i) { return countUses(Join(folder, files[i])); },
        [&](std::size_t i, int uses) {
            run.RaiseProgress(i, files.size());
            found = found || uses > 0;
            while (uses-- > 0)
                run.Record(Verdict::Referenced, Join(folder, files[i]), search.usedFile);
        });
    if (!found && !m_stopped)
        run.Record(Verdict::Valid, search.route + ' ' + search.what, search.used);
    return IsValid;
}

std::int16_t TSValidation::CheckConsistUseInRoute(std::string_view route, std::string_view consist)
{
    Run run(*this);
    const std::string name(consist);
    const RouteSearch search{
        std::string(route), "Services", "*.srv",
        "services",         name,       Join(run.PathOf("Trains/Consists"), name + ".con")};
    return searchRoute(run, search, [&](const std::string &service) {
        return validation::IsRunByService(run.Files(), service, name) ? 1 : 0;
    });
}

std::int16_t TSValidation::CheckStockUseInRoute(std::string_view stockPath, std::string_view route)
{
    Run run(*this);
    const std::string stock(stockPath);
    const RouteSearch search{std::string(route), "Activities", "*.act", "activities", stock, stock};
    return searchRoute(run, search, [&, name = StockName::Of(stock)](const std::string &activity) {
        return validation::UsesInActivity(run.Files(), activity, name);
    });
}
