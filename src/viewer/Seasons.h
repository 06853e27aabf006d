// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/TextureChoice.h"
#include "viewer/ViewOptions.h"

#include <memory>

namespace host {
class GameFiles;
}

namespace viewer {

/// True if both show the same textures.
bool ShowSameTextures(const ViewOptions &a, const ViewOptions &b);

/// Returns the choice of the textures of a season and of the night; null if every shape shows its
/// own. `files` must outlive it. It does not notice new files.
std::shared_ptr<korvat::TextureChoice> ChooseTextures(host::GameFiles &files,
                                                      const ViewOptions &options);

} // namespace viewer
