#pragma once

#include <QMap>
#include <QStringList>
#include <QXmlStreamReader>

// Set-ups of all panels that between them move every control, and what profile files say of them.

struct SetUp {
    const char* name;
    const char* actions; ///< clicks, and entries after an equals sign
};
inline const SetUp setUps[] = {
    {"AM, power sweep",
     "MainWindow/FREQ=5M MainWindow/POW=-7 MainWindow/ROSC MainWindow/open_ROSC_FREQ "
     "MainWindow/ROSC_FREQ=25 Modulat/AM Modulat/Rect_Ampl Modulat/line_Ampl_1=2500 "
     "Modulat/line_Ampl_2=37.5 Modulat/percentLine_Ampl=30 Modulat/Pulse Modulat/line_period=700 "
     "Modulat/line_width=600 Modulat/SawPos_FREQ Modulat/SawNeg_Phase List/List_is_Checked "
     "List/int_select List/trigMode List/modeFront List/power_toFrom_freq List/Freq_Pow=3G "
     "List/Start=-15 List/Stop=5 List/Step=7 List/Time=2m MainWindow/logarithmicFrequency"},
    {"FM, external",
     "MainWindow/FREQ=2.5G MainWindow/POW=3 Modulat/FM Modulat/SawNeg_FREQ "
     "Modulat/line_FREQ_1=4000 "
     "Modulat/line_FREQ_2=12.5 Modulat/percentLine_FREQ=20 Modulat/IntExt_FM Modulat/line_period=9 "
     "Modulat/line_width=2 Modulat/IntExt_PULM Modulat/Pulse Modulat/SawPos_Ampl "
     "Modulat/Random_Phase List/ext_select List/Freq_Pow=4 List/Start=1G List/Stop=2G"},
    {"PM, by hand",
     "MainWindow/FREQ=100k Modulat/PM Modulat/Triangle_Phase Modulat/line_Phase_1=99 "
     "Modulat/line_Phase_2=1.5 Modulat/Rect_Phase Modulat/percentLine_Phase=77 "
     "Modulat/SawPos_Phase Modulat/IntExt_AM Modulat/Triangle_Ampl Modulat/Random_FREQ "
     "Modulat/line_period=100000 Modulat/line_width=50000 List/time_select List/power_toFrom_freq "
     "List/Start=-1"},
    {"LF square",
     "Modulat/IntExt_PM Modulat/Random_Ampl Modulat/Triangle_FREQ Modulat/Rect_FREQ "
     "generator/rectangle_select generator/FREQ=333 generator/VOLTAGE=2.5 generator/percent=25 "
     "Modulat/SawNeg_Ampl"},
    {"LF sine", "generator/sine_select MainWindow/ROSC Modulat/Rect_Phase Modulat/Triangle_FREQ"},
    {"LF ramp up", "generator/sawPos_select Modulat/Random_Ampl Modulat/Triangle_Phase"},
    {"LF ramp down", "generator/sawNeg_select"},
    {"LF triangle", "generator/triangle_select"},
    {"LF noise", "generator/random_select"},
    {"LF DC", "generator/dc_select generator/VOLTAGE=0.75"}};

/// A number without what an instrument's answer and a default differ in.
inline QString plain(const QString& text)
{
    bool isNumber = false;
    const double number = QString(text).chopped(2).remove(' ').toDouble(&isNumber);
    return isNumber ? QString::number(number, 'g', 12) + text.right(2) : text;
}

using Content = QMap<QString, QString>;

/// What a profile file says, by element names.
inline Content contentOf(const QByteArray& bytes)
{
    Content content;
    QString panel;
    QXmlStreamReader xml(bytes);
    for (xml.readNextStartElement(); !xml.atEnd(); xml.readNext()) {
        if (!xml.isStartElement())
            continue;
        const QString name = xml.name().toString();
        xml.readNext();
        const QString text = xml.text().toString();
        if (text.trimmed().isEmpty())
            panel = name;
        else
            content[panel + '/' + name] = plain(text);
    }
    return content;
}

inline QStringList differences(const Content& first, const Content& second)
{
    QStringList found;
    const QStringList names = first.keys() + second.keys();
    for (const QString& name : names) {
        if (first.value(name) != second.value(name))
            found << name + ": " + first.value(name) + ", " + second.value(name);
    }
    return found;
}
