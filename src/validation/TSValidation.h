// SPDX-License-Identifier: MIT
#pragma once

#include "host/Ahead.h"
#include "host/SavedIndex.h"
#include "validation/Finding.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {
class GameFiles;
class Snapshot;
} // namespace host
namespace install {
class Installation;
}

namespace validation {
class StockIndex;
}

/// The dependency checker. Its owner creates one for each check command, runs one or more checks,
/// and turns Findings into report lines (ReportLine).
///
/// Every check reduces a file to a verdict, which it returns, and records each finding, in Errors
/// as a result key "code|file|dependent". Folders that cannot be listed are recorded as corrupt.
/// Bad files are verdicts and never errors; only CheckShape can throw a RuntimeError (what it has
/// recorded stays).
///
/// Events are raised on the calling thread, in order, from within the running check. Workers read
/// files ahead, with the same results and events for any number of workers. A handler may process
/// the events of the user interface. From there it may call Stop, and read everything here; a
/// second check on the same object is refused with error 5. It must not destroy the object, and
/// must not replace a handler. An exception thrown by a handler ends the check and propagates to
/// its caller.
///
/// File names are game paths (host/GameFiles.h). Findings name files by the paths that the checks
/// built, in the platform's own separators. Between checks only the content of Errors, the listings
/// of folders and the saved index are kept: each folder is listed once until the next Reset.
class TSValidation
{
public:
    /// The verdicts.
    // NOLINTBEGIN(readability-identifier-naming): these names are fixed
    static constexpr std::int16_t IsOK = validation::CodeOf(validation::Verdict::Ok);
    static constexpr std::int16_t IsValid = validation::CodeOf(validation::Verdict::Valid);
    static constexpr std::int16_t IsMissing = validation::CodeOf(validation::Verdict::Missing);
    static constexpr std::int16_t IsCompressed =
        validation::CodeOf(validation::Verdict::Compressed);
    static constexpr std::int16_t IsCorrupt = validation::CodeOf(validation::Verdict::Corrupt);
    static constexpr std::int16_t IsEmpty = validation::CodeOf(validation::Verdict::Empty);
    static constexpr std::int16_t IsSuspect = validation::CodeOf(validation::Verdict::Suspect);
    static constexpr std::int16_t HasMissingReference =
        validation::CodeOf(validation::Verdict::HasMissingReference);
    static constexpr std::int16_t IsReferenced =
        validation::CodeOf(validation::Verdict::Referenced);
    // NOLINTEND(readability-identifier-naming)

    /// `installation` and `files` must outlive this object.
    TSValidation(const install::Installation &installation, host::GameFiles &files,
                 std::size_t workers = host::DefaultWorkers());
    ~TSValidation();
    TSValidation(const TSValidation &) = delete;
    TSValidation &operator=(const TSValidation &) = delete;

    /// Returns the result keys of all verdicts but IsValid since the last Reset, in the order
    /// recorded, including repeated ones.
    const std::vector<std::string> &Errors() const { return m_errors; }
    /// Returns the findings whose keys Errors holds, in the same order. Reports are made from
    /// these.
    const std::vector<validation::Finding> &Findings() const { return m_findings; }
    /// Always empty.
    const std::vector<std::string> &Messages() const { return m_messages; }

    /// If set, MessageRaised gets the text of every recorded verdict, including valid ones. Read
    /// when a check begins. False at first.
    bool VerboseMessages() const { return m_verboseMessages; }
    void SetVerboseMessages(bool verbose) { m_verboseMessages = verbose; }

    /// If false, CheckAllStock raises one message for each file and none for the steps within it
    /// ("Checking sound files"), which would hide the progress. Read when a check begins. True at
    /// first.
    bool StepMessages() const { return m_stepMessages; }
    void SetStepMessages(bool steps) { m_stepMessages = steps; }

    /// Sets the saved index that CheckAllStock uses and, unless it is stopped, saves. Its findings
    /// and events are the same with and without an index. Takes effect at the next Reset. No index
    /// at first.
    void SetIndex(host::IndexOptions index) { m_index = std::move(index); }

    /// Begins a new series of checks: empties Errors, Findings and Messages, and forgets listings
    /// and a Stop. Throws error 5 while a check runs.
    void Reset();

    /// Returns the report line of a result key, without line end; control characters in names
    /// become blanks. The file of a key ends at its first "|", so the line differs from the
    /// finding's own if the name holds one. Returns text without "|" unchanged.
    static std::string TranslateError(std::string_view key);

