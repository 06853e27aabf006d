// SPDX-License-Identifier: MIT
#include "ui/document/ChangeKeeper.h"

#include <utility>

namespace document {
namespace {

constexpr int kDelay = 300; ///< milliseconds; a second is promised, and writing takes time

} // namespace

ChangeKeeper::ChangeKeeper(QObject *parent, State state)
    : QObject(parent)
    , m_state(std::move(state))
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(kDelay);
    connect(&m_timer, &QTimer::timeout, this, &ChangeKeeper::keep);
}

void ChangeKeeper::Follow(bool changed)
{
    if (!changed) {
        m_timer.stop();
        m_file.Drop();
    } else if (!m_timer.isActive()) {
        m_timer.start(); // more changes until then are kept with this one
    }
}

void ChangeKeeper::KeepNow()
{
    m_timer.stop();
    keep();
    m_file.Finish();
}

void ChangeKeeper::keep()
{
    const std::optional<UnsavedConsist> state = m_state();
    if (state && !m_file.Keep(*state))
        m_timer.start();
}

} // namespace document
