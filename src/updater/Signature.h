#pragma once

#include <QByteArray>

// Verifies detached signatures: ECDSA with P-256 and SHA-256 (FIPS 186-4).
namespace Signature {

// Returns whether the owner of the key has signed exactly these bytes. The
// signature's text is the base64 form of r and s, 32 bytes each, most significant
// byte first; white space may stand around it, nothing else.
[[nodiscard]] bool isValid(const QByteArray &bytes, const QByteArray &signatureText,
                           const QByteArray &publicKeyPem);

} // namespace Signature