    /// Checks a sound definition (.sms) and records the verdict: IsMissing, IsCorrupt, IsSuspect or
    /// IsValid.
    std::int16_t CheckSound(std::string_view fileName);
    /// Checks a cab view (.cvf): IsMissing, IsCorrupt, HasMissingReference or IsValid.
    std::int16_t CheckCabView(std::string_view fileName);
    /// Checks a stock file (.eng, .wag): the verdict of the last step that failed, or IsValid.
    std::int16_t CheckStock(std::string_view fileName);
    /// Checks every stock file of the folders whose names match the wildcard filter
    /// (host/Filter.h): IsSuspect if a file is not valid or a folder cannot be read, else IsValid.
    std::int16_t CheckAllStock(std::string_view filter = {});
    /// Checks a shape (.s): IsMissing, IsCompressed, HasMissingReference or IsValid. Throws
    /// RuntimeError 13 for one outside the rolling stock that has no descriptor or asks for the
    /// alternative textures 256, and for counts that are not numbers; 9 if it names more images
    /// than it declares; 91 if an entry is absent; 6 if a number is beyond 16 bits; 70 or 75 if a
    /// file cannot be read. The detail names the file and what is wrong.
    std::int16_t CheckShape(std::string_view fileName);
    /// Finds the consists that use a stock file: IsValid, or IsMissing if there is none. After the
    /// first one, records others only if it is their first vehicle.
    std::int16_t CheckStockInConsists(std::string_view stockPath);
    /// Finds the services of a route that run a consist (its file name without ".con"): IsValid, or
    /// IsMissing if there is no such route.
    std::int16_t CheckConsistUseInRoute(std::string_view route, std::string_view consist);
    /// Finds the activities of a route whose loose consists contain a stock file: IsValid, or
    /// IsMissing if there is no such route.
    std::int16_t CheckStockUseInRoute(std::string_view stockPath, std::string_view route);
    /// Checks a consist file, its vehicles and their shapes: IsMissing, IsSuspect or IsValid.
    std::int16_t CheckConsist(std::string_view fileName);

    /// Ends the running check after its current file: what was found so far stays, and nothing is
    /// reported about the rest. Later checks do nothing, and return IsValid, until Reset.
    void Stop() { m_stopped = true; }
    bool Stopped() const { return m_stopped; }
    /// True while a check runs (seen from within a handler).
    bool Running() const { return m_running; }

    /// Raised for every verdict that is added to Errors.
    std::function<void(const std::string &dependentFile, const std::string &fileName,
                       std::int16_t errorCode)>
        ErrorRaised;
    /// Level 0: a progress line. With VerboseMessages also level 1, the text of a valid verdict,
    /// and level 2, that of any other.
    std::function<void(const std::string &message, std::int16_t level)> MessageRaised;
    /// Raised after the two above for every verdict, for valid ones only with VerboseMessages.
    std::function<void(const validation::Finding &finding)> ResultRecorded;
    /// Raised before item `done` (from 1) of `total` is checked, and before its message, by
    /// CheckAllStock, CheckStockInConsists and both route checks.
    std::function<void(std::size_t done, std::size_t total)> ProgressRaised;
    /// Lets the window process its events: called after each folder that is listed, after each
    /// item, and every few milliseconds while a check waits for its workers. If set, workers read
    /// all files, so that the window stays responsive.
    std::function<void()> ProcessEvents;

private:
    class Run;
    /// A search in one route, and its words in the report.
    struct RouteSearch
    {
        std::string route;
        const char *folder, *pattern, *what;
        std::string used;     ///< the subject of the finding if nothing uses it
        std::string usedFile; ///< the subject of the finding for each use
    };

    void refuseWhileRunning() const;
    void tellIfClosed(Run &run, const std::string &folder) const;
    struct StockFolder
    {
        std::vector<std::string> files;
        bool isClosed = false;
    };
    template <typename Work> static void onWorker(Run &run, const Work &work);
    std::unique_ptr<validation::StockIndex> openIndex(Run &run) const;
    std::vector<std::string> stockItems(Run &run, validation::StockIndex *index,
                                        const std::string &trainset, std::string_view filter) const;
    template <typename CountUses>
    std::int16_t searchRoute(Run &run, const RouteSearch &search, CountUses countUses);

    const install::Installation &m_installation;
    host::GameFiles &m_files;
    std::size_t m_workers;
    host::IndexOptions m_index;
    std::int64_t m_begin = 0; ///< of the snapshot, by the clock of m_index
    std::unique_ptr<host::Snapshot> m_snapshot;
    std::vector<std::string> m_errors, m_messages;
    std::vector<validation::Finding> m_findings;
    bool m_verboseMessages = false;
    bool m_stepMessages = true;
    bool m_stopped = false;
    bool m_running = false;
};
