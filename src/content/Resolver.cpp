// SPDX-License-Identifier: MIT
#include "content/Resolver.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"
#include "install/Route.h"

#include <algorithm>

namespace content {
namespace {

std::string folderOf(host::Snapshot &folders, const std::string &parent, const std::string &name)
{
    const std::vector<std::string> names = folders.ListFolders(parent, name);
    return PathIn(parent, names.size() == 1 ? names.front() : name);
}

/// Returns the name with .dds for .ace or .ace for .dds; "" for other names.
std::string otherPicture(const std::string &name)
{
    constexpr std::size_t kExtension = 4;
    if (name.size() <= kExtension)
        return {};
    const std::string stem = name.substr(0, name.size() - kExtension);
    const std::string_view extension = std::string_view(name).substr(stem.size());
    if (Block::SameName(extension, ".ace"))
        return stem + ".dds";
    return Block::SameName(extension, ".dds") ? stem + ".ace" : std::string();
}

std::string dds(const std::string &name)
{
    const std::string other = otherPicture(name);
    return other.ends_with(".dds") ? other : std::string();
}

/// Returns the name of a texture in the folder of its season, which is below the folder of the
/// plain texture or, with `folderAbove`, beside it.
std::string inSeason(const Reference::Name &name, bool folderAbove)
{
    const std::string before(host::path::FolderWithSeparator(name.file));
    const std::string file(host::path::FileName(name.file));
    return before + (folderAbove ? "../" : "") + name.folder + '/' + file;
}

} // namespace

InstallFolders::InstallFolders(host::Snapshot &folders, const std::string &installation)
    : root(host::path::Normalise(installation))
{
    const std::string trains = folderOf(folders, root, "TRAINS");
    trainset = folderOf(folders, trains, "TRAINSET");
    eot = folderOf(folders, trains, "ORTS_EOT");
    consists = folderOf(folders, trains, "CONSISTS");
    sound = folderOf(folders, root, "SOUND");
    routes = folderOf(folders, root, std::string(install::kRoutes));
}

/// The look-up of one reference. Both profiles share the paths that were tried.
class Resolver::Search
{
public:
    Search(const Resolver &resolver, const Reference &reference, const Context &context,
           const NamedFiles *named)
        : m_folders(resolver.m_folders)
        , m_store(resolver.m_store)
        , m_reference(reference)
        , m_context(context)
        , m_named(named)
    {
    }

    Resolution For(Profile profile)
    {
        Resolution resolution;
        const ProfileRule &rule = m_reference.Rule().For(profile);
        if (!rule.known || !m_reference.profiles.Has(profile)) {
            resolution.answer = Answer::NotNeeded;
            return resolution;
        }
        if (!lookAt(rule, resolution) && !tryOtherReadings(rule, resolution))
            resolution.answer = rule.missing;
        if (m_reference.notNeeded && resolution.answer == Answer::Nowhere)
            resolution.answer = Answer::NotNeeded;
        if (resolution.answer == Answer::Nowhere)
            tryWhatIsMeant(rule, resolution);
        return resolution;
    }

private:
    /// True for files that the simulator prefers to the one that is named.
    static bool replaces(const Place &place)
    {
        return place.spelling == Spelling::Dds || place.base == Base::TrainsetOr;
    }
    bool lookAt(const ProfileRule &rule, Resolution &resolution)
    {
        bool isFirst = true;
        for (const Place &place : rule.Places()) {
            const bool asNamed = isFirst && !replaces(place);
            if (lookIn(place, m_reference.name, resolution)) {
                resolution.answer = asNamed ? Answer::Here : Answer::Elsewhere;
                return true;
            }
            isFirst = isFirst && !asNamed;
        }
        return false;
    }
    bool tryOtherReadings(const ProfileRule &rule, Resolution &resolution)
    {
        for (const Reference::Name &name : m_reference.otherReadings)
            for (const Place &place : rule.Places())
                if (lookIn(place, name, resolution)) {
                    resolution.answer = Answer::Elsewhere;
                    return true;
                }
        return false;
    }
    void tryWhatIsMeant(const ProfileRule &rule, Resolution &resolution)
    {
        Resolution meant;
        for (const Reference::Name &name : m_reference.meant)
            for (const Place &place : rule.Places())
                if (lookIn(place, name, meant)) {
                    resolution.answer = Answer::Misplaced;
                    resolution.unquoted = true;
                    resolution.candidate = std::move(meant.foundAt);
                    return;
                }
    }

