<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU" sourcelanguage="en">
<context>
    <name>ErrorBox</name>
    <message>
        <source>Error</source>
        <translation>Ошибка</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Put the message away (Esc)</source>
        <translation>Убрать сообщение (Esc)</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Lit while an instrument is connected</source>
        <translation>Горит, пока прибор подключён</translation>
    </message>
    <message>
        <source>Connection lamp</source>
        <translation>Индикатор подключения</translation>
    </message>
    <message>
        <source>Model and last four characters of the serial number of the connected instrument</source>
        <translation>Модель и последние четыре знака серийного номера подключённого прибора</translation>
    </message>
    <message>
        <source>Instrument</source>
        <translation>Прибор</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Не подключено</translation>
    </message>
    <message>
        <source>Search for an instrument and connect to it, or hand it back (Ctrl+D)</source>
        <translation>Найти прибор и подключиться к нему либо отключиться от него (Ctrl+D)</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Подключение</translation>
    </message>
    <message>
        <source>Connect to device</source>
        <translation>Подключиться</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Отключиться</translation>
    </message>
    <message>
        <source>Menu (F10)</source>
        <translation>Меню (F10)</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Меню</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Свернуть</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>Enter the frequency (Ctrl+F)</source>
        <translation>Ввести частоту (Ctrl+F)</translation>
    </message>
    <message>
        <source>Enter the frequency</source>
        <translation>Ввести частоту</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Частота</translation>
    </message>
    <message>
        <source>RF frequency in hertz; k, m or g after the number: kilo, mega, giga (Ctrl+F; Up and Down or the wheel: one step)</source>
        <translation>Частота ВЧ в герцах; k, m или g после числа: кило, мега, гига (Ctrl+F; стрелки вверх и вниз или колесо: один шаг)</translation>
    </message>
    <message>
        <source>RF frequency in hertz</source>
        <translation>Частота ВЧ в герцах</translation>
    </message>
    <message>
        <source>Hz</source>
        <translation>Гц</translation>
    </message>
    <message>
        <source>Enter the power (Ctrl+P)</source>
        <translation>Ввести мощность (Ctrl+P)</translation>
    </message>
    <message>
        <source>Enter the power</source>
        <translation>Ввести мощность</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Мощность</translation>
    </message>
    <message>
        <source>Maximum power mode is on: the output power is not calibrated</source>
        <translation>Включён режим максимальной мощности: выходная мощность не калибрована</translation>
    </message>
    <message>
        <source>Maximum power mode is on</source>
        <translation>Режим максимальной мощности включён</translation>
    </message>
    <message>
        <source>MAX POW</source>
        <translation>МАКС. МОЩН.</translation>
    </message>
    <message>
        <source>RF power in whole dBm (Ctrl+P; Up and Down or the wheel: one step)</source>
        <translation>Мощность ВЧ в целых дБм (Ctrl+P; стрелки вверх и вниз или колесо: один шаг)</translation>
    </message>
    <message>
        <source>RF power in dBm</source>
        <translation>Мощность ВЧ в дБм</translation>
    </message>
    <message>
        <source>dBm</source>
        <translation>дБм</translation>
    </message>
    <message>
        <source>Lit while the RF output is switched on</source>
        <translation>Горит, пока выход ВЧ включён</translation>
    </message>
    <message>
        <source>RF output lamp</source>
        <translation>Индикатор выхода ВЧ</translation>
    </message>
    <message>
        <source>RF</source>
        <translation>ВЧ</translation>
    </message>
    <message>
        <source>Lit while the external reference is selected</source>
        <translation>Горит, пока выбран внешний опорный сигнал</translation>
    </message>
    <message>
        <source>External reference lamp</source>
        <translation>Индикатор внешнего опорного сигнала</translation>
    </message>
    <message>
        <source>EXT REF</source>
        <translation>ВНЕШ. ОПОРА</translation>
    </message>
    <message>
        <source>Active modulation: AM, FM or PM</source>
        <translation>Включённая модуляция: АМ, ЧМ или ФМ</translation>
    </message>
    <message>
        <source>Active modulation</source>
        <translation>Включённая модуляция</translation>
    </message>
    <message>
        <source>Pulse modulation is on</source>
        <translation>Импульсная модуляция включена</translation>
    </message>
    <message>
        <source>Pulse modulation</source>
        <translation>Импульсная модуляция</translation>
    </message>
    <message>
        <source>The LF generator is on</source>
        <translation>Генератор НЧ включён</translation>
    </message>
    <message>
        <source>LF generator</source>
        <translation>Генератор НЧ</translation>
    </message>
    <message>
        <source>The reference oscillator is not locked</source>
        <translation>Опорный генератор не захвачен</translation>
    </message>
    <message>
        <source>Reference not locked</source>
        <translation>Нет захвата опорного сигнала</translation>
    </message>
    <message>
        <source>UNLOCK</source>
        <translation>НЕТ ЗАХВАТА</translation>
    </message>
    <message>
        <source>The instrument reports condition 329</source>
        <translation>Прибор сообщает о состоянии 329</translation>
    </message>
    <message>
        <source>Condition 329</source>
        <translation>Состояние 329</translation>
    </message>
    <message>
        <source>Rf output switch (Ctrl+R)</source>
        <translation>Выключатель выхода ВЧ (Ctrl+R)</translation>
    </message>
    <message>
        <source>Rf output switch</source>
        <translation>Выключатель выхода ВЧ</translation>
    </message>
    <message>
        <source>RF OFF</source>
        <translation>ВЧ ВЫКЛ.</translation>
    </message>
    <message>
        <source>RF ON</source>
        <translation>ВЧ ВКЛ.</translation>
    </message>
    <message>
        <source>Reference</source>
        <translation>Опора</translation>
    </message>
    <message>
        <source>Frequency of the external reference in whole MHz</source>
        <translation>Частота внешнего опорного сигнала в целых мегагерцах</translation>
    </message>
    <message>
        <source>External reference frequency</source>
        <translation>Частота внешнего опорного сигнала</translation>
    </message>
    <message>
        <source>External reference frequency in whole MHz</source>
        <translation>Частота внешнего опорного сигнала в целых мегагерцах</translation>
    </message>
    <message>
        <source>Reference oscillator: internal, or external at the frequency shown (Ctrl+E)</source>
        <translation>Опорный генератор: внутренний или внешний с указанной частотой (Ctrl+E)</translation>
    </message>
    <message>
        <source>External reference</source>
        <translation>Внешний опорный сигнал</translation>
    </message>
    <message>
        <source>Checked: external reference; the caption is its frequency in MHz</source>
        <translation>Нажата: внешний опорный сигнал; надпись — его частота в мегагерцах</translation>
    </message>
    <message>
        <source>Enter the frequency of the external reference (Ctrl+Shift+E)</source>
        <translation>Ввести частоту внешнего опорного сигнала (Ctrl+Shift+E)</translation>
    </message>
    <message>
        <source>Enter the external reference frequency</source>
        <translation>Ввести частоту внешнего опорного сигнала</translation>
    </message>
    <message>
        <source>Open or close the modulation panel (F2)</source>
        <translation>Открыть или закрыть панель модуляции (F2)</translation>
    </message>
    <message>
        <source>Modulation panel</source>
        <translation>Панель модуляции</translation>
    </message>
    <message>
        <source>Modulation</source>
        <translation>Модуляция</translation>
    </message>
    <message>
        <source>Open or close the sweep and list panel (F3)</source>
        <translation>Открыть или закрыть панель качания и списка (F3)</translation>
    </message>
    <message>
        <source>Sweep and list panel</source>
        <translation>Панель качания и списка</translation>
    </message>
    <message>
        <source>Sweep/List</source>
        <translation>Качание/Список</translation>
    </message>
    <message>
        <source>Open or close the LF generator panel (F4)</source>
        <translation>Открыть или закрыть панель генератора НЧ (F4)</translation>
    </message>
    <message>
        <source>LF generator panel</source>
        <translation>Панель генератора НЧ</translation>
    </message>
    <message>
        <source>LF Generator</source>
        <translation>Генератор НЧ</translation>
    </message>
    <message>
        <source>Open or close the profiles panel (F5)</source>
        <translation>Открыть или закрыть панель профилей (F5)</translation>
    </message>
    <message>
        <source>Profiles panel</source>
        <translation>Панель профилей</translation>
    </message>
    <message>
        <source>Profiles</source>
        <translation>Профили</translation>
    </message>
    <message>
        <source>Open or close the service panel (F6)</source>
        <translation>Открыть или закрыть сервисную панель (F6)</translation>
    </message>
    <message>
        <source>Service panel</source>
        <translation>Сервисная панель</translation>
    </message>
    <message>
        <source>Service</source>
        <translation>Сервис</translation>
    </message>
    <message>
        <source>Switch the maximum (non-calibrated) power mode (Ctrl+B)</source>
        <translation>Переключить режим максимальной (некалиброванной) мощности (Ctrl+B)</translation>
    </message>
    <message>
        <source>Maximum power mode</source>
        <translation>Режим максимальной мощности</translation>
    </message>
    <message>
        <source>Max power</source>
        <translation>Макс. мощность</translation>
    </message>
    <message>
        <source>Status line</source>
        <translation>Строка состояния</translation>
    </message>
    <message>
        <source>Minimize (Ctrl+M)</source>
        <translation>Свернуть (Ctrl+M)</translation>
    </message>
    <message>
        <source>Close (Ctrl+Q)</source>
        <translation>Закрыть (Ctrl+Q)</translation>
    </message>
</context>
</TS>
