#include "overlay/output/Printing.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include <memory>

namespace {

int dialogs = 0;

void print(const QImage &picture, QPrinter &printer)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return;
    // Or the picture would be stored as a lossy photograph.
    painter.setRenderHint(QPainter::LosslessImageRendering);
    const QRectF page(QPointF{0, 0}, printer.pageLayout().paintRectPixels(printer.resolution()).size());
    painter.drawImage(Printing::fitted(picture.size(), page), picture);
}

} // namespace

namespace Printing {

void show(const QImage &picture)
{
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(QStringLiteral("Vellumora"));
    printer->setPageOrientation(picture.width() > picture.height() ? QPageLayout::Landscape
                                                                   : QPageLayout::Portrait);
    auto *dialog = new QPrintDialog(printer.get());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QDialog::accepted, dialog, [picture, printer] { print(picture, *printer); });
    ++dialogs;
    // The dialog works on the printer until it is gone.
    QObject::connect(dialog, &QObject::destroyed, [printer] { --dialogs; });
    dialog->setOption(QAbstractPrintDialog::PrintToFile);
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

bool isOpen() { return dialogs > 0; }

QRectF fitted(QSizeF picture, const QRectF &page)
{
    const QSizeF size = picture.scaled(page.size(), Qt::KeepAspectRatio);
    return {page.center() - QPointF{size.width() / 2, size.height() / 2}, size};
}

} // namespace Printing
