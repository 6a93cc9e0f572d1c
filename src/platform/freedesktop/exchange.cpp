// Lets two folders change names, so that under neither name there ever is
// nothing or half a folder:
//
//     vellumora-exchange FOLDER OTHER
//
// Exits with 0 when they have changed names, else with 1 and both as they were.

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>

namespace {

// After a loss of power the names must not be there before the files.
void writeToDisk(const char *folder)
{
    const int file = open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0)
        return;
    syncfs(file);
    close(file);
}

// For file systems that cannot exchange: network shares, FAT, layered ones.
// Between the renames there is a moment with nothing under the first name.
bool renameInTurn(const std::string &one, const std::string &other)
{
    const std::string aside = other + ".aparte";
    if (std::rename(one.c_str(), aside.c_str()) != 0)
        return false;
    if (std::rename(other.c_str(), one.c_str()) == 0) {
        // The exchange is done, whatever name the first one ends up with.
        std::rename(aside.c_str(), other.c_str());
        return true;
    }
    std::rename(aside.c_str(), one.c_str());
    return false;
}

// Layered file systems say that the two are on different devices.
bool cannotExchange(int error)
{
    return error == EINVAL || error == ENOSYS || error == EXDEV || error == EOPNOTSUPP;
}

bool exchange(const char *one, const char *other)
{
    if (renameat2(AT_FDCWD, one, AT_FDCWD, other, RENAME_EXCHANGE) == 0)
        return true;
    return cannotExchange(errno) && renameInTurn(one, other);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3)
        return 1;
    writeToDisk(argv[2]);
    return exchange(argv[1], argv[2]) ? 0 : 1;
}
