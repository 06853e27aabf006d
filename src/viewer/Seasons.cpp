// SPDX-License-Identifier: MIT
#include "viewer/Seasons.h"

#include "content/SeasonTextures.h"

#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace viewer {
namespace {

constexpr std::array<std::string_view, 4> kPlain = {"", "Spring", "Autumn", "Winter"};
constexpr std::array<std::string_view, 4> kSnowy = {"", "SpringSnow", "AutumnSnow", "WinterSnow"};

/// Returns the folders to search, the best first. A lit window tells more than snow.
std::vector<std::string_view> foldersOf(const ViewOptions &options)
{
    const auto season = static_cast<std::size_t>(options.season);
    std::vector<std::string_view> folders;
    if (options.night)
        folders.push_back("Night");
    if (options.snow && options.season != Season::Summer)
        folders.push_back(kSnowy.at(season));
    if (options.snow)
        folders.push_back("Snow");
    if (options.season != Season::Summer)
        folders.push_back(kPlain.at(season));
    return folders;
}

class SeasonChoice : public korvat::TextureChoice
{
public:
    SeasonChoice(host::GameFiles &files, std::vector<std::string_view> folders)
        : m_textures(files)
        , m_folders(std::move(folders))
    {
    }

    std::optional<std::string> Instead(const std::string &shapeFile,
                                       const std::string &image) override
    {
        return m_textures.Find(shapeFile, image, m_folders);
    }

private:
    content::SeasonTextures m_textures;
    std::vector<std::string_view> m_folders;
};

} // namespace

bool ShowSameTextures(const ViewOptions &a, const ViewOptions &b)
{
    return a.season == b.season && a.snow == b.snow && a.night == b.night;
}

std::shared_ptr<korvat::TextureChoice> ChooseTextures(host::GameFiles &files,
                                                      const ViewOptions &options)
{
    std::vector<std::string_view> folders = foldersOf(options);
    return folders.empty() ? nullptr : std::make_shared<SeasonChoice>(files, std::move(folders));
}

} // namespace viewer
