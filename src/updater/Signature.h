#pragma once

#include <QByteArray>

// Detached signatures: ECDSA with P-256 and SHA-256 (FIPS 186-4).
namespace Signature {

// Whether the signature is one of exactly these bytes by the owner of the key.
// Its text is the base64 form of r and s, 32 bytes each, most significant byte
// first; white space may stand around it, nothing else.
[[nodiscard]] bool isValid(const QByteArray &bytes, const QByteArray &signatureText,
                           const QByteArray &publicKeyPem);

} // namespace Signature
