// SPDX-License-Identifier: MIT
#include "ui/view3d/ViewerPane.h"

#include "host/Dialogs.h"
#include "host/RuntimeError.h"
#include "ui/view3d/SavedPictureBar.h"
#include "ui/view3d/Transparency.h"
#include "ui/view3d/VehicleLabel.h"
#include "ui/view3d/sfCanvas.h"

#include <QElapsedTimer>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace viewer {
namespace {

constexpr int kHighest = 40; ///< metres: the camera's height at the top of the scroll bar
constexpr int kPage = 20;    ///< metres along the train
constexpr qint64 kSliceMilliseconds = 10;
constexpr int kPauseMilliseconds = 2; ///< while the next vehicle is being read

} // namespace

ViewerPane::ViewerPane(const PaneHost &host, QWidget *parent)
    : QWidget(parent)
    , sfViewer(sfCanvas::WhyNot().empty() ? new sfCanvas(host.environment.files, this) : nullptr)
    , hscView(makeScrollBar(Qt::Horizontal, "hscView", "Place along the train"))
    , vscView(makeScrollBar(Qt::Vertical, "vscView", "Height of the camera"))
    , m_host(host)
    , m_grid(new QGridLayout(this))
    , m_stage(host.environment, sfViewer, [this](const std::string &text) { setStatus(text); })
    , m_camera(m_stage, sfViewer ? *sfViewer : static_cast<const QWidget &>(*this))
    , m_options(m_stage, sfViewer, *this, host.showLoads)
{
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setSpacing(0);
    m_grid->addWidget(vscView, 0, 1);
    m_grid->addWidget(hscView, 1, 0);
    tmrRenderer.setObjectName("tmrRenderer");
    tmrRenderer.setSingleShot(true);
    connect(&m_watch, &FileWatch::Changed, this, &ViewerPane::followChanges);
    connect(&tmrRenderer, &QTimer::timeout, this, &ViewerPane::step);
    connectScrollBars();
    connectCamera();
    if (sfViewer) {
        connectCanvas();
        makePictureBar();
        m_vehicle = new VehicleLabel(this);
        m_grid->addWidget(m_vehicle, 0, 0, Qt::AlignTop | Qt::AlignLeft);
    } else {
        showNoCanvas(sfCanvas::WhyNot());
    }
}

ViewerPane::~ViewerPane()
{
    if (m_stage.Loading())
        m_host.setProgress(0, 0);
    m_camera.Finish();
    // The canvas, a child of this widget, still exists here.
    m_stage.Close();
}

QScrollBar *ViewerPane::makeScrollBar(Qt::Orientation orientation, const char *name,
                                      const char *title)
{
    auto *bar = new QScrollBar(orientation, this);
    bar->setObjectName(name);
    bar->setAccessibleName(QString::fromLatin1(title));
    bar->setToolTip(QString::fromLatin1(title));
    return bar;
}

void ViewerPane::connectScrollBars()
{
    hscView->setRange(0, 0);
    hscView->setPageStep(kPage);
    // The higher the camera, the higher the handle.
    vscView->setInvertedAppearance(true);
    vscView->setInvertedControls(false);
    vscView->setRange(0, kHighest);
    vscView->setPageStep(kHighest / 10);
    vscView->setValue(2);
    connect(hscView, &QScrollBar::valueChanged, this, [this](int value) {
        m_camera.MoveAlong(static_cast<float>(value) + m_stage.TrainEnd());
    });
    connect(vscView, &QScrollBar::valueChanged, this,
            [this](int value) { m_camera.SetHeight(static_cast<float>(value)); });
}

void ViewerPane::connectCamera()
{
    m_camera.SetAnimated(m_host.animates);
    m_options.SetAnimated(m_host.animates);
    connect(&m_options, &OptionControls::StatusChanged, this,
            [this](const QString &text) { setStatus(text.toStdString()); });
    connect(&m_camera, &CameraControls::StatusChanged, this,
            [this](const QString &text) { setStatus(text.toStdString()); });
    connect(&m_camera, &CameraControls::Moved, this, [this](bool along) {
        if (along)
            showPlace();
        showHeight();
    });
    connect(&m_camera, &CameraControls::VehicleChosen, this, [this](const QString &name) {
        if (m_vehicle)
            m_vehicle->ShowName(name);
    });
}

