<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU" sourcelanguage="en">
<context>
    <name>CalibrationTable</name>
    <message>
        <source>Freq [Hz]</source>
        <translation>Част. [Гц]</translation>
    </message>
    <message>
        <source>Row %1, %2: &quot;%3&quot; is not a frequency</source>
        <translation>Строка %1, %2: «%3» — не частота</translation>
    </message>
    <message>
        <source>Attenuation at  0 dBm</source>
        <translation>Ослабление при 0 дБм</translation>
    </message>
    <message>
        <source>Row %1, %2: &quot;%3&quot; is not a whole number</source>
        <translation>Строка %1, %2: «%3» — не целое число</translation>
    </message>
    <message>
        <source>Calibration table</source>
        <translation>Таблица калибровки</translation>
    </message>
    <message>
        <source>Frequencies in whole hertz, or with k, M or G; whole numbers beside them</source>
        <translation>Частоты в целых герцах или с k, M, G; рядом целые числа</translation>
    </message>
    <message>
        <source>As read: %1 Hz, %2</source>
        <translation>Прочитано: %1 Гц, %2</translation>
    </message>
    <message>
        <source>This row was not read from the instrument</source>
        <translation>Этой строки в приборе не было</translation>
    </message>
</context>
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
        <source>Another running copy of the program holds this instrument</source>
        <translation>Прибор занят другой запущенной копией программы</translation>
    </message>
    <message>
        <source>Waiting for the instrument to leave its mass-storage mode</source>
        <translation>Прибор выходит из режима запоминающего устройства</translation>
    </message>
    <message>
        <source>Software version is not compatible with this version of KLV firmware. 
 Please use KLV 2.3 software or lower.</source>
        <translation>Версия программы несовместима с этой версией прошивки KLV. 
 Используйте программу KLV версии 2.3 или ниже.</translation>
    </message>
    <message>
        <source>The instrument has been unplugged</source>
        <translation>Прибор отсоединён</translation>
    </message>
    <message>
        <source>Another program holds the instrument</source>
        <translation>Прибор занят другой программой</translation>
    </message>
    <message>
        <source>The instrument was disconnected before it could be opened</source>
        <translation>Прибор отключился раньше, чем его удалось открыть</translation>
    </message>
    <message>
        <source>This user may not open the instrument</source>
        <translation>У этого пользователя нет права открывать прибор</translation>
    </message>
    <message>
        <source>The instrument could not be opened: it does not answer</source>
        <translation>Не удалось открыть прибор: он не отвечает</translation>
    </message>
    <message>
        <source>The instrument could not be opened: VISA status %1</source>
        <translation>Не удалось открыть прибор: состояние VISA %1</translation>
    </message>
    <message>
        <source>no access to the device: it does not answer</source>
        <translation>нет доступа к прибору: он не отвечает</translation>
    </message>
    <message>
        <source>no access to the device: VISA status %1</source>
        <translation>нет доступа к прибору: состояние VISA %1</translation>
    </message>
    <message>
        <source>Another running copy of the program holds the instrument %1</source>
        <translation>Прибор %1 занят другой запущенной копией программы</translation>
    </message>
    <message>
        <source>No instrument found: is it switched on and its cable plugged in?</source>
        <translation>Прибор не найден: включён ли он и подключён ли кабель?</translation>
    </message>
    <message>
        <source>Connecting: opening the instrument</source>
        <translation>Подключение: открытие прибора</translation>
    </message>
    <message>
        <source>Connecting: reading the mode</source>
        <translation>Подключение: чтение режима прибора</translation>
    </message>
    <message>
        <source>Connecting: reset and identification</source>
        <translation>Подключение: сброс и идентификация</translation>
    </message>
    <message>
        <source>no access to the device: it does not identify itself</source>
        <translation>нет доступа к прибору: не удалось его идентифицировать</translation>
    </message>
    <message>
        <source>no access to the device: serial number %1 is not among those allowed</source>
        <translation>нет доступа к прибору: серийный номер %1 не входит в число разрешённых</translation>
    </message>
    <message>
        <source>The firmware %1 of the instrument is too old for this program</source>
        <translation>Прошивка прибора %1 слишком стара для этой программы</translation>
    </message>
    <message>
        <source>connection error: the instrument has stopped answering</source>
        <translation>ошибка связи: прибор перестал отвечать</translation>
    </message>
    <message>
        <source>Setting up the instrument: its limits</source>
        <translation>Настройка прибора: запрос пределов</translation>
    </message>
    <message>
        <source>Setting up the instrument: %1</source>
        <translation>Настройка прибора: %1</translation>
    </message>
    <message>
        <source>Connected to %1 in place of %2</source>
        <translation>Подключён %1 вместо %2</translation>
    </message>
    <message>
        <source>connection error: RF may still be on</source>
        <translation>ошибка связи: ВЧ может быть ещё включён</translation>
    </message>
    <message>
        <source>Sending the panel&apos;s settings</source>
        <translation>Передаются настройки панели</translation>
    </message>
    <message>
        <source>The reset could not be sent: more may be on than the panel shows</source>
        <translation>Сброс не отправлен: включено может быть больше, чем показывает панель</translation>
    </message>
</context>
<context>
    <name>ConnectionObstacle</name>
    <message>
        <source>The VISA library %1 cannot be loaded: %2</source>
        <translation>Не удалось загрузить библиотеку VISA %1: %2</translation>
    </message>
    <message>
        <source>There is no VISA library %1</source>
        <translation>Нет библиотеки VISA %1</translation>
    </message>
    <message>
        <source>No VISA library found: install the maker&apos;s VISA library. Looked for %1 in: %2</source>
        <translation>Библиотека VISA не найдена: установите библиотеку VISA изготовителя. Файл %1 искали здесь: %2</translation>
    </message>
    <message>
        <source>The VISA library %1 does not start</source>
        <translation>Не удалось инициализировать библиотеку VISA %1</translation>
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
    <message>
        <source>No instrument is connected: RF will be switched on when one is</source>
        <translation>Прибор не подключён: ВЧ включится при подключении</translation>
    </message>
    <message>
        <source>No instrument is connected: nothing was switched off</source>
        <translation>Прибор не подключён: ничего не выключено</translation>
    </message>
</context>
<context>
    <name>DeviceLevel</name>
    <message>
        <source>%1 V</source>
        <translation>%1 В</translation>
    </message>
    <message>
        <source>%1 mV</source>
        <translation>%1 мВ</translation>
    </message>
    <message>
        <source>%1 dBµV</source>
        <translation>%1 дБмкВ</translation>
    </message>
    <message>
        <source>%1 dBm, at the device %2 dBm</source>
        <translation>%1 дБм, на устройстве %2 дБм</translation>
    </message>
    <message>
        <source>%1 dBm</source>
        <translation>%1 дБм</translation>
    </message>
    <message>
        <source>Level at the device</source>
        <translation>Уровень на устройстве</translation>
    </message>
</context>
<context>
    <name>DriverCheck</name>
    <message>
        <source>No access to the instrument at %1: install the udev rule 70-klv.rules and plug it in again</source>
        <translation>Нет доступа к прибору %1: установите правило udev 70-klv.rules и подключите его заново</translation>
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
        <source>Close the message (Esc)</source>
        <translation>Закрыть сообщение (Esc)</translation>
    </message>
</context>
<context>
    <name>ErrorChip</name>
    <message>
        <source>1 error</source>
        <translation>1 ошибка</translation>
    </message>
    <message numerus="yes">
        <source>%n errors</source>
        <translation>
            <numerusform>%n ошибка</numerusform>
            <numerusform>%n ошибки</numerusform>
            <numerusform>%n ошибок</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Exclusions</name>
    <message>
        <source>Pulse modulation off: the trigger uses its input</source>
        <translation>Импульсная модуляция выключена: её вход используется для запуска</translation>
    </message>
    <message>
        <source>a modulation is on</source>
        <translation>включена модуляция</translation>
    </message>
    <message>
        <source>the LF generator is on</source>
        <translation>включён генератор НЧ</translation>
    </message>
    <message>
        <source>a list has started</source>
        <translation>запущен список</translation>
    </message>
    <message>
        <source>a sweep has started</source>
        <translation>запущено качание</translation>
    </message>
    <message>
        <source>Modulation off</source>
        <translation>Модуляция выключена</translation>
    </message>
    <message>
        <source>LF generator off</source>
        <translation>Генератор НЧ выключен</translation>
    </message>
    <message>
        <source>List stopped</source>
        <translation>Список остановлен</translation>
    </message>
    <message>
        <source>Sweep stopped</source>
        <translation>Качание остановлено</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>FieldLine</name>
    <message>
        <source>step %1</source>
        <translation>шаг %1</translation>
    </message>
</context>
<context>
    <name>FileQuestions</name>
    <message>
        <source>%1 already exists. Replace it?</source>
        <translation>%1 уже есть. Заменить?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Заменить</translation>
    </message>
