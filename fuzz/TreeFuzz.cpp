// SPDX-License-Identifier: MIT
// JSON of `zelkctl tree`: for any file it is valid, and it holds every name, label, value, block
// and note.
#include "Input.h"
#include "host/GameFiles.h"
#include "stavfile/StfFile.h"
#include "zelkctl/Output.h"
#include "zelkctl/TreeWriter.h"

#include <nlohmann/json.hpp>

#include <sys/mman.h>
#include <unistd.h>

namespace {

using nlohmann::json;

/// Standard output, in memory.
class Captured
{
public:
    Captured()
        : m_file(memfd_create("output", 0))
    {
        Require(m_file >= 0 && dup2(m_file, STDOUT_FILENO) >= 0);
    }
    std::string Take() const
    {
        const off_t size = lseek(m_file, 0, SEEK_CUR);
        std::string text(static_cast<std::size_t>(size), '\0');
        Require(pread(m_file, text.data(), text.size(), 0) == size);
        Require(ftruncate(m_file, 0) == 0 && lseek(m_file, 0, SEEK_SET) == 0);
        return text;
    }

private:
    int m_file;
};

void requireSame(const json &shown, const StfNodes &nodes)
{
    Require(shown.is_array() && shown.size() == static_cast<std::size_t>(nodes.Count()));
    auto at = shown.begin();
    for (const StfNode node : nodes) {
        const json &block = *at++;
        Require(block.at("name") == node.Name());
        Require(block.value("label", "") == node.Label());
        const json &values = block.at("values");
        Require(values.size() == static_cast<std::size_t>(node.NumParameters()));
        for (int i = 0; i < node.NumParameters(); ++i)
            Require(values[static_cast<std::size_t>(i)] == node.Parameter(i));
        requireSame(block.at("children"), node.Children());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const Captured output;
    static host::GameFiles files;
    StfFile file(files);
    file.LoadBytes(std::string(reinterpret_cast<const char *>(data), size));
    zelkctl::Output out;
    zelkctl::WriteTree(file, out);
    out.Flush();
    const json shown = json::parse(output.Take(), nullptr, false);
    Require(!shown.is_discarded());
    Require(shown.at("bom") == file.HasBom());
    Require(file.Header().empty() ? shown.at("header").is_null()
                                  : shown.at("header") == file.Header());
    Require(shown.at("notes").size() == file.Notes().size());
    requireSame(shown.at("nodes"), file.Nodes());
    return 0;
}
