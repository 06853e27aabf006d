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

void apply(const EditOperation &operation, document::ConsistTree &consist, const std::string &file)
{
    const std::string where = file + ": " + operation.text + ": ";
    const int rows = static_cast<int>(consist.Rows().size());
    if (operation.row > rows)
        throw Failure(where + "no such row, there are " + std::to_string(rows));
    const document::StockItem *stock =
        operation.move == document::Move::Add ? &operation.stock : nullptr;
    const document::EditResult result = consist.Edit(operation.move, operation.row, stock);
    if (result.refused)
        throw Failure(where + result.message);
    if (!result.message.empty())
        remark(where + result.message);
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
        apply(operation, consist, options.file);
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