void ViewerPane::connectCanvas()
{
    sfViewer->setObjectName("sfViewer");
    sfViewer->setAccessibleName(QStringLiteral("3D view"));
    m_grid->addWidget(sfViewer, 0, 0);
    setFocusProxy(sfViewer);
    m_camera.Connect(*sfViewer);
    connect(sfViewer, &sfCanvas::DrawWanted, this, [this] {
        if (TSView *view = m_stage.View())
            view->ShowModels();
    });
    connect(sfViewer, &sfCanvas::Failed, this, &ViewerPane::showNoCanvas);
}

/// The bar covers the lower edge of the canvas, so that screenshots taken before and after it
/// appears have the same size.
void ViewerPane::makePictureBar()
{
    m_savedPicture = new SavedPictureBar(this);
    m_grid->addWidget(m_savedPicture, 0, 0, Qt::AlignBottom);
    connect(m_savedPicture, &SavedPictureBar::OpenWanted, this,
            [this](const std::string &path) { m_host.openOutside(path); });
    connect(m_savedPicture->cmdHidePicture, &QToolButton::clicked, sfViewer,
            [this] { sfViewer->setFocus(); });
}

void ViewerPane::showNoCanvas(const std::string &reason)
{
    if (sfViewer)
        sfViewer->hide();
    if (m_noCanvas)
        return;
    m_noCanvas = new QLabel(QStringLiteral("There is no 3D view here: %1.\n\n"
                                           "File > Properties still lists the textures.")
                                .arg(QString::fromStdString(reason)));
    m_noCanvas->setObjectName("lblNoView");
    m_noCanvas->setAlignment(Qt::AlignCenter);
    m_noCanvas->setWordWrap(true);
    m_noCanvas->setMargin(24);
    m_grid->addWidget(m_noCanvas, 0, 0);
    m_grid->setRowStretch(0, 1);
    m_grid->setColumnStretch(0, 1);
}

void ViewerPane::RenderConsist(const std::string &file, const std::string &installFolder)
{
    m_camera.Finish();
    m_stage.RenderConsist(file, installFolder);
    begin();
}

void ViewerPane::RenderLooseConsist(const StfNode &trainCfg, const std::string &installFolder,
                                    const std::string &source)
{
    m_camera.Finish();
    m_stage.RenderLooseConsist(trainCfg, installFolder, source);
    begin();
}

void ViewerPane::RenderShape(const std::string &file, const std::string &vehicle)
{
    m_camera.Finish();
    m_stage.RenderShape(file, vehicle);
    begin();
}

void ViewerPane::begin()
{
    m_host.setProgress(0, std::max(1, m_stage.Total()));
    const QSignalBlocker silent(hscView);
    hscView->setRange(0, 0);
    showHeight();
    tmrRenderer.start(0);
}

/// Runs some pieces and returns to the event loop, so that the window keeps painting and
/// responding. A message box in here runs its own event loop, in which the timer is stopped.
void ViewerPane::step()
{
    QElapsedTimer spent;
    spent.start();
    bool more = true;
    told([&] {
        while (more && m_stage.Ready() && spent.elapsed() < kSliceMilliseconds)
            more = m_stage.Step();
    });
    if (!m_stage.Loading()) {
        end();
        return;
    }
    m_host.setProgress(m_stage.Done(), std::max(1, m_stage.Total()));
    tmrRenderer.start(m_stage.Ready() ? 0 : kPauseMilliseconds);
}

/// Runs a piece of the loading; reports a failure and stops there.
void ViewerPane::told(const std::function<void()> &piece)
{
    try {
        piece();
    } catch (const std::exception &error) {
        setStatus(error.what());
        m_host.environment.dialogs.Message(host::Explained(error), "View Consist",
                                           host::DialogIcon::Critical);
    }
}

void ViewerPane::Stop()
{
    if (!m_stage.Loading())
        return;
    tmrRenderer.stop();
    told([this] { m_stage.Stop(); });
    end();
}