</context>
<context>
    <name>FileWork</name>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Cancel; no file is changed (Esc)</source>
        <translation>Отменить; файлы не изменятся (Esc)</translation>
    </message>
    <message>
        <source>Please wait</source>
        <translation>Подождите</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>Чтение %1</translation>
    </message>
    <message>
        <source>Saving %1</source>
        <translation>Сохранение %1</translation>
    </message>
</context>
<context>
    <name>Firmware</name>
    <message>
        <source>Firmware update</source>
        <translation>Обновление прошивки</translation>
    </message>
    <message>
        <source>Clicking &quot;OK&quot; will switch the&lt;br&gt;device to &quot;Bootloader&quot; mode.&lt;br&gt;Uploading an incorrect file will&lt;br&gt;damage your device!&lt;br&gt;Proceed to update a firmware?</source>
        <translation>Нажатие «OK» переведёт&lt;br&gt;прибор в режим «Bootloader».&lt;br&gt;Загрузка неверного файла&lt;br&gt;повредит прибор!&lt;br&gt;Обновить прошивку?</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Leave the instrument as it is (Esc)</source>
        <translation>Оставить прибор как есть (Esc)</translation>
    </message>
    <message>
        <source>Switch the instrument into its bootloader</source>
        <translation>Перевести прибор в режим загрузчика</translation>
    </message>
</context>
<context>
    <name>FirmwareUpdate</name>
    <message>
        <source>The instrument is in its bootloader: waiting for it to come back</source>
        <translation>Прибор в режиме загрузчика: ожидается его возвращение</translation>
    </message>
    <message>
        <source>The instrument has not come back from its bootloader</source>
        <translation>Прибор не вернулся из режима загрузчика</translation>
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
    <message>
        <source>Support by mail</source>
        <translation>Поддержка по почте</translation>
    </message>
    <message>
        <source>Write a mail to the maker&apos;s support</source>
        <translation>Написать в службу поддержки изготовителя</translation>
    </message>
    <message>
        <source>Updates on the web</source>
        <translation>Обновления в сети</translation>
    </message>
    <message>
        <source>Open the maker&apos;s pages of the program and of the firmware</source>
        <translation>Открыть страницы изготовителя с программой и прошивкой</translation>
    </message>
    <message>
        <source>Open the licence text</source>
        <translation>Открыть текст лицензии</translation>
    </message>
</context>
<context>
    <name>GuiListKLV</name>
    <message>
        <source>All Device</source>
        <translation>Все приборы</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>Choose none (Esc)</source>
        <translation>Не выбирать (Esc)</translation>
    </message>
</context>
<context>
    <name>HandCommands</name>
    <message>
        <source>Not connected: nothing was sent</source>
        <translation>Прибор не подключён: ничего не отправлено</translation>
    </message>
    <message>
        <source>Not sent: the command is too long</source>
        <translation>Не отправлено: команда слишком длинная</translation>
    </message>
    <message>
        <source>Not sent: it holds a control character (U+%1)</source>
        <translation>Не отправлено: в команде управляющий символ (U+%1)</translation>
    </message>
    <message>
        <source>Not sent: &quot;%1&quot; (U+%2) is not an ASCII character</source>
        <translation>Не отправлено: «%1» (U+%2) не входит в ASCII</translation>
    </message>
    <message>
        <source>Disconnected: the command was not sent</source>
        <translation>Прибор отключён: команда не отправлена</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>There is no help file in %1</source>
        <translation>Нет файла справки в %1</translation>
    </message>
    <message>
        <source>No program could be started that opens %1</source>
        <translation>Не удалось запустить программу, которая открывает %1</translation>
    </message>
</context>
<context>
    <name>InstrumentDisplay</name>
    <message>
        <source>Disconnected</source>
        <translation>Не подключено</translation>
    </message>
</context>
<context>
    <name>InstrumentError</name>
    <message>
        <source>%1 after %2</source>
        <translation>%1 после %2</translation>
    </message>
</context>
<context>
    <name>InstrumentSource</name>
    <message>
        <source>VISA library: the program&apos;s own (%1)</source>
        <translation>библиотека VISA: своя (%1)</translation>
    </message>
    <message>
        <source>VISA library: %1</source>
        <translation>библиотека VISA: %1</translation>
    </message>
    <message>
        <source>VISA library: none</source>
        <translation>библиотека VISA: нет</translation>
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
    <message>
        <source>Type the step; Return applies it</source>
        <translation>Введите шаг; Enter принимает его</translation>
    </message>
    <message>
        <source>Type the number; Return or a unit enters it</source>
        <translation>Введите число; Enter или кнопка единицы завершает ввод</translation>
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
    <name>LevelOffset</name>
    <message>
        <source>Level at the device</source>
        <translation>Уровень на устройстве</translation>
    </message>
    <message>
        <source>By how much the level at the device under test differs from that at the output: -3.2 for a cable or an attenuator, 20 for an amplifier. Only what is shown changes, nothing is sent. Empty: not shown.</source>
        <translation>На сколько уровень на испытуемом устройстве отличается от уровня на выходе: -3.2 для кабеля или аттенюатора, 20 для усилителя. Меняется только показание, прибору ничего не отправляется. Пусто: не показывать.</translation>
    </message>
    <message>
        <source>dB</source>
        <translation>дБ</translation>
    </message>
    <message>
        <source>Show the level at the device (Enter)</source>
        <translation>Показывать уровень на устройстве (Enter)</translation>
    </message>
    <message>
        <source>Decibels from -200 to 200, or nothing</source>
        <translation>Децибелы от -200 до 200 или пусто</translation>
    </message>
</context>
<context>
    <name>LfGeneratorCommands</name>
    <message>
        <source>Setting the LF generator</source>
        <translation>Настройка генератора НЧ</translation>
    </message>
</context>
<context>
    <name>LibraryPlaces</name>
    <message>
        <source>the system&apos;s library folders</source>
        <translation>системные каталоги библиотек</translation>
    </message>
    <message>
        <source>the folders of PATH</source>
        <translation>каталоги из PATH</translation>
    </message>
</context>
<context>
    <name>List</name>
    <message>
        <source>No list can be opened while a table is being transferred</source>
        <translation>Пока передаётся таблица, открыть список нельзя</translation>
    </message>
    <message>
        <source>The sweep settings define no points for a list</source>
        <translation>По параметрам качания список составить нельзя</translation>
    </message>
    <message>
        <source>Sweep/List</source>
        <translation>Качание/Список</translation>
    </message>
    <message>
        <source>Step a list by its rows or by the arrows above them</source>
        <translation>По списку переходят его строками или стрелками над ними</translation>
    </message>
    <message>
        <source>The list has no points to run</source>
        <translation>В списке нет точек</translation>
    </message>
</context>
<context>
    <name>ListDocument</name>
    <message>
        <source>The list of the last time cannot be read</source>
        <translation>Список прошлого раза прочитать нельзя</translation>
    </message>
    <message>
        <source>new list</source>
        <translation>новый список</translation>
    </message>
</context>
<context>
    <name>ListFileDialogs</name>
    <message>
        <source>%1: the first line is a heading and was skipped</source>
        <translation>%1: первая строка — заголовок, она пропущена</translation>
    </message>
    <message>
        <source>Save List</source>
        <translation>Сохранить список</translation>
    </message>
    <message>
        <source>List saved: %1</source>
        <translation>Список сохранён: %1</translation>
    </message>
    <message>
        <source>The list could not be saved as %1: %2</source>
        <translation>Не удалось сохранить список как %1: %2</translation>
    </message>
    <message>
        <source>Open List</source>
        <translation>Открыть список</translation>
    </message>
    <message>
        <source>Open list</source>
        <translation>Открытие списка</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>Не удалось открыть %1: %2</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>Не удалось прочитать %1: %2</translation>
    </message>
    <message>
        <source>%1: not valid UTF-8 text</source>
        <translation>%1: текст не в кодировке UTF-8</translation>
    </message>
    <message>
        <source>%1, line %2: &quot;%3&quot; is not a number</source>
        <translation>%1, строка %2: «%3» — не число</translation>
    </message>
    <message>
        <source>%1: more than %2 lines</source>
        <translation>%1: больше %2 строк</translation>
    </message>
    <message>
        <source>Not saved: %1</source>
        <translation>Не сохранено: %1</translation>
    </message>
    <message>
        <source>%1 has %2 points. Open it?</source>
        <translation>Точек в %1: %2. Открыть?</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Открыть</translation>
    </message>
    <message>
        <source>Not opened: %1</source>
        <translation>Не открыто: %1</translation>
    </message>
    <message>
        <source>%1, line %2: a field is longer than %3 characters</source>
        <translation>%1, строка %2: поле длиннее %3 знаков</translation>
    </message>
    <message>
        <source>%1, line %2: the unit of &quot;%3&quot; does not fit the column</source>
        <translation>%1, строка %2: единица в «%3» не подходит к столбцу</translation>
    </message>
    <message>
        <source>%1: the columns were converted from the units of the heading</source>
        <translation>%1: столбцы пересчитаны из единиц заголовка</translation>
    </message>
