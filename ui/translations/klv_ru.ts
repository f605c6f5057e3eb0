<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU" sourcelanguage="en">
<context>
    <name>Connection</name>
    <message>
        <source>Searching for instruments...</source>
        <translation>Поиск приборов...</translation>
    </message>
    <message>
        <source>Choose an instrument</source>
        <translation>Выберите прибор</translation>
    </message>
    <message>
        <source>No instrument found</source>
        <translation>Прибор не найден</translation>
    </message>
    <message>
        <source>Another running copy of the program holds this instrument</source>
        <translation>Прибор занят другой запущенной копией программы</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>Подключение...</translation>
    </message>
    <message>
        <source>The instrument could not be opened</source>
        <translation>Не удалось открыть прибор</translation>
    </message>
    <message>
        <source>Waiting for the instrument to leave its mass-storage mode</source>
        <translation>Прибор выходит из режима запоминающего устройства</translation>
    </message>
    <message>
        <source>no access to the device</source>
        <translation>нет доступа к прибору</translation>
    </message>
    <message>
        <source>Software version is not compatible with this version of KLV firmware. 
 Please use KLV 2.3 software or lower.</source>
        <translation>Версия программы несовместима с этой версией прошивки KLV. 
 Используйте программу KLV версии 2.3 или ниже.</translation>
    </message>
    <message>
        <source>connection error</source>
        <translation>ошибка связи</translation>
    </message>
    <message>
        <source>Setting up the instrument...</source>
        <translation>Настройка прибора...</translation>
    </message>
    <message>
        <source>The instrument has been unplugged</source>
        <translation>Прибор отсоединён</translation>
    </message>
</context>
<context>
    <name>CwControls</name>
    <message>
        <source> MHz</source>
        <translation> МГц</translation>
    </message>
    <message>
        <source>The external reference is not locked</source>
        <translation>Нет захвата внешнего опорного сигнала</translation>
    </message>
</context>
<context>
    <name>EntryUnit</name>
    <message>
        <source>dB</source>
        <translation>дБ</translation>
    </message>
    <message>
        <source>ns</source>
        <translation>нс</translation>
    </message>
    <message>
        <source>dBm</source>
        <translation>дБм</translation>
    </message>
    <message>
        <source>MHz</source>
        <translation>МГц</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>rad</source>
        <translation>рад</translation>
    </message>
    <message>
        <source>GHz</source>
        <translation>ГГц</translation>
    </message>
    <message>
        <source>kHz</source>
        <translation>кГц</translation>
    </message>
    <message>
        <source>Hz</source>
        <translation>Гц</translation>
    </message>
    <message>
        <source>s</source>
        <translation>с</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>мс</translation>
    </message>
    <message>
        <source>µs</source>
        <translation>мкс</translation>
    </message>
    <message>
        <source>V</source>
        <translation>В</translation>
    </message>
    <message>
        <source>mV</source>
        <translation>мВ</translation>
    </message>
</context>
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
    <name>FoldBox</name>
    <message>
        <source>Fold the settings away</source>
        <translation>Свернуть настройки</translation>
    </message>
    <message>
        <source>Show the settings</source>
        <translation>Показать настройки</translation>
    </message>
</context>
<context>
    <name>Form</name>
    <message>
        <source>Serial: </source>
        <translation>Серийный номер: </translation>
    </message>
    <message>
        <source>Firmware revision:</source>
        <translation>Версия прошивки:</translation>
    </message>
    <message>
        <source>About</source>
        <translation>О программе</translation>
    </message>
    <message>
        <source>KLV Client</source>
        <translation>KLV Client</translation>
    </message>
    <message>
        <source>Software revision: 2.7.4</source>
        <translation>Версия программы: 2.7.4</translation>
    </message>
    <message>
        <source>This product uses  QT v 5.9.3</source>
        <translation>В программе использована библиотека QT v 5.9.3</translation>
    </message>
    <message>
        <source>Calibration due date:</source>
        <translation>Поверка действительна до:</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Обновить</translation>
    </message>
    <message>
        <source>Close this box (Escape)</source>
        <translation>Закрыть окно (Esc)</translation>
    </message>
    <message>
        <source>Update the firmware of the connected instrument</source>
        <translation>Обновить прошивку подключённого прибора</translation>
    </message>
    <message>
        <source>Support: </source>
        <translation>Поддержка: </translation>
    </message>
    <message>
        <source>Update: </source>
        <translation>Обновления: </translation>
    </message>
    <message>
        <source>software</source>
        <translation>программа</translation>
    </message>
    <message>
        <source>firmware</source>
        <translation>прошивка</translation>
    </message>
    <message>
        <source>License</source>
        <translation>Лицензия</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
