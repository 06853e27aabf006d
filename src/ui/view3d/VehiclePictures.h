// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/PictureCache.h"
#include "viewer/VehicleScene.h"

#include <QImage>
#include <QObject>
#include <QSize>
#include <QThreadPool>
#include <QTimer>

#include <memory>
#include <string>
#include <vector>

class QThread;

namespace viewer {

/// Draws pictures of vehicles in the background, for all windows.
///
/// One thread loads and draws everything, with its own OpenGL context: painting through
/// OpenGL on the processor can take longer than a window may pause. A driver that cannot paint on
/// another thread paints on the window's, one picture at a time.
class VehiclePictures : public QObject
{
    Q_OBJECT

public:
    /// The size of thumbnails, in pixels.
    static constexpr int kWidth = 192, kHeight = 96;

    /// A picture that the user looks at.
    struct Wish
    {
        std::string stockFile;
        VehicleView view;
        QSize size;         ///< in pixels
        bool fresh = false; ///< look whether the files have changed since they were read
        Reading reading{};  ///< set by this class, like `dark`
        bool dark = false;  ///< background
    };

    /// Thumbnails are kept in `cacheFolder`; "" keeps none.
    VehiclePictures(const install::Environment &environment, const std::string &cacheFolder,
                    QObject *parent = nullptr);
    ~VehiclePictures() override;

    /// Returns the reason why nothing can be drawn, in words for the user; "" if it can.
    static const std::string &WhyNot();

    /// Replaces the thumbnails that `asker` wants, in the order in which to make them.
    /// ThumbnailReady follows for each, unless it is replaced before.
    void WantThumbnails(const QObject &asker, std::vector<std::string> stockFiles);
    /// Looks for a thumbnail that was made before. KeptFound follows if there is one.
    void WantKept(const std::string &stockFile);
    /// Replaces the picture that `asker` wants. It comes before all thumbnails. ViewReady follows.
    void WantView(const QObject &asker, const Wish &wish);
    /// Forgets everything that `asker` wants.
    void Leave(const QObject &asker);
    /// True while something that is wanted has not been drawn.
    bool IsBusy() const;

Q_SIGNALS:
    /// `picture` is null if the vehicle cannot be shown.
    void ThumbnailReady(const std::string &stockFile, const QImage &picture);
    void KeptFound(const std::string &stockFile, const QImage &picture);
    /// `picture` is null if the vehicle cannot be shown, for the reason in `problem`.
    void ViewReady(const QObject *asker, const std::string &stockFile, const QImage &picture,
                   const std::string &problem);

private:
    struct Job;
    struct Queue;
    class Studio;

    /// Returns how thumbnails are drawn now, without a file. Call it on the window's thread.
    Wish thumbnailLook() const;
    void start();
    void wake();
    void work();
    void report(const Job &job, const QImage &picture, const std::string &problem);
    void carryOut(Studio &studio, const Job &job);

    install::Environment m_environment;
    PictureCache m_cache;
    std::unique_ptr<Queue> m_queue;
    std::unique_ptr<Studio> m_studio; ///< null before the first picture, and without OpenGL
    std::unique_ptr<QThread> m_thread;
    QTimer m_timer; ///< where there is no thread
    QThreadPool m_lookUps;
};

} // namespace viewer
