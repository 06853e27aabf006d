// SPDX-License-Identifier: MIT
#include "app/CheckCommands.h"

#include "app/modZELK.h"
#include "host/Dialogs.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Text.h"
#include "install/Installation.h"
#include "install/Route.h"
#include "validation/SelectorEntries.h"
#include "validation/TSValidation.h"

#include <algorithm>
#include <exception>
#include <iterator>

namespace app {

using document::WindowMode;

namespace {

constexpr char kDependencies[] = "Check Dependencies", kConsistStock[] = "Check Stock",
               kAllStock[] = "Check All Stock", kTextures[] = "Stock Check Textures";
constexpr char kNothing[] = "Nothing selected!", kDone[] = "Done";
constexpr char kLineEnd[] = "\r\n";
constexpr int kBarLength = 10000;

bool endsWith(const std::string &path, std::string_view ending)
{
    return path.size() >= ending.size() &&
           host::EqualsNoCase(std::string_view(path).substr(path.size() - ending.size()), ending);
}

bool isStock(const std::string &path)
{
    return endsWith(path, ".eng") || endsWith(path, ".wag");
}

/// Returns the names of the subjects: the selected consists, or the file's name up to its first
/// ".".
std::vector<std::string> subjectsOf(const CheckTarget &target)
{
    if (target.mode == WindowMode::ConsistList)
        return target.consists;
    const std::string_view name = host::path::FileName(target.path);
    return {std::string(name.substr(0, name.find('.')))};
}

/// The routes that the selector's answer means. The selector shows a folder name only up to its
/// first bracket. If several folders look alike, a chosen entry means all of them.
std::vector<install::Route> chosenRoutes(const std::vector<std::string> &answer,
                                         const std::vector<install::Route> &shown)
{
    std::vector<install::Route> routes;
    for (auto text = answer.begin(); text != answer.end(); ++text) {
        if (std::find(answer.begin(), text, *text) != text)
            continue;
        const std::size_t before = routes.size();
        std::copy_if(shown.begin(), shown.end(), std::back_inserter(routes),
                     [&](const install::Route &route) {
                         return validation::SelectorEntries(ListText(route)).front().text == *text;
                     });
        if (routes.size() == before) // not one of the routes shown: the check reports it as missing
            routes.push_back({*text, {}});
    }
    return routes;
}

} // namespace

CheckCommands::CheckCommands(const install::Environment &environment, CheckHost &host)
    : m_environment(environment)
    , m_host(host)
{
}

void CheckCommands::run(const std::string &title, const std::function<void()> &check)
{
    if (m_running) {
        m_environment.dialogs.Message(
            "A check is running.  Wait until it has ended, or press Esc in "
            "the main window to stop it.",
            title, host::DialogIcon::Information);
        return;
    }
    m_stopped = m_abandoned = false;
    m_validator = nullptr;
    m_running = true;
    std::string failure;
    try {
        check();
    } catch (const std::exception &error) {
        failure = host::Explained(error);
    }
    m_running = false;
    m_host.SetProgress(0, 0);
    if (m_stopped)
        m_host.SetStatus("Check stopped");
    else if (!failure.empty())
        m_host.SetStatus("The check failed");
    if (!failure.empty() && !m_abandoned)
        m_environment.dialogs.Message(failure, title, host::DialogIcon::Critical);
}

void CheckCommands::CheckDependencies(const std::optional<CheckTarget> &target)
{
    const bool list = target && target->mode == WindowMode::ConsistList;
    run(kDependencies, [&] {
        if (!target || (list && target->consists.empty())) {
            m_environment.dialogs.Message(kNothing, kDependencies, host::DialogIcon::Critical);
            return;
        }
        if (!list && target->path.empty())
            return;
        const Names names = subjectsOf(*target);
        const std::optional<std::string> report =
            !list && isStock(target->path)          ? stockReport(target->path, names.front())
            : !list && endsWith(target->path, ".s") ? shapeReport(target->path)
                                                    : consistReport(names);
        if (report && !m_abandoned)
            m_host.ShowResults("Usage check of " + modZELK::SelectedItemsText(names),
                               *report + stoppedLine());
    });
}

std::string CheckCommands::stockReport(const std::string &path, const std::string &name)
{
    const std::string header = "Check Time  : " + m_host.Now() + kLineEnd +
                               "MSTS Path   : " + m_environment.installation.CurrentFolder() +
                               kLineEnd + "Stock Name  : " + path + kLineEnd + kLineEnd;
    TSValidation &validator = newValidator();
    validator.CheckStock(path);
    validator.CheckStockInConsists(path);
    checkUses({name}, askForRoutes(), [&](const std::string &, const std::string &route) {
        validator.CheckStockUseInRoute(path, route);
    });
    m_host.SetStatus(kDone);
    return header + findings();
}

/// Returns nothing if no route was chosen.
std::optional<std::string> CheckCommands::consistReport(const Names &names)
{
    const std::vector<install::Route> routes = askForRoutes();
    if (routes.empty()) {
        m_host.SetStatus("Nothing was checked: no route was chosen.");
        return std::nullopt;
    }
    TSValidation &validator = newValidator();
    checkUses(names, routes, [&](const std::string &name, const std::string &route) {
        validator.CheckConsistUseInRoute(route, name);
    });
    return findings();
}

std::string CheckCommands::shapeReport(const std::string &path)
{
    m_host.SetStatus("Checking " + path + "...");
    newValidator().CheckShape(path);
    m_host.SetStatus(kDone);
    return findings();
}

void CheckCommands::CheckConsistStock(const std::optional<CheckTarget> &target)
{
    run(kConsistStock, [&] {
        if (!target || target->mode != WindowMode::ConsistList || target->consist.empty())
            return;
        m_host.SetStatus("Checking " + target->consist + "...");
        newValidator().CheckConsist(m_environment.installation.ConsistPath(target->consist));
        m_host.SetStatus(kDone);
        std::string report;
        for (const validation::Finding &finding : m_validator->Findings())
            report += kLineEnd + ReportLine(finding);
        if (!m_abandoned)
            m_host.ShowResults("Stock check of " + target->consist,
                               report + (m_stopped ? kLineEnd : "") + stoppedLine());
    });
}

void CheckCommands::CheckAllStock()
{
    run(kAllStock, [&] {
        if (m_environment.dialogs.Message("About to check all stock file dependencies in your TS "
                                          "installtion.  This may take some time.  Do you want to "
                                          "continue?",
                                          kAllStock, host::DialogIcon::Question,
                                          host::DialogButtons::YesNo) != host::DialogAnswer::Yes)
            return;
        newValidator().CheckAllStock();
        const std::string when =
            " at " + std::to_string(m_done) + " of " + std::to_string(m_total) + " stock files";
        if (!m_abandoned)
            modZELK::ShowTextWindow(m_host, "#TS Installation Check",
                                    findings() + stoppedLine(m_total > 0 ? when : ""));
    });
}

void CheckCommands::CheckStockTextures(const std::optional<CheckTarget> &target)
{
    if (!target ||
        (target->mode != WindowMode::ConsistEditor && target->mode != WindowMode::ShapeView))
        m_environment.dialogs.Message(kNothing, kTextures, host::DialogIcon::Critical);
    else
        m_host.SetStatus("Textures are checked with the shape: choose Check Dependencies there.");
}

void CheckCommands::Stop()
{
    m_stopped = m_running;
    if (m_running && m_validator)
        m_validator->Stop();
}

void CheckCommands::Abandon()
{
    m_abandoned = m_running;
    Stop();
}

TSValidation &CheckCommands::newValidator()
{
    m_validator = &m_host.NewValidator();
    m_validator->SetVerboseMessages(false);
    m_validator->SetStepMessages(false);
    m_validator->ProgressRaised = [this](std::size_t done, std::size_t total) {
        showProgress(done, total);
    };
    m_validator->ProcessEvents = [this] { m_host.ProcessEvents(); };
    m_step = 0;
    m_steps = 1;
    m_done = m_total = 0;
    m_host.SetProgress(0, kBarLength);
    return *m_validator;
}

std::vector<install::Route> CheckCommands::askForRoutes()
{
    if (m_stopped)
        return {};
    m_host.SetStatus("Choose the routes to check...");
    const std::vector<install::Route> routes =
        install::InstalledRoutes(m_environment.installation, m_environment.files, true);
    const std::string answer =
        m_environment.dialogs.SelectFromList("Select Routes to Check", ListText(routes));
    m_host.SetStatus({});
    return chosenRoutes(host::Split(answer, '|'), routes);
}

/// Checks every name in every route, name by name.
void CheckCommands::checkUses(
    const Names &names, const std::vector<install::Route> &routes,
    const std::function<void(const std::string &name, const std::string &route)> &check)
{
    m_step = 0;
    m_steps = names.size() * routes.size();
    for (const std::string &name : names) {
        for (const install::Route &route : routes) {
            if (m_stopped)
                return;
            m_host.SetStatus("Checking " + name + " in " + route.folder + "...");
            showProgress(1, 1);
            check(name, route.folder);
            ++m_step;
            m_host.SetStatus(kDone);
            m_host.ProcessEvents();
        }
    }
}

/// Returns one line for each finding of the validator.
std::string CheckCommands::findings() const
{
    std::string text;
    for (const validation::Finding &finding : m_validator->Findings())
        text += ReportLine(finding) + kLineEnd;
    return text;
}

/// Returns the end of the report of a stopped check; "" for a complete check.
std::string CheckCommands::stoppedLine(const std::string &when) const
{
    return m_stopped ? "STOPPED" + when + ": this report is not complete." + kLineEnd : "";
}

void CheckCommands::showProgress(std::size_t done, std::size_t total)
{
    m_done = done;
    m_total = total;
    const double part = static_cast<double>(done - 1) / static_cast<double>(total);
    const double all = (static_cast<double>(m_step) + part) / static_cast<double>(m_steps);
    m_host.SetProgress(static_cast<int>(all * kBarLength), kBarLength);
}

} // namespace app
