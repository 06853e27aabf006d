// SPDX-License-Identifier: MIT
#include "zelkctl/HealthCommand.h"

#include "content/Baseline.h"
#include "content/HealthFormats.h"
#include "content/HealthRun.h"
#include "content/HealthSettings.h"
#include "host/Console.h"
#include "host/Path.h"
#include "host/Product.h"
#include "host/Settings.h"
#include "host/Text.h"
#include "zelkctl/CheckOutput.h"
#include "zelkctl/Session.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <optional>

namespace zelkctl {
namespace {

struct HealthCommandOptions
{
    std::string format = "text", failOn = "error";
    std::string profile, filter, out, baseline, writeBaseline;
    std::vector<std::string> consists;
    bool routes = false, noIndex = false, json = false, verbose = false, quiet = false;
};

/// Returns the simulators of this name; for "", those kept for the installation in `folder`.
content::Profiles profilesOf(const std::string &name, const std::string &folder)
{
    if (name.empty())
        return content::KeptProfiles(*host::UserSettings(), folder);
    if (name == "msts")
        return content::Profile::Msts;
    return name == "openrails" ? content::Profile::OpenRails : content::Profiles::Both();
}

bool wantsColours(const HealthCommandOptions &options)
{
    const char *const refused = std::getenv("NO_COLOR");
    return options.out.empty() && (!refused || !*refused) && host::IsTerminal(host::Stream::Output);
}

/// Returns the severity of this name; nothing for "never".
std::optional<content::Severity> severityOf(const std::string &name)
{
    for (const auto severity :
         {content::Severity::Note, content::Severity::Warning, content::Severity::Error})
        if (name == content::SeverityName(severity))
            return severity;
    return std::nullopt;
}

bool fails(const content::HealthReport &report, const std::string &failOn)
{
    const auto least = severityOf(failOn);
    return least && std::any_of(report.findings.begin(), report.findings.end(),
                                [&](const content::Finding &finding) {
                                    return finding.IsProblem() && finding.severity >= *least;
                                });
}

/// Reads a baseline; returns nothing if `file` is "".
std::optional<content::Baseline> readBaseline(Session &session, const std::string &file)
{
    if (file.empty())
        return std::nullopt;
    std::string text;
    NamingFile(file, [&] { text = session.files.ReadFile(file); });
    auto baseline = content::Baseline::FromText(text);
    if (!baseline)
        throw Failure(file + ": not a baseline that zelkctl health wrote");
    return baseline;
}

/// Reports on standard error how many findings of the baseline are gone.
void reportGone(Session &session, std::size_t gone)
{
    session.out.Flush();
    host::WriteTo(host::Stream::Error, "zelkctl: " + host::Counted(gone, "finding", "findings") +
                                           " of the baseline gone\n");
}

void write(const content::HealthReport &report, const HealthCommandOptions &options,
           const content::TextSink &out)
{
    if (options.json || options.format == "json")
        content::WriteHealthJson(report, out);
    else if (options.format == "csv")
        content::WriteHealthCsv(report, out);
    else if (options.format == "html")
        content::WriteHealthHtml(report, out);
    else if (options.format == "junit")
        content::WriteHealthJunit(report, severityOf(options.failOn), out);
    else if (options.format == "sarif")
        content::WriteHealthSarif(report, host::product::Version(), out);
    else
        content::WriteHealthText(
            report, options.verbose,
            wantsColours(options) ? content::Colours::Terminal : content::Colours::None, out);
}

content::HealthReport check(Session &session, const HealthCommandOptions &options)
{
    const install::Installation installation = OpenInstallation(session);
    const auto absolute = host::GamePath::Of(installation.CurrentFolder());
    const std::string folder = absolute ? absolute->text : installation.CurrentFolder();
    content::HealthOptions health;
    health.profiles = profilesOf(options.profile, folder);
    health.filter = options.filter;
    health.routes = options.routes;
    health.keepAll = options.verbose;
    if (!options.noIndex)
        health.index.folder = host::SavedIndex::UserFolder();
    for (const std::string &name : options.consists)
        health.consists.push_back(ConsistFile(session, installation, name));
    content::HealthRun run(session.files, folder, std::move(health));
    ProgressLine progress(!options.quiet);
    if (progress.IsWatched())
        run.Progress = [&progress](std::size_t done, std::size_t total) {
            progress.SetPlace(done, total);
            progress.Show("Checking the health of the content");
        };
    return run.Run();
}

void health(Session &session, const HealthCommandOptions &options)
{
    const auto baseline = readBaseline(session, options.baseline);
    content::HealthReport report = check(session, options);
    if (!options.writeBaseline.empty())
        NamingFile(options.writeBaseline, [&] {
            session.files.WriteFile(options.writeBaseline, content::Baseline::Of(report).ToText());
        });
    if (baseline) {
        reportGone(session, baseline->CountGone(report));
        report = content::WithoutKnown(std::move(report), *baseline);
    }
    session.exitCode = fails(report, options.failOn) ? 1 : 0;
    if (options.out.empty()) {
        write(report, options, [&session](std::string_view text) { session.out.Write(text); });
        return;
    }
    std::string text;
    write(report, options, [&text](std::string_view piece) { text += piece; });
    NamingFile(options.out, [&] { session.files.WriteFile(options.out, text); });
}

void addChoice(CLI::App &command, const char *name, std::string &value, const char *description,
               const char *type, const std::vector<std::string> &choices)
{
    command.add_option(name, value, description)
        ->type_name(type)
        ->check(CLI::IsMember(choices).description(""));
}

} // namespace

void AddHealthCommand(CLI::App &app, Session &session)
{
    const auto options = std::make_shared<HealthCommandOptions>();
    CLI::App *command =
        app.add_subcommand("health", "Report faults of the content by the rules of the simulators");
    command->footer("Exit code 0: nothing is wrong; 1: there is a finding at or above --fail-on; "
                    "2: the command failed.");
    addChoice(*command, "--profile", options->profile,
              "The simulator that runs the content; otherwise the one kept for the installation",
              "msts|openrails|both", {"msts", "openrails", "both"});
    const auto filter =
        command->add_option("--filter", options->filter,
                            "Only stock folders that match: GP*, *freight or part of the name");
    filter->type_name("F");
    const auto routes = command->add_flag("--routes", options->routes,
                                          "Also the shapes and textures of the routes");
    command
        ->add_option("--consist", options->consists,
                     "Only these consists, by name or as files, and what they need")
        ->type_name("NAME")
        ->excludes(filter)
        ->excludes(routes);
    addChoice(*command, "--format", options->format, "The format of the report",
              "text|json|sarif|html|csv|junit", {"text", "json", "sarif", "html", "csv", "junit"});
    command->add_flag("--json", options->json, "Same as --format json");
    command->add_option("--out", options->out, "Write the report to this file")->type_name("FILE");
    command
        ->add_option("--baseline", options->baseline,
                     "Report only findings that are new or changed since this baseline")
        ->type_name("FILE");
    command
        ->add_option("--write-baseline", options->writeBaseline,
                     "Write a baseline to this file, for --baseline")
        ->type_name("FILE");
    addChoice(*command, "--fail-on", options->failOn,
              "The lowest severity that makes the exit code 1", "error|warning|note|never",
              {"error", "warning", "note", "never"});
    command->add_flag("--verbose", options->verbose, "Also report what is in order");
    command->add_flag("--no-index", options->noIndex,
                      "Check everything, also what has not changed");
    command->add_flag("--quiet", options->quiet, "Show no progress");
    command->callback([&session, options] { health(session, *options); });
}

} // namespace zelkctl
