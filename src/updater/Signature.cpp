#include "updater/Signature.h"

#include <openssl/bio.h>
#include <openssl/ecdsa.h>
#include <openssl/evp.h>
#include <openssl/pem.h>

#include <memory>
#include <optional>

namespace {

constexpr int half = 32; // bytes of r, and of s

template <typename T, void (*release)(T *)>
struct Release {
    void operator()(T *object) const { release(object); }
};

using Key = std::unique_ptr<EVP_PKEY, Release<EVP_PKEY, EVP_PKEY_free>>;
using Context = std::unique_ptr<EVP_MD_CTX, Release<EVP_MD_CTX, EVP_MD_CTX_free>>;
using Pair = std::unique_ptr<ECDSA_SIG, Release<ECDSA_SIG, ECDSA_SIG_free>>;
using Text = std::unique_ptr<BIO, Release<BIO, BIO_free_all>>;

const unsigned char *unsignedBytes(const QByteArray &bytes)
{
    return reinterpret_cast<const unsigned char *>(bytes.constData());
}

// The one base64 form of 64 bytes, or nothing.
std::optional<QByteArray> rawSignature(const QByteArray &file)
{
    const QByteArray text = file.trimmed();
    const QByteArray raw = QByteArray::fromBase64(text);
    if (raw.size() != qsizetype{2} * half || raw.toBase64() != text)
        return std::nullopt;
    return raw;
}

QByteArray derSignature(const QByteArray &raw)
{
    BIGNUM *r = BN_bin2bn(unsignedBytes(raw), half, nullptr);
    BIGNUM *s = BN_bin2bn(unsignedBytes(raw) + half, half, nullptr);
    const Pair pair(ECDSA_SIG_new());
    if (ECDSA_SIG_set0(pair.get(), r, s) != 1)
        return {};
    QByteArray der(i2d_ECDSA_SIG(pair.get(), nullptr), '\0');
    auto *end = reinterpret_cast<unsigned char *>(der.data());
    i2d_ECDSA_SIG(pair.get(), &end);
    return der;
}

bool isOnP256(const EVP_PKEY *key)
{
    char group[32] = {};
    return EVP_PKEY_is_a(key, "EC") == 1 && EVP_PKEY_get_group_name(key, group, sizeof group, nullptr) == 1
           && qstrcmp(group, "prime256v1") == 0;
}

Key keyFrom(const QByteArray &pem)
{
    const Text text(BIO_new_mem_buf(pem.constData(), static_cast<int>(pem.size())));
    Key key(PEM_read_bio_PUBKEY(text.get(), nullptr, nullptr, nullptr));
    return key && isOnP256(key.get()) ? std::move(key) : Key();
}

} // namespace

namespace Signature {

bool isValid(const QByteArray &bytes, const QByteArray &signatureText, const QByteArray &publicKeyPem)
{
    const auto raw = rawSignature(signatureText);
    const Key key = keyFrom(publicKeyPem);
    if (!raw || !key)
        return false;
    const QByteArray der = derSignature(*raw);
    const Context context(EVP_MD_CTX_new());
    return EVP_DigestVerifyInit(context.get(), nullptr, EVP_sha256(), nullptr, key.get()) == 1
           && EVP_DigestVerify(context.get(), unsignedBytes(der), static_cast<size_t>(der.size()),
                               unsignedBytes(bytes), static_cast<size_t>(bytes.size()))
                  == 1;
}

} // namespace Signature
