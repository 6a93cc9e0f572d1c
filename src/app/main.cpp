// The door. A second start only has to pass its wish on, and loading all that the
// first one needs would take longer than what it asks for; so this file uses
// nothing but the C++ library.
#include "app/Program.h"
#include "platform/SingleInstance.h"

#include <cstdlib>
#include <optional>
#include <string_view>

namespace {

// What is wanted of a running program, where it is as plain as that.
std::optional<Wish> plainWish(int argc, char **argv)
{
    if (argc == 1)
        return Wish::settings;
    const std::string_view flag = argc == 2 ? argv[1] : "";
    if (flag == "--capturar")
        return Wish::capture;
    if (flag == "--salir")
        return Wish::quit;
    return flag == "--ajustes" ? std::optional(Wish::settings) : std::nullopt;
}

} // namespace

int main(int argc, char **argv)
{
    const auto wish = plainWish(argc, argv);
    if (wish && handOver(*wish))
        return EXIT_SUCCESS;
    return runProgram(argc, argv);
}
