#pragma once

#include <QLibrary>
#include <QStringList>

/// The simulated instrument from behind: what it saw on the wire, and what is to go wrong. Starts
/// from power-on, with time-outs that do not really wait and pauses of a tenth of their length.
class Demo
{
public:
    Demo();

    /// Path of the VISA library, for --visa.
    static QString libraryPath();

    /// Executes one control command; a refused one ends the test program.
    QString operator()(const QString& command);

    /// The wire since the last call: "> sent", "< received", "open ...", "close", "timeout".
    QStringList takeTranscript();

    /// Only what was sent since the last call; the line feed shows as "\n".
    QStringList takeSent();

    /// The same without line feeds; "!" stands for each look into the error queue and "~" for each
    /// "*OPC?" without one, behind the command before it.
    QStringList takeCommands();

private:
    using Control = const char* (*)(const char* command);

    QLibrary m_library;
    Control m_control;
};
