// SPDX-License-Identifier: MIT
#pragma once

#include "content/Resolver.h"
#include "host/SavedIndex.h"
#include "host/SharedWork.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace content {

/// A resolved reference or a fault of a file, before the users that it affects are known.
struct Draft
{
    Reference reference;
    std::string file;  ///< the file with the entry, or the damaged file
    std::string stock; ///< stock folder that the answer also depends on; may be ""
    std::array<Resolution, 2> at;
    /// The rule that an existing file breaks, and its severity; "" for a reference.
    std::string rule;
    Severity severity = Severity::Error;
    std::string detail;

    bool IsProblem() const
    {
        return !rule.empty() || content::IsProblem(at[0].answer) ||
               content::IsProblem(at[1].answer);
    }
};

/// Returns a draft for a file that exists but cannot be used.
Draft DamagedFile(Kind kind, std::string rule, const std::string &path, std::string fault,
                  Severity severity, Profiles profiles = Profiles::Both());

/// The references of a file that other files name.
struct SharedFile
{
    std::string path;
    std::vector<Draft> drafts; ///< without references in order, unless all are kept
    Kind kind = Kind::Include; ///< with `stock`, the arguments of SharedFiles::Get
    std::string stock = {};
};

/// Sound definitions, cab views and shapes. Each is read once, however many files name it.
/// Thread-safe.
class SharedFiles
{
public:
    /// With `keepAll`, also keeps references that are in order. The resolver must outlive this
    /// object.
    SharedFiles(const Resolver &resolver, bool keepAll)
        : m_resolver(resolver)
        , m_keepAll(keepAll)
    {
    }

    /// Keeps what was read in an index, which must outlive this object. Call it before Get.
    void UseIndex(host::SavedIndex &index) { m_index = &index; }

    /// Returns the references of a file that was found for a reference of this kind; null for kinds
    /// whose files have none. The textures of a shape are also looked for in `stock`, which for a
    /// route's shape is the route's folder.
    std::shared_ptr<const SharedFile> Get(Kind kind, const std::string &path,
                                          const std::string &stock);
    /// Resolves a reference of a file and appends the draft if it is to be kept.
    void Add(Reference reference, const Context &context, std::vector<Draft> &drafts,
             const NamedFiles *named = nullptr) const;

private:
    /// The needs of a shape, from the shape and its descriptor.
    struct ShapeNeeds
    {
        std::vector<std::string> images;
        std::uint32_t alternatives = 0;
        std::string fault;
        int faultLine = 0;
    };

    template <typename Read> SharedFile keptFile(const std::string &key, const Read &read);
    SharedFile readSound(const std::string &path) const;
    SharedFile readCabView(const std::string &path) const;
    SharedFile readShape(const std::string &path, const std::string &stock);
    SharedFile readRouteShape(const std::string &path, const std::string &route);
    ShapeNeeds readNeeds(const std::string &path) const;

    const Resolver &m_resolver;
    bool m_keepAll;
    host::SavedIndex *m_index = nullptr;
    /// By path, and for shapes of routes or other folders by `stock`.
    host::SharedWork<SharedFile> m_files;
    host::SharedWork<ShapeNeeds> m_shapes;
};

} // namespace content
