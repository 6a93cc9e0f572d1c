#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <utility>

// Owns a file descriptor. Its number has two digits, so that it is never one that a
// shell can name, and no program started by this one inherits it.
class Descriptor {
public:
    Descriptor() = default;
    // Takes over the descriptor with this number, which is closed. A negative
    // number makes an empty object.
    explicit Descriptor(int number)
    {
        if (number < 0)
            return;
        m_number = fcntl(number, F_DUPFD_CLOEXEC, firstOfTwoDigits);
        close(number);
    }
    Descriptor(Descriptor &&other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor()
    {
        if (isOpen())
            close(m_number);
    }

    [[nodiscard]] bool isOpen() const { return m_number >= 0; }
    [[nodiscard]] int number() const { return m_number; }

private:
    static constexpr int firstOfTwoDigits = 10;
    int m_number = -1;
};
