// SPDX-License-Identifier: MIT
// Recovery files: any bytes are left where they are and never offered, unless they are a whole
// consist; then every byte of it is offered. One that was cut off or damaged is not whole.
#include "EndedProcess.h"
#include "Input.h"
#include "ScratchFile.h"
#include "document/UnsavedConsist.h"
#include "host/CheckedParts.h"

namespace {

/// Returns how many consists are offered for a recovery file; sets `bytes` to the last one's.
std::size_t offered(const ScratchFile &scratch, std::string_view file, std::string &bytes)
{
    const std::filesystem::path folder = scratch.Folder() / "unsaved";
    std::filesystem::remove_all(folder);
    const std::string name = NameOfEndedProcess("unsaved");
    scratch.Write("unsaved/" + name, file);
    document::LostConsists lost(folder.native());
    Require(lost.All().empty() == std::filesystem::exists(folder / name));
    const std::size_t count = lost.All().size();
    if (count > 0) {
        bytes = lost.All().back().bytes;
        lost.Drop(count - 1);
        Require(std::filesystem::is_empty(folder));
    }
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const ScratchFile scratch("x");
    std::string found;
    offered(scratch, {reinterpret_cast<const char *>(data), size}, found);

    Input input(data, size);
    const int what = input.Below(4);
    const std::size_t at = input.Byte() * 256u + input.Byte();
    const std::string_view path = input.TextBefore('\n'), title = input.TextBefore('\n');
    const std::string_view consist = input.Rest();
    std::string file = host::JoinParts("unsaved", {path, title, "1", "", consist});
    if (what == 1)
        file.resize(at % file.size());
    else if (what == 2)
        file[at % file.size()] ^= static_cast<char>(1 << at % 8);
    else if (what == 3)
        file += 'x';
    const std::size_t count = offered(scratch, file, found);
    Require(count == (what == 0 ? 1u : 0u));
    Require(count == 0 || found == consist);
    return 0;
}
