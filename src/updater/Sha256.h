#pragma once

#include <QByteArray>

#include <memory>

struct evp_md_ctx_st;

// The SHA-256 digest of bytes that come in pieces.
class Sha256 {
public:
    Sha256();

    void add(const QByteArray &piece);

    // As 64 lower-case hexadecimal digits. To be asked once, at the end; empty
    // when the library refuses, which no digest equals.
    [[nodiscard]] QByteArray hex();

private:
    std::unique_ptr<evp_md_ctx_st, void (*)(evp_md_ctx_st *)> m_context;
    bool m_intact;
};
