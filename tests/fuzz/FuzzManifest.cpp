#include "updater/Manifest.h"
#include "updater/Version.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray json(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const auto manifest = Manifest::decode(json);
    if (!manifest)
        return 0;
    const QString &version = manifest->version;
    if (manifest->notas(Lang::de) && manifest->novedades.isEmpty())
        std::abort();
    // Two versions cannot both be newer than the other, nor one than itself.
    if (Version::isNewer(version, version))
        std::abort();
    if (Version::isNewer(version, manifest->mac.url) && Version::isNewer(manifest->mac.url, version))
        std::abort();
    return 0;
}
