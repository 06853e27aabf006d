// SPDX-License-Identifier: MIT
#include "zelkctl/FiguresCommand.h"

#include "content/HealthText.h"
#include "content/References.h"
#include "content/SheetText.h"
#include "content/VehicleFigures.h"
#include "host/Path.h"
#include "host/Text.h"
#include "zelkctl/FigureOutput.h"
#include "zelkctl/Session.h"

#include <algorithm>
#include <memory>

namespace zelkctl {
namespace {

struct FiguresOptions
{
    std::vector<std::string> vehicles;
    bool json = false;
};

struct NamedFigures
{
    std::string vehicle; ///< as given
    content::VehicleFigures figures;
};

content::VehicleFigures figuresOf(content::FileStore &store, const std::string &name,
                                  const std::string &path)
{
    std::string folder = content::FolderOfPath(path);
    if (host::EqualsNoCase(host::path::FileName(folder), "OpenRails"))
        folder = content::FolderOfPath(folder);
    const content::VehicleFiles files =
        content::FindVehicle(store, folder, std::string(host::path::FileName(path)));
    const content::Vehicle vehicle(store, files, content::Profile::OpenRails);
    if (!vehicle.Fault().empty())
        throw Failure(name + ": " + vehicle.Fault());
    if (!content::IsVehicle(vehicle))
        throw Failure(name + ": there is no Wagon block");
    return content::FiguresOf(vehicle);
}

void writeFigure(Output &out, const content::Figure &figure)
{
    using Value = std::optional<double>;
    out.Write("{\"value\":" + JsonNumber(figure.IsKnown() ? Value(figure.value) : Value()));
    out.Write(",\"text\":");
    if (figure.line > 0)
        out.WriteJson(figure.text);
    else
        out.Write("null");
    out.Write(",\"line\":" + (figure.line > 0 ? std::to_string(figure.line) : "null") +
              ",\"rule\":");
    out.WriteJson(figure.Reason());
    out.Write("}");
}

void writeJson(Output &out, const std::vector<NamedFigures> &vehicles)
{
    const char *separator = "[\n";
    for (const auto &[vehicle, figures] : vehicles) {
        out.Write(std::string(separator) + "{\"vehicle\":");
        out.WriteJson(vehicle);
        out.Write(",\"figures\":");
        const char *before = "{";
        for (const auto &[id, member] : kJsonFigures) {
            out.Write(std::string(before) + '"' + member + "\":");
            writeFigure(out, figures[id]);
            before = ",";
        }
        out.Write("}}");
        separator = ",\n";
    }
    out.Write("\n]\n");
}

/// Returns where a figure comes from: `MaxPower "2984kW#4000hp", line 12`.
std::string originOf(const content::VehicleFigures &figures, const content::Figure &figure)
{
    std::string text = std::string(figure.rule) + " \"" + content::PlainText(figure.text) + "\", ";
    if (figure.file > 0)
        text += content::PlainText(figures.files[figure.file]) + ", ";
    return text + "line " + std::to_string(figure.line);
}

std::string textOf(const content::VehicleFigures &figures, content::FigureId id)
{
    const content::Figure &figure = figures[id];
    const std::string origin =
        figure.line > 0 ? " (" + originOf(figures, figure) + ')' : std::string();
    if (figure.IsKnown())
        return content::FigureText(id, figure.value, content::UnitSystem::Metric) + origin;
    std::string reason = figure.Reason();
    std::replace(reason.begin(), reason.end(), '-', ' ');
    return reason + origin;
}

/// True for a figure that the vehicle cannot have, or that few vehicles have and this one has not.
bool isHidden(content::FigureId id, const content::Figure &figure)
{
    using State = content::Figure::State;
    const bool isRare = id == content::FigureId::EmptyMass || id == content::FigureId::Passengers ||
                        id == content::FigureId::PrimeMoverPower;
    return figure.state == State::NotApplicable ||
           (isRare && figure.state == State::NotGiven && figure.line == 0);
}

void writeText(Output &out, const NamedFigures &vehicle)
{
    const content::VehicleFigures &figures = vehicle.figures;
    out.Write(content::PlainText(vehicle.vehicle) + '\n');
    const auto add = [&out](const std::string &label, const std::string &text) {
        if (!text.empty())
            WriteLine(out, label, content::PlainText(text));
    };
    add("Name", figures.name);
    add("Kind", figures.wagonType + (figures.engineType.empty() ? "" : ", " + figures.engineType));
    for (std::size_t i = 0; i < content::kFigures; ++i) {
        const auto id = static_cast<content::FigureId>(i);
        std::string label = content::FigureName(id);
        label.front() = static_cast<char>(host::ToUpper(static_cast<char32_t>(label.front())));
        if (!isHidden(id, figures[id]))
            add(label, textOf(figures, id));
    }
    add("Brakes", figures.brakeSystem);
    std::string couplers;
    for (const std::string &coupler : figures.couplers)
        couplers += (couplers.empty() ? "" : ", ") + coupler;
    add("Couplers", couplers);
}

void figures(Session &session, const FiguresOptions &options)
{
    host::Snapshot snapshot(session.files);
    content::FileStore store(snapshot);
    std::vector<NamedFigures> vehicles; // all of them before any output, for whole JSON or none
    for (const std::string &name : options.vehicles)
        vehicles.push_back({name, figuresOf(store, name, VehicleFile(session, name))});
    if (options.json)
        return writeJson(session.out, vehicles);
    const char *separator = "";
    for (const NamedFigures &vehicle : vehicles) {
        session.out.Write(separator);
        writeText(session.out, vehicle);
        separator = "\n";
    }
}

} // namespace

void AddFiguresCommand(CLI::App &app, Session &session)
{
    const auto options = std::make_shared<FiguresOptions>();
    CLI::App *command = app.add_subcommand("figures", "Show the figures of engines and wagons");
    command->add_option("vehicles", options->vehicles, "Vehicles: files, or FOLDER/NAME.wag")
        ->required()
        ->type_name("VEHICLE");
    command->add_flag("--json", options->json, "Print a JSON array of objects");
    command->callback([&session, options] { figures(session, *options); });
}

} // namespace zelkctl
