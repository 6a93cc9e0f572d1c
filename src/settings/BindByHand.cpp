#include "settings/BindByHand.h"

#include "base/Fonts.h"
#include "l10n/L10n.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QStandardPaths>

namespace {

constexpr double textSize = 13; // points
constexpr int spacing = 8;
constexpr int slack = 16; // beside the text, for the field's frame

QString quoted(QString path)
{
    static const QRegularExpression special(QStringLiteral("[^A-Za-z0-9_./+-]"));
    if (!path.contains(special))
        return path;
    return u'\'' + path.replace(u'\'', QStringLiteral("'\\''")) + u'\'';
}

} // namespace

QString BindByHand::command()
{
    const QString here = QCoreApplication::applicationFilePath();
    const QString found = QStandardPaths::findExecutable(QStringLiteral("vellumora"));
    const bool isFound
        = !found.isEmpty() && QFileInfo(found).canonicalFilePath() == QFileInfo(here).canonicalFilePath();
    const QString program = isFound ? QStringLiteral("vellumora") : quoted(here);
    return program + QStringLiteral(" --capturar");
}

BindByHand::BindByHand(QWidget *parent) : QWidget(parent), m_command(new QLineEdit(command(), this))
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(qRound(textSize * Fonts::enlargement()));
    m_command->setFont(font);
    m_command->setReadOnly(true);
    m_command->setCursorPosition(0);
    m_command->setMinimumWidth(QFontMetrics(font).horizontalAdvance(QStringLiteral("vellumora --capturar"))
                               + slack);
    m_command->setAccessibleName(L10n::t(u"Atajo para capturar"));
    auto *copy = new QPushButton(L10n::t(u"Copiar"), this);
    connect(copy, &QPushButton::clicked, this, [this] {
        m_command->selectAll();
        if (onCopy)
            onCopy(m_command->text());
    });
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(spacing);
    row->addWidget(m_command, 1);
    row->addWidget(copy);
    setFocusProxy(copy);
}
