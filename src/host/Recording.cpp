// SPDX-License-Identifier: MIT
#include "host/Recording.h"

#include <algorithm>

namespace host {
namespace {

thread_local Recording *current = nullptr;

/// Work looks into the same few folders again and again.
template <typename Value> void addOnce(std::vector<Value> &values, const Value &value)
{
    if (std::find(values.rbegin(), values.rend(), value) == values.rend())
        values.push_back(value);
}

} // namespace

Recording::Recording()
    : m_outer(current)
{
    current = this;
}

Recording::~Recording()
{
    current = m_outer;
}

Recording *Recording::Current()
{
    return current;
}

void Recording::AddFolder(const Place *folder)
{
    addOnce(m_used.folders, folder);
}

void Recording::AddNames(const Place *folder)
{
    addOnce(m_used.names, folder);
}

void Recording::AddFile(const std::string &path, const disk::Stamp &stamp, std::uint64_t size)
{
    m_used.files.push_back({path, FileMark(stamp, size)});
}

void Recording::AddFact(std::uint32_t fact)
{
    addOnce(m_used.facts, fact);
}

void Recording::Add(const Dependencies &used)
{
    for (const Place *const folder : used.folders)
        AddFolder(folder);
    for (const Place *const folder : used.names)
        AddNames(folder);
    for (const std::uint32_t fact : used.facts)
        AddFact(fact);
    m_used.files.insert(m_used.files.end(), used.files.begin(), used.files.end());
    m_used.isComplete = m_used.isComplete && used.isComplete;
}

} // namespace host
