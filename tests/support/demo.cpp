#include "tests/support/demo.h"

#include "link/pause.h"

Demo::Demo() : m_library(libraryPath())
{
    m_control = reinterpret_cast<Control>(m_library.resolve("klvDemo"));
    if (!m_control)
        qFatal("%s", qUtf8Printable(m_library.errorString()));
    (*this)(QStringLiteral("reset"));
    (*this)(QStringLiteral("timeouts immediate"));
    // Long enough for what a test does in one of them.
    pauses().share = 0.1;
}

QString Demo::libraryPath()
{
    return QStringLiteral(KLV_DEMO_LIBRARY);
}

QString Demo::operator()(const QString& command)
{
    const QString answer = QString::fromUtf8(m_control(command.toUtf8().constData()));
    if (answer.startsWith(QLatin1String("error:")))
        qFatal("demo \"%s\": %s", qUtf8Printable(command), qUtf8Printable(answer));
    return answer;
}

QStringList Demo::takeTranscript()
{
    const QStringList lines =
        (*this)(QStringLiteral("transcript")).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    (*this)(QStringLiteral("clear"));
    return lines;
}

QStringList Demo::takeSent()
{
    QStringList sent;
    const QStringList lines = takeTranscript();
    for (const QString& line : lines) {
        if (line.startsWith(QLatin1String("> ")))
            sent << line.mid(2);
    }
    return sent;
}

QStringList Demo::takeCommands()
{
    QStringList commands = {QString()};
    for (const QString& line : takeSent()) {
        if (line == QLatin1String("SYSTem:ERRor?\\n"))
            commands.last() += QLatin1Char('!');
        else if (line == QLatin1String("*OPC?"))
            commands.last() += QLatin1Char('~');
        else if (line.endsWith(QLatin1String("\\n")))
            commands << line.chopped(2);
        else
            commands << line + QLatin1String(" without line feed");
    }
    if (commands.first().isEmpty())
        commands.removeFirst();
    return commands;
}