</context>
<context>
    <name>GuiListKLV</name>
    <message>
        <source>All Device</source>
        <translation>Все приборы</translation>
    </message>
</context>
<context>
    <name>Keypad</name>
    <message>
        <source>Close without a change (Esc)</source>
        <translation>Закрыть без изменения (Esc)</translation>
    </message>
    <message>
        <source>Close keypad</source>
        <translation>Закрыть клавиатуру</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Ввод</translation>
    </message>
    <message>
        <source>Enter the number as it stands (Return)</source>
        <translation>Ввести число как есть (Enter)</translation>
    </message>
    <message>
        <source>Enter the number</source>
        <translation>Ввести число</translation>
    </message>
    <message>
        <source>Enter the step of the arrows and the wheel</source>
        <translation>Ввести шаг стрелок и колеса</translation>
    </message>
    <message>
        <source>%1: step</source>
        <translation>%1: шаг</translation>
    </message>
    <message>
        <source>Step %1</source>
        <translation>Шаг %1</translation>
    </message>
</context>
<context>
    <name>KeypadKeys</name>
    <message>
        <source>Digit %1</source>
        <translation>Цифра %1</translation>
    </message>
    <message>
        <source>Sign</source>
        <translation>Знак</translation>
    </message>
    <message>
        <source>Change the sign (-)</source>
        <translation>Сменить знак (-)</translation>
    </message>
    <message>
        <source>Decimal point</source>
        <translation>Десятичная точка</translation>
    </message>
    <message>
        <source>Decimal point (.)</source>
        <translation>Десятичная точка (.)</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Стереть</translation>
    </message>
    <message>
        <source>Delete the last character (Backspace)</source>
        <translation>Стереть последний знак (Backspace)</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Очистить</translation>
    </message>
    <message>
        <source>Clear the number</source>
        <translation>Очистить число</translation>
    </message>
    <message>
        <source>One step up</source>
        <translation>На шаг вверх</translation>
    </message>
    <message>
        <source>Set the value one step higher at once</source>
        <translation>Сразу увеличить значение на шаг</translation>
    </message>
    <message>
        <source>One step down</source>
        <translation>На шаг вниз</translation>
    </message>
    <message>
        <source>Set the value one step lower at once</source>
        <translation>Сразу уменьшить значение на шаг</translation>
    </message>
    <message>
        <source>Enter the number in %1</source>
        <translation>Ввести число в единицах: %1</translation>
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
        <source>Reference oscillator: internal, or external at the frequency shown (Ctrl+T)</source>
        <translation>Опорный генератор: внутренний или внешний с указанной частотой (Ctrl+T)</translation>
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
    <message>
        <source>The settings cannot be read: defaults are used</source>
        <translation>Настройки не читаются: используются значения по умолчанию</translation>
    </message>
    <message>
        <source>The settings cannot be written: changes will not be kept</source>
        <translation>Настройки не записываются: изменения не сохранятся</translation>
    </message>
    <message>
        <source>No VISA library found: install the maker&apos;s VISA library</source>
        <translation>Библиотека VISA не найдена: установите библиотеку VISA изготовителя</translation>
    </message>
    <message>
        <source>The help file is not beside the program</source>
        <translation>Файла справки нет рядом с программой</translation>
    </message>
    <message>
        <source>This version cannot apply profiles</source>
        <translation>Эта версия не умеет применять профили</translation>
    </message>
</context>
<context>
    <name>Modulat</name>
    <message>
        <source>Modulation</source>
        <translation>Модуляция</translation>
    </message>
