#include "app/CommandLine.h"

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

} // namespace

CommandLine CommandLine::parse(const QStringList &arguments)
{
    CommandLine line;
    Reader reader(arguments);
    while (!reader.atEnd()) {
        const QString argument = reader.next();
        if (bool *flag = plainFlag(argument, line))
            *flag = true;
        else if (!readMode(argument, reader, line) && !line.unknown)
            line.unknown = argument;
    }
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
                          "  --ajustes               open the settings\n"
                          "  --salir                 end the Vellumora that is running\n"
                          "  --demo PICTURE FOLDER   write pictures of a scripted capture of PICTURE\n"
                          "  --prueba-halo PICTURE FOLDER\n"
                          "                          film the glow round a selection and time its frames\n"
                          "  --selftest FOLDER       report which services work on this desktop\n"
                          "  --version               say which version this is\n"
                          "  --help                  say this\n");
}
