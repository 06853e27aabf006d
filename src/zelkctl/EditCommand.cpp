// SPDX-License-Identifier: MIT
#include "zelkctl/EditCommand.h"

#include "document/ConsistTree.h"
#include "host/Console.h"
#include "zelkctl/EditOperation.h"
#include "zelkctl/Session.h"

#include <algorithm>
#include <iterator>
#include <memory>

namespace zelkctl {
namespace {

struct EditOptions
{
    std::string file, out;
    std::vector<std::string> operations;
};

/// Writes a line to stderr; the command continues.
void remark(const std::string &text)
{
    host::WriteTo(host::Stream::Error, "zelkctl: " + text + '\n');
}

void apply(const EditOperation &operation, document::ConsistTree &consist, host::GameFiles &files,
           const std::string &file)
{
    const std::string where = file + ": ";
    try {
        const document::EditResult result = Perform(operation, consist, files);
        if (result.refused)
            throw Failure(operation.text + ": " + result.message);
        if (!result.message.empty())
            remark(where + operation.text + ": " + result.message);
    } catch (const Failure &failure) {
        throw Failure(where + failure.what());
    }
}

void edit(Session &session, const EditOptions &options)
{
    std::vector<EditOperation> operations;
    std::transform(options.operations.begin(), options.operations.end(),
                   std::back_inserter(operations), ParseEditOperation);
    document::ConsistTree consist(session.files);
    NamingFile(options.file, [&] { consist.Load(options.file); });
    if (!consist.WhyRowsEnd().empty())
        remark(consist.WhyRowsEnd() + ". This unit and those behind it are kept and have no rows.");
    for (const EditOperation &operation : operations)
        apply(operation, consist, session.files, options.file);
    const std::string &out = options.out.empty() ? options.file : options.out;
    NamingFile(out, [&] { consist.Save(out, consist.OnDisk()); });
}

} // namespace

void AddEditCommand(CLI::App &app, Session &session)
{
    const auto options = std::make_shared<EditOptions>();
    CLI::App *command = app.add_subcommand("edit", "Edit a consist and save it");
    command->add_option("file", options->file, "The consist")->required()->type_name("FILE");
    command->add_option("operations", options->operations, "What to do, one after the other")
        ->required()
        ->type_name("OP");
    command->add_option("--out", options->out, "Save under this name instead")->type_name("FILE");
    command->footer(
        "Operations; N is a row of the train, counted from 1 at its head; ROWS are rows\n"
        "and ranges of rows (3 or 2,5-7), which keep their order and change together:\n"
        "  add=Wagon,FOLDER,NAME       add stock at the end (add=Engine,FOLDER,NAME)\n"
        "  insert=N,Wagon,FOLDER,NAME  insert stock behind row N, 0 for the head\n"
        "  copy=ROWS:N move=ROWS:N     copy or move units behind row N, 0 for the head\n"
        "  remove=ROWS                 take units out\n"
        "  clear                       take all units out\n"
        "  forwards=ROWS               move units by one place (backwards=ROWS)\n"
        "  flip=ROWS                   turn units round\n"
        "  reverse                     turn the whole train round\n"
        "Without --out the file itself is changed.");
    command->callback([&session, options] { edit(session, *options); });
}

} // namespace zelkctl
