// SPDX-License-Identifier: MIT
#include "content/KeptUnits.h"

#include <bit>

namespace content {
namespace {

template <typename Enum> void packEnum(host::Packer &out, Enum value)
{
    out.Number(static_cast<std::uint64_t>(value));
}

template <typename Enum> Enum unpackEnum(host::Unpacker &in)
{
    return static_cast<Enum>(in.Number());
}

void pack(host::Packer &out, const std::vector<Reference::Name> &names)
{
    out.Number(names.size());
    for (const Reference::Name &name : names) {
        out.Text(name.folder);
        out.Text(name.file);
    }
}

Reference::Name unpackName(host::Unpacker &in)
{
    const std::string_view folder = in.Text();
    return {std::string(folder), std::string(in.Text())};
}

std::vector<Reference::Name> unpackNames(host::Unpacker &in)
{
    std::vector<Reference::Name> names;
    for (std::uint64_t left = in.Number(); left > 0 && in.IsGood(); --left)
        names.push_back(unpackName(in));
    return names;
}

void pack(host::Packer &out, const Reference &reference)
{
    packEnum(out, reference.kind);
    Pack(out, reference.profiles);
    out.Flag(reference.notNeeded);
    out.Text(reference.wants);
    pack(out, {reference.name});
    pack(out, reference.otherReadings);
    pack(out, reference.meant);
    out.Signed(reference.line);
}

Reference unpackReference(host::Unpacker &in)
{
    Reference reference;
    reference.kind = unpackEnum<Kind>(in);
    reference.profiles = UnpackProfiles(in);
    reference.notNeeded = in.Flag();
    reference.wants = in.Text();
    std::vector<Reference::Name> names = unpackNames(in);
    if (!names.empty())
        reference.name = std::move(names.front());
    reference.otherReadings = unpackNames(in);
    reference.meant = unpackNames(in);
    reference.line = static_cast<int>(in.Signed());
    return reference;
}

void pack(host::Packer &out, const Resolution &resolution)
{
    packEnum(out, resolution.answer);
    out.Text(resolution.foundAt);
    out.Number(resolution.looked.size());
    for (const std::string &path : resolution.looked)
        out.Text(path);
    out.Flag(resolution.unquoted);
    out.Text(resolution.candidate);
}

Resolution unpackResolution(host::Unpacker &in)
{
    Resolution resolution;
    resolution.answer = unpackEnum<Answer>(in);
    resolution.foundAt = in.Text();
    for (std::uint64_t left = in.Number(); left > 0 && in.IsGood(); --left)
        resolution.looked.emplace_back(in.Text());
    resolution.unquoted = in.Flag();
    resolution.candidate = in.Text();
    return resolution;
}

Draft unpackDraft(host::Unpacker &in)
{
    Draft draft;
    draft.reference = unpackReference(in);
    draft.file = in.Text();
    draft.stock = in.Text();
    for (Resolution &resolution : draft.at)
        resolution = unpackResolution(in);
    draft.rule = in.Text();
    draft.severity = unpackEnum<Severity>(in);
    draft.detail = in.Text();
    return draft;
}

} // namespace

void Pack(host::Packer &out, Profiles profiles)
{
    for (const Profile profile : kProfiles)
        out.Flag(profiles.Has(profile));
}

Profiles UnpackProfiles(host::Unpacker &in)
{
    Profiles profiles;
    for (const Profile profile : kProfiles)
        if (in.Flag())
            profiles = profiles | profile;
    return profiles;
}

void Pack(host::Packer &out, const std::vector<Draft> &drafts)
{
    out.Number(drafts.size());
    for (const Draft &draft : drafts) {
        pack(out, draft.reference);
        out.Text(draft.file);
        out.Text(draft.stock);
        for (const Resolution &resolution : draft.at)
            pack(out, resolution);
        out.Text(draft.rule);
        packEnum(out, draft.severity);
        out.Text(draft.detail);
    }
}

std::vector<Draft> UnpackDrafts(host::Unpacker &in)
{
    std::vector<Draft> drafts;
    for (std::uint64_t left = in.Number(); left > 0 && in.IsGood(); --left)
        drafts.push_back(unpackDraft(in));
    return drafts;
}

void Pack(host::Packer &out, const StockFacts &facts)
{
    for (const std::string *text :
         {&facts.name, &facts.kinds, &facts.coupling, &facts.brakes, &facts.fault})
        out.Text(*text);
    out.Flag(facts.isMissing);
    for (const StockFacts::Number &number : facts.numbers) {
        packEnum(out, number.state);
        out.Word(std::bit_cast<std::uint64_t>(number.value));
    }
}

StockFacts UnpackFacts(host::Unpacker &in)
{
    StockFacts facts;
    for (std::string *text :
         {&facts.name, &facts.kinds, &facts.coupling, &facts.brakes, &facts.fault})
        *text = in.Text();
    facts.isMissing = in.Flag();
    for (StockFacts::Number &number : facts.numbers) {
        number.state = unpackEnum<Figure::State>(in);
        number.value = std::bit_cast<double>(in.Word());
    }
    return facts;
}

} // namespace content
