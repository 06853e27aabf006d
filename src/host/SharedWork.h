// SPDX-License-Identifier: MIT
#pragma once

#include "host/Recording.h"
#include "host/SharedTable.h"

#include <memory>
#include <mutex>
#include <string_view>

namespace host {

/// Results that several units of work share, by name. The thread that asks first makes a result,
/// and others wait for it. It is recorded once, and its dependencies become those of all that ask.
/// Thread-safe.
template <typename Value> class SharedWork
{
public:
    /// Returns the result of this name; `make` returns a Value.
    template <typename Make>
    std::shared_ptr<const Value> Get(std::string_view name, const Make &make)
    {
        const auto known = m_slots.Find(name);
        const auto slot = known ? *known : m_slots.Add(name, std::make_shared<Slot>());
        std::call_once(slot->once, [&] {
            Recording recording;
            slot->value = std::make_shared<const Value>(make());
            slot->dependencies = recording.Take();
        });
        if (Recording *const recording = Recording::Current())
            recording->Add(slot->dependencies);
        return slot->value;
    }

private:
    struct Slot
    {
        std::once_flag once;
        std::shared_ptr<const Value> value;
        Dependencies dependencies;
    };

    SharedTable<std::shared_ptr<Slot>> m_slots;
};

} // namespace host