</context>
<context>
    <name>ListGroup</name>
    <message>
        <source>List</source>
        <translation>Список</translation>
    </message>
    <message>
        <source>Run the list</source>
        <translation>Пуск списка</translation>
    </message>
    <message>
        <source>Run the list while pressed in</source>
        <translation>Список выполняется, пока кнопка нажата</translation>
    </message>
    <message>
        <source>Save List</source>
        <translation>Сохранить</translation>
    </message>
    <message>
        <source>Save the list as a CSV file</source>
        <translation>Сохранить список в файл CSV</translation>
    </message>
    <message>
        <source>Open List</source>
        <translation>Открыть</translation>
    </message>
    <message>
        <source>Replace the list by that of a CSV file</source>
        <translation>Заменить список содержимым файла CSV</translation>
    </message>
    <message>
        <source>Fill a column</source>
        <translation>Заполнить столбец</translation>
    </message>
    <message>
        <source>Fill a column between its first and its last value, or down</source>
        <translation>Заполнить столбец между первым и последним значением или вниз</translation>
    </message>
    <message>
        <source>Stop the list</source>
        <translation>Остановить список</translation>
    </message>
    <message>
        <source>Rows to add</source>
        <translation>Сколько строк добавить</translation>
    </message>
    <message>
        <source>How many rows the button beside it adds</source>
        <translation>Сколько строк добавляет кнопка рядом</translation>
    </message>
    <message>
        <source>Recent lists</source>
        <translation>Недавние списки</translation>
    </message>
    <message>
        <source>Open one of the lists used last</source>
        <translation>Открыть один из последних списков</translation>
    </message>
</context>
<context>
    <name>ListPlot</name>
    <message>
        <source>Runs by external triggers</source>
        <translation>Выполняется по внешнему запуску</translation>
    </message>
    <message>
        <source>Waits for the first step</source>
        <translation>Ожидает первого шага</translation>
    </message>
    <message>
        <source>Point %1 of %2  ·  %3</source>
        <translation>Точка %1 из %2  ·  %3</translation>
    </message>
    <message>
        <source>  ·  Point %1 cannot run with these values</source>
        <translation>  ·  Точку %1 с такими значениями выполнить нельзя</translation>
    </message>
    <message>
        <source>Picture of the run</source>
        <translation>График выполнения</translation>
    </message>
    <message>
        <source>Wheel: zoom. Drag: move. Double click: whole pass.
Keys: +, −, Left, Right, Home</source>
        <translation>Колесо: масштаб. Перетаскивание: сдвиг. Двойной щелчок: весь проход.
Клавиши: +, −, влево, вправо, Home</translation>
    </message>
    <message>
        <source>Log axis</source>
        <translation>Лог. шкала</translation>
    </message>
    <message>
        <source>Logarithmic frequency</source>
        <translation>Логарифмическая частота</translation>
    </message>
    <message>
        <source>Logarithmic frequency axis</source>
        <translation>Логарифмическая ось частоты</translation>
    </message>
</context>
<context>
    <name>ListTransfer</name>
    <message>
        <source>List %1 of %2, %3 left</source>
        <translation>Список %1 из %2, осталось %3</translation>
    </message>
    <message>
        <source>Transferring the table: list %1 of %2, %3 left</source>
        <translation>Передача таблицы: список %1 из %2, осталось %3</translation>
    </message>
</context>
<context>
    <name>LogFile</name>
    <message>
        <source>No log is written: %1</source>
        <translation>Журнал не записывается: %1</translation>
    </message>
    <message>
        <source>The log is no longer written to %1: %2</source>
        <translation>Журнал больше не записывается в %1: %2</translation>
    </message>
</context>
<context>
    <name>LogTable</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Копировать</translation>
    </message>
    <message>
        <source>Copy what was &amp;sent</source>
        <translation>Копировать &amp;отправленное</translation>
    </message>
    <message>
        <source>Copy what was &amp;answered</source>
        <translation>Копировать о&amp;тветы</translation>
    </message>
    <message>
        <source>Copy as &amp;Python</source>
        <translation>Копировать как &amp;Python</translation>
    </message>
    <message>
        <source>What was sent and answered</source>
        <translation>Отправленное и ответы</translation>
    </message>
    <message>
        <source>A right click copies the selected lines</source>
        <translation>Правая кнопка мыши копирует выделенные строки</translation>
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
        <source>Lit while the external reference is selected; red while it is not locked</source>
        <translation>Горит, пока выбран внешний опорный сигнал; красным, пока нет захвата</translation>
    </message>
    <message>
        <source>reference</source>
        <translation>источник опорной частоты</translation>
    </message>
    <message>
        <source>RF output</source>
        <translation>выход ВЧ</translation>
    </message>
    <message>
        <source>frequency</source>
        <translation>частота</translation>
    </message>
    <message>
        <source>power</source>
        <translation>мощность</translation>
    </message>
    <message>
        <source>power mode</source>
        <translation>режим мощности</translation>
    </message>
    <message>
        <source>modulation</source>
        <translation>модуляция</translation>
    </message>
    <message>
        <source>external reference</source>
        <translation>внешняя опорная частота</translation>
    </message>
    <message>
        <source>DAC</source>
        <translation>ЦАП</translation>
    </message>
    <message>
        <source>Current point of the run</source>
        <translation>Текущая точка прохода</translation>
    </message>
    <message>
        <source>Progress of the run</source>
        <translation>Ход прохода</translation>
    </message>
    <message>
        <source>Lit while a sweep or a list runs; grey once its pass is over</source>
        <translation>Горит, пока выполняется качание или список; серая, когда проход окончен</translation>
    </message>
    <message>
        <source>Run lamp</source>
        <translation>Индикатор выполнения</translation>
    </message>
    <message>
        <source>Stop the sweep or the list that runs (F7)</source>
        <translation>Остановить качание или список (F7)</translation>
    </message>
    <message>
        <source>Stop the run</source>
        <translation>Остановить выполнение</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Стоп</translation>
    </message>
    <message>
        <source>Errors that the instrument has reported; a click clears the count</source>
        <translation>Ошибки, о которых сообщил прибор; щелчок сбрасывает счёт</translation>
    </message>
    <message>
        <source>Errors of the instrument</source>
        <translation>Ошибки прибора</translation>
    </message>
    <message>
        <source>The instrument is simulated: nothing real is switched or measured</source>
        <translation>Прибор имитируется: на самом деле ничего не включается и не измеряется</translation>
    </message>
    <message>
        <source>Simulated instrument</source>
        <translation>Имитатор прибора</translation>
    </message>
    <message>
        <source>SIMULATED</source>
        <translation>ИМИТАТОР</translation>
    </message>
    <message>
        <source>Frequency and power are set by the list: F3</source>
        <translation>Частоту и мощность задаёт список: F3</translation>
    </message>
    <message>
        <source>Frequency and power are set by the sweep: F3</source>
        <translation>Частоту и мощность задаёт качание: F3</translation>
    </message>
</context>
<context>
    <name>ModeList</name>
    <message>
        <source>TRIG POINT</source>
        <translation>ТОЧКА ПО ЗАПУСКУ</translation>
    </message>
    <message>
        <source>Single</source>
        <translation>Однократно</translation>
    </message>
    <message>
        <source>Freq -  Pow</source>
        <translation>Част. -  Мощн.</translation>
    </message>
    <message>
        <source>Internal timing</source>
        <translation>По таймеру</translation>
    </message>
    <message>
        <source>External, rising</source>
        <translation>Внешний, фронт</translation>
    </message>
    <message>
        <source>External, falling</source>
        <translation>Внешний, спад</translation>
    </message>
    <message>
        <source>Step by step</source>
        <translation>По шагам</translation>
    </message>
    <message>
        <source>one point</source>
        <translation>одна точка</translation>
    </message>
    <message>
        <source>all points</source>
        <translation>все точки</translation>
    </message>
    <message>
        <source>repeated</source>
        <translation>повторно</translation>
    </message>
    <message>
        <source>once</source>
        <translation>один раз</translation>
    </message>
    <message>
        <source>points: %1</source>
        <translation>точек: %1</translation>
    </message>
    <message>
        <source>Point %1 of %2</source>
        <translation>Точка %1 из %2</translation>
    </message>
    <message>
        <source>List mode</source>
        <translation>Режим списка</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Вручную</translation>
    </message>
    <message>
        <source>Step through the points by hand</source>
        <translation>Переходить по точкам вручную</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Авто</translation>
    </message>
    <message>
        <source>Let time or a trigger run through the points</source>
        <translation>Переходить по точкам по времени или запуску</translation>
    </message>
    <message>
        <source>What a run steps through</source>
        <translation>По каким точкам и сколько раз идёт выполнение</translation>
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
    <name>ModulationCommands</name>
    <message>
        <source>Setting the modulation</source>
        <translation>Настройка модуляции</translation>
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
        <source>Switch the modulation on or off (Down: its settings)</source>
        <translation>Включить или выключить модуляцию (Вниз: её настройки)</translation>
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
</context>
<context>
    <name>NumberDialog</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Leave it as it is (Esc)</source>
        <translation>Оставить как есть (Esc)</translation>
    </message>
