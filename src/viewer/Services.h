// SPDX-License-Identifier: MIT
#pragma once

namespace host {
class Dialogs;
class GameFiles;
} // namespace host
namespace korvat {
class ModelSource;
}

namespace viewer {

/// The services that a scene uses; all of them must outlive it.
struct Services
{
    host::GameFiles &files;
    host::Dialogs &dialogs;
    korvat::ModelSource &shapes;
};

} // namespace viewer
