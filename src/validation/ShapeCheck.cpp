// SPDX-License-Identifier: MIT
#include "validation/ShapeCheck.h"

#include "host/GameFiles.h"
#include "host/Number.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Snapshot.h"
#include "validation/Content.h"

#include <cmath>
#include <limits>
#include <optional>
#include <span>
#include <vector>

using host::ErrorNumber;
using host::RuntimeError;

namespace validation {
namespace {

[[noreturn]] void fail(ErrorNumber number, const std::string &file, std::string_view what)
{
    throw RuntimeError(number, file + ": " + std::string(what));
}

/// Returns the number that an entry of a file holds: its first numeric value, as a 16-bit integer.
int numberOf(const StfNode &entry, const std::string &file, const std::string &name)
{
    if (!entry)
        fail(ErrorNumber::ObjectNotSet, file, "there is no entry " + name);
    const int count = entry.NumParameters();
    if (count == 0)
        fail(ErrorNumber::SubscriptOutOfRange, file, name + " has no value");
    for (int index = 0; index < count; ++index) {
        const std::optional<double> value = host::NumberIn<double>(entry.Parameter(index));
        if (!value)
            continue;
        const double rounded = std::nearbyint(*value);
        using Limits = std::numeric_limits<std::int16_t>;
        if (rounded < Limits::min() || rounded > Limits::max())
            fail(ErrorNumber::Overflow, file,
                 name + " is " + entry.Parameter(index) + ", which is too large");
        return static_cast<int>(rounded);
    }
    fail(ErrorNumber::TypeMismatch, file,
         name + " is \"" + entry.Parameter(0) + "\", which is not a number");
}

/// Returns the image names of a shape, at most as many as it declares.
std::vector<std::string> imagesOf(const StfNode &images, int declared, const std::string &file)
{
    std::vector<std::string> names;
    for (const StfNode child : images.Children()) {
        if (child.Name() != "image")
            continue;
        if (static_cast<int>(names.size()) >= declared)
            fail(ErrorNumber::SubscriptOutOfRange, file,
                 "it names more images than the " + std::to_string(declared) + " it declares");
        if (child.NumParameters() == 0)
            fail(ErrorNumber::SubscriptOutOfRange, file, "an image entry names no file");
        names.push_back(child.Parameter(0));
    }
    return names;
}

/// The settings of a descriptor, and the folders that must then contain each image too.
constexpr int kNightOnly = 256; // reported as broken
std::span<const char *const> alternativeFolders(int setting)
{
    static constexpr const char *kSnow[] = {"Snow"};
    static constexpr const char *kSeasons[] = {"Autumn",     "AutumnSnow", "Spring",
                                               "SpringSnow", "Winter",     "WinterSnow"};
    static constexpr const char *kSnowAndNight[] = {"Snow", "Night"};
    switch (setting) {
    case 1:
        return kSnow;
    case 252:
        return kSeasons;
    case 257:
        return kSnowAndNight;
    default:
        return {};
    }
}

class ShapeCheck
{
public:
    ShapeCheck(const Content &content, const std::string &fileName, Findings &findings)
        : m_content(content)
        , m_file(fileName)
        , m_folder(host::path::Folder(fileName))
        , m_findings(findings)
    {
    }

    Verdict Run()
    {
        if (!m_content.Exists(m_file))
            return m_findings.Record(Verdict::Missing, m_file);
        const StfFile file = m_content.Load(m_file);
        const StfNode section = file.TopNodes().First();
        if (!section)
            return m_findings.Record(Verdict::Compressed, m_file);
        readImages(section.Child("images"));
        if (isRollingStock()) {
            checkImagesIn("");
            return m_verdict;
        }
        const std::string textures = "..\\Textures\\";
        checkImagesIn(textures);
        for (const char *folder : alternativeFolders(alternativeSetting()))
            checkImagesIn(textures + folder + '\\');
        return m_verdict;
    }

private:
    void readImages(const StfNode &images)
    {
        const int declared = numberOf(images, m_file, "images");
        if (declared < 0)
            fail(ErrorNumber::SubscriptOutOfRange, m_file,
                 "it declares " + std::to_string(declared) + " images");
        m_images = imagesOf(images, declared, m_file);
        if (static_cast<int>(m_images.size()) != declared)
            m_findings.Record(Verdict::Suspect, m_file, "Image count");
    }

    /// True if a vehicle of the shape's name is beside it.
    bool isRollingStock() const
    {
        const std::string_view name = host::path::FileName(m_file);
        const std::string pattern = std::string(name.substr(0, name.size() - 1)) + "??g";
        return !m_content.Listings().ListFiles(m_folder, pattern).empty();
    }

    void checkImagesIn(const std::string &folder)
    {
        for (const std::string &image : m_images)
            if (const std::string path = Below(m_folder, folder + image); !m_content.Exists(path))
                m_verdict = m_findings.Record(Verdict::HasMissingReference, m_file, path);
    }

    /// A missing descriptor, and the setting for night textures only, end the check with an error
    /// and without a verdict: callers rely on that.
    int alternativeSetting() const
    {
        const std::string descriptor = m_file + 'd';
        if (!m_content.Exists(descriptor))
            fail(ErrorNumber::TypeMismatch, m_file, "its descriptor " + descriptor + " is missing");
        const StfFile file = m_content.Load(descriptor);
        const StfNode section = file.TopNodes().First();
        if (!section)
            fail(ErrorNumber::SubscriptOutOfRange, descriptor, "it has no sections");
        const char *name = "ESD_Alternative_Texture";
        const int setting = numberOf(section.Child(name), descriptor, name);
        if (setting == kNightOnly)
            fail(ErrorNumber::TypeMismatch, m_file,
                 descriptor + " contains broken ESD_Alternative_Texture setting of 256");
        return setting;
    }

    const Content &m_content;
    const std::string &m_file;
    std::string m_folder;
    Findings &m_findings;
    std::vector<std::string> m_images;
    Verdict m_verdict = Verdict::Valid;
};

} // namespace

Verdict CheckShape(Content &content, const std::string &fileName, Findings &findings)
{
    return ShapeCheck(content, fileName, findings).Run();
}

} // namespace validation
