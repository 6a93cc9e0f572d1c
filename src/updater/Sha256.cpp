#include "updater/Sha256.h"

#include <openssl/evp.h>

Sha256::Sha256()
    : m_context(EVP_MD_CTX_new(), EVP_MD_CTX_free)
    , m_intact(EVP_DigestInit_ex(m_context.get(), EVP_sha256(), nullptr) == 1)
{}

void Sha256::add(const QByteArray &piece)
{
    m_intact
        = m_intact
          && EVP_DigestUpdate(m_context.get(), piece.constData(), static_cast<size_t>(piece.size())) == 1;
}

QByteArray Sha256::hex()
{
    QByteArray digest(EVP_MAX_MD_SIZE, '\0');
    unsigned length = 0;
    m_intact
        = m_intact
          && EVP_DigestFinal_ex(m_context.get(), reinterpret_cast<unsigned char *>(digest.data()), &length)
                 == 1;
    return m_intact ? digest.first(length).toHex() : QByteArray();
}
