// SPDX-License-Identifier: MIT
#include "ui/document/View3DPane.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"
#include "install/Installation.h"
#include "ui/document/DocumentHost.h"
#include "ui/document/frmDocument.h"

namespace document {
namespace {

bool isActivity(const std::string &file)
{
    return host::ToUpper(file).ends_with(".ACT");
}

viewer::PaneHost paneHost(const install::Environment &environment, DocumentHost &host)
{
    return {environment,
            [&host](const std::string &text) { host.SetStatus(text); },
            [&host](int done, int total) { host.SetProgress(done, total); },
            [&host](const std::string &path) { host.OpenOutside(path); },
            [&host](bool shown) { host.ShowLoads(shown); },
            host.Animates()};
}

} // namespace

View3DPane::View3DPane(frmDocument &window, DocumentHost &host)
    : ViewerPane(paneHost(window.Environment(), host))
    , m_window(window)
    , m_host(host)
{
    connect(&Options(), &viewer::OptionControls::Changed, &window, &frmDocument::OptionsChanged);
}

bool View3DPane::showsConsist() const
{
    return m_window.Mode() == WindowMode::ConsistView;
}

void View3DPane::Load()
{
    const std::string &file = m_window.FileName();
    if (file.empty())
        return;
    const std::string folder = m_window.Environment().installation.CurrentFolder();
    const bool loose = showsConsist() && isActivity(file);
    if (!loose && !m_window.Environment().files.FileExists(file)) {
        m_host.SetStatus(file + " does not exist!");
        return;
    }
    if (!showsConsist()) {
        RenderShape(file, m_window.Vehicle());
        return;
    }
    if (loose)
        RenderLooseConsist(m_window.Node(), folder, file);
    else
        RenderConsist(file, folder);
    // The opener's caption is more specific; a refresh must not change it.
    if (m_window.Caption().empty())
        m_window.SetCaption(Caption());
}

void View3DPane::ShowProperties()
{
    if (const std::string report = Report(); !report.empty())
        m_host.ShowTextWindow(m_window.Caption(), report);
}

app::PrintJob View3DPane::Print()
{
    return {showsConsist() ? "Print Consist View" : "Print Stock View",
            app::FrameOf(m_window.Caption(), {m_window.FileName()}), app::PrintPicture(Picture())};
}

void View3DPane::SaveSnapshot(const std::string &folder)
{
    ViewerPane::SaveSnapshot(host::path::Join(folder, showsConsist() ? "ZELKC" : "ZELKS"),
                             showsConsist() ? "consist" : "stock");
}

} // namespace document