</context>
<context>
    <name>NumberEdit</name>
    <message>
        <source>not a number, nothing is sent</source>
        <translation>не число, ничего не отправлено</translation>
    </message>
    <message>
        <source>the reply is not a number</source>
        <translation>в ответе не число</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1: keypad</source>
        <translation>%1: клавиатура</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be read</source>
        <translation>не удалось прочитать «%1»</translation>
    </message>
    <message>
        <source>whole numbers only</source>
        <translation>только целые числа</translation>
    </message>
    <message>
        <source>whole %1</source>
        <translation>целые %1</translation>
    </message>
    <message>
        <source>only one decimal point</source>
        <translation>только одна десятичная точка</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not allowed in this number</source>
        <translation>символ «%1» здесь недопустим</translation>
    </message>
    <message>
        <source>k, m, g: kilo, mega, giga</source>
        <translation>k, m, g: кило, мега, гига</translation>
    </message>
    <message>
        <source>m, s: milliseconds, seconds</source>
        <translation>m, s: миллисекунды, секунды</translation>
    </message>
    <message>
        <source>m: millivolts</source>
        <translation>m: милливольты</translation>
    </message>
    <message>
        <source>Enter the value with the keypad (F8 in the field)</source>
        <translation>Ввести значение с экранной клавиатуры (F8 в поле)</translation>
    </message>
    <message>
        <source>at most %1</source>
        <translation>не более %1</translation>
    </message>
</context>
<context>
    <name>OutputOff</name>
    <message>
        <source>No instrument is connected: nothing was switched off</source>
        <translation>Прибор не подключён: ничего не выключено</translation>
    </message>
</context>
<context>
    <name>PanelProfiles</name>
    <message>
        <source>The instrument is still being set up</source>
        <translation>Прибор ещё настраивается</translation>
    </message>
    <message>
        <source>No profile is applied while a table is transferred</source>
        <translation>Пока передаётся таблица, профиль не применяется</translation>
    </message>
    <message>
        <source>Applying the profile...</source>
        <translation>Применение профиля...</translation>
    </message>
</context>
<context>
    <name>PanelPush</name>
    <message>
        <source>Send the panel&apos;s settings again</source>
        <translation>Передать настройки панели</translation>
    </message>
    <message>
        <source>Sets the instrument to what the panel shows, without a reset</source>
        <translation>Настраивает прибор так, как показывает панель, без сброса</translation>
    </message>
    <message>
        <source>Sent as soon as nothing else is going on</source>
        <translation>Будет отправлено, когда закончится текущее действие</translation>
    </message>
    <message>
        <source>The panel may no longer show what the instrument does</source>
        <translation>Панель может не показывать, что делает прибор</translation>
    </message>
</context>
<context>
    <name>PointActions</name>
    <message>
        <source>Insert row</source>
        <translation>Вставить строку</translation>
    </message>
    <message>
        <source>Delete rows</source>
        <translation>Удалить строки</translation>
    </message>
    <message>
        <source>Duplicate rows</source>
        <translation>Дублировать строки</translation>
    </message>
    <message>
        <source>Move rows up</source>
        <translation>Переместить строки вверх</translation>
    </message>
    <message>
        <source>Move rows down</source>
        <translation>Переместить строки вниз</translation>
    </message>
    <message>
        <source>Fill linearly</source>
        <translation>Заполнить линейно</translation>
    </message>
    <message>
        <source>Fill logarithmically</source>
        <translation>Заполнить логарифмически</translation>
    </message>
    <message>
        <source>Fill down</source>
        <translation>Заполнить вниз</translation>
    </message>
    <message>
        <source>Make the list from the sweep</source>
        <translation>Составить список из качания</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Копировать</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Вставить</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Выделить всё</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Отменить</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Вернуть</translation>
    </message>
    <message>
        <source>Clear list</source>
        <translation>Очистить список</translation>
    </message>
    <message>
        <source>To fill logarithmically, the first and the last cell must both hold numbers above 0, or both below</source>
        <translation>Для логарифмического заполнения в первой и последней ячейках нужны числа больше 0 либо меньше 0</translation>
    </message>
    <message>
        <source>To fill, the first and the last cell must hold numbers</source>
        <translation>Для заполнения в первой и последней ячейках нужны числа</translation>
    </message>
    <message>
        <source>Not pasted: &quot;%1&quot; is not a number</source>
        <translation>Не вставлено: «%1» — не число</translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation>Очистить список</translation>
    </message>
    <message>
        <source>Do you want to clear List?</source>
        <translation>Очистить список?</translation>
    </message>
    <message>
        <source>Fill a column</source>
        <translation>Заполнить столбец</translation>
    </message>
    <message>
        <source>Not pasted: the unit of &quot;%1&quot; does not fit the column</source>
        <translation>Не вставлено: единица в «%1» не подходит к столбцу</translation>
    </message>
    <message>
        <source>One value was bounded by the limits of the instrument</source>
        <translation>Одно значение ограничено пределами прибора</translation>
    </message>
    <message numerus="yes">
        <source>%n values were bounded by the limits of the instrument</source>
        <translation>
            <numerusform>%n значение ограничено пределами прибора</numerusform>
            <numerusform>%n значения ограничены пределами прибора</numerusform>
            <numerusform>%n значений ограничено пределами прибора</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Insert %n rows</source>
        <translation>
            <numerusform>Вставить %n строку</numerusform>
            <numerusform>Вставить %n строки</numerusform>
            <numerusform>Вставить %n строк</numerusform>
        </translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Да</translation>
    </message>
</context>
<context>
    <name>PointTable</name>
    <message>
        <source>Edit</source>
        <translation>Правка</translation>
    </message>
    <message>
        <source>The list is being transferred</source>
        <translation>Список передаётся</translation>
    </message>
    <message>
        <source>Freq [Hz]</source>
        <translation>Част. [Гц]</translation>
    </message>
    <message>
        <source>Pow [dBm]</source>
        <translation>Мощн. [дБм]</translation>
    </message>
    <message>
        <source>Dwell [μs]</source>
        <translation>Время [мкс]</translation>
    </message>
    <message>
        <source>List of points</source>
        <translation>Список точек</translation>
    </message>
    <message>
        <source>Double-click or type to edit a cell; k, m or g after a frequency, m or s after a dwell: unit letters</source>
        <translation>Двойной щелчок или ввод изменяет ячейку; буквы единиц: k, m или g после частоты, m или s после времени</translation>
    </message>
    <message>
        <source>This change is too large to be undone</source>
        <translation>Это изменение слишком велико, его нельзя отменить</translation>
    </message>
    <message>
        <source>Bound by the limits</source>
        <translation>Ограничить пределами</translation>
    </message>
    <message>
        <source>Above the highest power</source>
        <translation>Выше наибольшей мощности</translation>
    </message>
    <message>
        <source>Row %1, %2: &quot;%3&quot; is not a number</source>
        <translation>Строка %1, %2: «%3» — не число</translation>
    </message>
    <message>
        <source>Add row</source>
        <translation>Добавить строку</translation>
    </message>
    <message>
        <source>Delete row</source>
        <translation>Удалить строку</translation>
    </message>
    <message>
        <source>No points yet. Three ways to fill the list:
1. Type: a number, then Tab and Enter
2. Paste from a spreadsheet (Ctrl+V), or open a file
3. Make it from the sweep (Ctrl+G)</source>
        <translation>Точек пока нет. Заполнить список можно так:
1. Ввести: число, затем Tab и Enter
2. Вставить из таблицы (Ctrl+V) или открыть файл
3. Составить из качания (Ctrl+G)</translation>
    </message>
</context>
<context>
    <name>PowerCeiling</name>
    <message>
        <source>Highest power</source>
        <translation>Наибольшая мощность</translation>
    </message>
    <message>
        <source>The program sets no power above this, whether typed, stepped or opened. Empty: the limit of the instrument.</source>
        <translation>Программа не установит мощность выше этой, как бы она ни была задана. Пусто: предел прибора.</translation>
    </message>
    <message>
        <source>dBm</source>
        <translation>дБм</translation>
    </message>
    <message>
        <source>Apply this highest power (Enter)</source>
        <translation>Принять наибольшую мощность (Enter)</translation>
    </message>
</context>
<context>
    <name>PowerGuard</name>
    <message>
        <source>Power: at most %1 dBm, as set in the menu</source>
        <translation>Мощность: не более %1 дБм, как задано в меню</translation>
    </message>
