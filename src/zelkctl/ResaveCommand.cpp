// SPDX-License-Identifier: MIT
#include "zelkctl/ResaveCommand.h"

#include "document/ConsistTree.h"
#include "host/FileState.h"
#include "host/Path.h"
#include "zelkctl/Session.h"

#include <memory>

namespace zelkctl {
namespace {

struct ResaveOptions
{
    std::string file, out;
};

bool isConsist(const StfFile &file)
{
    return host::path::HasExtension(file.FileName(), "con") && install::FindTrain(file);
}

void resave(Session &session, const ResaveOptions &options)
{
    StfFile file(session.files);
    host::FileState before;
    file.SetFileName(options.file);
    NamingFile(options.file, [&] {
        std::string bytes = session.files.ReadFile(options.file);
        before = host::FileState(options.file, bytes);
        file.LoadBytes(std::move(bytes));
    });
    if (!isConsist(file)) {
        file.SetFileName(options.out);
        return NamingFile(options.out,
                          [&] { session.files.WriteFile(options.out, file.ToBytes(), before); });
    }
    document::ConsistTree consist(session.files);
    NamingFile(options.file, [&] { consist.Load(options.file); });
    NamingFile(options.out, [&] { consist.Save(options.out, consist.OnDisk()); });
}

} // namespace

void AddResaveCommand(CLI::App &app, Session &session)
{
    const auto options = std::make_shared<ResaveOptions>();
    CLI::App *command = app.add_subcommand(
        "resave", "Load a structured file and save it (a consist is named after its new file)");
    command->add_option("file", options->file, "The file to load")->required()->type_name("FILE");
    command->add_option("out", options->out, "Where to save it")->required()->type_name("OUT");
    command->callback([&session, options] { resave(session, *options); });
}

} // namespace zelkctl
