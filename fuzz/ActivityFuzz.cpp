// SPDX-License-Identifier: MIT
// Activities: for any bytes, the reader finds the loose consists or reports why it cannot, and
// their units can be enumerated.
#include "ScratchFile.h"
#include "host/GameFiles.h"
#include "host/RuntimeError.h"
#include "install/Train.h"
#include "viewer/LooseConsists.h"

#include <cstdlib>

namespace {

void walk(const StfNode &train)
{
    for (const install::Unit unit : install::Units(train))
        if (unit.Item().type.empty())
            std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const ScratchFile file("a.act");
    static host::GameFiles files;
    file.Write({reinterpret_cast<const char *>(data), size});
    try {
        for (const StfNode &train : viewer::ReadLooseConsists(files, file.Path()))
            if (train)
                walk(train);
    } catch (const host::RuntimeError &error) {
        if (error.Detail().empty())
            std::abort();
    }
    return 0;
}