</context>
<context>
    <name>ModulationGroup</name>
    <message>
        <source>AM</source>
        <translation>АМ</translation>
    </message>
    <message>
        <source>Amplitude modulation</source>
        <translation>Амплитудная модуляция</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>Глубина</translation>
    </message>
    <message>
        <source>FM</source>
        <translation>ЧМ</translation>
    </message>
    <message>
        <source>Frequency modulation</source>
        <translation>Частотная модуляция</translation>
    </message>
    <message>
        <source>Deviation</source>
        <translation>Девиация</translation>
    </message>
    <message>
        <source>PM</source>
        <translation>ФМ</translation>
    </message>
    <message>
        <source>Phase modulation</source>
        <translation>Фазовая модуляция</translation>
    </message>
    <message>
        <source>External source</source>
        <translation>Внешний источник</translation>
    </message>
    <message>
        <source>Switch the modulation on or off</source>
        <translation>Включить или выключить модуляцию</translation>
    </message>
    <message>
        <source>Shape of the internal source: %1</source>
        <translation>Форма сигнала внутреннего источника: %1</translation>
    </message>
    <message>
        <source>%1 source</source>
        <translation>Источник %1</translation>
    </message>
    <message>
        <source>Settings of the modulation</source>
        <translation>Настройки модуляции</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Частота</translation>
    </message>
    <message>
        <source>DUTY</source>
        <translation>Заполн.</translation>
    </message>
    <message>
        <source>AM depth in percent</source>
        <translation>Глубина АМ в процентах</translation>
    </message>
    <message>
        <source>FM deviation in hertz</source>
        <translation>Девиация ЧМ в герцах</translation>
    </message>
    <message>
        <source>PM deviation in radians</source>
        <translation>Девиация ФМ в радианах</translation>
    </message>
    <message>
        <source>Frequency of the internal source in hertz</source>
        <translation>Частота внутреннего источника в герцах</translation>
    </message>
    <message>
        <source>Duty of the rectangle in whole percent</source>
        <translation>Коэффициент заполнения прямоугольного сигнала в целых процентах</translation>
    </message>
</context>
<context>
    <name>PulseGroup</name>
    <message>
        <source>External source</source>
        <translation>Внешний источник</translation>
    </message>
    <message>
        <source>Pulse modulation</source>
        <translation>Импульсная модуляция</translation>
    </message>
    <message>
        <source>PulM</source>
        <translation>ИМ</translation>
    </message>
    <message>
        <source>Switch pulse modulation on or off</source>
        <translation>Включить или выключить импульсную модуляцию</translation>
    </message>
    <message>
        <source>Source of the pulses</source>
        <translation>Источник импульсов</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Период</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Длительность</translation>
    </message>
    <message>
        <source>Pulse period</source>
        <translation>Период импульсов</translation>
    </message>
    <message>
        <source>Pulse width</source>
        <translation>Длительность импульсов</translation>
    </message>
    <message>
        <source>%1: unit</source>
        <translation>%1: единица</translation>
    </message>
    <message>
        <source>Unit shown and typed: µs, ms, s or ns; a click takes the next one</source>
        <translation>Единица показа и ввода: мкс, мс, с или нс; щелчок выбирает следующую</translation>
    </message>
    <message>
        <source>Period of the pulses in the unit beside it</source>
        <translation>Период импульсов в единицах, указанных рядом</translation>
    </message>
    <message>
        <source>Width of the pulses in the unit beside it</source>
        <translation>Длительность импульсов в единицах, указанных рядом</translation>
    </message>
</context>
<context>
    <name>ScpiSession</name>
    <message>
        <source>connection error</source>
        <translation>ошибка связи</translation>
    </message>
</context>
<context>
    <name>ServiceCommands</name>
    <message>
        <source>error getting dac</source>
        <translation>ошибка чтения ЦАП</translation>
    </message>
    <message>
        <source>error getting temperature</source>
        <translation>ошибка чтения температуры</translation>
    </message>
</context>
<context>
    <name>Shape</name>
    <message>
        <source>Sine</source>
        <translation>Синус</translation>
    </message>
    <message>
        <source>Saw positive</source>
        <translation>Пила прямая</translation>
    </message>
    <message>
        <source>Saw negative</source>
        <translation>Пила обратная</translation>
    </message>
    <message>
        <source>Triangle</source>
        <translation>Треугольник</translation>
    </message>
    <message>
        <source>Random</source>
        <translation>Случайный</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Прямоугольник</translation>
    </message>
    <message>
        <source>DC</source>
        <translation>Постоянный</translation>
    </message>
</context>
<context>
    <name>SidePanel</name>
    <message>
        <source>Close panel</source>
        <translation>Закрыть панель</translation>
    </message>
</context>
<context>
    <name>Unit</name>
    <message>
        <source>s</source>
        <translation>с</translation>
    </message>
    <message>
        <source>Hz</source>
        <translation>Гц</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>rad</source>
        <translation>рад</translation>
    </message>
    <message>
        <source>V</source>
        <translation>В</translation>
    </message>
    <message>
        <source>p</source>
        <translation>п</translation>
    </message>
    <message>
        <source>n</source>
        <translation>н</translation>
    </message>
    <message>
        <source>µ</source>
        <translation>мк</translation>
    </message>
    <message>
        <source>m</source>
        <translation>м</translation>
    </message>
    <message>
        <source>k</source>
        <translation>к</translation>
    </message>
    <message>
        <source>M</source>
        <translation>М</translation>
    </message>
    <message>
        <source>G</source>
        <translation>Г</translation>
    </message>
