#pragma once

#include <QByteArray>

#include <memory>

struct evp_md_ctx_st;

// Computes the SHA-256 digest of bytes that arrive in pieces.
class Sha256 {
public:
    Sha256();

    void add(const QByteArray &piece);

    // Returns the digest as 64 lower-case hexadecimal digits. Must be called only
    // once, at the end. Empty, which no digest equals, when OpenSSL fails.
    [[nodiscard]] QByteArray hex();

private:
    std::unique_ptr<evp_md_ctx_st, void (*)(evp_md_ctx_st *)> m_context;
    bool m_intact;
};
