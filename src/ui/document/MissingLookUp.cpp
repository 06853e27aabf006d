// SPDX-License-Identifier: MIT
#include "ui/document/MissingLookUp.h"

#include "content/HealthSettings.h"
#include "content/MissingVehicles.h"
#include "host/Process.h"
#include "install/Installation.h"

#include <QElapsedTimer>

#include <algorithm>
#include <system_error>

namespace document {

namespace {

constexpr int kSliceMilliseconds = 5;
/// The pause between two slices: nobody waits for the answers.
constexpr int kPauseMilliseconds = 40;

/// Leaves one core to the window.
std::size_t workers()
{
    return std::max<std::size_t>(2, host::DefaultWorkers()) - 1;
}

void lowerPriorityOnce()
{
    static thread_local const bool lowered = (host::LowerThreadPriority(), true);
    static_cast<void>(lowered);
}

} // namespace

MissingLookUp::MissingLookUp(const install::Environment &environment, QObject *parent)
    : QObject(parent)
    , m_environment(environment)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &MissingLookUp::slice);
}

MissingLookUp::~MissingLookUp()
{
    Forget();
}

void MissingLookUp::Forget()
{
    m_timer.stop();
    if (m_vehicles)
        m_vehicles->Stop();
    m_ahead.reset();
    m_vehicles.reset();
}

std::shared_ptr<content::MissingVehicles> MissingLookUp::newVehicles() const
{
    std::string folder = m_environment.installation.CurrentFolder();
    const content::Profiles profiles = content::KeptProfiles(m_environment.settings, folder);
    return std::make_shared<content::MissingVehicles>(std::move(folder), profiles);
}

void MissingLookUp::Start(std::size_t count, Question question)
{
    m_timer.stop();
    m_ahead.reset();
    if (!m_vehicles)
        m_vehicles = newVehicles();
    const auto job = [vehicles = m_vehicles, question = std::move(question)](std::size_t index) {
        lowerPriorityOnce();
        return question(*vehicles, index);
    };
    try {
        m_ahead = std::make_unique<host::Ahead<std::string>>(count, job, workers());
    } catch (const std::system_error &) {
        return; // without a thread there are no marks
    }
    m_timer.start(0);
}

void MissingLookUp::slice()
{
    QElapsedTimer spent;
    spent.start();
    const std::size_t first = m_ahead->Taken();
    std::vector<std::string> answers;
    while (spent.elapsed() < kSliceMilliseconds) {
        auto answer = m_ahead->TryTake();
        if (!answer)
            break;
        answers.push_back(std::move(*answer));
    }
    const bool done = m_ahead->Done();
    if (done)
        m_ahead.reset();
    else
        m_timer.start(kPauseMilliseconds);
    if (!answers.empty())
        Q_EMIT Answered(first, answers);
    if (done)
        Q_EMIT Finished();
}

} // namespace document
