// SPDX-License-Identifier: MIT
#pragma once

#include "document/WindowMode.h"
#include "install/Environment.h"
#include "install/Route.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class TSValidation;

namespace app {

/// The selection of the active document window, which a check works on.
struct CheckTarget
{
    /// The mode of the document window.
    document::WindowMode mode = document::WindowMode::ConsistList;
    std::vector<std::string> consists = {}; ///< consist list: the selected names, in list order
    std::string consist = {};               ///< consist list: the current one of them
    std::string path = {};                  ///< otherwise the file of the stock, shape or consist
};

/// The program around the check commands; the main window implements it.
class CheckHost
{
public:
    virtual ~CheckHost() = default;

    /// Creates a validator in place of the last one; it lives until the next call.
    virtual TSValidation &NewValidator() = 0;
    /// Sets the text of the status bar.
    virtual void SetStatus(const std::string &text) = 0;
    /// Shows the progress of the check, 0 to `total`; a `total` of 0 means that it has ended.
    virtual void SetProgress(int done, int total) = 0;
    /// Processes pending window events. During this call, windows may close and commands may start.
    virtual void ProcessEvents() = 0;
    /// Returns the current date and time as reports show it.
    virtual std::string Now() = 0;
    /// Opens a results window with this caption and text.
    virtual void ShowResults(const std::string &caption, const std::string &text) = 0;
};

/// The check commands. Each checks the selection with one run of the validator, and shows the
/// report. One check runs at a time; a second one is refused with a message. A run-time error that
/// ends a check is shown in a message box, without a report.
class CheckCommands
{
public:
    /// `host` must outlive the object.
    CheckCommands(const install::Environment &environment, CheckHost &host);

    /// Checks what uses the target, and whether all files that the target needs exist. No target
    /// means that there is no window.
    void CheckDependencies(const std::optional<CheckTarget> &target);
    /// Checks that every vehicle of the current consist exists, with its shape.
    void CheckConsistStock(const std::optional<CheckTarget> &target);
    /// Asks first, and then checks all installed stock.
    void CheckAllStock();
    /// Checks nothing. Shows an error if no stock is shown; otherwise shows which commands check
    /// textures.
    void CheckStockTextures(const std::optional<CheckTarget> &target);

    bool Running() const { return m_running; }
    /// Asks a running check to end. Its report then states that it is not complete.
    void Stop();
    /// Like Stop, but without a report, because the program is ending.
    void Abandon();

private:
    using Names = std::vector<std::string>;

    void run(const std::string &title, const std::function<void()> &check);
    TSValidation &newValidator();
    std::string stockReport(const std::string &path, const std::string &name);
    std::optional<std::string> consistReport(const Names &names);
    std::string shapeReport(const std::string &path);
    std::vector<install::Route> askForRoutes();
    void
    checkUses(const Names &names, const std::vector<install::Route> &routes,
              const std::function<void(const std::string &name, const std::string &route)> &check);
    std::string findings() const;
    std::string stoppedLine(const std::string &when = {}) const;
    void showProgress(std::size_t done, std::size_t total);

    install::Environment m_environment;
    CheckHost &m_host;
    TSValidation *m_validator = nullptr; ///< of the running or the last check
    bool m_running = false, m_stopped = false, m_abandoned = false;
    std::size_t m_step = 0, m_steps = 1; ///< progress: steps, each with its own items
    std::size_t m_done = 0, m_total = 0; ///< items of the current step
};

} // namespace app