</context>
<context>
    <name>ValueRow</name>
    <message>
        <source>k, m or g after the number: kilo, mega, giga</source>
        <translation>k, m или g после числа: кило, мега, гига</translation>
    </message>
    <message>
        <source>m or s after the number: milliseconds, seconds</source>
        <translation>m или s после числа: миллисекунды, секунды</translation>
    </message>
    <message>
        <source>m after the number: millivolts</source>
        <translation>m после числа: милливольты</translation>
    </message>
    <message>
        <source>Up and Down or the wheel: one step</source>
        <translation>Стрелки вверх и вниз или колесо: один шаг</translation>
    </message>
    <message>
        <source>%1: keypad</source>
        <translation>%1: клавиатура</translation>
    </message>
    <message>
        <source>Enter the value with the keypad</source>
        <translation>Ввести значение с экранной клавиатуры</translation>
    </message>
    <message>
        <source>Int-Ext switch: internal or external source of the modulation</source>
        <translation>Переключатель внутр./внеш.: источник модуляции</translation>
    </message>
    <message>
        <source>Checked: external source</source>
        <translation>Нажата: внешний источник</translation>
    </message>
</context>
<context>
    <name>WaveformPicture</name>
    <message>
        <source>Picture of the waveform</source>
        <translation>График сигнала</translation>
    </message>
    <message>
        <source>Pulses: period %1, width %2</source>
        <translation>Импульсы: период %1, длительность %2</translation>
    </message>
    <message>
        <source>Pulses: no period is set</source>
        <translation>Импульсы: период не задан</translation>
    </message>
    <message>
        <source>, %1 (period %2)</source>
        <translation>, %1 (период %2)</translation>
    </message>
    <message>
        <source>, level %1</source>
        <translation>, уровень %1</translation>
    </message>
    <message>
        <source>, from %1 to %2</source>
        <translation>, от %1 до %2</translation>
    </message>
    <message>
        <source>, duty %1</source>
        <translation>, заполнение %1</translation>
    </message>
    <message>
        <source>ON</source>
        <translation>ВКЛ</translation>
    </message>
    <message>
        <source>OFF</source>
        <translation>ВЫКЛ</translation>
    </message>
</context>
<context>
    <name>WindowMenu</name>
    <message>
        <source>As the system</source>
        <translation>Как в системе</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Светлая</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Тёмная</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Справка</translation>
    </message>
    <message>
        <source>About</source>
        <translation>О программе</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Язык</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Тема</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Выход</translation>
    </message>
</context>
<context>
    <name>generator</name>
    <message>
        <source>The LF generator is off</source>
        <translation>Генератор НЧ выключен</translation>
    </message>
    <message>
        <source>LF Generator</source>
        <translation>Генератор НЧ</translation>
    </message>
    <message>
        <source>LF generator: %1</source>
        <translation>Генератор НЧ: %1</translation>
    </message>
    <message>
        <source>Switch the LF generator on with this waveform; a click on the chosen one switches it off</source>
        <translation>Включить генератор НЧ с этим сигналом; щелчок по выбранному выключает его</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Частота</translation>
    </message>
    <message>
        <source>Magnitude</source>
        <translation>Амплитуда</translation>
    </message>
    <message>
        <source>DUTY</source>
        <translation>Заполн.</translation>
    </message>
    <message>
        <source>Frequency in hertz</source>
        <translation>Частота в герцах</translation>
    </message>
    <message>
        <source>Amplitude in volts</source>
        <translation>Амплитуда в вольтах</translation>
    </message>
    <message>
        <source>Duty of the rectangle in whole percent</source>
        <translation>Коэффициент заполнения прямоугольного сигнала в целых процентах</translation>
    </message>
</context>
<context>
    <name>service</name>
    <message>
        <source>Serial:</source>
        <translation>Серийный номер:</translation>
    </message>
    <message>
        <source>Reference oscillator DAC</source>
        <translation>ЦАП опорного генератора</translation>
    </message>
    <message>
        <source>Tuning of the reference oscillator; Return sends it</source>
        <translation>Подстройка опорного генератора; отправка клавишей Enter</translation>
    </message>
    <message>
        <source>Temperature inside the instrument</source>
        <translation>Температура внутри прибора</translation>
    </message>
    <message>
        <source>Service</source>
        <translation>Сервис</translation>
    </message>
</context>
</TS>
