// SPDX-License-Identifier: MIT
#pragma once

#include "host/Ahead.h"
#include "validation/Finding.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
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

/// The dependency checker. Its owner creates one for each check command, calls one or more checks,
/// and turns Findings into report lines (ReportLine).
///
/// Every check reduces a file to a verdict, which it returns, and records each finding, in Errors
/// as a result key "code|file|dependent". Folders to search that cannot be read are recorded as
/// corrupt. Bad files are verdicts and never errors; only CheckShape can leave with a RuntimeError
/// (what it recorded before stays).
///
/// Events are raised on the calling thread, in order, from within the running check; files are read
/// ahead on workers, with the same results and events for any number of them. A handler may process
/// the events of the user interface. From there it may call Stop, and read everything here; a
/// second check on the same object is refused with error 5. It must not destroy the object, and
/// must not replace a handler. An exception of a handler ends the check and leaves it.
///
/// File names are game paths (host/GameFiles.h). Those of the findings are the ones the checks
/// built, in the platform's own separators. Nothing is kept between checks, except what Errors
/// holds, and the listings of folders: each is read once until the next Reset.
class TSValidation
{
public:
    /// The verdicts.
    // NOLINTBEGIN(readability-identifier-naming): these names are fixed
    static constexpr std::int16_t IsOK = -1;
    static constexpr std::int16_t IsValid = 0;
    static constexpr std::int16_t IsMissing = 1;
    static constexpr std::int16_t IsCompressed = 2;
    static constexpr std::int16_t IsCorrupt = 3;
    static constexpr std::int16_t IsEmpty = 4; ///< no check gives it
    static constexpr std::int16_t IsSuspect = 5;
    static constexpr std::int16_t HasMissingReference = 6;
    static constexpr std::int16_t IsReferenced = 7;
    // NOLINTEND(readability-identifier-naming)

    /// Both must outlive this object.
    TSValidation(const install::Installation &installation, host::GameFiles &files,
                 std::size_t workers = host::DefaultWorkers());
    ~TSValidation();
    TSValidation(const TSValidation &) = delete;
    TSValidation &operator=(const TSValidation &) = delete;

    /// The result keys of all verdicts but IsValid since the last Reset, in the order recorded,
    /// repeated ones too.
    const std::vector<std::string> &Errors() const { return m_errors; }
    /// The findings of which Errors holds the keys, in the same order. Reports are made of these.
    const std::vector<validation::Finding> &Findings() const { return m_findings; }
    /// Nothing writes here.
    const std::vector<std::string> &Messages() const { return m_messages; }

    /// When set, the text of every recorded verdict, valid ones included, is raised through
    /// MessageRaised. Looked at when a check begins. False at first.
    bool VerboseMessages() const { return m_verboseMessages; }
    void SetVerboseMessages(bool verbose) { m_verboseMessages = verbose; }

    /// When not set, CheckAllStock raises one message for each file and none for the steps within
    /// it ("Checking sound files"), which would hide how far the check is. Looked at when a check
    /// begins. True at first.
    bool StepMessages() const { return m_stepMessages; }
    void SetStepMessages(bool steps) { m_stepMessages = steps; }

    /// A new run of checks: empties Errors, Findings and Messages, and forgets listings and a Stop.
    /// Error 5 while a check runs.
    void Reset();

    /// The report line of a result key, without line end; control characters in names are shown as
    /// blanks. The file of a key ends at its first "|", so this differs from the finding's own line
    /// when the name holds one. Returns text without "|" unchanged.
    static std::string TranslateError(std::string_view key);

