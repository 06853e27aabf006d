// SPDX-License-Identifier: MIT
#pragma once

#include "document/WindowMode.h"
#include "stavfile/StfNode.h"

#include <string>

namespace host {
class Dialogs;
class GameFiles;
} // namespace host
namespace install {
class Installation;
}
namespace korvat {
class ModelSource;
}

namespace document {

/// What a document window needs of the program around it; the main window implements it.
class DocumentHost
{
public:
    virtual ~DocumentHost() = default;

    virtual host::Dialogs &Dialogs() = 0;
    virtual host::GameFiles &Files() = 0;
    virtual const install::Installation &Installation() = 0;
    /// Shapes and textures for 3D windows.
    virtual korvat::ModelSource &Shapes() = 0;

    /// The opener of document windows: a window in this mode, with this caption, shown.
    virtual void OpenDocumentWindow(const std::string &fileName, WindowMode mode,
                                    const std::string &caption, const StfNode &node) = 0;
    /// Saves the active document window (the flag: no caption change, no " saved" message).
    virtual void SaveDocument(bool quiet) = 0;
    /// Opens a window with a text to read; its caption is "Properties of " and the title.
    virtual void ShowTextWindow(const std::string &title, const std::string &text) = 0;
    /// Opens a file or folder with the program that the desktop has for it, or says why not.
    virtual void OpenOutside(const std::string &path) = 0;
    /// Text of the first panel of the status bar.
    virtual void SetStatus(const std::string &text) = 0;
    /// Shows how far a long command is, 0 to `total`; total 0 takes the bar away.
    virtual void SetProgress(int done, int total) = 0;
    /// One line for the trace log.
    virtual void WriteLog(const std::string &text) = 0;
};

} // namespace document
