#include "updater/Version.h"

#include <QList>

#include <algorithm>

namespace {

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

qint64 numberOf(QStringView piece)
{
    const bool sign = piece.startsWith(u'-') || piece.startsWith(u'+');
    // Qt would also read blanks around the digits.
    const bool number = std::ranges::all_of(piece.mid(sign ? 1 : 0), isDigit);
    return number ? piece.toLongLong() : 0;
}

QList<qint64> numbersOf(QStringView version)
{
    QList<qint64> numbers;
    for (const QStringView piece : version.split(u'.', Qt::SkipEmptyParts))
        numbers.append(numberOf(piece));
    return numbers;
}

} // namespace

namespace Version {

QString current() { return QStringLiteral(VELLUMORA_VERSION); }

bool isNewer(QStringView a, QStringView than)
{
    auto ours = numbersOf(a);
    auto theirs = numbersOf(than);
    const auto length = std::max(ours.size(), theirs.size());
    ours.resize(length);
    theirs.resize(length);
    return ours > theirs;
}

} // namespace Version
