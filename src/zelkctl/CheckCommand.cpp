// SPDX-License-Identifier: MIT
#include "zelkctl/CheckCommand.h"

#include "host/Path.h"
#include "host/Text.h"
#include "install/StockFiles.h"
#include "validation/Report.h"
#include "validation/TSValidation.h"
#include "zelkctl/CheckOutput.h"
#include "zelkctl/Session.h"

#include <functional>
#include <memory>

namespace zelkctl {
namespace {

struct CheckOptions
{
    std::vector<std::string> files; ///< stock, shapes or consists
    std::vector<std::string> stock, consists, routes;
    std::string filter;
    std::string report;
    bool noConsists = false, noIndex = false, json = false, verbose = false, quiet = false;
};

bool isConsistFile(std::string_view name)
{
    constexpr std::string_view kExtension = ".con";
    return name.size() > kExtension.size() &&
           host::EqualsNoCase(name.substr(name.size() - kExtension.size()), kExtension);
}

/// Runs the checks of one command and passes their findings to its output.
class Checks
{
public:
    /// `installation` must outlive this object.
    Checks(Session &session, const install::Installation &installation, const CheckOptions &options)
        : m_session(session)
        , m_installation(installation)
        , m_options(options)
        , m_output(session, options.json, options.quiet)
        , m_validation(installation, session.files)
    {
        m_validation.SetVerboseMessages(options.verbose);
        if (!options.noIndex)
            m_validation.SetIndex({host::SavedIndex::UserFolder()});
        m_validation.ResultRecorded = [this](const validation::Finding &finding) {
            m_output.Add(finding);
        };
        if (!options.report.empty())
            session.out.OutliveReader(); // the report must be complete
        if (!m_output.Progress().IsWatched())
            return;
        m_validation.MessageRaised = [this](const std::string &message, std::int16_t level) {
            if (level == 0)
                m_output.Progress().Show(message);
        };
        m_validation.ProgressRaised = [this](std::size_t done, std::size_t total) {
            m_output.Progress().SetPlace(done, total);
        };
    }

    void Stock()
    {
        for (const std::string &file : m_options.files)
            check(file, host::path::Absolute(file), [this](const std::string &path) {
                m_validation.CheckStock(path);
                if (!m_options.noConsists)
                    m_validation.CheckStockInConsists(path);
                stockInRoutes(path);
            });
    }
    void Shapes()
    {
        for (const std::string &file : m_options.files)
            check(file, host::path::Absolute(file),
                  [this](const std::string &path) { m_validation.CheckShape(path); });
    }
    void Consists()
    {
        for (const std::string &name : m_options.files)
            check(name, consistPath(name),
                  [this](const std::string &path) { m_validation.CheckConsist(path); });
    }
    void All()
    {
        const std::string folder = m_installation.CurrentFolder();
        tellIfNothingMatches();
        check(folder, folder,
              [this](const std::string &) { m_validation.CheckAllStock(m_options.filter); });
    }
    void Use()
    {
        for (const std::string &file : m_options.stock)
            check(file, host::path::Absolute(file), [this](const std::string &path) {
                m_validation.CheckStockInConsists(path);
                stockInRoutes(path);
            });
        for (const std::string &consist : m_options.consists)
            check(consist, isConsistFile(consist) ? host::path::BaseName(consist) : consist,
                  [this](const std::string &name) {
                      for (const std::string &route : m_options.routes)
                          m_validation.CheckConsistUseInRoute(route, name);
                  });
    }
    /// Ends the output, writes the report and sets the exit code.
    void End()
    {
        m_output.End();
        m_session.exitCode = m_output.ExitCode();
        if (m_options.report.empty())
            return;
        m_session.out.Flush(); // a failed report must not lose the findings
        NamingFile(m_options.report, [this] {
            validation::AppendReport(m_session.files, m_options.report, m_output.Report());
        });
    }

private:
    /// Reports a filter that matches nothing: a typing error must not look like faultless content.
    void tellIfNothingMatches()
    {
        const std::string trainset = m_installation.PathOf(install::kTrainset);
        if (m_options.filter.empty() || !m_session.files.FolderExists(trainset) ||
            m_session.files.IsClosed(trainset))
            return;
        if (install::StockFolders(m_session.files, trainset, m_options.filter).empty())
            m_output.Remark("no stock folder matches \"" + m_options.filter +
                            "\": nothing was checked");
    }
    /// Checks a file; `name` is its name as the user typed it. Reports an error of the check and
    /// returns, so that the next check runs.
    void check(const std::string &name, const std::string &path,
               const std::function<void(const std::string &)> &work)
    {
        try {
            work(path);
        } catch (const host::RuntimeError &error) {
            m_output.AddFailure(name, path, error);
        }
    }
    void stockInRoutes(const std::string &path)
    {
        for (const std::string &route : m_options.routes)
            m_validation.CheckStockUseInRoute(path, route);
    }
    /// Returns the path of a consist, which is named as in the list or is a file.
    std::string consistPath(const std::string &name) const
    {
        if (!host::path::FolderWithSeparator(name).empty())
            return host::path::Absolute(name);
        if (!isConsistFile(name))
            return m_installation.ConsistPath(name);
        const std::string here = host::path::Absolute(name);
        return m_session.files.FileExists(here)
                   ? here
                   : m_installation.ConsistPath(host::path::BaseName(name));
    }

