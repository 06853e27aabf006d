// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// The rules for references: what content names, where each simulator looks for it, and how severe
/// it is if nothing is found.
namespace content {

enum class Profile : std::uint8_t
{
    Msts,
    OpenRails
};
inline constexpr std::array kProfiles = {Profile::Msts, Profile::OpenRails};
/// Returns "msts" or "openrails".
const char *ProfileName(Profile profile);

/// A set of profiles.
class Profiles
{
public:
    constexpr Profiles() = default;
    constexpr Profiles(Profile profile)
        : m_bits(bitOf(profile))
    {
    }
    static constexpr Profiles Both() { return Profiles(Profile::Msts) | Profile::OpenRails; }

    constexpr bool Has(Profile profile) const { return (m_bits & bitOf(profile)) != 0; }
    constexpr bool Empty() const { return m_bits == 0; }
    friend constexpr Profiles operator|(Profiles a, Profiles b)
    {
        a.m_bits |= b.m_bits;
        return a;
    }
    friend constexpr Profiles operator&(Profiles a, Profiles b)
    {
        a.m_bits &= b.m_bits;
        return a;
    }
    friend constexpr bool operator==(Profiles, Profiles) = default;

private:
    static constexpr std::uint8_t bitOf(Profile profile)
    {
        return static_cast<std::uint8_t>(1u << static_cast<unsigned>(profile));
    }
    std::uint8_t m_bits = 0;
};
/// Returns "msts", "openrails" or "both".
const char *ProfileName(Profiles profiles);

/// Error: the simulator fails or shows something wrong.
enum class Severity : std::uint8_t
{
    Note,
    Warning,
    Error
};
/// Returns "note", "warning" or "error".
const char *SeverityName(Severity severity);

enum class Answer : std::uint8_t
{
    Here,      ///< at the first place where the simulator looks
    Elsewhere, ///< at another place where the simulator looks
    NotNeeded, ///< missing without consequence
    Misplaced, ///< at a place where the simulator does not look
    Nowhere
};
/// Returns "here", "elsewhere", "not-needed", "misplaced" or "nowhere".
const char *AnswerName(Answer answer);
/// True for the answers that make a finding.
constexpr bool IsProblem(Answer answer)
{
    return answer == Answer::Misplaced || answer == Answer::Nowhere;
}

/// The kind of file that an entry names.
enum class Kind : std::uint8_t
{
    ConsistVehicle,
    ConsistEot,
    Include,
    Shape,
    Descriptor,
    Texture,
    SeasonTexture,
    FreightAnimation,
    CouplerShape,
    Sound,
    SoundFile,
    Cab,
    CabImage,
    Cab3d,
    PassengerView,
    Thumbnail,
    Script,
    LightImage,
    ServiceConsist,
    ActivityService,
    ActivityTraffic,
    ActivityVehicle,
    TimetableConsist,
    RouteShape,
    RouteTexture
};
inline constexpr std::size_t kKinds = 25;
/// Returns "consist-vehicle", "consist-eot", ...
const char *KindName(Kind kind);

/// The folder that a name is relative to.
enum class Base : std::uint8_t
{
    None,
    NamingFile,    ///< the folder of the file that holds the entry
    Stock,         ///< the vehicle's folder; for an override, the one above "OpenRails"
    StockSound,    ///< SOUND in it
    StockCab,      ///< CABVIEW in it
    StockCab3d,    ///< CABVIEW3D in it
    StockScript,   ///< SCRIPT in it
    Trainset,      ///< the folder of TRAINS\TRAINSET that the entry names
    TrainsetOr,    ///< OpenRails in that folder
    Eot,           ///< the folder of TRAINS\ORTS_EOT that the entry names
    RootSound,     ///< SOUND of the installation
    Consists,      ///< TRAINS\CONSISTS
    ConsistByName, ///< the consist in TRAINS\CONSISTS with this Name
    Services,      ///< SERVICES of the route
    ServiceByName, ///< the service of the route with this Name
    Traffic,       ///< TRAFFIC of the route
    RouteShapes,   ///< SHAPES of the route
    GlobalShapes,  ///< GLOBAL\SHAPES
    ShapeTextures, ///< TEXTURES beside the SHAPES folder; for stock, the shape's folder
    OtherTextures  ///< the other one of TEXTURES of the route and GLOBAL\TEXTURES
};

/// How the name is changed for a place.
enum class Spelling : std::uint8_t
{
    AsWritten,
    OtherPicture, ///< .dds for .ace, or .ace for .dds
    Dds,          ///< .dds for .ace
    Plain,        ///< the texture without its season, as .ace or .dds
    FolderAbove   ///< in the season's folder beside the texture's folder
};

struct Place
{
    Base base = Base::None;
    Spelling spelling = Spelling::AsWritten;

    friend constexpr bool operator==(const Place &, const Place &) = default;
};

/// How one simulator treats one kind of reference.
struct ProfileRule
{
    bool known = false;                  ///< false if this simulator does not read the entry
    std::array<Place, 8> places;         ///< in order; Base::None ends the list
    Answer missing = Answer::Nowhere;    ///< the answer if it is in none of the places
    Severity severity = Severity::Error; ///< of a finding
    const char *reason = "";             ///< for the severity, if no document states one

    std::span<const Place> Places() const;
};

/// One row of the table.
struct ReferenceRule
{
    Kind kind = Kind::Include;
    const char *name = "";    ///< the kind in reports
    const char *missing = ""; ///< the rule that a missing file breaks
    ProfileRule msts, openRails;

    const ProfileRule &For(Profile profile) const
    {
        return profile == Profile::Msts ? msts : openRails;
    }
};

/// Returns the table, in the order of Kind.
std::span<const ReferenceRule> ReferenceRules();
const ReferenceRule &RuleOf(Kind kind);

} // namespace content
