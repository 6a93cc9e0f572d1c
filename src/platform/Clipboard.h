#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <chrono>

// Where other programs paste from. What is offered there dies with this program, unless
// the desktop has somebody who keeps it.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    // The bytes of one item by their MIME types.
    using Formats = QMap<QString, QByteArray>;

    // Offers all of it as one item, byte for byte, until another program takes the
    // clipboard. False when it could not be taken.
    [[nodiscard]] virtual bool offer(const Formats &formats) = 0;

    // Returns what this program offers; nothing when another one does.
    [[nodiscard]] virtual Formats offered() const = 0;
    // Whether nobody offers anything.
    [[nodiscard]] virtual bool isEmpty() const = 0;

    // Has the desktop keep what this program offers, where it can, before the program
    // ends. Serves events meanwhile, and returns when that is done or has taken as
    // long as the limit.
    virtual void handOver(std::chrono::milliseconds limit) { (void)limit; }
};
