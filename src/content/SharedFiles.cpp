// SPDX-License-Identifier: MIT
#include "content/SharedFiles.h"

#include "content/KeptUnits.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"
#include "korvat/formats/ReadShape.h"

namespace content {
namespace {

bool isShape(Kind kind)
{
    return kind == Kind::Shape || kind == Kind::FreightAnimation || kind == Kind::CouplerShape ||
           kind == Kind::PassengerView || kind == Kind::Cab3d;
}

/// True if the file names itself.
bool isItself(const Draft &draft)
{
    for (const Resolution &resolution : draft.at)
        if (!resolution.foundAt.empty() && resolution.foundAt == draft.file)
            return true;
    return false;
}

} // namespace

Draft DamagedFile(Kind kind, std::string rule, const std::string &path, std::string fault,
                  Severity severity, Profiles profiles)
{
    Draft draft;
    draft.reference.kind = kind;
    draft.reference.profiles = profiles;
    draft.reference.wants = std::string(host::path::FileName(path));
    draft.file = path;
    draft.rule = std::move(rule);
    draft.severity = severity;
    draft.detail = std::move(fault);
    for (Resolution &resolution : draft.at) {
        resolution.answer = Answer::Here;
        resolution.foundAt = path;
        resolution.looked = {path};
    }
    return draft;
}

void SharedFiles::Add(Reference reference, const Context &context, std::vector<Draft> &drafts,
                      const NamedFiles *named) const
{
    Draft draft;
    draft.at = m_resolver.Resolve(reference, context, named);
    if (!m_keepAll && !draft.IsProblem())
        return;
    draft.reference = std::move(reference);
    draft.file = context.file;
    drafts.push_back(std::move(draft));
}

/// A file without faults is not kept: nobody asks for it until a file that names it changes.
template <typename Read> SharedFile SharedFiles::keptFile(const std::string &key, const Read &read)
{
    if (!m_index)
        return read();
    if (const auto kept = m_index->Find(key)) {
        host::Unpacker in(*kept);
        SharedFile file;
        file.path = in.Text();
        file.drafts = UnpackDrafts(in);
        return file;
    }
    SharedFile file;
    host::Dependencies used;
    {
        host::Recording recording;
        file = read();
        used = recording.Take();
    }
    if (host::Recording *const outer = host::Recording::Current())
        outer->Add(used);
    if (file.drafts.empty())
        return file;
    host::Packer out;
    out.Text(file.path);
    Pack(out, file.drafts);
    m_index->Keep(key, out.Bytes(), used);
    return file;
}

std::shared_ptr<const SharedFile> SharedFiles::Get(Kind kind, const std::string &path,
                                                   const std::string &stock)
{
    const auto get = [&](const std::string &key, const auto &read) {
        return m_files.Get(key, [&] {
            SharedFile file = keptFile("file " + key, read);
            file.kind = kind;
            file.stock = stock;
            return file;
        });
    };
    if (kind == Kind::Sound)
        return get(path, [&] { return readSound(path); });
    if (kind == Kind::Cab)
        return get(path, [&] { return readCabView(path); });
    if (kind == Kind::RouteShape)
        return get(path + '\n' + stock, [&] { return readRouteShape(path, stock); });
    if (!isShape(kind))
        return nullptr;
    const std::string other = FolderOfPath(path) == stock ? std::string() : stock;
    return get(path + '\n' + other, [&] { return readShape(path, other); });
}

SharedFile SharedFiles::readSound(const std::string &path) const
{
    SharedFile file{path, {}};
    const ReadResult read = m_resolver.Store().Read(path);
    if (!read.source || !IsSound(*read.source)) {
        const std::string fault = read.source ? "there is no Tr_SMS block" : read.fault;
        file.drafts.push_back(
            DamagedFile(Kind::Sound, "damaged-sound", path, fault, Severity::Warning));
        return file;
    }
    const Context context{path, {}, {}};
    for (Reference &reference : ReferencesOfSound(*read.source)) {
        Draft draft;
        draft.at = m_resolver.Resolve(reference, context);
        draft.reference = std::move(reference);
        draft.file = path;
        if (isItself(draft)) {
            draft.rule = "self-reference";
            draft.severity = Severity::Warning;
            draft.detail = "a sound definition names itself as a sound";
        }
        if (m_keepAll || draft.IsProblem())
            file.drafts.push_back(std::move(draft));
    }
    return file;
}

SharedFile SharedFiles::readCabView(const std::string &path) const
{
    SharedFile file{path, {}};
    const ReadResult read = m_resolver.Store().Read(path);
    if (!read.source || !IsCabView(*read.source)) {
        const std::string fault = read.source ? "there is no Tr_CabViewFile block" : read.fault;
        file.drafts.push_back(DamagedFile(Kind::Cab, "damaged-cab", path, fault, Severity::Error));
        return file;
    }
    const Context context{path, {}, {}};
    for (Reference &reference : ReferencesOfCabView(*read.source))
        Add(std::move(reference), context, file.drafts);
    return file;
}

SharedFiles::ShapeNeeds SharedFiles::readNeeds(const std::string &path) const
{
    ShapeNeeds needs;
    const std::string bytes = m_resolver.Store().Bytes(path, needs.fault);
    if (!needs.fault.empty())
        return needs;
    korvat::ShapeFile shape = korvat::ReadShape(bytes);
    needs.images = std::move(shape.shape.images);
    // Where a compressed file is damaged is not a line.
    const bool hasLines = shape.form == korvat::ShapeForm::Text && !bytes.starts_with("SIMISA@F");
    const bool isDamaged = shape.error && shape.error.status != korvat::Status::TooLarge;
    if (isDamaged) {
        needs.fault = shape.error.text;
        needs.faultLine = hasLines ? static_cast<int>(shape.error.where) : 0;
    }
    if (const auto descriptor = m_resolver.Store().Folders().FindFile(path + 'd'))
        if (const ReadResult read = m_resolver.Store().Read(*descriptor); read.source)
            needs.alternatives = AlternativeTextures(*read.source);
    return needs;
}

SharedFile SharedFiles::readShape(const std::string &path, const std::string &stock)
{
    SharedFile file{path, {}};
    const auto needs = m_shapes.Get(path, [&] { return readNeeds(path); });
    if (!needs->fault.empty()) {
        Draft damaged =
            DamagedFile(Kind::Shape, "damaged-shape", path, needs->fault, Severity::Error);
        damaged.reference.line = needs->faultLine;
        file.drafts.push_back(std::move(damaged));
    }
    const Context context{path, stock, {}};
    Add(ReferenceToDescriptor(path), {path, {}, {}}, file.drafts);
    for (Reference &reference : ReferencesOfShape(needs->images, needs->alternatives)) {
        const std::size_t before = file.drafts.size();
        Add(std::move(reference), context, file.drafts);
        if (file.drafts.size() > before)
            file.drafts.back().stock = stock;
    }
    return file;
}

SharedFile SharedFiles::readRouteShape(const std::string &path, const std::string &route)
{
    SharedFile file{path, {}};
    const auto needs = m_shapes.Get(path, [&] { return readNeeds(path); });
    if (!needs->fault.empty()) {
        file.drafts.push_back(
            DamagedFile(Kind::RouteShape, "damaged-shape", path, needs->fault, Severity::Warning));
        file.drafts.back().reference.line = needs->faultLine;
    }
    const std::string global = PathIn(m_resolver.Folders().root, "GLOBAL/TEXTURES");
    const std::string own = host::path::Join(route, "TEXTURES");
    const bool isGlobal = host::ToUpper(path).starts_with(host::ToUpper(FolderOfPath(global)) +
                                                          host::path::kSeparator);
    const Context context{path, {}, route, isGlobal ? global : own, isGlobal ? own : global};
    for (Reference &reference : ReferencesOfShape(needs->images, needs->alternatives)) {
        if (reference.kind == Kind::Texture)
            reference.kind = Kind::RouteTexture;
        const std::size_t before = file.drafts.size();
        Add(std::move(reference), context, file.drafts);
        if (isGlobal && file.drafts.size() > before)
            file.drafts.back().stock = route;
    }
    return file;
}

} // namespace content
