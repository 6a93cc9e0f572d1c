#include "overlay/output/Printing.h"

#include <QLineEdit>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include <algorithm>
#include <memory>

namespace {

const QString name = QStringLiteral("Vellumora"); // of what is printed

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

QPrintDialog *makeDialog(const QImage &picture)
{
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(name);
    printer->setPageOrientation(picture.width() > picture.height() ? QPageLayout::Landscape
                                                                   : QPageLayout::Portrait);
    auto *dialog = new QPrintDialog(printer.get());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QAbstractPrintDialog::PrintToFile);
    QObject::connect(dialog, &QDialog::accepted, dialog, [picture, printer] { print(picture, *printer); });
    // The dialog works on the printer until it is gone.
    QObject::connect(dialog, &QObject::destroyed, [printer] {});
    return dialog;
}

// Qt proposes a file on X11; elsewhere only a folder, into which nothing can be printed.
void proposeFile(const QPrintDialog &dialog)
{
    auto *file = dialog.findChild<QLineEdit *>(QStringLiteral("filename"));
    if (file && file->text().endsWith(u'/'))
        file->setText(file->text() + name + QStringLiteral(".pdf"));
}

} // namespace

Printing::~Printing()
{
    for (const auto &dialog : m_dialogs)
        delete dialog;
}

void Printing::show(const QImage &picture)
{
    std::erase_if(m_dialogs, [](const auto &dialog) { return dialog.isNull(); });
    QPrintDialog *dialog = m_dialogs.emplace_back(makeDialog(picture));
    dialog->show();
    proposeFile(*dialog);
    dialog->raise();
    dialog->activateWindow();
}

bool Printing::isOpen() const
{
    return std::ranges::any_of(m_dialogs, [](const auto &dialog) { return !dialog.isNull(); });
}

QRectF Printing::fitted(QSizeF picture, const QRectF &page)
{
    const QSizeF size = picture.scaled(page.size(), Qt::KeepAspectRatio);
    return {page.center() - QPointF{size.width() / 2, size.height() / 2}, size};
}