    /// A sound definition (.sms): IsMissing, IsCorrupt, IsSuspect or IsValid, and recorded.
    std::int16_t CheckSound(std::string_view fileName);
    /// A cab view (.cvf): IsMissing, IsCorrupt, HasMissingReference or IsValid.
    std::int16_t CheckCabView(std::string_view fileName);
    /// A stock file (.eng, .wag): the verdict of the last step that failed, or IsValid.
    std::int16_t CheckStock(std::string_view fileName);
    /// Every stock file of the folders whose names match the wildcard filter (host/Filter.h):
    /// IsSuspect when a file is not valid or a folder cannot be read, else IsValid.
    std::int16_t CheckAllStock(std::string_view filter = {});
    /// A shape (.s): IsMissing, IsCompressed, HasMissingReference or IsValid.
    /// RuntimeError 13 for one outside the rolling stock that has no descriptor, or one that asks
    /// for the alternative textures 256, and for counts that are no number; 9 when it names more
    /// images than it declares; 91 when an entry is absent; 6 when a number is beyond 16 bits; 70
    /// or 75 when a file cannot be read. The detail names the file and what is wrong.
    std::int16_t CheckShape(std::string_view fileName);
    /// The consists that use a stock file: IsValid, or IsMissing when there is none. After the
    /// first one, others are recorded only where it is their first vehicle.
    std::int16_t CheckStockInConsists(std::string_view stockPath);
    /// The services of a route that run a consist (its file name without ".con"): IsValid, or
    /// IsMissing when there is no such route.
    std::int16_t CheckConsistUseInRoute(std::string_view route, std::string_view consist);
    /// The activities of a route in whose loose consists a stock file stands, likewise.
    std::int16_t CheckStockUseInRoute(std::string_view stockPath, std::string_view route);
    /// A consist file, its vehicles and their shapes: IsMissing, IsSuspect or IsValid.
    std::int16_t CheckConsist(std::string_view fileName);

    /// Ends the running check after the file that it is at: what was found so far stays, and
    /// nothing is said about the rest. Later checks do nothing at all, and give IsValid, until
    /// Reset.
    void Stop() { m_stopped = true; }
    bool Stopped() const { return m_stopped; }
    /// True while a check runs (seen from within a handler).
    bool Running() const { return m_running; }

    /// Raised for every verdict that goes into Errors.
    std::function<void(const std::string &dependentFile, const std::string &fileName,
                       std::int16_t errorCode)>
        ErrorRaised;
    /// Level 0: a progress line; with VerboseMessages also 1: the text of a valid verdict, 2: of
    /// any other.
    std::function<void(const std::string &message, std::int16_t level)> MessageRaised;
    /// Raised after the above for every verdict, valid ones only with VerboseMessages.
    std::function<void(const validation::Finding &finding)> ResultRecorded;
    /// Item `done` (from 1) of `total` is about to be checked. Raised by CheckAllStock,
    /// CheckStockInConsists and both route checks, before the item's message.
    std::function<void(std::size_t done, std::size_t total)> ProgressRaised;
    /// Where the window processes its events: called after each folder that is listed, after each
    /// item, and every few milliseconds while a check waits for its workers. Where it is set, all
    /// files are read on workers, so that the window stays alive in between.
    std::function<void()> ProcessEvents;

private:
    class Run;
    /// What to look for in one route, and how the report calls it.
    struct RouteSearch
    {
        std::string route;
        const char *folder, *pattern, *what;
        std::string used;     ///< named when nothing uses it
        std::string usedFile; ///< named with every use
    };

    void refuseWhileRunning() const;
    void tellIfClosed(Run &run, const std::string &folder) const;
    std::vector<std::string> stockItems(Run &run, const std::string &trainset,
                                        std::string_view filter) const;
    template <typename CountUses>
    std::int16_t searchRoute(Run &run, const RouteSearch &search, CountUses countUses);

    const install::Installation &m_installation;
    host::GameFiles &m_files;
    std::size_t m_workers;
    std::unique_ptr<host::Snapshot> m_snapshot;
    std::vector<std::string> m_errors, m_messages;
    std::vector<validation::Finding> m_findings;
    bool m_verboseMessages = false;
    bool m_stepMessages = true;
    bool m_stopped = false;
    bool m_running = false;
};
