#include "updater/UpdateAlerts.h"

#include "l10n/L10n.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCoroSignal>
#include <QDeadlineTimer>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <limits>

namespace {

constexpr int iconSide = 64;     // points
constexpr int textWidth = 420;   // points
constexpr int shareOfScreen = 2; // the rest is for title, message and buttons

QPointer<QMessageBox> shown;

QDeadlineTimer passesUntil;

void takeReturn(QMessageBox &box, bool take)
{
    for (auto *button : box.findChildren<QPushButton *>()) {
        button->setAutoDefault(take);
        button->setDefault(take && button == box.buttons().constFirst());
    }
}

// The words come from outside: they are never markup.
void takeLiterally(QMessageBox &box)
{
    for (auto *label : box.findChildren<QLabel *>())
        label->setTextFormat(Qt::PlainText);
}

// What every screen has room for.
int shareOfSmallestScreen()
{
    int height = std::numeric_limits<int>::max();
    for (const QScreen *screen : QGuiApplication::screens())
        height = std::min(height, screen->availableGeometry().height());
    return height / shareOfScreen;
}

// Long notes are read through a window of the alert's, as wide as they wish.
void letScroll(QMessageBox &box)
{
    auto *label = box.findChild<QLabel *>(u"qt_msgbox_informativelabel"_qs);
    auto *layout = qobject_cast<QGridLayout *>(box.layout());
    if (!label || !layout)
        return;
    label->setWordWrap(true);
    const int height = shareOfSmallestScreen();
    if (label->heightForWidth(textWidth) <= height)
        return;
    auto *area = new QScrollArea(&box);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFixedSize(textWidth + area->verticalScrollBar()->sizeHint().width(), height);
    delete layout->replaceWidget(label, area);
    area->setWidget(label);
}

QMessageBox *makeBox(const UpdateAlerts::Alert &alert)
{
    auto *box = new QMessageBox(QMessageBox::NoIcon, u"Vellumora"_qs, alert.message);
    box->setInformativeText(alert.informative);
    takeLiterally(*box);
    box->setIconPixmap(
        QApplication::windowIcon().pixmap(QSize(iconSide, iconSide), box->devicePixelRatioF()));
    for (const QString &title : alert.buttons)
        box->addButton(title, box->buttons().isEmpty() ? QMessageBox::AcceptRole : QMessageBox::RejectRole);
    if (alert.buttons.isEmpty())
        box->addButton(QMessageBox::Ok)->setIcon({}); // some styles would draw one
    letScroll(*box);                                  // last, since everything else lays the box out anew
    return box;
}

} // namespace

namespace UpdateAlerts {

Alert offer(const QString &version, const std::optional<QString> &notes, const QString &current)
{
    const QString above = notes ? *notes + u"\n\n"_qs : QString();
    return {L10n::t(u"Hay una versión nueva de Vellumora (%@)", version),
            above + L10n::t(u"Tienes la %@. Se instala sola en unos segundos y se vuelve a abrir.", current),
            {L10n::t(u"Actualizar"), L10n::t(u"Ahora no")}};
}

Alert upToDate(const QString &current)
{
    return {L10n::t(u"Tienes la última versión"), L10n::t(u"Vellumora %@ es la más reciente.", current)};
}

Alert notSigned()
{
    return {L10n::t(u"No se pudo comprobar la actualización"),
            L10n::t(u"La respuesta de la web no venía firmada por KLV, así que no se ha instalado nada.")};
}

Alert unreachable()
{
    return {L10n::t(u"No se pudo comprobar"),
            L10n::t(u"No hay conexión con la web de Vellumora. Prueba más tarde.")};
}

Alert failed(const QString &message)
{
    return {L10n::t(u"No se pudo actualizar"),
            L10n::t(u"%@\n\nPuedes descargarla a mano desde la web.", message),
            {L10n::t(u"Abrir la web"), L10n::t(u"Cerrar")}};
}

QCoro::Task<bool> ask(Alert alert)
{
    QPointer<QMessageBox> box = makeBox(alert);
    const auto *first = qobject_cast<QPushButton *>(box->buttons().constFirst());
    box->setDefaultButton(const_cast<QPushButton *>(first));
    shown = box;
    box->show();
    bringToFront();
    co_await qCoro(box.get(), &QDialog::finished);
    if (!box)
        co_return false;
    box->deleteLater();
    co_return box->clickedButton() == first;
}

void letReturnPass(std::chrono::milliseconds pause)
{
    if (!shown)
        return;
    passesUntil = QDeadlineTimer(pause, Qt::PreciseTimer);
    takeReturn(*shown, false);
    QTimer::singleShot(pause, Qt::PreciseTimer, shown, [box = shown] {
        if (passesUntil.hasExpired())
            takeReturn(*box, true);
    });
}

void bringToFront()
{
    if (!shown || !shown->isVisible())
        return;
    shown->raise();
    shown->activateWindow();
}

} // namespace UpdateAlerts
