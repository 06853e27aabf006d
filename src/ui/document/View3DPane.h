// SPDX-License-Identifier: MIT
#pragma once

#include "ui/document/DocumentPane.h"
#include "ui/view3d/ViewerPane.h"

class frmDocument;

namespace document {

class DocumentHost;

/// A consist or a shape in 3D. A loose consist has its activity as the window's file and its
/// TrainCfg block as the window's node.
class View3DPane : public viewer::ViewerPane, public DocumentPane
{
    Q_OBJECT

public:
    /// `window` and `host` must outlive the pane.
    View3DPane(frmDocument &window, DocumentHost &host);

    QWidget &Widget() override { return *this; }
    QSize MinimumWindowSize() const override { return {200, 160}; }
    void Load() override;
    /// Shows the textures in a text window.
    void ShowProperties() override;
    void StopWork() override { Stop(); }
    app::PrintJob Print() override;
    void AddRemark(const std::string &remark) override { ViewerPane::AddRemark(remark); }
    void ResetView() override { ViewerPane::ResetView(); }
    void ShowLoads(bool shown) override { ViewerPane::ShowLoads(shown); }
    viewer::OptionControls *SceneOptions() override { return &ViewerPane::Options(); }
    void MoveCamera(viewer::CameraCommand command) override { Camera().Run(command); }
    void SaveSnapshot(const std::string &folder) override;
    QSize PictureSize() override { return Picture().size(); }
    QImage DrawPicture(const QSize &size, bool transparent) override
    {
        return ViewerPane::DrawPicture(size, transparent);
    }

private:
    bool showsConsist() const;

    frmDocument &m_window;
    DocumentHost &m_host;
};

} // namespace document
