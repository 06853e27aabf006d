// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/ModelSource.h"

namespace support {

/// A source without any shape, for tests that show nothing in 3D.
class NoShapes : public korvat::ModelSource
{
public:
    korvat::LoadedModel LoadModel(const std::string &path) override
    {
        return {nullptr, path + ": no shapes here"};
    }
    korvat::LoadedModel LoadLevel(const std::string &path, int /*level*/) override
    {
        return LoadModel(path);
    }
    korvat::LoadedTexture LoadTexture(const std::string &, const std::string &,
                                      const std::string &name) override
    {
        return {nullptr, name + ": no textures here"};
    }
};

} // namespace support
