// SPDX-License-Identifier: MIT
// Compares replacing a vehicle in 10,000 consists with reading all of them once and writing those
// that change, flushed. Works in the folder for temporary files.
#include "Measure.h"
#include "Processes.h"
#include "ShapeText.h"
#include "document/StockReplacement.h"
#include "host/ChangeJournal.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"

#include <cstdio>
#include <fstream>

namespace {

constexpr int kConsists = 10'000;
constexpr std::size_t kConsistBytes = 6'000;

/// Returns an ASCII text in UTF-16LE.
std::string wide(const std::string &text)
{
    std::string bytes;
    for (const char c : text)
        bytes.append(1, c) += '\0';
    return bytes;
}

/// Consists of which every nth has one unit that uses Stock Folder 3/tanker3.wag.
class Consists
{
public:
    explicit Consists(int nth)
        : m_folder(bench::MakeTemporaryFolder())
        , m_journal(host::path::FromDisk(m_folder / "journal"))
    {
        std::string bytes = bench::MakeConsistText(kConsistBytes), used = bytes;
        const std::string from = wide("boxcar3 "), to = wide("tanker3 ");
        used.replace(used.find(from), from.size(), to);
        for (int i = 0; i < kConsists; ++i) {
            const auto path = m_folder / (std::to_string(i) + ".con");
            paths.push_back(host::path::FromDisk(path));
            std::ofstream(path, std::ios::binary) << (i % nth == 0 ? used : bytes);
            if (i % nth == 0)
                changing.push_back(path);
        }
        m_bytes = used;
    }
    ~Consists() { std::filesystem::remove_all(m_folder); }
    Consists(const Consists &) = delete;
    Consists &operator=(const Consists &) = delete;

    /// Replaces the vehicle by another one, and back in the next round.
    void Replace()
    {
        host::GameFiles files;
        const std::string names[] = {"Stock Folder 3/tanker3.wag", "Stock Folder 4/hopper4.wag"};
        const document::StockReplacement replacement(
            files, *document::VehicleOf(names[m_round % 2]),
            *document::VehicleOf(names[(m_round + 1) % 2]));
        ++m_round;
        std::vector<host::FileChange> changes;
        for (const auto &file : document::FindInUse(replacement, paths).files)
            changes.push_back(replacement.ChangeOf(file));
        if (changes.size() != changing.size())
            std::abort();
        m_journal.Apply("bench", changes);
    }
    void ReadAndWrite() const
    {
        bench::ReadOnce(paths);
        for (const auto &path : changing) {
            const auto temporary = m_folder / "plain.tmp",
                       target = m_folder / (path.stem() += ".copy");
            std::ofstream(temporary, std::ios::binary) << m_bytes;
            bench::FlushToDisk(temporary);
            std::filesystem::rename(temporary, target);
        }
    }

    std::vector<std::string> paths;
    std::vector<std::filesystem::path> changing;

private:
    const std::filesystem::path m_folder;
    host::ChangeJournal m_journal;
    std::string m_bytes;
    int m_round = 0;
};

bench::Row rowFor(int nth)
{
    Consists consists(nth);
    return bench::Compare(
        "replace, " + std::to_string(consists.changing.size()) + " of 10,000 consists",
        [&] { consists.Replace(); }, "reading all, writing those, flushed",
        [&] { consists.ReadAndWrite(); }, 5);
}

} // namespace

int main()
{
    try {
        bench::PrintTable({rowFor(kConsists), rowFor(100), rowFor(10)});
        return 0;
    } catch (const host::RuntimeError &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
}
