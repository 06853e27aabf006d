// SPDX-License-Identifier: MIT
#include "zelkctl/SheetCommand.h"

#include "content/HealthText.h"
#include "content/SheetText.h"
#include "host/Path.h"
#include "zelkctl/FigureOutput.h"
#include "zelkctl/Session.h"

#include <memory>

namespace zelkctl {
namespace {

struct SheetOptions
{
    std::vector<std::string> consists;
    std::string units = "metric";
    bool json = false;
};

struct NamedSheet
{
    std::string consist; ///< as given
    content::TrainSheet sheet;
};

/// The stock of an installation by the rules of Open Rails, which reads the same files as MSTS
/// where there is no override.
struct Stock
{
    Stock(Session &session, const std::string &installFolder)
        : snapshot(session.files)
        , store(snapshot)
        , folders(snapshot, installFolder)
        , figures(store, folders, content::Profile::OpenRails)
    {
    }

    host::Snapshot snapshot;
    content::FileStore store;
    content::InstallFolders folders;
    content::FigureCache figures;
};

content::TrainSheet sheetOf(Session &session, const std::string &path, Stock &stock)
{
    content::TrainSheet sheet;
    NamingFile(path, [&] {
        StfFile file(session.files);
        file.SetFileName(path);
        file.Load();
        const StfNode train = install::RequireTrain(file);
        sheet = content::TrainSheet(content::OwnMaximumOf(train));
        for (const install::Unit &unit : install::Units(train))
            sheet.Add(*stock.figures.Get(unit.Item()));
    });
    return sheet;
}

void writeFigure(Output &out, const content::SheetFigure &figure)
{
    out.Write("{\"value\":" + JsonNumber(figure.value) + ",\"unknown\":[");
    const char *separator = "";
    for (const std::string &vehicle : figure.unknown) {
        out.Write(separator);
        out.WriteJson(vehicle);
        separator = ",";
    }
    out.Write("],\"limitedBy\":");
    if (figure.limitedBy.empty())
        out.Write("null");
    else
        out.WriteJson(figure.limitedBy);
    out.Write("}");
}

void writeJson(Output &out, const std::vector<NamedSheet> &sheets)
{
    const char *separator = "[\n";
    for (const auto &[consist, sheet] : sheets) {
        out.Write(std::string(separator) + "{\"consist\":");
        out.WriteJson(consist);
        out.Write(",\"units\":" + std::to_string(sheet.Units()) + ",\"figures\":");
        const char *before = "{";
        for (const auto &[id, member] : kJsonFigures) {
            out.Write(std::string(before) + '"' + member + "\":");
            writeFigure(out, sheet[id]);
            before = ",";
        }
        out.Write("}}");
        separator = ",\n";
    }
    out.Write("\n]\n");
}

void writeText(Output &out, const std::vector<NamedSheet> &sheets, content::UnitSystem system)
{
    const char *separator = "";
    for (const auto &[consist, sheet] : sheets) {
        out.Write(separator + content::PlainText(consist) + '\n');
        for (const content::SheetLine &line : content::LinesOf(sheet, system))
            WriteLine(out, line.label, line.text);
        separator = "\n";
    }
}

void sheet(Session &session, const SheetOptions &options)
{
    const install::Installation installation = OpenInstallation(session);
    const auto folder = host::GamePath::Of(installation.CurrentFolder());
    Stock stock(session, folder ? folder->text : installation.CurrentFolder());
    std::vector<NamedSheet> sheets; // all of them before any output, for whole JSON or none
    for (const std::string &name : options.consists)
        sheets.push_back({name, sheetOf(session, ConsistFile(session, installation, name), stock)});
    if (options.json)
        writeJson(session.out, sheets);
    else
        writeText(session.out, sheets,
                  content::UnitSystemOf(options.units).value_or(content::UnitSystem::Metric));
}

} // namespace

void AddSheetCommand(CLI::App &app, Session &session)
{
    const auto options = std::make_shared<SheetOptions>();
    CLI::App *command =
        app.add_subcommand("sheet", "Show the length, mass, power and other figures of consists");
    command->add_option("consists", options->consists, "Consists, by name or as files")
        ->required()
        ->type_name("CONSIST");
    command->add_option("--units", options->units, "The units of the text; JSON has SI units")
        ->type_name("metric|us|uk")
        ->check(CLI::IsMember({"metric", "us", "uk"}).description(""));
    command->add_flag("--json", options->json, "Print a JSON array of objects");
    command->callback([&session, options] { sheet(session, *options); });
}

} // namespace zelkctl
