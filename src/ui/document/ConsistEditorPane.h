// SPDX-License-Identifier: MIT
#pragma once

#include "document/ConsistTree.h"
#include "document/SaveConsist.h"
#include "document/UnsavedConsist.h"
#include "ui/document/DocumentPane.h"

#include <QScrollArea>

#include <optional>
#include <string>

class frmDocument;

namespace document {

class DocumentHost;
class ChangeKeeper;
class EditorControls;
class StockFigures;
class StockLoader;
class StockPictures;
class TrainMarks;
class UnitCommands;
struct Furnishing;

/// The editor of one consist: holds the consist, and connects it to the controls and to its file.
class ConsistEditorPane : public QScrollArea, public DocumentPane
{
    Q_OBJECT

public:
    /// `window` and `host` must outlive the pane.
    ConsistEditorPane(frmDocument &window, DocumentHost &host, const Furnishing &furnishing);

    QWidget &Widget() override { return *this; }
    QSize MinimumWindowSize() const override { return {200, 120}; }
    /// Reads the window's file; starts a new consist if there is none.
    void Load() override;
    /// Reads consist and stock again. If the file is gone, keeps the consist and marks it as
    /// changed.
    void Refresh() override;
    bool Changed() const override { return m_consist.Changed(); }
    void StopWork() override;
    app::PrintJob Print() override;
    void AddRemark(const std::string &remark) override;
    const ConsistTree &Consist() const override { return m_consist; }
    std::string SelectedItem() const override;
    std::optional<StockItem> SelectedVehicle() const override;
    std::optional<StockItem> SelectedUnit() const override;
    bool UnitIsMissing() const override;
    void ReplaceUnit(const StockItem &vehicle) override;
    void Act(EditorAction action) override;
    void RunOnUnits(UnitCommand command) override;
    bool TrainIsActive() const override { return m_consistIsActiveList; }
    void Write(bool quiet) override;
    void Save(bool quiet) override;
    void SaveAs() override;
    void FollowSave(const std::string &path) override;
    void FollowChanges(const std::vector<std::string> &paths) override;
    void Restore(const UnsavedConsist &unsaved) override;
    void ReloadStock() override;

protected:
    bool event(QEvent *event) override;

private:
    void connectControls(const Furnishing &furnishing);
    void connectLoader();
    void focusWhenRestored(Qt::WindowStates before, Qt::WindowStates now);
    void enterList(bool consist);
    void beginDrag();
    void endDrag();

    void loadConsist();
    void startConsist();
    void keepConsist();
    void readAgain();
    void reportHiddenUnits();
    void loadStock();
    void rereadStock();
    void showTitle();
    void showChanged();
    void reportNotKept(const std::string &reason);
    std::optional<UnsavedConsist> unsavedState() const;
    void editTrain(Move move);

    void cancel();
    void apply();
    void saveAndClose();
    bool saveInPlace();
    SaveQuestions saveQuestions();
    void finishSave(const SaveOutcome &outcome, bool quiet);
    void showSaved(bool quiet);

    const StockItem *selectedStockItem() const;
    void viewConsist();
    std::string saveScratchCopy();
    void viewShape();

    frmDocument &m_window;
    DocumentHost &m_host;
    ConsistTree m_consist;
    StockFigures &m_figures;
    StockPictures &m_pictures;
    EditorControls *m_controls;
    StockLoader *m_loader;
    TrainMarks *m_marks;
    UnitCommands *m_units;
    ChangeKeeper *m_keeper;
    bool m_stockLoaded = false;
    bool m_consistIsActiveList = false;
    std::string m_note; ///< about the file just loaded, for the status bar
    int m_dragRow = -1; ///< row of lvStock where a left-button press began, -1 for none
};

} // namespace document
