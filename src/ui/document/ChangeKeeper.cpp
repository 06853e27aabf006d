// SPDX-License-Identifier: MIT
#include "ui/document/ChangeKeeper.h"

#include <exception>
#include <utility>

namespace document {
namespace {

constexpr int kDelay = 300; ///< milliseconds; a second is promised, and writing takes time
constexpr int kLook = 100;  ///< milliseconds between looks at a state that is being written

} // namespace

ChangeKeeper::ChangeKeeper(QObject *parent, State state)
    : QObject(parent)
    , m_state(std::move(state))
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(kDelay);
    connect(&m_timer, &QTimer::timeout, this, &ChangeKeeper::keep);
    m_look.setInterval(kLook);
    connect(&m_look, &QTimer::timeout, this, &ChangeKeeper::look);
}

void ChangeKeeper::Follow(bool changed)
{
    if (!changed) {
        m_timer.stop();
        m_look.stop();
        m_file.Drop();
    } else if (!m_timer.isActive()) {
        m_timer.start(); // more changes until then are kept with this one
    }
}

void ChangeKeeper::KeepNow()
{
    m_timer.stop();
    keep();
    m_look.stop();
    report(m_file.Finish());
}

void ChangeKeeper::keep()
{
    if (m_file.IsWriting()) {
        m_timer.start();
        return;
    }
    look(); // at the outcome of the last state
    try {
        const std::optional<UnsavedConsist> state = m_state();
        if (state && m_file.Keep(*state))
            m_look.start();
        else if (state)
            m_timer.start();
    } catch (const std::exception &error) {
        report(error.what());
    }
}

void ChangeKeeper::look()
{
    if (m_file.IsWriting())
        return;
    if (m_look.isActive())
        report(m_file.TakeFailure());
    m_look.stop();
}

void ChangeKeeper::report(const std::string &failure)
{
    if (!failure.empty() && !m_hasFailed)
        Q_EMIT Failed(failure);
    m_hasFailed = !failure.empty();
}

} // namespace document
