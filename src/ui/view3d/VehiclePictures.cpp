// SPDX-License-Identifier: MIT
#include "ui/view3d/VehiclePictures.h"

#include "gl/OffscreenCanvas.h"
#include "gl/OffscreenPainter.h"
#include "host/FilesUsed.h"
#include "host/GameFiles.h"
#include "ui/view3d/sfCanvas.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QPalette>
#include <QThread>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <utility>

namespace viewer {
namespace {

std::string pngOf(const QImage &picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "PNG");
    return bytes.toStdString();
}

QImage pictureIn(const std::string &png)
{
    return QImage::fromData(QByteArray::fromRawData(png.data(), static_cast<qsizetype>(png.size())),
                            "PNG");
}

} // namespace

/// A picture to draw: a view if there is an asker, else a thumbnail.
struct VehiclePictures::Job
{
    const QObject *asker = nullptr;
    Wish wish;
};

/// Everything that is wanted. Thread-safe.
struct VehiclePictures::Queue
{
    void WantThumbnails(const QObject *asker, std::vector<std::string> stockFiles, const Wish &look)
    {
        const std::lock_guard lock(mutex);
        thumbnailLook = look;
        thumbnails[asker].assign(std::make_move_iterator(stockFiles.begin()),
                                 std::make_move_iterator(stockFiles.end()));
    }
    void WantView(const QObject *asker, const Wish &wish)
    {
        const std::lock_guard lock(mutex);
        const auto old = views.find(asker);
        const bool wasFresh =
            old != views.end() && old->second.fresh && old->second.stockFile == wish.stockFile;
        Wish &kept = views[asker] = wish;
        kept.fresh = wish.fresh || wasFresh;
    }
    void Leave(const QObject *asker)
    {
        const std::lock_guard lock(mutex);
        views.erase(asker);
        thumbnails.erase(asker);
    }
    /// Returns the next job; nothing if there is none. Views come first.
    std::optional<Job> TakeLocked()
    {
        if (!views.empty()) {
            const auto first = views.begin();
            const Job job{first->first, first->second};
            views.erase(first);
            return job;
        }
        for (auto &[asker, files] : thumbnails)
            if (!files.empty()) {
                Job job{nullptr, thumbnailLook};
                job.wish.stockFile = std::move(files.front());
                files.pop_front();
                return job;
            }
        return std::nullopt;
    }
    std::optional<Job> TryTake()
    {
        const std::lock_guard lock(mutex);
        auto job = TakeLocked();
        busy = job.has_value();
        return job;
    }
    /// Waits for a job; returns nothing after Stop.
    std::optional<Job> Take()
    {
        std::unique_lock lock(mutex);
        busy = false;
        std::optional<Job> job;
        changed.wait(lock, [&] { return stopped || (job = TakeLocked()).has_value(); });
        busy = job.has_value();
        return stopped ? std::nullopt : job;
    }
    void Stop()
    {
        const std::lock_guard lock(mutex);
        stopped = true;
    }
    bool IsBusy() const
    {
        const std::lock_guard lock(mutex);
        return busy || !views.empty() ||
               std::any_of(thumbnails.begin(), thumbnails.end(),
                           [](const auto &entry) { return !entry.second.empty(); });
    }

    mutable std::mutex mutex;
    std::condition_variable changed;
    std::map<const QObject *, Wish> views;
    std::map<const QObject *, std::deque<std::string>> thumbnails;
    Wish thumbnailLook; ///< without a file
    bool stopped = false, busy = false;
};

/// A canvas, and one scene for each kind of picture, so that thumbnails do not unload the vehicle
/// that the user turns. Everything but creating and destroying it happens on one thread.
class VehiclePictures::Studio
{
public:
    Studio(const install::Environment &environment, std::unique_ptr<korvat::OffscreenCanvas> owned)
        : canvas(std::move(owned))
        , m_environment(environment)
    {
    }
    VehicleScene &SceneFor(const Job &job)
    {
        std::optional<VehicleScene> &scene = job.asker ? m_view : m_thumbnail;
        return scene ? *scene : scene.emplace(m_environment, *canvas);
    }
    /// Loads the vehicle of a job unless the scene shows it already.
    void Load(VehicleScene &scene, const Job &job)
    {
        const std::string &file = job.wish.stockFile;
        const bool isThere =
            scene.StockFile() == file && scene.HowRead() == job.wish.reading &&
            (!job.wish.fresh || host::FilesUsed::Holds(m_environment.files, scene.Record()));
        if (!isThere)
            scene.Load(file, job.wish.reading);
    }
    QImage Draw(VehicleScene &scene, const VehicleView &view, const QSize &size, bool dark)
    {
        scene.SetDark(dark);
        canvas->Resize(size.width(), size.height());
        scene.Look(view, static_cast<float>(size.width()) / static_cast<float>(size.height()));
        return canvas->Picture().convertToFormat(QImage::Format_RGB32);
    }
    void CloseScenes()
    {
        m_view.reset();
        m_thumbnail.reset();
    }

    const std::unique_ptr<korvat::OffscreenCanvas> canvas;

private:
    install::Environment m_environment;
    std::optional<VehicleScene> m_view, m_thumbnail;
};

