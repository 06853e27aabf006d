// SPDX-License-Identifier: MIT
#pragma once

#include "document/WindowMode.h"
#include "install/Environment.h"
#include "stavfile/StfNode.h"
#include "ui/document/DocumentPane.h"
#include "ui/document/Furnishing.h"

#include <QMdiSubWindow>

#include <optional>
#include <string>
#include <vector>

namespace document {
class DocumentHost;
}

/// A document window inside the main window: the frame around one pane, which its mode selects. The
/// opener sets FileName, node and Mode, calls LoadForm, and then sets the caption. A loose consist
/// in 3D has the name of its activity file, and its TrainCfg block as node; a vehicle in 3D has the
/// name of its shape file, and its engine or wagon file as vehicle.
///
/// LoadForm and SaveForm throw host::RuntimeError. The window's own buttons and keys report such a
/// failure in a message box.
class frmDocument : public QMdiSubWindow
{
    Q_OBJECT

public:
    /// `host` must outlive the window. A consist list shows the number in its caption.
    frmDocument(const install::Environment &environment, document::DocumentHost &host,
                document::Furnishing furnishing, int windowNumber);
    ~frmDocument() override;

    const install::Environment &Environment() const { return m_environment; }
    document::WindowMode Mode() const { return m_mode; }
    /// Creates the pane of the mode. Call it once, before LoadForm and the functions below it.
    void SetMode(document::WindowMode mode);
    const std::string &Filter() const { return m_filter; }
    void SetFilter(std::string filter) { m_filter = std::move(filter); }
    const std::string &FileName() const { return m_fileName; }
    void SetFileName(std::string fileName) { m_fileName = std::move(fileName); }
    const StfNode &Node() const { return m_node; }
    void SetNode(StfNode node) { m_node = std::move(node); }
    const std::string &Vehicle() const { return m_vehicle; }
    void SetVehicle(std::string vehicle) { m_vehicle = std::move(vehicle); }
    int Number() const { return m_windowNumber; }
    std::string Caption() const { return windowTitle().toStdString(); }
    void SetCaption(const std::string &caption);

    /// The operations of the pane, as DocumentPane describes them.
    void LoadForm() { m_pane->Load(); }
    void RefreshForm() { m_pane->Refresh(); }
    bool Changed() const { return m_pane->Changed(); }
    void ShowProperties() { m_pane->ShowProperties(); }
    void StopWork() { m_pane->StopWork(); }
    app::PrintJob Print() { return m_pane->Print(); }
    std::vector<std::string> SelectedConsists() const { return m_pane->SelectedConsists(); }
    std::string SelectedConsist() const { return m_pane->SelectedConsist(); }
    const document::ConsistTree &Consist() const { return m_pane->Consist(); }
    void RunOnUnits(document::UnitCommand command) { m_pane->RunOnUnits(command); }
    bool TrainIsActive() const { return m_pane->TrainIsActive(); }
    std::string SelectedItem() const { return m_pane->SelectedItem(); }
    std::optional<install::StockItem> SelectedVehicle() const { return m_pane->SelectedVehicle(); }
    std::optional<install::StockItem> SelectedUnit() const { return m_pane->SelectedUnit(); }
    bool UnitIsMissing() const { return m_pane->UnitIsMissing(); }
    void ReplaceUnit(const install::StockItem &vehicle) { m_pane->ReplaceUnit(vehicle); }
    void SaveForm(bool quiet) { m_pane->Write(quiet); }
    void SaveConsist(bool quiet) { m_pane->Save(quiet); }
    void SaveConsistAs() { m_pane->SaveAs(); }
    void ShowSavedElsewhere(const std::string &path) { m_pane->FollowSave(path); }
    void ShowChangedElsewhere(const std::vector<std::string> &paths)
    {
        m_pane->FollowChanges(paths);
    }
    void Restore(const document::UnsavedConsist &unsaved) { m_pane->Restore(unsaved); }
    void ReloadAllStock() { m_pane->ReloadStock(); }
    void ResetView() { m_pane->ResetView(); }
    void ShowLoads(bool shown) { m_pane->ShowLoads(shown); }
    viewer::OptionControls *SceneOptions() { return m_pane->SceneOptions(); }
    void MoveCamera(viewer::CameraCommand command) { m_pane->MoveCamera(command); }
    void SaveSnapshot(const std::string &folder) { m_pane->SaveSnapshot(folder); }
    QSize PictureSize() { return m_pane->PictureSize(); }
    QImage DrawPicture(const QSize &size, bool transparent)
    {
        return m_pane->DrawPicture(size, transparent);
    }

    /// Clears the status bar and runs an action button of an editor.
    void ActionClick(document::EditorAction action);
    /// Shows a remark in the status bar, now and with the outcome of the current load.
    void Remark(const std::string &remark);
    /// Opens an installed consist, by its list name, in an editor window.
    void EditConsist(const std::string &name);
    /// Opens an installed consist, by its list name, in a 3D window.
    void ViewConsist(const std::string &name);

    /// Activates the window and saves it through the main window. Returns true if no changes
    /// remain; false if the user cancelled or writing failed.
    bool SaveByHost(bool quiet);
    /// Brings the window to the front, asks the question, and saves if the answer is Yes. Returns
    /// false if the window must stay open: the user cancelled, or nothing was saved.
    bool OfferToSave(const char *title, const char *question);
    /// Asks whether to save changes before closing; returns false if the window must stay open.
    bool QueryUnload();
    /// Lets the window close without asking from now on.
    void AllowUnload() { m_unloadAllowed = true; }

Q_SIGNALS:
    void CaptionChanged();
    /// Emitted when the steps of an editor that can be undone or redone may have changed.
    void StepsChanged();
    /// Emitted when what a 3D window shows of its content has changed.
    void OptionsChanged();
    /// Emitted when an editor has written its consist to this file.
    void Saved(const std::string &path);
    /// Emitted when the window is about to close and nothing can stop it.
    void Closing();
    /// Emitted on destruction; the last point at which the window may be used.
    void Unloading();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    document::DocumentPane &makePane();
    void openConsist(const std::string &name, document::WindowMode mode);

    install::Environment m_environment;
    document::DocumentHost &m_host;
    document::Furnishing m_furnishing;
    int m_windowNumber;
    document::WindowMode m_mode = document::WindowMode::ConsistList;
    std::string m_fileName, m_filter, m_vehicle;
    StfNode m_node;
    document::DocumentPane *m_pane = nullptr; ///< a child; never null after SetMode
    bool m_asking = false;
    bool m_unloadAllowed = false;
};
