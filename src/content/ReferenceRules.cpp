// SPDX-License-Identifier: MIT
#include "content/ReferenceRules.h"

#include <algorithm>

namespace content {
namespace {

constexpr auto kError = Severity::Error;
constexpr auto kWarning = Severity::Warning;
constexpr auto kNote = Severity::Note;

constexpr Place at(Base base, Spelling spelling = Spelling::AsWritten)
{
    return {base, spelling};
}

using Places = std::array<Place, 8>;

/// The rule of a simulator whose documents describe the effect of a missing file.
constexpr ProfileRule known(const Places &places, Severity severity)
{
    return {true, places, Answer::Nowhere, severity, ""};
}
/// The rule if no document describes the effect: the lenient reading, with its reason.
constexpr ProfileRule lenient(const Places &places, Severity severity, const char *reason)
{
    return {true, places, Answer::Nowhere, severity, reason};
}
constexpr ProfileRule notNeeded(const Places &places, const char *reason)
{
    return {true, places, Answer::NotNeeded, kNote, reason};
}
constexpr ProfileRule kUnknown = {false, {}, Answer::NotNeeded, kNote, "not read"};

constexpr Places kStock = {at(Base::Stock)};
constexpr Places kSounds = {at(Base::StockSound), at(Base::RootSound)};
constexpr Places kWaves = {at(Base::NamingFile), at(Base::RootSound)};
constexpr Places kTrainset = {at(Base::Trainset)};
constexpr Places kTrainsetOr = {at(Base::TrainsetOr), at(Base::Trainset)};
constexpr Places kNamingFile = {at(Base::NamingFile)};
constexpr Places kPictures = {at(Base::NamingFile, Spelling::Dds), at(Base::NamingFile),
                              at(Base::NamingFile, Spelling::OtherPicture)};
/// The textures of a shape in another folder may be beside the shape or beside the vehicle.
constexpr Places kTextures = {at(Base::NamingFile), at(Base::Stock)};
constexpr Places kTexturesOr = {at(Base::NamingFile, Spelling::Dds),
                                at(Base::NamingFile),
                                at(Base::NamingFile, Spelling::OtherPicture),
                                at(Base::Stock, Spelling::Dds),
                                at(Base::Stock),
                                at(Base::Stock, Spelling::OtherPicture)};
constexpr Places kSeasons = {at(Base::ShapeTextures),
                             at(Base::ShapeTextures, Spelling::FolderAbove), at(Base::Stock),
                             at(Base::OtherTextures)};
constexpr Places kSeasonsOr = {at(Base::ShapeTextures),
                               at(Base::ShapeTextures, Spelling::OtherPicture),
                               at(Base::ShapeTextures, Spelling::FolderAbove),
                               at(Base::Stock),
                               at(Base::OtherTextures),
                               at(Base::OtherTextures, Spelling::OtherPicture),
                               at(Base::ShapeTextures, Spelling::Plain),
                               at(Base::OtherTextures, Spelling::Plain)};
/// Whether the shapes of a route may use global textures, and the reverse, is documented only in
/// part: either folder will do.
constexpr Places kRouteTextures = {at(Base::ShapeTextures), at(Base::OtherTextures)};
constexpr Places kRouteTexturesOr = {at(Base::ShapeTextures, Spelling::Dds),
                                     at(Base::ShapeTextures),
                                     at(Base::ShapeTextures, Spelling::OtherPicture),
                                     at(Base::OtherTextures, Spelling::Dds),
                                     at(Base::OtherTextures),
                                     at(Base::OtherTextures, Spelling::OtherPicture)};

constexpr const char *kLogged = "the file is logged and left out";
constexpr const char *kCrashSeen = "the only report of a crash is about a player's engine";

constexpr std::array<ReferenceRule, kKinds> kRules = {{
    // MSTS stops; Open Rails leaves the vehicle out of the train.
    {Kind::ConsistVehicle, "consist-vehicle", "missing-vehicle", known(kTrainset, kError),
     known(kTrainsetOr, kError)},
    {Kind::ConsistEot, "consist-eot", "missing-eot", kUnknown,
     lenient({at(Base::Eot)}, kWarning, "the train runs without the device")},
    // An override without its base is not a vehicle.
    {Kind::Include, "include", "broken-include", kUnknown, known(kNamingFile, kError)},
    {Kind::Shape, "shape", "missing-shape", known(kStock, kError), known(kStock, kError)},
    {Kind::Descriptor, "descriptor", "missing-descriptor",
     lenient(kNamingFile, kNote, "shapes work without one"),
     notNeeded(kNamingFile, "shapes work without one")},
    {Kind::Texture, "texture", "missing-texture",
     lenient(kTextures, kWarning, "it is not known what is shown instead"),
     known(kTexturesOr, kError)},
    {Kind::SeasonTexture, "season-texture", "missing-season-texture",
     lenient(kSeasons, kNote, "perhaps the plain texture is shown instead"),
     notNeeded(kSeasonsOr, "the plain texture is shown, and has its own finding")},
    {Kind::FreightAnimation, "freight-animation", "missing-freight-animation",
     lenient(kStock, kWarning, "perhaps only the load is not shown"),
     lenient(kStock, kWarning, kLogged)},
    {Kind::CouplerShape, "coupler-shape", "missing-coupler-shape", kUnknown,
     lenient(kStock, kWarning, "perhaps only the coupler is not shown")},
    {Kind::Sound, "sound", "missing-sound", lenient(kSounds, kWarning, kCrashSeen),
     lenient(kSounds, kWarning, kLogged)},
    // No document mentions the root folder, but many real sound files rely on it.
    {Kind::SoundFile, "sound-file", "missing-sound-file",
     lenient(kWaves, kWarning, "perhaps only the sound is not heard"),
     lenient(kWaves, kWarning, kLogged)},
    // A 3D cab does not name its cab view; HealthRun looks for that.
    {Kind::Cab, "cab", "missing-cab", known({at(Base::StockCab)}, kError),
     lenient({at(Base::StockCab)}, kWarning, "only a train driven from this cab needs it")},
    {Kind::CabImage, "cab-image", "missing-cab-image",
     lenient(kNamingFile, kWarning, "it is not known what is shown instead"),
     known(kPictures, kError)},
    {Kind::Cab3d, "cab-3d", "missing-3d-cab", kUnknown,
     lenient({at(Base::StockCab3d)}, kWarning, "only a train driven from this cab needs it")},
    {Kind::PassengerView, "passenger-view", "missing-passenger-view",
     lenient(kStock, kWarning, "only the view from inside is affected"),
     lenient(kStock, kWarning, "only the view from inside is affected")},
    {Kind::Thumbnail, "thumbnail", "missing-thumbnail",
     lenient(kStock, kNote, "no simulator is known to show it"), notNeeded(kStock, "not shown")},
    {Kind::Script, "script", "missing-script", kUnknown, known({at(Base::StockScript)}, kWarning)},
    // Open Rails also looks among its own files, which are not part of an installation.
    {Kind::LightImage, "light-image", "missing-light-image", kUnknown, known(kStock, kNote)},
    // There are reports that MSTS uses the Name, and others that it uses the file name: either will
    // do.
    {Kind::ServiceConsist, "service-consist", "missing-consist",
     known({at(Base::Consists), at(Base::ConsistByName)}, kError),
     known({at(Base::Consists)}, kError)},
    // Either the Name or the file name will do, as for consists.
    {Kind::ActivityService, "activity-service", "missing-service",
     known({at(Base::Services), at(Base::ServiceByName)}, kError),
     known({at(Base::Services)}, kError)},
    {Kind::ActivityTraffic, "activity-traffic", "missing-traffic",
     known({at(Base::Traffic)}, kError),
     lenient({at(Base::Traffic)}, kWarning, "the activity has a copy of its services")},
    {Kind::ActivityVehicle, "activity-vehicle", "missing-vehicle", known(kTrainset, kError),
     known(kTrainsetOr, kError)},
    {Kind::TimetableConsist, "timetable-consist", "missing-consist", kUnknown,
     known({at(Base::Consists)}, kError)},
    {Kind::RouteShape, "route-shape", "missing-route-shape",
     lenient({at(Base::RouteShapes), at(Base::GlobalShapes)}, kWarning,
             "perhaps only the object is not shown"),
     lenient({at(Base::RouteShapes), at(Base::GlobalShapes)}, kWarning, kLogged)},
    {Kind::RouteTexture, "route-texture", "missing-route-texture",
     lenient(kRouteTextures, kWarning, "it is not known what is shown instead"),
     known(kRouteTexturesOr, kError)},
}};

constexpr bool isInOrder()
{
    for (std::size_t i = 0; i < kKinds; ++i)
        if (kRules[i].kind != static_cast<Kind>(i))
            return false;
    return true;
}
static_assert(isInOrder(), "a kind is the index of its row");

} // namespace

const char *ProfileName(Profile profile)
{
    return profile == Profile::Msts ? "msts" : "openrails";
}

const char *ProfileName(Profiles profiles)
{
    if (profiles == Profiles::Both())
        return "both";
    return ProfileName(profiles.Has(Profile::Msts) ? Profile::Msts : Profile::OpenRails);
}

const char *SeverityName(Severity severity)
{
    constexpr std::array kNames = {"note", "warning", "error"};
    return kNames[static_cast<std::size_t>(severity)];
}

const char *AnswerName(Answer answer)
{
    constexpr std::array kNames = {"here", "elsewhere", "not-needed", "misplaced", "nowhere"};
    return kNames[static_cast<std::size_t>(answer)];
}

const char *KindName(Kind kind)
{
    return RuleOf(kind).name;
}

std::span<const Place> ProfileRule::Places() const
{
    const auto end = std::find_if(places.begin(), places.end(),
                                  [](const Place &place) { return place.base == Base::None; });
    return {places.begin(), end};
}

std::span<const ReferenceRule> ReferenceRules()
{
    return kRules;
}

const ReferenceRule &RuleOf(Kind kind)
{
    return kRules[static_cast<std::size_t>(kind)];
}

} // namespace content
