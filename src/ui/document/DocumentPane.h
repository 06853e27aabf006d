// SPDX-License-Identifier: MIT
#pragma once

#include "host/RuntimeError.h"
#include "install/Train.h"
#include "ui/document/EditorAction.h"
#include "ui/document/UnitCommand.h"
#include "ui/print/PrintJobs.h"
#include "ui/view3d/CameraCommand.h"

#include <QImage>
#include <QSize>

#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace viewer {
class OptionControls;
}
namespace document {

class ConsistTree;
struct UnsavedConsist;

/// The content of a document window: a consist list, a consist editor or a 3D view. The window
/// passes operations on to its pane. An operation that does not apply to a kind of pane does
/// nothing.
class DocumentPane
{
public:
    virtual ~DocumentPane() = default;

    /// Returns the pane itself, which belongs to its window.
    virtual QWidget &Widget() = 0;
    virtual QSize MinimumWindowSize() const = 0;

    /// Reads and shows the window's file. Throws host::RuntimeError.
    virtual void Load() = 0;
    /// Reads again everything that the pane shows. Throws host::RuntimeError.
    virtual void Refresh() { Load(); }
    /// True if the pane holds changes that have not been saved to any file.
    virtual bool Changed() const { return false; }
    virtual void ShowProperties() {}
    /// Ends a running scan or load and keeps what it has found.
    virtual void StopWork() {}
    /// Returns the pane as a print job. Throws RuntimeError 5 if it has no picture to print.
    virtual app::PrintJob Print() = 0;
    /// Adds a remark to the status text that reports the end of the current load.
    virtual void AddRemark(const std::string & /*remark*/) {}

    /// Consist list: returns the names of the selected consists, in row order.
    virtual std::vector<std::string> SelectedConsists() const { return {}; }
    /// Consist list: returns the selected consist, the current one if there are several; "" for
    /// none.
    virtual std::string SelectedConsist() const { return {}; }

    /// Consist editor: returns the consist as it is now. Throws RuntimeError 5 in other panes.
    virtual const ConsistTree &Consist() const
    {
        throw host::RuntimeError(host::ErrorNumber::InvalidCall, "this window edits no consist");
    }
    /// Consist editor: returns the path of the stock item selected in the list that was last
    /// entered; "" for none.
    virtual std::string SelectedItem() const { return {}; }
    /// Consist editor: return the vehicle selected in the list that was last entered, and that of
    /// the selected unit, if the train is that list; nothing for none.
    virtual std::optional<install::StockItem> SelectedVehicle() const { return std::nullopt; }
    virtual std::optional<install::StockItem> SelectedUnit() const { return std::nullopt; }
    /// Consist editor: true if the train is the list that was last entered, and the vehicle of the
    /// selected unit, or its shape, is missing.
    virtual bool UnitIsMissing() const { return false; }
    /// Consist editor: makes the selected unit name another vehicle of the same kind.
    virtual void ReplaceUnit(const install::StockItem & /*vehicle*/) {}
    /// Consist editor: runs an action button.
    virtual void Act(EditorAction /*action*/) {}
    /// Consist editor: runs a command on units.
    virtual void RunOnUnits(UnitCommand /*command*/) {}
    /// Consist editor: true if the train is the list that was last entered.
    virtual bool TrainIsActive() const { return false; }
    /// Consist editor with a file name: writes the consist, reports that unless `quiet`, and marks
    /// it as unchanged. Throws host::RuntimeError.
    virtual void Write(bool /*quiet*/) {}
    /// Consist editor: saves as document::SaveConsist does, and reports failures.
    virtual void Save(bool /*quiet*/) {}
    /// Consist editor: saves as document::SaveConsistAs does, and reports failures.
    virtual void SaveAs() {}
    /// Consist editor: reads a file that another window has saved, if it is the file of this
    /// window. Keeps unsaved changes and reports the conflict. Consist list: updates the mark of
    /// the consist.
    virtual void FollowSave(const std::string & /*path*/) {}
    /// Like FollowSave, for several files that were changed at once. Their paths are spelled as on
    /// the disk.
    virtual void FollowChanges(const std::vector<std::string> & /*paths*/) {}
    /// Consist editor: takes up the unsaved state of the consist, and keeps it in a recovery file
    /// before it returns. Throws host::RuntimeError.
    virtual void Restore(const UnsavedConsist & /*unsaved*/) {}
    /// Consist editor: reads the installed stock again, by the window's filter.
    virtual void ReloadStock() {}

    /// 3D view: returns to the first view.
    virtual void ResetView() {}
    /// 3D view: shows or hides the loads of vehicles, now and after each load.
    virtual void ShowLoads(bool /*shown*/) {}
    /// 3D view: returns its options; null in other panes.
    virtual viewer::OptionControls *SceneOptions() { return nullptr; }
    /// 3D view: moves the camera.
    virtual void MoveCamera(viewer::CameraCommand /*command*/) {}
    /// 3D view: saves a screenshot in the folder, under the first free number. Throws RuntimeError
    /// as GameFiles::WriteFile does, or 5 if there is no 3D on this machine.
    virtual void SaveSnapshot(const std::string & /*folder*/) {}
    /// 3D view: returns the size of its picture, in pixels of the screen. Throws RuntimeError 5 if
    /// there is no 3D on this machine, or in other panes.
    virtual QSize PictureSize()
    {
        throw host::RuntimeError(host::ErrorNumber::InvalidCall, "this window has no 3D view");
    }
    /// 3D view: draws it in this size, as ViewerPane does. Throws like PictureSize.
    virtual QImage DrawPicture(const QSize & /*size*/, bool /*transparent*/)
    {
        throw host::RuntimeError(host::ErrorNumber::InvalidCall, "this window has no 3D view");
    }
};

} // namespace document
