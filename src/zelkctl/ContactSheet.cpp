// SPDX-License-Identifier: MIT
#include "zelkctl/ContactSheet.h"

#include "content/HealthText.h"
#include "content/TrainSheet.h"
#include "document/StockList.h"
#include "gl/OffscreenCanvas.h"
#include "host/Settings.h"
#include "install/StockFiles.h"
#include "korvat/model/ModelLibrary.h"
#include "viewer/VehicleScene.h"
#include "zelkctl/ContactPage.h"
#include "zelkctl/NoDialogs.h"

#include <numbers>

namespace zelkctl {
namespace {

/// The vehicles of an installation by the rules of Open Rails, which reads the same files as MSTS
/// where there is no override.
class Collector
{
public:
    Collector(Session &session, const ContactSheetRequest &request)
        : m_session(session)
        , m_request(request)
        , m_installation(OpenInstallation(session))
        , m_snapshot(session.files)
        , m_folders(m_snapshot, m_installation.CurrentFolder())
        , m_figures(m_store, m_folders, content::Profile::OpenRails)
    {
    }

    const install::Installation &Installation() const { return m_installation; }

    std::vector<ContactSection> Sections()
    {
        std::vector<ContactSection> sections;
        for (const std::string &consist : m_request.consists)
            sections.push_back(train(consist));
        if (m_request.consists.empty())
            sections.push_back(allVehicles());
        return sections;
    }

private:
    ContactSection train(const std::string &consist)
    {
        ContactSection section{content::PlainText(consist), {}, {}};
        const std::string path = ConsistFile(m_session, m_installation, consist);
        NamingFile(path, [&] {
            StfFile file(m_session.files);
            file.SetFileName(path);
            file.Load();
            const StfNode cfg = install::RequireTrain(file);
            content::TrainSheet sheet(content::OwnMaximumOf(cfg));
            for (const install::Unit &unit : install::Units(cfg)) {
                sheet.Add(*m_figures.Get(unit.Item()));
                add(section, unit.Item(), unit.IsFlipped());
            }
            section.lines = content::LinesOf(sheet, m_request.units);
        });
        return section;
    }
    ContactSection allVehicles()
    {
        ContactSection section{"Vehicles", {}, {}};
        document::StockScan scan(m_installation, m_session.files, m_request.filter);
        while (const auto items = scan.TakeFolder())
            for (const install::StockItem &item : *items)
                add(section, item, false);
        for (const std::string &folder : scan.ClosedFolders())
            TellClosed(m_session, folder);
        if (section.cells.empty())
            throw Failure(m_request.filter.empty()
                              ? "there are no vehicles"
                              : "no stock folder matches \"" + m_request.filter + "\"");
        return section;
    }
    /// Adds a unit, or counts it with the one before if both are alike.
    void add(ContactSection &section, const install::StockItem &item, bool flipped)
    {
        const auto vehicle = m_figures.Get(item);
        const std::string name = content::PlainText(vehicle->name);
        if (!section.cells.empty() && !m_request.consists.empty()) {
            ContactCell &before = section.cells.back();
            if (before.vehicle == name && before.flipped == flipped) {
                ++before.count;
                return;
            }
        }
        ContactCell cell{
            name, content::PlainText(vehicle->figures.name), figuresOf(*vehicle), {}, {}, flipped};
        if (vehicle->IsMissing())
            cell.reason = "missing";
        else
            cell.file = install::StockPath(m_installation.CurrentFolder(), item);
        section.cells.push_back(std::move(cell));
    }
    std::string figuresOf(const content::SheetVehicle &vehicle) const
    {
        using content::FigureId;
        std::string text;
        for (const FigureId id :
             {FigureId::Length, FigureId::Mass, FigureId::Power, FigureId::MaximumSpeed})
            if (const content::Figure &figure = vehicle.figures[id]; figure.IsKnown())
                text += (text.empty() ? "" : " · ") +
                        content::FigureText(id, figure.value, m_request.units);
        return text;
    }

    Session &m_session;
    const ContactSheetRequest &m_request;
    install::Installation m_installation;
    host::Snapshot m_snapshot;
    content::FileStore m_store{m_snapshot};
    content::InstallFolders m_folders;
    content::FigureCache m_figures;
};

std::string draw(viewer::VehicleScene &scene, const viewer::Reading &reading,
                 korvat::OffscreenCanvas &canvas, ContactCell &cell)
{
    if (cell.file.empty())
        return {};
    try {
        if (scene.StockFile() != cell.file)
            scene.Load(cell.file, reading);
        viewer::VehicleView view;
        if (cell.flipped)
            view.turn += std::numbers::pi_v<float>;
        scene.Look(view, 2);
        std::string png = canvas.PngPicture();
        if (png.empty())
            cell.reason = "the graphics driver has no room for it";
        return png;
    } catch (const host::RuntimeError &error) {
        cell.reason = content::PlainText(error.what());
        return {};
    }
}

} // namespace

void DrawContactSheet(Session &session, const ContactSheetRequest &request)
{
    Collector collector(session, request);
    std::vector<ContactSection> sections = collector.Sections();
    std::string why;
    const auto canvas = korvat::OffscreenCanvas::Create(request.width, request.width / 2, why);
    if (!canvas)
        throw Failure("cannot draw: " + why);
    NoDialogs dialogs;
    korvat::ModelLibrary shapes(session.files);
    const auto settings = host::UserSettings();
    install::Installation installation = collector.Installation();
    const install::Environment environment{dialogs, session.files, *settings, installation, shapes};
    viewer::Reading reading = viewer::ChosenReading(environment);
    reading.allAdded = true;
    viewer::VehicleScene scene(environment, *canvas);
    scene.ShowLoads(request.loads);
    const DrawCell drawn = [&](ContactCell &cell) { return draw(scene, reading, *canvas, cell); };
    const std::string page = request.isPage
                                 ? HtmlContactPage(std::move(sections), drawn)
                                 : PngContactPage(std::move(sections), request.width, drawn);
    if (page.empty())
        throw Failure(request.out + ": the picture cannot be written as PNG");
    NamingFile(request.out, [&] { session.files.WriteFile(request.out, page); });
}

} // namespace zelkctl
