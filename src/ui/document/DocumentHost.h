// SPDX-License-Identifier: MIT
#pragma once

#include "document/WindowMode.h"
#include "stavfile/StfNode.h"

#include <string>

namespace document {

/// The program around a document window; the main window implements it.
class DocumentHost
{
public:
    virtual ~DocumentHost() = default;

    /// Opens and shows a document window in this mode, with this caption.
    virtual void OpenDocumentWindow(const std::string &fileName, WindowMode mode,
                                    const std::string &caption, const StfNode &node) = 0;
    /// Opens a 3D window of a vehicle, given by its engine or wagon file and its shape.
    virtual void OpenVehicleWindow(const std::string &shapeFile, const std::string &vehicle,
                                   const std::string &caption) = 0;
    /// Saves the active document window. `quiet` suppresses the caption change and the " saved"
    /// message.
    virtual void SaveDocument(bool quiet) = 0;
    /// Opens a window with a text to read. The caption is "Properties of " and the title.
    virtual void ShowTextWindow(const std::string &title, const std::string &text) = 0;
    /// Opens a file or folder with the desktop's program for it, or shows a message with the reason
    /// why not.
    virtual void OpenOutside(const std::string &path) = 0;
    /// Lets the user choose the Train Simulator folder to work on.
    virtual void ChooseInstallation() = 0;
    /// Sets the text of the first panel of the status bar.
    virtual void SetStatus(const std::string &text) = 0;
    /// Shows the progress of a long command, 0 to `total`; a `total` of 0 hides the bar.
    virtual void SetProgress(int done, int total) = 0;
    /// Shows or hides the loads of vehicles in all 3D windows.
    virtual void ShowLoads(bool /*shown*/) {}
    /// Returns false if the user has asked the system for no animations.
    virtual bool Animates() { return true; }
    /// Writes one line to the trace log.
    virtual void WriteLog(const std::string &text) = 0;
};

} // namespace document
