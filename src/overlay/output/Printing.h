#pragma once

#include <QImage>
#include <QPointer>
#include <QRectF>
#include <QSizeF>

#include <vector>

class QPrintDialog;

// Prints pictures. Each fills its page as far as its shape allows.
class Printing {
public:
    Printing() = default;
    // Closes the dialogs that have not been answered.
    ~Printing();
    Q_DISABLE_COPY_MOVE(Printing)

    // Opens the print dialog and returns; the picture is printed when the user says
    // so.
    void show(const QImage &picture);

    // Returns whether a picture waits for its dialog to be answered.
    [[nodiscard]] bool isOpen() const;

    // Returns the largest rectangle of the picture's shape that the page holds,
    // centred. Both are in the same units.
    [[nodiscard]] static QRectF fitted(QSizeF picture, const QRectF &page);

private:
    std::vector<QPointer<QPrintDialog>> m_dialogs; // those that were closed are null
};