</context>
<context>
    <name>PowerQuestion</name>
    <message>
        <source>Power from %1 to %2 dBm with RF on?</source>
        <translation>Мощность с %1 до %2 дБм при включённом выходе ВЧ?</translation>
    </message>
    <message>
        <source>Large step up</source>
        <translation>Большой шаг вверх</translation>
    </message>
    <message>
        <source>Raise</source>
        <translation>Повысить</translation>
    </message>
    <message>
        <source>Set the higher power</source>
        <translation>Установить более высокую мощность</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Leave the power as it is (Esc)</source>
        <translation>Оставить мощность как есть (Esc)</translation>
    </message>
</context>
<context>
    <name>ProgramSettings</name>
    <message>
        <source>The settings cannot be read: defaults are used</source>
        <translation>Не удалось прочитать настройки: используются значения по умолчанию</translation>
    </message>
    <message>
        <source>The settings cannot be written: changes will not be saved</source>
        <translation>Не удалось записать настройки: изменения не сохранятся</translation>
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
        <source>Switch pulse modulation on or off (Down: its settings)</source>
        <translation>Включить или выключить импульсную модуляцию (Вниз: её настройки)</translation>
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
        <source>%1: unit</source>
        <translation>%1: единица</translation>
    </message>
    <message>
        <source>Unit for display and entry: µs, ms, s or ns; a click selects the next one</source>
        <translation>Единица отображения и ввода: мкс, мс, с или нс; щелчок выбирает следующую</translation>
    </message>
</context>
<context>
    <name>Quantity</name>
    <message>
        <source>Frequency</source>
        <translation>Частота</translation>
    </message>
    <message>
        <source>RF frequency in hertz (Ctrl+F)</source>
        <translation>Частота ВЧ в герцах (Ctrl+F)</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Мощность</translation>
    </message>
    <message>
        <source>RF power in whole dBm (Ctrl+P)</source>
        <translation>Мощность ВЧ в целых дБм (Ctrl+P)</translation>
    </message>
    <message>
        <source>Pulse period</source>
        <translation>Период импульсов</translation>
    </message>
    <message>
        <source>Period of the pulses in the unit beside it</source>
        <translation>Период импульсов в единицах, указанных рядом</translation>
    </message>
    <message>
        <source>Pulse width</source>
        <translation>Длительность импульсов</translation>
    </message>
    <message>
        <source>Width of the pulses in the unit beside it</source>
        <translation>Длительность импульсов в единицах, указанных рядом</translation>
    </message>
    <message>
        <source>AM Depth</source>
        <translation>АМ: глубина</translation>
    </message>
    <message>
        <source>AM depth in percent</source>
        <translation>Глубина АМ в процентах</translation>
    </message>
    <message>
        <source>AM Frequency</source>
        <translation>АМ: частота</translation>
    </message>
    <message>
        <source>Frequency of the internal source in hertz</source>
        <translation>Частота внутреннего источника в герцах</translation>
    </message>
    <message>
        <source>AM DUTY</source>
        <translation>АМ: коэффициент заполнения</translation>
    </message>
    <message>
        <source>Duty of the rectangle in whole percent</source>
        <translation>Коэффициент заполнения прямоугольного сигнала в целых процентах</translation>
    </message>
    <message>
        <source>FM Deviation</source>
        <translation>ЧМ: девиация</translation>
    </message>
    <message>
        <source>FM deviation in hertz</source>
        <translation>Девиация ЧМ в герцах</translation>
    </message>
    <message>
        <source>FM Frequency</source>
        <translation>ЧМ: частота</translation>
    </message>
    <message>
        <source>FM DUTY</source>
        <translation>ЧМ: коэффициент заполнения</translation>
    </message>
    <message>
        <source>PM Deviation</source>
        <translation>ФМ: девиация</translation>
    </message>
    <message>
        <source>PM deviation in radians</source>
        <translation>Девиация ФМ в радианах</translation>
    </message>
    <message>
        <source>PM Frequency</source>
        <translation>ФМ: частота</translation>
    </message>
    <message>
        <source>PM DUTY</source>
        <translation>ФМ: коэффициент заполнения</translation>
    </message>
    <message>
        <source>LF generator: DUTY</source>
        <translation>Генератор НЧ: коэффициент заполнения</translation>
    </message>
    <message>
        <source>LF generator: Magnitude</source>
        <translation>Генератор НЧ: амплитуда</translation>
    </message>
    <message>
        <source>Amplitude in volts</source>
        <translation>Амплитуда в вольтах</translation>
    </message>
    <message>
        <source>LF generator: Frequency</source>
        <translation>Генератор НЧ: частота</translation>
    </message>
    <message>
        <source>Frequency in hertz</source>
        <translation>Частота в герцах</translation>
    </message>
    <message>
        <source>External reference frequency</source>
        <translation>Частота внешнего опорного сигнала</translation>
    </message>
    <message>
        <source>Frequency of the external reference in whole MHz</source>
        <translation>Частота внешнего опорного сигнала в целых мегагерцах</translation>
    </message>
    <message>
        <source>List: Dwell</source>
        <translation>Список: время</translation>
    </message>
    <message>
        <source>Time at the point in microseconds</source>
        <translation>Время в точке в микросекундах</translation>
    </message>
    <message>
        <source>Sweep: Dwell</source>
        <translation>Качание: время</translation>
    </message>
    <message>
        <source>Time at each point in microseconds</source>
        <translation>Время в каждой точке в микросекундах</translation>
    </message>
    <message>
        <source>Sweep: Points</source>
        <translation>Качание: точки</translation>
    </message>
    <message>
        <source>Number of points of the sweep</source>
        <translation>Число точек качания</translation>
    </message>
    <message>
        <source>List: Frequency</source>
        <translation>Список: частота</translation>
    </message>
    <message>
        <source>Frequency at the point in hertz</source>
        <translation>Частота в точке в герцах</translation>
    </message>
    <message>
        <source>List: Power</source>
        <translation>Список: мощность</translation>
    </message>
    <message>
        <source>Power at the point in whole dBm</source>
        <translation>Мощность в точке в целых дБм</translation>
    </message>
    <message>
        <source>Highest power</source>
        <translation>Наибольшая мощность</translation>
    </message>
    <message>
        <source>Whole dBm, or nothing</source>
        <translation>Целое число дБм или пусто</translation>
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
        <source>Sweep: Power</source>
        <translation>Качание: мощность</translation>
    </message>
    <message>
        <source>The fixed value</source>
        <translation>Постоянное значение</translation>
    </message>
    <message>
        <source>Sweep: Start</source>
        <translation>Качание: начало</translation>
    </message>
    <message>
        <source>First value of the sweep</source>
        <translation>Первое значение качания</translation>
    </message>
    <message>
        <source>Sweep: Stop</source>
        <translation>Качание: конец</translation>
    </message>
    <message>
        <source>Last value of the sweep</source>
        <translation>Последнее значение качания</translation>
    </message>
    <message>
        <source>Sweep: Frequency</source>
        <translation>Качание: частота</translation>
    </message>
</context>
<context>
    <name>Question</name>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Leave everything as it is (Esc)</source>
        <translation>Оставить всё как есть (Esc)</translation>
    </message>
</context>
<context>
    <name>QuickProfileRow</name>
    <message>
        <source>Apply %1</source>
        <translation>Применить %1</translation>
    </message>
    <message>
        <source>New name of %1</source>
        <translation>Новое имя: %1</translation>
    </message>
    <message>
        <source>Return renames, Esc leaves it</source>
        <translation>Enter переименует, Esc оставит как есть</translation>
    </message>
    <message>
        <source>Rename %1</source>
        <translation>Переименовать %1</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>Удалить %1</translation>
    </message>
    <message>
        <source>Number of %1</source>
        <translation>Номер: %1</translation>
    </message>
    <message>
        <source>Give %1 another number; Ctrl and a number from 1 to 9 apply it</source>
        <translation>Дать профилю %1 другой номер; Ctrl с номером от 1 до 9 применяет профиль</translation>
    </message>
    <message>
        <source>differs</source>
        <translation>изменён</translation>
    </message>
    <message>
        <source>Settings were changed since this profile was applied or saved</source>
        <translation>После применения или сохранения этого профиля настройки изменились</translation>
    </message>
    <message>
        <source>The settings are those of this profile</source>
        <translation>Настройки такие, как в этом профиле</translation>
    </message>
</context>
<context>
    <name>RunButton</name>
    <message>
        <source>Stop</source>
        <translation>Стоп</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Пуск</translation>
    </message>
