// SPDX-License-Identifier: MIT
#pragma once

#include "document/ConsistTree.h"
#include "document/SaveConsist.h"
#include "stavfile/StfNode.h"
#include "ui/document/Furnishing.h"

#include <QImage>
#include <QMdiSubWindow>

#include <memory>
#include <string>
#include <vector>

namespace document {
class ConsistEditorPane;
class ConsistListPane;
class DocumentHost;
class StockLoader;
} // namespace document
namespace viewer {
class ViewerPane;
}

/// The one kind of window inside the main window; its mode decides what it is: 0 the list of
/// consists, 1 the editor of one consist, 2 a consist in 3D, 3 a shape in 3D. The opener sets
/// FileName, node and Mode, has it load, and gives it its caption. A loose consist in 3D has the
/// name of its activity file, and its TrainCfg block as node.
///
/// LoadForm and SaveForm throw host::RuntimeError; the window's own buttons and keys show such a
/// failure in a message box themselves.
class frmDocument : public QMdiSubWindow
{
    Q_OBJECT

public:
    /// `host` must outlive the window. The number is shown in a consist list's caption.
    frmDocument(document::DocumentHost &host, document::Furnishing furnishing, int windowNumber);
    ~frmDocument() override;

    /// Editor: the path of the stock item selected in the list that was last entered. Otherwise "".
    std::string SelectedItem() const;
    int Mode() const { return m_mode; }
    /// Makes the controls of the mode visible. To be set once, before the window is loaded.
    void SetMode(int mode);
    const std::string &Filter() const { return m_filter; }
    void SetFilter(std::string filter) { m_filter = std::move(filter); }
    const std::string &FileName() const { return m_fileName; }
    void SetFileName(std::string fileName) { m_fileName = std::move(fileName); }
    void SetNode(StfNode node) { m_node = std::move(node); }
    std::string Caption() const { return windowTitle().toStdString(); }
    void SetCaption(const std::string &caption);

    /// Runs the handler of an action button: 0 Cancel, 1 Apply, 2 OK, 3 View Consist, 4 View Shape.
    void ActionClick(int index);
    /// Editor with a file name: writes the consist, says so unless `quiet`, and marks it unchanged.
    void SaveForm(bool quiet);
    /// Editor: saves the consist by the rules of document::SaveConsist. A `quiet` save changes no
    /// caption and shows no " saved" message. Failures are reported.
    void SaveConsist(bool quiet);
    /// Editor: saves the consist under a name that is asked for.
    void SaveConsistAs();
    /// Editor: another window has saved this file. If it is the file of this window, an unchanged
    /// consist is read again, and a changed one is reported in the status bar.
    void ShowSavedElsewhere(const std::string &path);
    /// Fills the window according to its mode; reads the file anew.
    void LoadForm();
    /// Calls LoadForm and, in an editor, ReloadAllStock. An editor whose file is gone keeps its
    /// consist, as changed.
    void RefreshForm();
    /// Editor: reads the installed stock anew, by the filter.
    void ReloadAllStock();
    /// 3D: back to the first view.
    void ResetView();
    /// List: its folder and number in a message box. 3D: the textures in a text window.
    void ShowProperties();
    /// 3D: saves a picture in the folder, under the first free number. RuntimeError as
    /// GameFiles::WriteFile, and 5 when there is no 3D here.
    void SaveSnapshot(const std::string &folder);

    /// Consist list: the names of the selected consists, from the first to the last.
    std::vector<std::string> SelectedConsists() const;
    /// Consist list: the selected consist, of several the current one; "" for none.
    std::string SelectedConsist() const;
    /// Consist list: all names that it shows.
    std::vector<std::string> ShownConsists() const;
    /// Editor: the consist as it stands.
    const document::ConsistTree &Consist() const { return m_consist; }
    /// 3D view: the picture as it is shown. RuntimeError 5 where there is none.
    QImage Picture();
    /// Opens an installed consist, by its list name, in an editor window.
    void EditConsist(const std::string &name);
    /// The same in 3D.
    void ViewConsist(const std::string &name);

    bool Changed() const;
    /// Asks whether to save what has changed; false when the window must stay open.
    bool QueryUnload();
    /// From now on the window closes without asking.
    void AllowUnload() { m_unloadAllowed = true; }
    /// Ends a running scan of the installed stock or a loading in 3D; what was found stays.
    void StopWork();
    /// Shows a remark in the status bar, now and with the outcome of the loading under way.
    void Remark(const std::string &remark);

Q_SIGNALS:
    void CaptionChanged();
    /// Editor: the consist was written to this file.
    void Saved(const std::string &path);
    /// The window is about to close, and nothing can stop it.
    void Closing();
    /// The window goes: the last moment in which it may still be used.
    void Unloading();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void makeListPane();
    void makeEditorPane();
    void connectEditor();
    void loadList();
    void loadEditor();
    void loadConsist();
    void tellWhyRowsEnd();
    void loadStock();
    void reloadStock();
    void keepConsist();
    void readAgain();
    void showTitle();
    void editTrain(int index);
    void bringForward();
    void cancel();
    void apply();
    void saveAndClose();
    bool saveInPlace();
    document::SaveQuestions saveQuestions();
    void finishSave(const document::SaveOutcome &outcome, bool quiet);
    void showSaved(bool quiet);
    void markChanged();
    bool saveByHost(bool quiet);

    // frmDocumentViews.cpp
    void makeViewerPane();
    void loadView();
    void viewConsist();
    std::string saveScratchCopy();
    void viewShape();
    void viewConsists(const std::vector<std::string> &names);
    void showListProperties();

    void enterList(bool consist);
    void focusWhenRestored(Qt::WindowStates before, Qt::WindowStates now);
    void beginDrag();
    void endDrag();

    document::DocumentHost &m_host;
    document::Furnishing m_furnishing;
    int m_windowNumber;
    int m_mode = -1;
    std::string m_fileName, m_filter;
    StfNode m_node;
    document::ConsistTree m_consist;
    document::ConsistListPane *m_list = nullptr;
    document::ConsistEditorPane *m_editor = nullptr;
    viewer::ViewerPane *m_viewer = nullptr;
    document::StockLoader *m_loader = nullptr;
    bool m_stockLoaded = false;
    bool m_consistIsActiveList = false;
    bool m_asking = false;
    bool m_unloadAllowed = false;
    std::string m_note; ///< about the file just loaded, for the status bar
    /// Goes with the status texts while a 3D view loads. The pane outlives this part of the window.
    std::shared_ptr<std::string> m_viewRemark = std::make_shared<std::string>();
    std::string m_listedFilter; ///< the filter of the names shown in lvConsists
    int m_dragRow = -1;         ///< row of lvStock on which a left-button press began, -1 for none
};
