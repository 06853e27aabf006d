// SPDX-License-Identifier: MIT
#include "EditCommand.h"

#include "EditOperation.h"
#include "Session.h"
#include "document/ConsistTree.h"

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

void apply(const EditOperation &operation, document::ConsistTree &consist, const std::string &file)
{
    const std::string where = file + ": " + operation.text + ": ";
    const int rows = static_cast<int>(consist.Rows().size());
    if (operation.row > rows)
        throw Failure(where + "no such row, there are " + std::to_string(rows));
    const document::StockItem *stock =
        operation.move == document::Move::Add ? &operation.stock : nullptr;
    const std::string message = consist.Edit(operation.move, operation.row, stock).message;
    if (!message.empty())
        throw Failure(where + message);
}

void edit(Session &session, const EditOptions &options)
{
    std::vector<EditOperation> operations;
    std::transform(options.operations.begin(), options.operations.end(),
                   std::back_inserter(operations), ParseEditOperation);
    document::ConsistTree consist(session.files);
    NamingFile(options.file, [&] { consist.Load(options.file); });
    for (const EditOperation &operation : operations)
        apply(operation, consist, options.file);
    const std::string &out = options.out.empty() ? options.file : options.out;
    NamingFile(out, [&] { consist.Save(out); });
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
    command->footer("Operations; N is a row of the train, counted from 1 at its head:\n"
                    "  add=Wagon,FOLDER,NAME   add stock at the end (add=Engine,FOLDER,NAME)\n"
                    "  remove=N                take a unit out\n"
                    "  clear                   take all units out\n"
                    "  forwards=N backwards=N  move a unit by one place\n"
                    "  flip=N                  turn a unit round\n"
                    "Without --out the file itself is changed.");
    command->callback([&session, options] { edit(session, *options); });
}

} // namespace zelkctl
