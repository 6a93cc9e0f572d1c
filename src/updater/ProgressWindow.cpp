#include "updater/ProgressWindow.h"

#include "l10n/L10n.h"
#include "updater/Spinner.h"

#include <QLabel>
#include <QScreen>

namespace {

// All in points.
constexpr QSize least(300, 76);
constexpr QRect spinnerPlace(20, 30, 20, 20);
constexpr QRect labelPlace(52, 30, 230, 20);

constexpr auto titleOnly
    = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowStaysOnTopHint;

} // namespace

ProgressWindow::ProgressWindow(const QString &version) : QWidget(nullptr, titleOnly)
{
    setWindowTitle(QStringLiteral("Vellumora"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto *spinner = new Spinner(this);
    spinner->setGeometry(spinnerPlace);
    auto *label = new QLabel(L10n::t(u"Descargando Vellumora %@…").replace(u"%@"_qs, version), this);
    label->setTextFormat(Qt::PlainText);
    // Some languages and fonts need more room than the usual window has.
    const int missing = std::max(0, label->sizeHint().width() - labelPlace.width());
    label->setGeometry(labelPlace.adjusted(0, 0, missing, 0));
    setFixedSize(least + QSize(missing, 0));
}

void ProgressWindow::present()
{
    move(screen()->availableGeometry().center() - rect().center());
    show();
}