VehiclePictures::VehiclePictures(const install::Environment &environment,
                                 const std::string &cacheFolder, QObject *parent)
    : QObject(parent)
    , m_environment(environment)
    , m_cache(cacheFolder)
    , m_queue(std::make_unique<Queue>())
{
    m_lookUps.setMaxThreadCount(1);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (const auto job = m_queue->TryTake())
            carryOut(*m_studio, *job);
        if (m_queue->IsBusy())
            m_timer.start(0);
    });
}

VehiclePictures::~VehiclePictures()
{
    m_lookUps.clear();
    m_lookUps.waitForDone();
    m_queue->Stop();
    m_queue->changed.notify_all();
    if (m_thread)
        m_thread->wait();
    else if (m_studio)
        m_studio->CloseScenes();
}

const std::string &VehiclePictures::WhyNot()
{
    return sfCanvas::WhyNot();
}

/// Without OpenGL, nothing is started.
void VehiclePictures::start()
{
    if (m_studio)
        return;
    std::string reason;
    auto canvas = korvat::OffscreenCanvas::Create(kWidth, kHeight, reason);
    if (!canvas)
        return;
    m_studio = std::make_unique<Studio>(m_environment, std::move(canvas));
    if (!korvat::CanPaintOnThreads())
        return;
    m_thread.reset(QThread::create([this] { work(); }));
    m_studio->canvas->MoveTo(*m_thread);
    m_thread->start();
}

void VehiclePictures::wake()
{
    start();
    if (m_thread)
        m_queue->changed.notify_all();
    else if (m_studio)
        m_timer.start(0);
    else
        while (const auto job = m_queue->TryTake())
            report(*job, {}, WhyNot());
}

/// Runs on the thread.
void VehiclePictures::work()
{
    while (const auto job = m_queue->Take())
        carryOut(*m_studio, *job);
    m_studio->CloseScenes();
    m_studio->canvas->MoveTo(*QCoreApplication::instance()->thread());
}

void VehiclePictures::carryOut(Studio &studio, const Job &job)
{
    const std::string &file = job.wish.stockFile;
    const PictureCache::Subject subject{file, job.wish.reading, job.wish.dark, kWidth, kHeight};
    try {
        if (!job.asker)
            if (const auto kept = m_cache.Find(m_environment.files, subject))
                if (const QImage picture = pictureIn(*kept); !picture.isNull())
                    return report(job, picture, {});
        VehicleScene &scene = studio.SceneFor(job);
        studio.Load(scene, job);
        const QImage picture = studio.Draw(scene, job.wish.view, job.wish.size, job.wish.dark);
        report(job, picture, picture.isNull() ? "the graphics driver has no room for it" : "");
        if (job.asker && !(job.wish.fresh && !m_cache.Find(m_environment.files, subject)))
            return;
        const QImage small =
            job.asker ? studio.Draw(scene, {}, {kWidth, kHeight}, job.wish.dark) : picture;
        if (!small.isNull())
            m_cache.Keep(subject, scene.Record(), pngOf(small));
    } catch (const std::exception &error) {
        report(job, {}, error.what());
    }
}

/// Emits the signal on the thread of the windows.
void VehiclePictures::report(const Job &job, const QImage &picture, const std::string &problem)
{
    QMetaObject::invokeMethod(
        this,
        [this, asker = job.asker, file = job.wish.stockFile, picture, problem] {
            if (asker)
                Q_EMIT ViewReady(asker, file, picture, problem);
            else
                Q_EMIT ThumbnailReady(file, picture);
        },
        Qt::QueuedConnection);
}

VehiclePictures::Wish VehiclePictures::thumbnailLook() const
{
    const QPalette colours = QGuiApplication::palette();
    const bool dark = colours.color(QPalette::Base).lightness() < 128;
    return {{}, {}, {kWidth, kHeight}, true, ChosenReading(m_environment), dark};
}

void VehiclePictures::WantThumbnails(const QObject &asker, std::vector<std::string> stockFiles)
{
    m_queue->WantThumbnails(&asker, std::move(stockFiles), thumbnailLook());
    wake();
}

void VehiclePictures::WantKept(const std::string &stockFile)
{
    m_lookUps.clear(); // only the last one is of interest
    m_lookUps.start([this, stockFile, look = thumbnailLook()] {
        const auto png = m_cache.Find(m_environment.files,
                                      {stockFile, look.reading, look.dark, kWidth, kHeight});
        const QImage picture = png ? pictureIn(*png) : QImage();
        if (!picture.isNull())
            QMetaObject::invokeMethod(
                this, [this, stockFile, picture] { Q_EMIT KeptFound(stockFile, picture); },
                Qt::QueuedConnection);
    });
}

void VehiclePictures::WantView(const QObject &asker, const Wish &wish)
{
    Wish complete = thumbnailLook();
    complete.stockFile = wish.stockFile;
    complete.view = wish.view;
    complete.size = wish.size;
    complete.fresh = wish.fresh;
    m_queue->WantView(&asker, complete);
    wake();
}

void VehiclePictures::Leave(const QObject &asker)
{
    m_queue->Leave(&asker);
}

bool VehiclePictures::IsBusy() const
{
    return m_queue->IsBusy();
}

} // namespace viewer