    Session &m_session;
    const install::Installation &m_installation;
    const CheckOptions &m_options;
    CheckOutput m_output;
    TSValidation m_validation;
};

/// What a kind of check needs: only the given files, or the installation.
enum class Needs
{
    Files,
    Installation
};

void run(Session &session, const CheckOptions &options, Needs needs, void (Checks::*check)())
{
    install::Installation installation;
    if (needs == Needs::Installation)
        installation = OpenInstallation(session);
    Checks checks(session, installation, options);
    (checks.*check)();
    checks.End();
}

void use(Session &session, const CheckOptions &options)
{
    if (options.stock.empty() && options.consists.empty())
        throw Failure("check use: --stock FILE or --consist NAME is required");
    if (!options.consists.empty() && options.routes.empty())
        throw Failure("check use: --consist needs --route R");
    run(session, options, Needs::Installation, &Checks::Use);
}

using Options = std::shared_ptr<CheckOptions>;

void addFiles(CLI::App &command, CheckOptions &options, const char *type, const char *description)
{
    command.add_option("files", options.files, description)->required()->type_name(type);
}

void addRoutes(CLI::App &command, CheckOptions &options)
{
    command
        .add_option("--route", options.routes,
                    "Routes (folder names) to search for activities or services")
        ->type_name("R");
}

void addStock(CLI::App &check, Session &session, const Options &options)
{
    CLI::App *command = check.add_subcommand(
        "stock", "What engines and wagons name: shape, thumbnail, sounds, cab view; who uses them");
    addFiles(*command, *options, "FILE", "Stock files (.eng, .wag)");
    command->add_flag("--no-consists", options->noConsists,
                      "Do not look for the consists that use them");
    addRoutes(*command, *options);
    command->callback([&session, options] {
        const bool alone = options->noConsists && options->routes.empty();
        run(session, *options, alone ? Needs::Files : Needs::Installation, &Checks::Stock);
    });
}

void addConsist(CLI::App &check, Session &session, const Options &options)
{
    CLI::App *command = check.add_subcommand("consist", "The vehicles of consists, their shapes");
    addFiles(*command, *options, "NAME|FILE", "Consists, by their names in the list or as files");
    command->callback(
        [&session, options] { run(session, *options, Needs::Installation, &Checks::Consists); });
}

void addShape(CLI::App &check, Session &session, const Options &options)
{
    CLI::App *command = check.add_subcommand("shape", "The textures of shapes");
    addFiles(*command, *options, "FILE", "Shapes (.s)");
    command->callback(
        [&session, options] { run(session, *options, Needs::Files, &Checks::Shapes); });
}

void addAll(CLI::App &check, Session &session, const Options &options)
{
    CLI::App *command = check.add_subcommand("all", "All installed stock");
    command
        ->add_option("--filter", options->filter,
                     "Only folders that match: GP*, *freight or part of the name")
        ->type_name("F");
    command->callback(
        [&session, options] { run(session, *options, Needs::Installation, &Checks::All); });
}

void addUse(CLI::App &check, Session &session, const Options &options)
{
    CLI::App *command =
        check.add_subcommand("use", "Who uses stock (consists, activities) or consists (services)");
    command->add_option("--stock", options->stock, "Stock files to look for")->type_name("FILE");
    command->add_option("--consist", options->consists, "Consists to look for, by name")
        ->type_name("NAME");
    addRoutes(*command, *options);
    command->callback([&session, options] { use(session, *options); });
}

} // namespace

void AddCheckCommand(CLI::App &app, Session &session)
{
    const auto options = std::make_shared<CheckOptions>();
    CLI::App *check = app.add_subcommand(
        "check", "Check that the files that content names exist, or find its users");
    check->require_subcommand(1);
    check->footer(
        "Prints one line for each finding, \"ERROR: ...\" or \"INFO: ...\".\n"
        "--json, --verbose, --no-index, --quiet and --report FILE work with every check.\n"
        "Exit code 0: nothing is wrong; 1: there is an ERROR line; 2: a check could not "
        "be done; 141: the reader of the output ended first.");
    check->add_flag("--json", options->json, "As a JSON array of objects");
    check->add_flag("--verbose", options->verbose, "Also report what is in order");
    check->add_flag("--no-index", options->noIndex, "Check everything, also what has not changed");
    check->add_flag("--quiet", options->quiet, "Show no progress");
    check->add_option("--report", options->report, "Append the findings to this log, framed")
        ->type_name("FILE");
    for (const auto add : {addStock, addConsist, addShape, addAll, addUse})
        add(*check, session, options);
}

} // namespace zelkctl
