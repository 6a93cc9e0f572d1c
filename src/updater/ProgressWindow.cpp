#include "updater/ProgressWindow.h"

#include "l10n/L10n.h"
#include "updater/Spinner.h"

#include <QCloseEvent>
#include <QLabel>
#include <QScreen>

#include <algorithm>

namespace {

// All in points.
constexpr QSize least(300, 76);
constexpr QRect spinnerPlace(20, 30, 20, 20);
constexpr QRect labelPlace(52, 30, 230, 20);

constexpr auto titleOnly
    = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowStaysOnTopHint;

QString percent(qint64 number) { return u" %1 %"_qs.arg(number); }

} // namespace

ProgressWindow::ProgressWindow(const QString &version)
    : QWidget(nullptr, titleOnly)
    , m_text(L10n::t(u"Descargando Vellumora %@…", version))
    , m_label(new QLabel(this))
{
    setWindowTitle(QStringLiteral("Vellumora"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto *spinner = new Spinner(this);
    spinner->setGeometry(spinnerPlace);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setText(m_text + percent(100));
    // Some languages and fonts need more room than the usual window has.
    const int missing = std::max(0, m_label->sizeHint().width() - labelPlace.width());
    m_label->setText(m_text);
    m_label->setGeometry(labelPlace.adjusted(0, 0, missing, 0));
    setFixedSize(least + QSize(missing, 0));
}

void ProgressWindow::present()
{
    move(screen()->availableGeometry().center() - rect().center());
    show();
}

void ProgressWindow::setProgress(qint64 part, qint64 whole)
{
    if (whole > 0)
        m_label->setText(m_text + percent(std::min(part, whole) * 100 / whole));
}

// The window manager's ways of closing a window remain when its button is gone.
// The program's own end is another matter.
void ProgressWindow::closeEvent(QCloseEvent *event) { event->setAccepted(!event->spontaneous()); }