</context>
<context>
    <name>RunDisplay</name>
    <message>
        <source>Pass finished: Stop returns to %1 Hz</source>
        <translation>Проход окончен: «Стоп» вернёт %1 Гц</translation>
    </message>
    <message>
        <source>LIST</source>
        <translation>СПИСОК</translation>
    </message>
    <message>
        <source>SWEEP</source>
        <translation>КАЧАНИЕ</translation>
    </message>
    <message>
        <source>Current frequency of the run</source>
        <translation>Текущая частота прохода</translation>
    </message>
    <message>
        <source>Current power of the run</source>
        <translation>Текущая мощность прохода</translation>
    </message>
    <message>
        <source>Point %1 of %2</source>
        <translation>Точка %1 из %2</translation>
    </message>
    <message>
        <source>by trigger, points: %1</source>
        <translation>по запуску, точек: %1</translation>
    </message>
    <message>
        <source>waits for a step, points: %1</source>
        <translation>ожидает шага, точек: %1</translation>
    </message>
    <message>
        <source>by trigger</source>
        <translation>по запуску</translation>
    </message>
</context>
<context>
    <name>RunWords</name>
    <message>
        <source>not readable</source>
        <translation>не читается</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>от %1 до %2</translation>
    </message>
    <message>
        <source>Sweep of one point</source>
        <translation>Качание из одной точки</translation>
    </message>
    <message numerus="yes">
        <source>Sweep of %n points</source>
        <translation>
            <numerusform>Качание из %n точки</numerusform>
            <numerusform>Качание из %n точек</numerusform>
            <numerusform>Качание из %n точек</numerusform>
        </translation>
    </message>
    <message>
        <source>List of one point</source>
        <translation>Список из одной точки</translation>
    </message>
    <message numerus="yes">
        <source>List of %n points</source>
        <translation>
            <numerusform>Список из %n точки</numerusform>
            <numerusform>Список из %n точек</numerusform>
            <numerusform>Список из %n точек</numerusform>
        </translation>
    </message>
    <message>
        <source>The sweep settings define no points</source>
        <translation>Параметры качания не задают ни одной точки</translation>
    </message>
    <message>
        <source>The list has no points</source>
        <translation>В списке нет точек</translation>
    </message>
    <message>
        <source>%1: %2, %3, %4 per pass</source>
        <translation>%1: %2, %3, %4 за проход</translation>
    </message>
    <message>
        <source>Points: %1, %2 per pass</source>
        <translation>Точек: %1, %2 за проход</translation>
    </message>
    <message>
        <source>Point %1 of %2, from %3 on</source>
        <translation>Точка %1 из %2, начиная с %3</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 из %2</translation>
    </message>
</context>
<context>
    <name>Runs</name>
    <message>
        <source>One value of sweep and list was bounded by the limits of the instrument</source>
        <translation>Одно значение качания и списка ограничено пределами прибора</translation>
    </message>
    <message numerus="yes">
        <source>%n values of sweep and list were bounded by the limits of the instrument</source>
        <translation>
            <numerusform>%n значение качания и списка ограничено пределами прибора</numerusform>
            <numerusform>%n значения качания и списка ограничены пределами прибора</numerusform>
            <numerusform>%n значений качания и списка ограничены пределами прибора</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ScpiLog</name>
    <message>
        <source>Time</source>
        <translation>Время</translation>
    </message>
    <message>
        <source>Sent</source>
        <translation>Отправлено</translation>
    </message>
    <message>
        <source>Answered</source>
        <translation>Ответ</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>мс</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Состояние</translation>
    </message>
    <message>
        <source>Connected: %1</source>
        <translation>Подключён: %1</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Отключён</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Сброс</translation>
    </message>
    <message>
        <source>Profile started</source>
        <translation>Начало профиля</translation>
    </message>
    <message>
        <source>Profile ended</source>
        <translation>Конец профиля</translation>
    </message>
    <message>
        <source>no answer</source>
        <translation>нет ответа</translation>
    </message>
    <message>
        <source>failed: %1</source>
        <translation>ошибка: %1</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>ок</translation>
    </message>
    <message>
        <source>Sent as soon as nothing else is going on</source>
        <translation>Будет отправлено, когда закончится текущее действие</translation>
    </message>
    <message>
        <source>Not a regular expression yet</source>
        <translation>Пока не регулярное выражение</translation>
    </message>
    <message>
        <source>Save the log</source>
        <translation>Сохранить журнал</translation>
    </message>
    <message>
        <source>Text (*.txt);;Spreadsheet (*.csv);;Python script for PyVISA (*.py)</source>
        <translation>Текст (*.txt);;Таблица (*.csv);;Сценарий Python для PyVISA (*.py)</translation>
    </message>
    <message>
        <source>SCPI log %1</source>
        <translation>Журнал SCPI %1</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Сохранено: %1</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2</source>
        <translation>Не удалось сохранить %1: %2</translation>
    </message>
    <message>
        <source>Older lines have been dropped</source>
        <translation>Более старые строки удалены</translation>
    </message>
    <message>
        <source>SCPI log</source>
        <translation>Журнал SCPI</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>Close the log; it goes on being recorded (Esc)</source>
        <translation>Закрыть журнал; запись продолжается (Esc)</translation>
    </message>
    <message>
        <source>Find text or /expression/</source>
        <translation>Найти текст или /выражение/</translation>
    </message>
    <message>
        <source>Find in the log</source>
        <translation>Поиск в журнале</translation>
    </message>
    <message>
        <source>Shows the lines with this text, or what a regular expression between slashes finds (Ctrl+F)</source>
        <translation>Показывает строки с этим текстом или с тем, что найдёт регулярное выражение между косыми чертами (Ctrl+F)</translation>
    </message>
    <message>
        <source>&amp;Failures</source>
        <translation>&amp;Ошибки</translation>
    </message>
    <message>
        <source>Show only what failed</source>
        <translation>Показывать только ошибки</translation>
    </message>
    <message>
        <source>&amp;Polling</source>
        <translation>О&amp;прос</translation>
    </message>
    <message>
        <source>Show also the error queue found empty, and the temperature read by itself</source>
        <translation>Показывать также опрос пустой очереди ошибок и температуры</translation>
    </message>
    <message>
        <source>P&amp;ause</source>
        <translation>П&amp;ауза</translation>
    </message>
    <message>
        <source>Hold the lines shown; the log goes on being recorded</source>
        <translation>Не обновлять строки; запись журнала продолжается</translation>
    </message>
    <message>
        <source>&amp;Clear</source>
        <translation>О&amp;чистить</translation>
    </message>
    <message>
        <source>Forget all lines</source>
        <translation>Удалить все строки</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>&amp;Сохранить...</translation>
    </message>
    <message>
        <source>Save the lines shown, or those selected, as text, as a spreadsheet or as a Python script</source>
        <translation>Сохранить показанные или выделенные строки как текст, таблицу или сценарий Python</translation>
    </message>
    <message>
        <source>SCPI co&amp;mmand</source>
        <translation>&amp;Команда SCPI</translation>
    </message>
    <message>
        <source>SCPI command</source>
        <translation>Команда SCPI</translation>
    </message>
    <message>
        <source>Sends the command as it stands (Enter). One with a question mark is asked, and its answer shown. Up and Down: commands entered before.</source>
        <translation>Отправляет команду как есть (Enter). На команду с вопросительным знаком читается ответ. Вверх и вниз: прежние команды.</translation>
    </message>