    /// Looks at one place. Returns false if the file is not there or the place does not apply.
    bool lookIn(const Place &place, const Reference::Name &name, Resolution &resolution)
    {
        if (place.base == Base::ConsistByName || place.base == Base::ServiceByName)
            return lookByName(resolution);
        const std::string folder = folderOfBase(place.base, name);
        const std::string file = spelled(place, name);
        if (folder.empty() || file.empty() || folder.size() + file.size() > kMaxNameLength)
            return false;
        if (tryPath(folder, file, resolution))
            return true;
        const std::string other =
            place.spelling == Spelling::Plain ? otherPicture(file) : std::string();
        return !other.empty() && tryPath(folder, other, resolution);
    }
    bool tryPath(const std::string &folder, const std::string &file, Resolution &resolution)
    {
        std::string path = PathIn(folder, file);
        if (std::find(resolution.looked.begin(), resolution.looked.end(), path) !=
            resolution.looked.end())
            return false;
        std::optional<std::string> found = find(path);
        resolution.looked.push_back(std::move(path));
        if (!found)
            return false;
        resolution.foundAt = std::move(*found);
        return true;
    }
    bool lookByName(Resolution &resolution) const
    {
        if (!m_named)
            return false;
        const auto found = m_named->find(host::ToUpper(m_reference.wants));
        if (found == m_named->end())
            return false;
        resolution.foundAt = found->second;
        resolution.looked.push_back(found->second);
        return true;
    }

    std::string spelled(const Place &place, const Reference::Name &name) const
    {
        const bool isSeason = m_reference.kind == Kind::SeasonTexture;
        switch (place.spelling) {
        case Spelling::OtherPicture:
        case Spelling::Dds: {
            const std::string other =
                place.spelling == Spelling::Dds ? dds(name.file) : otherPicture(name.file);
            return isSeason && !other.empty() ? inSeason({name.folder, other}, false) : other;
        }
        case Spelling::FolderAbove:
            return inSeason(name, true);
        default:
            return isSeason && place.spelling != Spelling::Plain ? inSeason(name, false)
                                                                 : name.file;
        }
    }

    std::string folderOfBase(Base base, const Reference::Name &name) const
    {
        const auto below = [](const std::string &folder, const char *sub) {
            return folder.empty() ? folder : host::path::Join(folder, sub);
        };
        switch (base) {
        case Base::NamingFile:
            return FolderOfPath(m_context.file);
        case Base::Stock:
            return m_context.stock;
        case Base::StockSound:
            return below(m_context.stock, "SOUND");
        case Base::StockCab:
            return below(m_context.stock, "CABVIEW");
        case Base::StockCab3d:
            return below(m_context.stock, "CABVIEW3D");
        case Base::StockScript:
            return below(m_context.stock, "Script");
        case Base::Trainset:
            return PathIn(m_folders.trainset, name.folder);
        case Base::TrainsetOr:
            return host::path::Join(PathIn(m_folders.trainset, name.folder), "OpenRails");
        case Base::Eot:
            return PathIn(m_folders.eot, name.folder);
        case Base::RootSound:
            return m_folders.sound;
        case Base::Consists:
            return m_folders.consists;
        case Base::Services:
            return below(m_context.route, "SERVICES");
        case Base::Traffic:
            return below(m_context.route, "TRAFFIC");
        case Base::RouteShapes:
            return below(m_context.route, "SHAPES");
        case Base::GlobalShapes:
            return below(m_folders.root, "GLOBAL/SHAPES");
        case Base::ShapeTextures:
            return m_context.textures.empty() ? FolderOfPath(m_context.file) : m_context.textures;
        case Base::OtherTextures:
            return m_context.otherTextures;
        default:
            return {};
        }
    }

    std::optional<std::string> find(const std::string &path)
    {
        for (const auto &[known, found] : m_tried)
            if (known == path)
                return found;
        return m_tried.emplace_back(path, m_store.Find(path)).second;
    }

    const InstallFolders &m_folders;
    FileStore &m_store;
    const Reference &m_reference;
    const Context &m_context;
    const NamedFiles *m_named;
    std::vector<std::pair<std::string, std::optional<std::string>>> m_tried;
};

namespace {

/// True if both simulators look in the same places and answer alike.
bool isSameSearch(const Reference &reference)
{
    const ProfileRule &msts = reference.Rule().msts, &openRails = reference.Rule().openRails;
    return reference.profiles == Profiles::Both() && msts.known == openRails.known &&
           msts.places == openRails.places && msts.missing == openRails.missing;
}

} // namespace

std::array<Resolution, 2> Resolver::Resolve(const Reference &reference, const Context &context,
                                            const NamedFiles *named) const
{
    Search search(*this, reference, context, named);
    const Resolution msts = search.For(Profile::Msts);
    return {msts, isSameSearch(reference) ? msts : search.For(Profile::OpenRails)};
}

} // namespace content
