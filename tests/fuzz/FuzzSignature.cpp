#include "updater/Signature.h"
#include "updater/UpdateKey.h"

#include <cstdint>
#include <cstdlib>

namespace {

QByteArray bytesOf(const std::uint8_t *data, std::size_t size)
{
    return {reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)};
}

} // namespace

// Nobody has the private half of the key, so nothing may ever be valid. The
// same bytes are tried as the text and as what the text holds.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QByteArray key = UpdateKey::pem();
    const QByteArray text = bytesOf(data, size);
    if (Signature::isValid(text, text, key) || Signature::isValid("manifest", text.toBase64(), key))
        std::abort();
    return 0;
}
