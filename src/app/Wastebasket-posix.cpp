// SPDX-License-Identifier: MIT
// The wastebasket of the freedesktop.org desktops. It treats names as bytes: they need not be
// UTF-8, which Qt's own function requires.
#include "app/Wastebasket-posix.h"

#include "host/Disk-posix.h"
#include "host/Folders.h"
#include "host/Path.h"
#include "host/RuntimeError.h"

#include <cerrno>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace app {

namespace disk = host::disk;

namespace {

constexpr mode_t kPrivate = 0700;
constexpr std::size_t kLongestName = 230; ///< leaves room for a number and ".trashinfo" in 255

/// A wastebasket on the file's own volume, and the path to which the file can be restored.
struct Wastebasket
{
    std::string folder;
    std::string origin; ///< absolute in the home folder's wastebasket, else from the volume's top
};

[[noreturn]] void fail(const std::string &file, int error)
{
    const disk::Failure failure = disk::FailureOf(error, host::ErrorNumber::FileNotFound);
    throw host::RuntimeError(failure.number, file + ": " + failure.reason);
}

std::optional<dev_t> deviceOf(const std::string &path)
{
    struct stat status = {};
    if (lstat(path.c_str(), &status) != 0)
        return std::nullopt;
    return status.st_dev;
}

bool isOwnFolder(const std::string &path)
{
    struct stat status = {};
    return lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == geteuid();
}

bool makeOwnFolder(const std::string &path)
{
    return (mkdir(path.c_str(), kPrivate) == 0 || errno == EEXIST) && isOwnFolder(path);
}

/// True for a folder that the administrator has set up for all users' wastebaskets.
bool isSharedFolder(const std::string &path)
{
    struct stat status = {};
    return lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           (status.st_mode & S_ISVTX) != 0;
}

/// Returns the top folder of the volume that holds a file.
std::string topOf(const std::string &file, dev_t device)
{
    std::filesystem::path top = std::filesystem::path(file).parent_path();
    while (top.has_relative_path() && deviceOf(top.parent_path().native()) == device)
        top = top.parent_path();
    return top.native();
}

std::optional<Wastebasket> wastebasketOfHome(const std::string &file)
{
    const std::string folder = host::disk::Join(host::DataFolder(), "Trash");
    return makeOwnFolder(folder) ? std::optional(Wastebasket{folder, file}) : std::nullopt;
}

std::optional<Wastebasket> wastebasketOfVolume(const std::string &file, dev_t device)
{
    const std::string top = topOf(file, device);
    const std::string user = std::to_string(geteuid());
    const std::string origin = std::filesystem::path(file).lexically_relative(top).native();
    const std::string shared = host::disk::Join(top, ".Trash");
    if (isSharedFolder(shared))
        if (const std::string folder = host::disk::Join(shared, user); makeOwnFolder(folder))
            return Wastebasket{folder, origin};
    const std::string folder = host::disk::Join(top, ".Trash-" + user);
    return makeOwnFolder(folder) ? std::optional(Wastebasket{folder, origin}) : std::nullopt;
}

/// Returns the wastebasket for a file. The one in the home folder accepts only files of the same
/// volume, because a move from another volume would be a copy.
std::optional<Wastebasket> wastebasketFor(const std::string &file, dev_t device)
{
    const std::string home = host::DataFolder();
    if (disk::MakeFolders(home))
        return std::nullopt;
    const std::optional<dev_t> homeDevice = deviceOf(home);
    if (!homeDevice)
        return std::nullopt;
    return *homeDevice == device ? wastebasketOfHome(file) : wastebasketOfVolume(file, device);
}

/// Encodes a path as in a URL, without a scheme.
std::string encoded(std::string_view path)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    static constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                              "0123456789-._~/";
    std::string text;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (plain.find(c) != std::string_view::npos)
            text += c;
        else
            text += {'%', digits[byte >> 4], digits[byte & 15]};
    }
    return text;
}

std::string infoOf(const std::string &origin)
{
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    localtime_r(&now, &local);
    char date[32];
    std::strftime(date, sizeof date, "%Y-%m-%dT%H:%M:%S", &local);
    return "[Trash Info]\nPath=" + encoded(origin) + "\nDeletionDate=" + date + '\n';
}

bool writeNew(const std::string &path, const std::string &text)
{
    disk::Handle file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!file)
        return false;
    const ssize_t written = write(file.Number(), text.data(), text.size());
    if (written == static_cast<ssize_t>(text.size()) && file.Close() == 0)
        return true;
    unlink(path.c_str());
    errno = EIO;
    return false;
}

/// Moves the file into the wastebasket under a free name. The info file reserves the name, also
/// against other programs. Returns 0, or the error of the step that failed.
int moveInto(const Wastebasket &basket, const std::string &file)
{
    const std::string files = host::disk::Join(basket.folder, "files/");
    const std::string infos = host::disk::Join(basket.folder, "info/");
    if (!makeOwnFolder(files) || !makeOwnFolder(infos))
        return EXDEV;
    const std::string base(host::path::FileName(file).substr(0, kLongestName));
    for (int number = 1;; ++number) {
        const std::string name = number == 1 ? base : base + '.' + std::to_string(number);
        const std::string info = infos + name + ".trashinfo";
        if (deviceOf(files + name))
            continue;
        if (!writeNew(info, infoOf(basket.origin))) {
            if (errno == EEXIST)
                continue;
            return EXDEV;
        }
        if (rename(file.c_str(), (files + name).c_str()) == 0)
            return 0;
        const int error = errno;
        unlink(info.c_str());
        return error;
    }
}

} // namespace

bool MoveToWastebasket(const std::string &file)
{
    const std::string path = std::filesystem::absolute(file).native();
    const std::optional<dev_t> device = deviceOf(path);
    if (!device)
        fail(file, errno);
    const std::optional<Wastebasket> basket = wastebasketFor(path, *device);
    const int error = basket ? moveInto(*basket, path) : EXDEV;
    if (error != 0 && error != EXDEV)
        fail(file, error);
    return error == 0;
}

} // namespace app
