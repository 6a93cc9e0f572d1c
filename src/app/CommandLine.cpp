#include "app/CommandLine.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace {

// Hands out the arguments one after another.
class Reader {
public:
    explicit Reader(const QStringList &arguments) : m_arguments(arguments) {}

    [[nodiscard]] bool atEnd() const { return m_next >= m_arguments.size(); }
    QString next() { return m_arguments.at(m_next++); }

    // As many as asked for, or all that are left and an empty list.
    QStringList take(qsizetype count)
    {
        const QStringList taken = m_arguments.mid(m_next, count);
        m_next += taken.size();
        return taken.size() == count ? taken : QStringList();
    }

    // Absent where the next one is empty or a flag, or none is left. A flag stays.
    std::optional<QString> takeValue()
    {
        if (atEnd() || m_arguments.at(m_next).startsWith(u"--"))
            return std::nullopt;
        const QString value = next();
        return value.isEmpty() ? std::nullopt : std::optional(value);
    }

private:
    const QStringList &m_arguments;
    qsizetype m_next = 0;
};

std::optional<CommandLine::PictureRun> pictureRun(const QStringList &arguments)
{
    if (arguments.isEmpty())
        return std::nullopt;
    return CommandLine::PictureRun{arguments.at(0), arguments.at(1)};
}

bool readMode(const QString &flag, Reader &reader, CommandLine &line)
{
    if (flag == u"--demo")
        line.demo = pictureRun(reader.take(2));
    else if (flag == u"--prueba-halo")
        line.haloTest = pictureRun(reader.take(2));
    else if (flag == u"--selftest")
        line.selfTest = reader.take(1).value(0);
    else
        return false;
    line.anyMode = true;
    if (line.selfTest && line.selfTest->isEmpty())
        line.selfTest.reset();
    return true;
}

bool *plainFlag(const QString &flag, CommandLine &line)
{
    if (flag == u"--help" || flag == u"-h")
        return &line.help;
    if (flag == u"--version" || flag == u"-v")
        return &line.version;
    if (flag == u"--capturar")
        return &line.capture;
    if (flag == u"--ajustes")
        return &line.settings;
    if (flag == u"--salir")
        return &line.quit;
    return nullptr;
}

// What follows the flags of a picture for a script.
using Values = QHash<QString, QString>;

struct ScriptFlag {
    QStringView name;
    const char *wants;
};

constexpr ScriptFlag output{u"--salida", "a file, or - for standard output"};
constexpr ScriptFlag screen{u"--pantalla", "the name of a screen, or todas"};
constexpr ScriptFlag region{u"--region", "X,Y,WxH in device pixels, such as 0,0,800x600"};
constexpr std::array scriptFlags{output, screen, region};

QString complaint(const ScriptFlag &flag)
{
    return QStringLiteral("%1 wants %2").arg(flag.name.toString(), QString::fromLatin1(flag.wants));
}

bool readScriptFlag(const QString &argument, Reader &reader, Values &values, CommandLine &line)
{
    const auto named = [&](const ScriptFlag &flag) { return argument == flag.name; };
    const auto flag = std::ranges::find_if(scriptFlags, named);
    if (flag == scriptFlags.end())
        return false;
    if (const auto value = reader.takeValue())
        values.insert(argument, *value);
    else if (!line.misuse)
        line.misuse = complaint(*flag);
    return true;
}

std::optional<QRect> rectangleIn(const QString &text)
{
    // Of six digits at most, so that no sum of them is too large.
    static const QRegularExpression form(QRegularExpression::anchoredPattern(
        QStringLiteral("(-?[0-9]{1,6}),(-?[0-9]{1,6}),([0-9]{1,6})x([0-9]{1,6})")));
    const auto match = form.match(text);
    const auto number = [&](int which) { return match.captured(which).toInt(); };
    const QRect rectangle(number(1), number(2), number(3), number(4));
    return match.hasMatch() && !rectangle.isEmpty() ? std::optional(rectangle) : std::nullopt;
}

// Makes one wish of the flags, or says what is wrong with them.
void readScript(const Values &values, CommandLine &line)
{
    const auto valueOf = [&](const ScriptFlag &flag) {
        const auto found = values.constFind(flag.name.toString());
        return found != values.constEnd() ? std::optional(*found) : std::nullopt;
    };
    const auto file = valueOf(output);
    const auto pixels = valueOf(region);
    const auto rectangle = pixels ? rectangleIn(*pixels) : std::nullopt;
    if (!line.capture || line.settings || line.quit || line.anyMode)
        line.misuse = QStringLiteral("--salida, --pantalla and --region go with --capturar and nothing else");
    else if (!file)
        line.misuse = QStringLiteral("where does the picture go? ") + complaint(output);
    else if (pixels && !rectangle)
        line.misuse = complaint(region) + QStringLiteral(", not \"%1\"").arg(*pixels);
    else
        line.script = ScriptCapture::Order{.region = rectangle, .screen = valueOf(screen), .output = *file};
}

} // namespace

CommandLine CommandLine::parse(const QStringList &arguments)
{
    CommandLine line;
    Reader reader(arguments);
    Values values;
    while (!reader.atEnd()) {
        const QString argument = reader.next();
        if (bool *flag = plainFlag(argument, line))
            *flag = true;
        else if (!readMode(argument, reader, line) && !readScriptFlag(argument, reader, values, line)
                 && !line.unknown)
            line.unknown = argument;
    }
    if (!values.isEmpty() && !line.misuse)
        readScript(values, line);
    line.anyMode = line.anyMode || line.script;
    return line;
}

QString CommandLine::helpText()
{
    return QStringLiteral("Usage: vellumora [FLAG]\n"
                          "\n"
                          "Without a flag Vellumora goes to the tray and waits for its shortcut. If it is\n"
                          "there already, its settings open.\n"
                          "\n"
                          "  --capturar              capture now\n"
                          "  --capturar --salida FILE|- [--pantalla NAME|todas] [--region X,Y,WxH]\n"
                          "                          write a PNG picture for a script, in device pixels\n"
                          "  --ajustes               open the settings\n"
                          "  --salir                 end the Vellumora that is running\n"
                          "  --demo PICTURE FOLDER   write pictures of a scripted capture of PICTURE\n"
                          "  --prueba-halo PICTURE FOLDER\n"
                          "                          film the glow round a selection and time its frames\n"
                          "  --selftest FOLDER       report which services work on this desktop\n"
                          "  --version               say which version this is\n"
                          "  --help                  say this\n");
}