void ViewerPane::end()
{
    m_host.setProgress(0, 0);
    m_camera.Finish();
    m_camera.RunAgain();
    const QSignalBlocker silent(hscView);
    hscView->setRange(0, m_stage.ScrollMaximum());
    showPlace();
    showHeight();
    m_remark.clear();
    m_options.SceneChanged();
    m_watch.Watch(m_stage.Places());
}

void ViewerPane::followChanges()
{
    told([this] {
        if (m_stage.FollowChanges() && m_stage.Loading())
            tmrRenderer.start(0);
    });
    if (m_stage.Loading())
        return;
    m_options.SceneChanged();
    m_watch.Watch(m_stage.Places());
}

void ViewerPane::ShowLoads(bool shown)
{
    m_stage.ShowLoads(shown);
    m_options.LoadsShown(shown);
}

bool ViewerPane::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate && isVisible())
        QMetaObject::invokeMethod(this, &ViewerPane::followChanges, Qt::QueuedConnection);
    return QWidget::event(event);
}

/// The scroll bars follow the camera but must not move it: they know only whole metres.
void ViewerPane::showPlace()
{
    const QSignalBlocker silent(hscView);
    if (const TSView *view = m_stage.View())
        hscView->setValue(static_cast<int>(std::lround(std::clamp(
            view->LookAtZ - m_stage.TrainEnd(), 0.0f, static_cast<float>(hscView->maximum())))));
}

void ViewerPane::showHeight()
{
    const TSView *view = m_stage.View();
    const QSignalBlocker silent(vscView);
    if (view && view->CamY >= static_cast<float>(vscView->minimum()) &&
        view->CamY <= static_cast<float>(vscView->maximum()))
        vscView->setValue(static_cast<int>(std::lround(view->CamY)));
}

QImage ViewerPane::Picture()
{
    const QImage picture = sfViewer && !m_noCanvas ? sfViewer->Picture() : QImage();
    if (picture.isNull())
        throw host::RuntimeError(host::ErrorNumber::InvalidCall, "there is no 3D view to print");
    return picture.convertToFormat(QImage::Format_RGB888);
}

QImage ViewerPane::DrawPicture(const QSize &size, bool transparent)
{
    if (!sfViewer || m_noCanvas || !m_stage.View())
        throw host::RuntimeError(host::ErrorNumber::InvalidCall, "there is no 3D view to draw");
    m_camera.Finish();
    QImage picture;
    if (transparent) {
        sfViewer->SetScenery(false);
        m_stage.View()->ShowModels();
        picture = sfViewer->Draw(size, korvat::Tint{0, 0, 0, 1});
        const QImage onWhite = sfViewer->Draw(size, korvat::Tint{1, 1, 1, 1});
        sfViewer->SetScenery(true);
        m_stage.View()->ShowModels();
        picture = onWhite.isNull() ? QImage() : WithoutBackground(std::move(picture), onWhite);
    } else {
        picture = sfViewer->Draw(size, std::nullopt);
    }
    if (picture.isNull())
        throw host::RuntimeError(host::ErrorNumber::InvalidCall,
                                 "the graphics driver has no room for the picture");
    return picture;
}

void ViewerPane::SaveSnapshot(const std::string &base, const std::string &what)
{
    if (!sfViewer || m_noCanvas)
        throw host::RuntimeError(host::ErrorNumber::InvalidCall, "there is no 3D view to save");
    sfViewer->SetOverwriteSnapshot(false);
    sfViewer->SetSnapshotFile(base);
    const std::string file = sfViewer->SnapshotFile();
    setStatus("Saving " + what + " snapshot to " + file);
    sfViewer->SaveSnapshot();
    m_savedPicture->ShowPath(file);
    setStatus("Done");
}

void ViewerPane::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (TSView *view = m_stage.View())
        view->RefreshForm();
    m_options.Place();
}

void ViewerPane::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_options.SetVisible(true);
}

void ViewerPane::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_options.SetVisible(false);
}

void ViewerPane::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        hscView->triggerAction(QAbstractSlider::SliderSingleStepSub);
        break;
    case Qt::Key_Right:
        hscView->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        break;
    case Qt::Key_Up:
        vscView->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        break;
    case Qt::Key_Down:
        vscView->triggerAction(QAbstractSlider::SliderSingleStepSub);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace viewer
