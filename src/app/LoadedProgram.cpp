// The program as a library that is loaded when it is needed.
#include "app/Program.h"

#include <dlfcn.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <unistd.h>

namespace {

// Beside the program in the build folder, then where bundles, installations and
// Debian's packages have it. Nowhere else: a bundle that lacks it must not run on
// the machine that it was made on.
constexpr const char *places[]
    = {"/libvellumora.so", "/../lib/libvellumora.so", "/../lib/vellumora/libvellumora.so",
       "/../lib/" VELLUMORA_ARCHITECTURE "/vellumora/libvellumora.so"};

std::string ownFolder()
{
    std::string path(PATH_MAX, '\0');
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    path.resize(length > 0 ? static_cast<size_t>(length) : 0);
    return path.substr(0, path.rfind('/'));
}

void *library()
{
    const std::string folder = ownFolder();
    for (const char *place : places) {
        const std::string path = folder + place;
        if (access(path.c_str(), R_OK) == 0)
            return dlopen(path.c_str(), RTLD_LAZY);
    }
    return nullptr;
}

} // namespace

int runProgram(int argc, char **argv)
{
    void *program = library();
    void *entry = program ? dlsym(program, "runProgram") : nullptr;
    if (!entry) {
        const char *reason = dlerror();
        std::fprintf(stderr, "vellumora: libvellumora.so, the rest of the program, %s\n",
                     reason ? reason : "is missing");
        return EXIT_FAILURE;
    }
    return reinterpret_cast<int (*)(int, char **)>(entry)(argc, argv);
}
