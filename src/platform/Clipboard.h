#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

// Where other programs paste from. What is offered there dies with this program.
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
};