</context>
<context>
    <name>ScpiSession</name>
    <message>
        <source>waiting for the instrument to answer</source>
        <translation>ожидание ответа прибора</translation>
    </message>
    <message>
        <source>connection error: the error queue of the instrument never becomes empty</source>
        <translation>ошибка связи: очередь ошибок прибора не становится пустой</translation>
    </message>
    <message>
        <source>connection error: the instrument does not answer</source>
        <translation>ошибка связи: прибор не отвечает</translation>
    </message>
    <message>
        <source>connection error: the instrument was switched off or unplugged</source>
        <translation>ошибка связи: прибор выключен или отсоединён</translation>
    </message>
    <message>
        <source>connection error: VISA status %1</source>
        <translation>ошибка связи: состояние VISA %1</translation>
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
    <message>
        <source>error get calibrate</source>
        <translation>ошибка чтения калибровки</translation>
    </message>
    <message>
        <source>The instrument sent more numbers than it has calibration points</source>
        <translation>Прибор прислал больше чисел, чем у него точек калибровки</translation>
    </message>
    <message>
        <source>The instrument sent fewer numbers than it has calibration points</source>
        <translation>Прибор прислал меньше чисел, чем у него точек калибровки</translation>
    </message>
    <message>
        <source>The calibration table is stored in the instrument</source>
        <translation>Таблица калибровки сохранена в приборе</translation>
    </message>
    <message>
        <source>Writing was stopped: the stored table is unchanged</source>
        <translation>Запись остановлена: сохранённая таблица не изменена</translation>
    </message>
    <message>
        <source>Writing the calibration table...</source>
        <translation>Запись таблицы калибровки...</translation>
    </message>
    <message>
        <source>Reading the calibration table</source>
        <translation>Чтение таблицы калибровки</translation>
    </message>
    <message>
        <source>Writing the calibration table: row %1 of %2</source>
        <translation>Запись таблицы калибровки: строка %1 из %2</translation>
    </message>
    <message>
        <source>No instrument is connected</source>
        <translation>Прибор не подключён</translation>
    </message>
    <message>
        <source>The calibration table is stored in the instrument; the table read before is saved as %1</source>
        <translation>Таблица калибровки сохранена в приборе; прочитанная ранее сохранена в файле %1</translation>
    </message>
    <message>
        <source>Nothing was written: the table read before was not saved</source>
        <translation>Ничего не записано: прочитанная таблица не сохранена в файле</translation>
    </message>
    <message>
        <source>Nothing was written: the table read before could not be saved as %1: %2</source>
        <translation>Ничего не записано: прочитанную таблицу не удалось сохранить в файле %1: %2</translation>
    </message>
    <message>
        <source>Backups of this instrument</source>
        <translation>Резервные копии этого прибора</translation>
    </message>
    <message>
        <source>All backups</source>
        <translation>Все резервные копии</translation>
    </message>
    <message>
        <source>Open backup</source>
        <translation>Открыть копию</translation>
    </message>
    <message>
        <source>Not opened: %1</source>
        <translation>Не открыто: %1</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>Не удалось открыть %1: %2</translation>
    </message>
    <message>
        <source>%1 is not a backup of a calibration table: line %2 is not a frequency and a whole number</source>
        <translation>%1 — не копия таблицы калибровки: в строке %2 нет частоты и целого числа</translation>
    </message>
    <message>
        <source>%1: rows that differ from what was read: %2</source>
        <translation>%1: строк, отличающихся от прочитанных: %2</translation>
    </message>
    <message>
        <source>%1 may be another instrument&apos;s; rows that differ from what was read: %2</source>
        <translation>%1, возможно, от другого прибора; строк, отличающихся от прочитанных: %2</translation>
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
    <name>SimulatorSwitch</name>
    <message>
        <source>Simulated instrument</source>
        <translation>Имитатор прибора</translation>
    </message>
    <message>
        <source>Work with a simulated instrument; the menu switches back to a real one</source>
        <translation>Работать с имитатором прибора; вернуться к настоящему можно через меню</translation>
    </message>
</context>
<context>
    <name>SweepCommands</name>
    <message>
        <source>Starting the list</source>
        <translation>Запуск списка</translation>
    </message>
    <message>
        <source>Starting the sweep</source>
        <translation>Запуск качания</translation>
    </message>
    <message>
        <source>The list does not run: %1</source>
        <translation>Список не выполняется: %1</translation>
    </message>
    <message>
        <source>The sweep does not run: %1</source>
        <translation>Качание не выполняется: %1</translation>
    </message>
    <message>
        <source>Sweep not run: above the highest power of %1 dBm</source>
        <translation>Качание не запущено: выше наибольшей мощности %1 дБм</translation>
    </message>
    <message>
        <source>List not run: row %1 is above the highest power of %2 dBm</source>
        <translation>Список не запущен: строка %1 выше наибольшей мощности %2 дБм</translation>
    </message>
    <message>
        <source>Run ended: above the highest power of %1 dBm</source>
        <translation>Пуск прекращён: выше наибольшей мощности %1 дБм</translation>
    </message>
</context>
<context>
    <name>SweepGroup</name>
    <message>
        <source>Sweep</source>
        <translation>Качание</translation>
    </message>
    <message>
        <source>Power sweep</source>
        <translation>Качание мощности</translation>
    </message>
    <message>
        <source>Frequency sweep</source>
        <translation>Качание частоты</translation>
    </message>
    <message>
        <source>Freq-Pow switch</source>
        <translation>Переключатель частота-мощность</translation>
    </message>
    <message>
        <source>Run the sweep</source>
        <translation>Пуск качания</translation>
    </message>
    <message>
        <source>Run the sweep while pressed in</source>
        <translation>Качание выполняется, пока кнопка нажата</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Частота</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Мощность</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Начало</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Конец</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Точки</translation>
    </message>
    <message>
        <source>Dwell</source>
        <translation>Время</translation>
    </message>
    <message>
        <source>Stop the sweep</source>
        <translation>Остановить качание</translation>
    </message>
    <message>
        <source>nothing to run</source>
        <translation>нет точек</translation>
    </message>
</context>
<context>
    <name>TriggerGroup</name>
    <message>
        <source>Trigger</source>
        <translation>Запуск</translation>
    </message>
    <message>
        <source>List</source>
        <translation>Список</translation>
    </message>
    <message>
        <source>Sweep</source>
        <translation>Качание</translation>
    </message>
    <message>
        <source>Sweep-List switch</source>
        <translation>Переключатель качание-список</translation>
    </message>
    <message>
        <source>AUTO</source>
        <translation>АВТО</translation>
    </message>
    <message>
        <source>Automatic trigger</source>
        <translation>Автоматический запуск</translation>
    </message>
    <message>
        <source>Automatic sweep/list control</source>
        <translation>Автоматическое управление качанием/списком</translation>
    </message>
    <message>
        <source>External trigger, rising edge</source>
        <translation>Внешний запуск, фронт</translation>
    </message>
    <message>
        <source>External trigger (positive polarity)</source>
        <translation>Внешний запуск (положительная полярность)</translation>
    </message>
    <message>
        <source>External trigger, falling edge</source>
        <translation>Внешний запуск, спад</translation>
    </message>
    <message>
        <source>External trigger (negative polarity)</source>
        <translation>Внешний запуск (отрицательная полярность)</translation>
    </message>
    <message>
        <source>Previous point</source>
        <translation>Предыдущая точка</translation>
    </message>
    <message>
        <source>Go to previous point</source>
        <translation>Перейти к предыдущей точке</translation>
    </message>
    <message>
        <source>Next point</source>
        <translation>Следующая точка</translation>
    </message>
    <message>
        <source>Go to next point</source>
        <translation>Перейти к следующей точке</translation>
    </message>
    <message>
        <source>Continuous</source>
        <translation>Непрерывно</translation>
    </message>
    <message>
        <source>Continuous sweep/list mode</source>
        <translation>Непрерывный режим качания/списка</translation>
    </message>
    <message>
        <source>ALLPOINTS</source>
        <translation>ВСЕ ТОЧКИ</translation>
    </message>
    <message>
        <source>All points</source>
        <translation>Все точки</translation>
    </message>
    <message>
        <source>Sweep all points by the trigger signal</source>
        <translation>Пройти все точки по сигналу запуска</translation>
    </message>
</context>
<context>
    <name>Unit</name>
    <message>
        <source>h</source>
        <translation>ч</translation>
    </message>
    <message>
        <source>min</source>
        <translation>мин</translation>
    </message>
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
        <source>dBm</source>
        <translation>дБм</translation>
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
    <message>
        <source>dB</source>
        <translation>дБ</translation>
    </message>
</context>
<context>
    <name>ValueRow</name>
    <message>
        <source>Int-Ext switch: internal or external source of the modulation</source>
        <translation>Переключатель внутр./внеш.: источник модуляции</translation>
    </message>
    <message>
        <source>Checked: external source</source>
        <translation>Нажата: внешний источник</translation>
    </message>
    <message>
        <source>EXT</source>
        <translation>ВНЕШ</translation>
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
    <name>WgtModePow</name>
    <message>
        <source>Turn ON maximum&lt;br&gt;(non-calibrated)&lt;br&gt;power mode?</source>
        <translation>ВКЛЮЧИТЬ режим&lt;br&gt;максимальной (некалиброванной)&lt;br&gt;мощности?</translation>
    </message>
    <message>
        <source>Turn OFF maximum&lt;br&gt;(non-calibrated)&lt;br&gt;power mode?</source>
        <translation>ВЫКЛЮЧИТЬ режим&lt;br&gt;максимальной (некалиброванной)&lt;br&gt;мощности?</translation>
    </message>
    <message>
        <source>Maximum power mode</source>
        <translation>Режим максимальной мощности</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Да</translation>
    </message>
    <message>
        <source>Switch the mode</source>
        <translation>Переключить режим</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Leave the mode as it is (Esc)</source>
        <translation>Оставить режим как есть (Esc)</translation>
    </message>
</context>
<context>
    <name>WholeFile</name>
    <message>
        <source>it is a folder, a pipe or a device</source>
        <translation>это папка, канал или устройство</translation>
    </message>
    <message>
        <source>it is too large</source>
        <translation>файл слишком велик</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>нет такого файла</translation>
    </message>
