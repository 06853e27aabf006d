// SPDX-License-Identifier: MIT
#include "validation/Content.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Snapshot.h"

#include <algorithm>
#include <limits>

namespace validation {
namespace {

/// Adds the values of all `File` blocks below a block, at any depth (which the reader limits,
/// kMaxBlockDepth). Does not look inside such a block.
void addSounds(const StfNode &node, References &references)
{
    const StfNodes children = node.Children();
    if (const int count = children.Count(); count > std::numeric_limits<std::int16_t>::max())
        throw host::RuntimeError(host::ErrorNumber::Overflow, std::to_string(count) + " entries");
    for (const StfNode child : children) {
        if (child.Name() == "File")
            references.files.push_back({stavfile::ValueAt(child)});
        else
            addSounds(child, references);
    }
}

void readSound(const StfFile &file, References &references)
{
    const StfNode sound = file.FindNode("Tr_SMS");
    references.corrupt = !sound;
    if (sound)
        addSounds(sound, references);
}

void readCabView(const StfFile &file, References &references)
{
    const StfNode cab = file.FindNode("Tr_CabViewFile");
    references.corrupt = !cab;
    if (!cab)
        return;
    std::int16_t position = 0;
    while (cab.FindChild("CabViewFile", position))
        references.files.push_back({stavfile::ValueAt(cab.Children().Item(position))});
    const StfNode controls = cab.Child("CabViewControls");
    if (!controls)
        return;
    for (const StfNode control : controls.Children())
        // The simulator draws some controls itself (digital displays): these have no Graphic.
        if (const StfNode graphic = control.Child("Graphic"))
            references.files.push_back({stavfile::ValueAt(graphic)});
}

} // namespace

std::string Below(std::string_view folder, std::string_view relative)
{
    return host::path::Join(folder, relative, host::path::Leading::Kept);
}

bool Content::Exists(std::string_view path) const
{
    return m_snapshot.FileExists(path);
}

std::string Content::Read(std::string_view path) const
{
    return m_snapshot.ReadFile(path);
}

void Content::Read(std::string_view path, Lent &lent) const
{
    if (!m_snapshot.ReadFileInto(lent.Bytes(), path))
        lent.Bytes() = m_files.ReadFile(path); // throws the reason
}

StfFile Content::TreeOf(std::string bytes) const
{
    StfFile file(m_files);
    file.LoadBytes(std::move(bytes));
    return file;
}

StfFile Content::Load(std::string_view path) const
{
    return TreeOf(Read(path));
}

StfFile Content::TryLoad(std::string_view path) const
{
    try {
        return Load(path);
    } catch (const host::RuntimeError &) {
        return StfFile(m_files);
    }
}

Content::Lent::Lent(Content &content)
    : m_content(content)
{
    const std::lock_guard lock(m_content.m_mutex);
    if (m_content.m_spare.empty()) {
        m_file = std::make_unique<Buffers>();
        m_content.m_spare.reserve(++m_content.m_made); // the destructor must not need memory
        return;
    }
    m_file = std::move(m_content.m_spare.back());
    m_content.m_spare.pop_back();
}

Content::Lent::~Lent()
{
    const std::lock_guard lock(m_content.m_mutex);
    if (std::max(m_file->source.text.capacity(), m_file->bytes.capacity()) > kKeptText)
        --m_content.m_made;
    else
        m_content.m_spare.push_back(std::move(m_file));
}

bool Content::TryRead(host::Snapshot::Folder &folder, std::string_view name, Lent &lent)
{
    Buffers &file = *lent.m_file;
    bool exists = true;
    try {
        exists = folder.ReadFileInto(file.bytes, name);
    } catch (const host::RuntimeError &) {
        file.bytes.clear();
    }
    if (exists)
        stavfile::ReadSource(file.source, std::move(file.bytes));
    return exists;
}

References Content::read(const std::string &path, Reader reader) const
{
    References references;
    try {
        reader(Load(path), references);
    } catch (const host::RuntimeError &) {
        references.corrupt = true;
    }
    const std::string folder = host::path::Folder(path);
    for (References::File &file : references.files)
        file.exists = Exists(Below(folder, file.value));
    return references;
}

std::shared_ptr<const References> Content::known(char kind, const std::string &path, Reader reader)
{
    const void *const file = m_snapshot.IdentityOf(path);
    if (!file && !m_snapshot.FindFile(path))
        return nullptr;
    std::string name{kind, file ? 'i' : 'p'};
    if (file)
        name.append(reinterpret_cast<const char *>(&file), sizeof file);
    else
        name += host::path::Normalise(path);
    return m_known.Get(name, [&] { return read(path, reader); });
}

std::shared_ptr<const References> Content::Sound(const std::string &path)
{
    return known('s', path, readSound);
}

std::shared_ptr<const References> Content::CabView(const std::string &path)
{
    return known('c', path, readCabView);
}

} // namespace validation
