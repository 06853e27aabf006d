// SPDX-License-Identifier: MIT
#pragma once

#include "document/WindowMode.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class TSValidation;

namespace host {
class Dialogs;
class GameFiles;
} // namespace host
namespace install {
class Installation;
struct Route;
} // namespace install

namespace app {

/// What of the active document window a check works on.
struct CheckTarget
{
    /// Of the document window.
    document::WindowMode mode = document::WindowMode::ConsistList;
    std::vector<std::string> consists = {}; ///< consist list: the selected names, in list order
    std::string consist = {};               ///< consist list: the current one of them
    std::string path = {};                  ///< otherwise the stock item, shape or consist shown
};

/// What the check commands need of the program around them; the main window implements it.
class CheckHost
{
public:
    virtual ~CheckHost() = default;

    virtual host::Dialogs &Dialogs() = 0;
    virtual host::GameFiles &Files() = 0;
    virtual const install::Installation &Installation() = 0;
    /// A new validator in the place of the last one; it lives until the next is made.
    virtual TSValidation &NewValidator() = 0;
    /// The text of the status bar.
    virtual void SetStatus(const std::string &text) = 0;
    /// How far the check is, 0 to `total`; a total of 0 says that it has ended.
    virtual void SetProgress(int done, int total) = 0;
    /// Lets pending window events run. Anything may happen in here: windows close, commands start.
    virtual void ProcessEvents() = 0;
    /// The current date and time as reports show it.
    virtual std::string Now() = 0;
    /// Opens a results window of this caption with this text.
    virtual void ShowResults(const std::string &caption, const std::string &text) = 0;
};

/// The check commands: from what is selected to one run of the validator and the report of what it
/// found. One check runs at a time; a second one is refused with a message. Run-time errors that
/// leave a check are told in a message box, and there is no report then.
class CheckCommands
{
public:
    explicit CheckCommands(CheckHost &host);

    /// What uses the target, and whether it finds all that it needs; nothing is "no window".
    void CheckDependencies(const std::optional<CheckTarget> &target);
    /// Whether every vehicle of the current consist is there, with its shape.
    void CheckConsistStock(const std::optional<CheckTarget> &target);
    /// All installed stock, after a question.
    void CheckAllStock();
    /// Checks nothing: complains when no stock is shown, else says what checks textures.
    void CheckStockTextures(const std::optional<CheckTarget> &target);

    bool Running() const { return m_running; }
    /// Ends a running check soon; the report then says that it is not complete.
    void Stop();
    /// The same without a report: the program ends.
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

    CheckHost &m_host;
    TSValidation *m_validator = nullptr; ///< of the running or the last check
    bool m_running = false, m_stopped = false, m_abandoned = false;
    std::size_t m_step = 0, m_steps = 1; ///< the bar shows these, each with its items
    std::size_t m_done = 0, m_total = 0; ///< items of the step
};

} // namespace app
