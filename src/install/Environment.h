// SPDX-License-Identifier: MIT
#pragma once

namespace host {
class Dialogs;
class GameFiles;
class SettingsStore;
} // namespace host
namespace korvat {
class ModelSource;
}

namespace install {

class Installation;

/// The services that commands, windows and scenes use. The program owns them; they outlive
/// everything that has a copy of this struct.
struct Environment
{
    host::Dialogs &dialogs;
    host::GameFiles &files;
    host::SettingsStore &settings;
    Installation &installation;
    korvat::ModelSource &shapes; ///< shapes and textures for 3D
};

} // namespace install
