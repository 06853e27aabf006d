// SPDX-License-Identifier: MIT
#include "zelkctl/TreeCommand.h"

#include "stavfile/StfFile.h"
#include "zelkctl/Session.h"
#include "zelkctl/TreeWriter.h"

#include <memory>

namespace zelkctl {
namespace {

void tree(Session &session, const std::string &path)
{
    StfFile file(session.files);
    file.SetFileName(path);
    NamingFile(path, [&] {
        file.Load();
        WriteTree(file, session.out);
    });
}

} // namespace

void AddTreeCommand(CLI::App &app, Session &session)
{
    const auto path = std::make_shared<std::string>();
    CLI::App *command = app.add_subcommand("tree", "Show a structured file as JSON");
    command->add_option("file", *path, "The file")->required()->type_name("FILE");
    command->callback([&session, path] { tree(session, *path); });
}

} // namespace zelkctl
