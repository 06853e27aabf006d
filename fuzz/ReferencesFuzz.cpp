// SPDX-License-Identifier: MIT
// Sounds, cab views, consists, services, activities and shape descriptors: for any bytes each
// reference names a file and has a line. The first byte chooses the kind.
#include "Input.h"
#include "content/References.h"

namespace {

std::vector<content::Reference> referencesOf(int kind, const stavfile::Source &source)
{
    switch (kind) {
    case 0:
        return content::ReferencesOfSound(source);
    case 1:
        return content::ReferencesOfCabView(source);
    case 2:
        return content::ReferencesOfConsist(source);
    case 3:
        return content::ReferencesOfService(source);
    case 4:
        return content::ReferencesOfActivity(source);
    default:
        return content::ReferencesOfShape({"a.ace", "b.ace", "a.ace"},
                                          content::AlternativeTextures(source));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Input input(data, size);
    const int kind = input.Below(6);
    const content::ReadResult read = content::ParseFile(std::string(input.Rest()));
    Require(read.source || !read.fault.empty());
    if (!read.source)
        return 0;
    const bool hasLines = kind < 5;
    for (const content::Reference &reference : referencesOf(kind, *read.source)) {
        Require(!reference.name.file.empty());
        Require(!hasLines || reference.line > 0);
    }
    content::NameOfConsist(*read.source);
    content::NameOfService(*read.source);
    return 0;
}
