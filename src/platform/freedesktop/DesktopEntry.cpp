#include "platform/freedesktop/DesktopEntry.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace {

constexpr QByteArrayView mainGroup = "[Desktop Entry]";

QByteArrayView keyOf(const QByteArray &line)
{
    const auto end = line.indexOf('=');
    return end < 0 || line.startsWith('#') ? QByteArrayView() : QByteArrayView(line).first(end).trimmed();
}

// The numbers of the first line of the main group and of the one after its last.
std::pair<qsizetype, qsizetype> mainGroupOf(const QList<QByteArray> &lines)
{
    const auto isHead = [](const QByteArray &line) { return line.trimmed().startsWith('['); };
    const auto head = std::ranges::find_if(
        lines, [](const QByteArray &line) { return QByteArrayView(line).trimmed() == mainGroup; });
    if (head == lines.end())
        return {lines.size(), lines.size()};
    return {head - lines.begin() + 1, std::find_if(head + 1, lines.end(), isHead) - lines.begin()};
}

std::optional<qsizetype> lineWith(const QList<QByteArray> &lines, QByteArrayView key)
{
    const auto [first, last] = mainGroupOf(lines);
    for (qsizetype i = first; i < last; ++i)
        if (keyOf(lines[i]) == key)
            return i;
    return std::nullopt;
}

QString unescaped(const QString &text)
{
    constexpr QStringView letters = u"sntr\\";
    constexpr QStringView meanings = u" \n\t\r\\";
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto which = text[i] == u'\\' && i + 1 < text.size() ? letters.indexOf(text[i + 1]) : -1;
        plain += which < 0 ? text[i] : meanings[which];
        i += which < 0 ? 0 : 1;
    }
    return plain;
}

// Splits a command as desktops do, which is as a shell does without its expansions.
class Splitter {
public:
    // Absent when a quote is never closed.
    std::optional<QStringList> split(const QString &command)
    {
        for (const QChar c : command)
            take(c);
        endWord();
        return m_quote.isNull() && !m_escaped ? std::optional(m_words) : std::nullopt;
    }

private:
    void take(QChar c)
    {
        const bool endsQuote = !m_quote.isNull() && c == m_quote;
        if (std::exchange(m_escaped, false)) {
            // In quotes a backslash stands for itself before most characters.
            if (m_quote == u'"' && !QStringView(u"\"`$\\").contains(c))
                m_word += u'\\';
            add(c);
        } else if (c == u'\\' && m_quote != u'\'') {
            m_escaped = true;
        } else if (endsQuote) {
            m_quote = QChar();
        } else if (m_quote.isNull() && (c == u'"' || c == u'\'')) {
            m_quote = c;
            m_inWord = true;
        } else if (m_quote.isNull() && c.isSpace()) {
            endWord();
        } else {
            add(c);
        }
    }

    void add(QChar c)
    {
        m_word += c;
        m_inWord = true;
    }

    void endWord()
    {
        if (std::exchange(m_inWord, false))
            m_words.append(std::exchange(m_word, QString()));
    }

    QStringList m_words;
    QString m_word;
    bool m_inWord = false;
    bool m_escaped = false;
    QChar m_quote;
};

// "%f" and the like stand for files, of which there are none here.
QString withoutFields(const QString &word)
{
    QString plain;
    for (qsizetype i = 0; i < word.size(); ++i) {
        if (word[i] != u'%')
            plain += word[i];
        else if (++i < word.size() && word[i] == u'%')
            plain += u'%';
    }
    return plain;
}

// What env runs: the first word that is neither an option nor a variable.
QString afterEnv(const QStringList &words)
{
    for (qsizetype i = 1; i < words.size(); ++i) {
        const QString &word = words[i];
        if (QStringList{u"-u"_qs, u"--unset"_qs, u"-C"_qs, u"--chdir"_qs}.contains(word))
            ++i;
        else if (!word.startsWith(u'-') && !word.contains(u'='))
            return word;
    }
    return {};
}

QString found(const QString &name)
{
    const QString path = QFileInfo(name).isAbsolute() ? name : QStandardPaths::findExecutable(name);
    const QFileInfo file(path);
    return file.isFile() && file.isExecutable() ? file.canonicalFilePath() : QString();
}

bool namesThisDesktop(const QString &list)
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
    return std::ranges::any_of(list.split(u';', Qt::SkipEmptyParts),
                               [&](const QString &name) { return desktops.contains(name); });
}

} // namespace

namespace DesktopEntry {

std::optional<QString> value(const QByteArray &entry, QByteArrayView key)
{
    const auto lines = entry.split('\n');
    const auto at = lineWith(lines, key);
    if (!at)
        return std::nullopt;
    const QByteArray &line = lines[*at];
    return unescaped(QString::fromUtf8(line.mid(line.indexOf('=') + 1).trimmed()));
}

QByteArray withLine(const QByteArray &entry, const QByteArray &key, const QByteArray &value)
{
    auto lines = entry.split('\n');
    const QByteArray line = key + '=' + value;
    if (const auto at = lineWith(lines, key))
        lines[*at] = line;
    else
        lines.insert(mainGroupOf(lines).first, line);
    return lines.join('\n');
}

QStringList words(const QString &exec)
{
    QStringList plain;
    for (const QString &word : Splitter().split(exec).value_or(QStringList()))
        plain.append(withoutFields(word));
    return plain;
}

QString program(const QByteArray &entry)
{
    const QStringList all = words(value(entry, "Exec").value_or(QString()));
    const QString first = all.value(0);
    return found(QFileInfo(first).fileName() == u"env" ? afterEnv(all) : first);
}

bool switchedOn(const QByteArray &entry)
{
    const auto is = [&](const char *key, QStringView wanted) { return value(entry, key) == wanted; };
    const auto needed = value(entry, "TryExec");
    const auto only = value(entry, "OnlyShowIn");
    return is("Type", u"Application") && !is("Hidden", u"true") && !is("X-GNOME-Autostart-enabled", u"false")
           && (!needed || !found(*needed).isEmpty()) && (!only || namesThisDesktop(*only))
           && !namesThisDesktop(value(entry, "NotShowIn").value_or(QString()));
}

} // namespace DesktopEntry