</context>
<context>
    <name>WindowMenu</name>
    <message>
        <source>As the &amp;system</source>
        <translation>&amp;Как в системе</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Светлая</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Тёмная</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>С&amp;правка</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;О программе</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Язык</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Тема</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>М&amp;асштаб</translation>
    </message>
    <message>
        <source>&amp;Larger</source>
        <translation>&amp;Крупнее</translation>
    </message>
    <message>
        <source>&amp;Smaller</source>
        <translation>&amp;Мельче</translation>
    </message>
    <message>
        <source>&amp;Normal size</source>
        <translation>&amp;Обычный размер</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Выход</translation>
    </message>
    <message>
        <source>&amp;Simulated instrument</source>
        <translation>&amp;Имитатор прибора</translation>
    </message>
    <message>
        <source>Ask before a step &amp;up</source>
        <translation>&amp;Спрашивать перед шагом вверх</translation>
    </message>
    <message>
        <source>By more than %1 dB</source>
        <translation>Более %1 дБ</translation>
    </message>
    <message>
        <source>&amp;Never</source>
        <translation>&amp;Никогда</translation>
    </message>
    <message>
        <source>Highest &amp;power: %1 dBm...</source>
        <translation>Наибольшая &amp;мощность: %1 дБм...</translation>
    </message>
    <message>
        <source>Highest &amp;power...</source>
        <translation>Наибольшая &amp;мощность...</translation>
    </message>
    <message>
        <source>SCPI lo&amp;g</source>
        <translation>&amp;Журнал SCPI</translation>
    </message>
    <message>
        <source>N&amp;one</source>
        <translation>&amp;Нет</translation>
    </message>
    <message>
        <source>&amp;V</source>
        <translation>&amp;В</translation>
    </message>
    <message>
        <source>&amp;mV</source>
        <translation>&amp;мВ</translation>
    </message>
    <message>
        <source>&amp;dBµV</source>
        <translation>&amp;дБмкВ</translation>
    </message>
    <message>
        <source>Level also &amp;in</source>
        <translation>Уровень та&amp;кже в</translation>
    </message>
    <message>
        <source>Level at the &amp;device: %1 dB...</source>
        <translation>Уровень на &amp;устройстве: %1 дБ...</translation>
    </message>
    <message>
        <source>Level at the &amp;device...</source>
        <translation>Уровень на &amp;устройстве...</translation>
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
        <source>LF</source>
        <translation>НЧ</translation>
    </message>
</context>
<context>
    <name>openSaveProfile</name>
    <message>
        <source>Replace the quick profile &quot;%1&quot; by the current settings?</source>
        <translation>Заменить быстрый профиль «%1» текущими настройками?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Заменить</translation>
    </message>
    <message>
        <source>Delete the quick profile &quot;%1&quot;?</source>
        <translation>Удалить быстрый профиль «%1»?</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Удалить</translation>
    </message>
    <message>
        <source>Profiles</source>
        <translation>Профили</translation>
    </message>
    <message>
        <source>Quick profiles</source>
        <translation>Быстрые профили</translation>
    </message>
    <message>
        <source>None yet: give the current settings a name and save them.</source>
        <translation>Профилей пока нет: задайте имя и сохраните текущие настройки.</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Имя</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Сохранить</translation>
    </message>
    <message>
        <source>Open file...</source>
        <translation>Открыть файл...</translation>
    </message>
    <message>
        <source>Save file...</source>
        <translation>Сохранить файл...</translation>
    </message>
    <message>
        <source>Name of a new quick profile</source>
        <translation>Имя нового быстрого профиля</translation>
    </message>
    <message>
        <source>Name under which the current settings are saved; Return saves</source>
        <translation>Имя, под которым сохраняются текущие настройки; Enter сохраняет</translation>
    </message>
    <message>
        <source>Save as quick profile</source>
        <translation>Сохранить как быстрый профиль</translation>
    </message>
    <message>
        <source>Save the current settings as a quick profile of this name</source>
        <translation>Сохранить текущие настройки как быстрый профиль с этим именем</translation>
    </message>
    <message>
        <source>Open file</source>
        <translation>Открыть файл</translation>
    </message>
    <message>
        <source>Apply a profile from a file</source>
        <translation>Применить профиль из файла</translation>
    </message>
    <message>
        <source>Save file</source>
        <translation>Сохранить файл</translation>
    </message>
    <message>
        <source>Save the current settings to a file</source>
        <translation>Сохранить текущие настройки в файл</translation>
    </message>
</context>
<context>
    <name>openSave_XML_FILE</name>
    <message>
        <source>File name is too long</source>
        <translation>Имя файла слишком длинное</translation>
    </message>
    <message>
        <source>Error saving file</source>
        <translation>Ошибка сохранения файла</translation>
    </message>
    <message>
        <source>Profile applied: %1</source>
        <translation>Профиль применён: %1</translation>
    </message>
    <message>
        <source>Profile only partly applied: %1</source>
        <translation>Профиль применён лишь частично: %1</translation>
    </message>
    <message>
        <source>There is no profile %1</source>
        <translation>Нет профиля %1</translation>
    </message>
    <message>
        <source>The profile cannot be read, nothing applied: %1</source>
        <translation>Не удалось прочитать профиль, ничего не применено: %1</translation>
    </message>
    <message>
        <source>Too large for a profile, nothing applied: %1</source>
        <translation>Файл слишком велик для профиля, ничего не применено: %1</translation>
    </message>
    <message>
        <source>The profile is damaged, nothing applied: %1</source>
        <translation>Профиль повреждён, ничего не применено: %1</translation>
    </message>
    <message>
        <source>Not a profile, nothing applied: %1</source>
        <translation>Это не профиль, ничего не применено: %1</translation>
    </message>
    <message>
        <source>The settings of the last run are damaged: defaults are used</source>
        <translation>Настройки прошлого запуска повреждены: используются значения по умолчанию</translation>
    </message>
    <message>
        <source>Profile saved: %1</source>
        <translation>Профиль сохранён: %1</translation>
    </message>
    <message>
        <source>A file name can&apos;t contain any of the following characters:</source>
        <translation>Имя файла не должно содержать следующих знаков:</translation>
    </message>
    <message>
        <source>This name is reserved: %1</source>
        <translation>Это имя занято программой: %1</translation>
    </message>
    <message>
        <source>There is already a profile of this name: %1</source>
        <translation>Профиль с таким именем уже есть: %1</translation>
    </message>
    <message>
        <source>The profile could not be deleted: %1</source>
        <translation>Не удалось удалить профиль: %1</translation>
    </message>
    <message>
        <source>Profile deleted: %1</source>
        <translation>Профиль удалён: %1</translation>
    </message>
    <message>
        <source>Not saved: %1</source>
        <translation>Не сохранено: %1</translation>
    </message>
    <message>
        <source>Reading was cancelled, nothing applied: %1</source>
        <translation>Чтение отменено, ничего не применено: %1</translation>
    </message>
    <message>
        <source>Open file</source>
        <translation>Открыть файл</translation>
    </message>
    <message>
        <source>XML File (*.xml)</source>
        <translation>Файл XML (*.xml)</translation>
    </message>
    <message>
        <source>Save file</source>
        <translation>Сохранить файл</translation>
    </message>
    <message>
        <source>The profile could not be renamed: %1</source>
        <translation>Профиль не удалось переименовать: %1</translation>
    </message>
</context>
<context>
    <name>progressBarForTable</name>
    <message>
        <source>Progress</source>
        <translation>Ход выполнения</translation>
    </message>
    <message>
        <source>Progress of the table</source>
        <translation>Ход передачи таблицы</translation>
    </message>
</context>
<context>
    <name>service</name>
    <message>
        <source>Serial:</source>
        <translation>Серийный номер:</translation>
    </message>
    <message>
        <source>Temperature inside the instrument</source>
        <translation>Температура внутри прибора</translation>
    </message>
    <message>
        <source>Service</source>
        <translation>Сервис</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>Записать</translation>
    </message>
    <message>
        <source>Stop after the current row; nothing is stored</source>
        <translation>Остановить после текущей строки; ничего не сохраняется</translation>
    </message>
    <message>
        <source>Write the table into the instrument and store it there</source>
        <translation>Записать таблицу в прибор и сохранить её там</translation>
    </message>
    <message>
        <source>Points: %1</source>
        <translation>Точек: %1</translation>
    </message>
    <message>
        <source>Firmware:</source>
        <translation>Прошивка:</translation>
    </message>
    <message>
        <source>Attenuation at  0 dBm</source>
        <translation>Ослабление при  0 дБм</translation>
    </message>
    <message>
        <source>Frequencies in whole hertz, or with k, M or G</source>
        <translation>Частоты в целых герцах или с k, M, G</translation>
    </message>
    <message>
        <source>Loading...</source>
        <translation>Загрузка...</translation>
    </message>
    <message>
        <source>, changed: %1</source>
        <translation>, изменено: %1</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Перечитать</translation>
    </message>
    <message>
        <source>Read the table from the instrument again; changes made here are discarded</source>
        <translation>Снова прочитать таблицу из прибора; внесённые изменения будут потеряны</translation>
    </message>
    <message>
        <source>Open backup...</source>
        <translation>Из копии...</translation>
    </message>
    <message>
        <source>Open backup</source>
        <translation>Открыть копию</translation>
    </message>
    <message>
        <source>Show a table that was saved before a write, to write it back</source>
        <translation>Показать таблицу, сохранённую перед записью, чтобы записать её обратно</translation>
    </message>
</context>
</TS>
