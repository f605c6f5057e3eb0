#include "tests/support/wire_rig.h"

#include <QTimer>

#include <clocale>

void when(QObject& context, const std::function<bool()>& condition,
          const std::function<void()>& action)
{
    auto* timer = new QTimer(&context);
    QObject::connect(timer, &QTimer::timeout, &context, [=] {
        if (!condition())
            return;
        timer->stop();
        action();
    });
    timer->start(1);
}

void whenSent(QObject& context, Demo& demo, const QString& text,
              const std::function<void()>& action)
{
    when(
        context, [&demo, text] { return demo(QStringLiteral("transcript")).contains(text); },
        action);
}

WireRig::WireRig()
{
    std::setlocale(LC_NUMERIC, "C");
    visa.load(Demo::libraryPath().toLocal8Bit().constData());
    session.openResourceManager();
    open();
}

void WireRig::open()
{
    if (!session.open(QStringLiteral("USB0::0x5645::0x0040::20215678::0::INSTR")))
        qFatal("no instrument");
    session.setConnected();
    demo.takeTranscript();
}

void WireRig::click(const QString& names)
{
    for (const QString& name : names.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        get(name)->click();
}
