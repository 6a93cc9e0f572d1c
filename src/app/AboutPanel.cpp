#include "app/AboutPanel.h"

#include "base/Fonts.h"
#include "l10n/L10n.h"
#include "settings/LabelColors.h"
#include "updater/Version.h"

#include <QApplication>
#include <QDialog>
#include <QIcon>
#include <QLabel>
#include <QPalette>
#include <QVBoxLayout>

namespace {

constexpr int iconSide = 96; // points
constexpr double nameSize = 17;
constexpr double textSize = 11;
constexpr double gapSize = 6;
constexpr int paragraphSpacing = 4;
constexpr int sideMargin = 36;
constexpr int endMargin = 24; // above and below
constexpr int rowSpacing = 8;

QString span(const QString &text, const QColor &color)
{
    return QStringLiteral("<span style=\"color: %1\">%2</span>").arg(color.name(), text.toHtmlEscaped());
}

// An empty one is as high as a line of that size.
QString paragraph(const QString &html, double size)
{
    return QStringLiteral(
               "<p align=\"center\" style=\"margin-top: 0; margin-bottom: %1px; font-size: %2px\">%3</p>")
        .arg(paragraphSpacing)
        .arg(qRound(size * Fonts::enlargement()))
        .arg(html.isEmpty() ? QStringLiteral("&nbsp;") : html);
}

QString link(const QString &text, const QUrl &address)
{
    return QStringLiteral("<a href=\"%1\" style=\"font-weight: 500\">%2</a>")
        .arg(address.toString(QUrl::FullyEncoded).toHtmlEscaped(), text.toHtmlEscaped());
}

QLabel *centred(const QString &text, const QFont &font, QWidget &panel)
{
    auto *label = new QLabel(text, &panel);
    label->setFont(font);
    label->setAlignment(Qt::AlignHCenter);
    return label;
}

QDialog *makeWindow(const std::function<void(const QUrl &)> &openLink)
{
    auto *panel = new QDialog;
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setWindowTitle(L10n::t(u"Acerca de Vellumora…").remove(u'…').trimmed());
    auto *icon = new QLabel(panel);
    icon->setPixmap(QApplication::windowIcon().pixmap(QSize(iconSide, iconSide), panel->devicePixelRatioF()));
    icon->setAccessibleName(QStringLiteral("Vellumora"));
    icon->setAlignment(Qt::AlignHCenter);
    auto *credits = centred(AboutPanel::credits(), Fonts::window(textSize), *panel);
    credits->setTextFormat(Qt::RichText);
    credits->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    QObject::connect(credits, &QLabel::linkActivated, panel,
                     [openLink](const QString &address) { openLink(QUrl(address)); });
    auto *rows = new QVBoxLayout(panel);
    rows->setContentsMargins(sideMargin, endMargin, sideMargin, endMargin);
    rows->setSpacing(rowSpacing);
    rows->addWidget(icon);
    rows->addWidget(centred(QStringLiteral("Vellumora"), Fonts::window(nameSize, QFont::Bold), *panel));
    rows->addWidget(centred(Version::current(), Fonts::window(textSize), *panel));
    rows->addWidget(credits);
    rows->addWidget(centred(QStringLiteral("© KLV"), Fonts::window(textSize), *panel));
    return panel;
}

} // namespace

AboutPanel::AboutPanel(std::function<void(const QUrl &)> openLink) : m_openLink(std::move(openLink)) {}

AboutPanel::~AboutPanel() { delete m_window; }

void AboutPanel::show()
{
    if (!m_window)
        m_window = makeWindow(m_openLink);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

QString AboutPanel::credits()
{
    const QString about = L10n::t(u"Capturas de pantalla rápidas.\nTus capturas no salen de tu ordenador.");
    const QString separator = QStringLiteral("\u00a0\u00a0\u00a0·\u00a0\u00a0\u00a0");
    const QPalette palette = QApplication::palette();
    QString text;
    for (const QString &line : about.split(u'\n'))
        text += paragraph(span(line, LabelColors::secondary(palette)), textSize);
    text += paragraph({}, textSize);
    text += paragraph(link(L10n::web().host(), L10n::web()) + span(separator, LabelColors::tertiary(palette))
                          + link(L10n::t(u"Aviso legal"), L10n::legal()),
                      textSize);
    text += paragraph({}, gapSize);
    return text + paragraph(link(L10n::t(u"☕ Invítame a un café"), L10n::cafe()), textSize);
}
