#include "updater/AlertBox.h"

#include "base/Fonts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCoroSignal>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <limits>

namespace {

constexpr int iconSide = 64;           // points
constexpr double usualTextWidth = 420; // points
constexpr int shareOfScreen = 2;       // the rest is for title, message and buttons

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

int textWidth() { return qRound(usualTextWidth * Fonts::enlargement()); }

// Long notes are read through a window of the alert's, as wide as they wish.
void letScroll(QMessageBox &box)
{
    auto *label = box.findChild<QLabel *>(u"qt_msgbox_informativelabel"_qs);
    auto *layout = qobject_cast<QGridLayout *>(box.layout());
    if (!label || !layout)
        return;
    label->setWordWrap(true);
    const int height = shareOfSmallestScreen();
    if (label->heightForWidth(textWidth()) <= height)
        return;
    auto *area = new QScrollArea(&box);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFixedSize(textWidth() + area->verticalScrollBar()->sizeHint().width(), height);
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

AlertBox::AlertBox()
{
    m_pause.setSingleShot(true);
    m_pause.setTimerType(Qt::PreciseTimer);
    m_pause.callOnTimeout([this] {
        if (m_shown)
            takeReturn(*m_shown, true);
    });
}

QCoro::Task<bool> AlertBox::ask(UpdateAlerts::Alert alert)
{
    QPointer<QMessageBox> box = makeBox(alert);
    const auto *first = qobject_cast<QPushButton *>(box->buttons().constFirst());
    box->setDefaultButton(const_cast<QPushButton *>(first));
    m_shown = box;
    box->show();
    bringToFront();
    co_await qCoro(box.get(), &QDialog::finished);
    if (!box)
        co_return false;
    box->deleteLater();
    co_return box->clickedButton() == first;
}

void AlertBox::letReturnPass(std::chrono::milliseconds pause)
{
    if (!m_shown)
        return;
    takeReturn(*m_shown, false);
    m_pause.start(pause);
}

void AlertBox::bringToFront()
{
    if (!m_shown || !m_shown->isVisible())
        return;
    m_shown->raise();
    m_shown->activateWindow();
}
