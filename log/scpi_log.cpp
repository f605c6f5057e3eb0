#include "log/scpi_log.h"

#include "link/scpi_session.h"
#include "log/command_entry.h"
#include "log/hand_commands.h"
#include "log/log_table.h"
#include "log/log_text.h"
#include "log/python_script.h"
#include "ui/describe.h"
#include "ui/files/file_questions.h"
#include "ui/files/file_work.h"
#include "ui/files/user_folder.h"
#include "ui/window_chrome.h"

#include <QDateTime>
#include <QFrame>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSizeGrip>

namespace
{
constexpr int margin = 16;
constexpr int spacing = 8;
constexpr int logoSize = 24;
constexpr int buttonSize = 32;
constexpr int leastFindWidth = 160;
constexpr QSize firstSize{920, 560};
constexpr QSize leastSize{720, 360};
const QString geometryKey = QStringLiteral("Log/geometry");
const QString csvSuffix = QStringLiteral(".csv");
const QString scriptSuffix = QStringLiteral(".py");
} // namespace

ScpiLog::ScpiLog(ScpiSession& session, QSettings& settings, QWidget* parent)
    : QWidget(parent, Qt::Window), m_session(session), m_settings(settings), m_model(session.log()),
      m_hand(new HandCommands(session, this))
{
    setObjectName(QStringLiteral("ScpiLog"));
    setWindowIcon(QIcon(QStringLiteral(":/images/logotip.png")));
    new WindowChrome(this);
    auto* surface = new QFrame(this);
    surface->setObjectName(QStringLiteral("dialog_surface"));
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(surface);
    auto* rows = new QVBoxLayout(surface);
    rows->setContentsMargins(margin, spacing, margin, spacing);
    rows->setSpacing(spacing);
    m_table = new LogTable(m_model, surface);
    rows->addWidget(makeTitle());
    rows->addWidget(makeTools());
    rows->addWidget(m_table, 1);
    rows->addWidget(makeFoot());
    // As it is read, the way out last.
    setTabOrder(m_save, m_table);
    setTabOrder(m_table, m_entry);
    setTabOrder(m_entry, m_close);
    setMinimumSize(leastSize);
    if (!restoreGeometry(m_settings.value(geometryKey).toByteArray()))
        resize(firstSize);

    connect(m_hand, &HandCommands::refused, this,
            [this](const StatusWords& reason) { say(reason, true); });
    connect(m_hand, &HandCommands::sent, this, [this](const Exchange& exchange) {
        say([exchange] { return outcomeText(exchange); }, exchange.hasFailed());
    });
    connect(m_hand, &HandCommands::waiting, this,
            [this] { say([] { return tr("Sent as soon as nothing else is going on"); }); });
    connect(&m_model, &QAbstractItemModel::rowsInserted, this, &ScpiLog::showDropped);
    connect(&m_model, &QAbstractItemModel::rowsRemoved, this, &ScpiLog::showDropped);
    connect(&m_model, &QAbstractItemModel::modelReset, this, &ScpiLog::showDropped);
    retranslate();
}

QWidget* ScpiLog::makeTitle()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    auto* logo = new QLabel(row);
    logo->setPixmap(windowIcon().pixmap(logoSize));
    m_title = new QLabel(row);
    m_title->setObjectName(QStringLiteral("dialog_title"));
    m_close = newButton("log_close");
    m_close->setFlat(true);
    m_close->setIcon(QIcon(QStringLiteral(":/images/close.png")));
    m_close->setFixedSize(buttonSize, buttonSize);
    connect(m_close, &QAbstractButton::clicked, this, &QWidget::close);
    layout->addWidget(logo);
    layout->addWidget(m_title, 1);
    layout->addWidget(m_close);
    return row;
}

QWidget* ScpiLog::makeTools()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    m_find = new QLineEdit(row);
    m_find->setObjectName(QStringLiteral("log_find"));
    m_find->setMinimumWidth(leastFindWidth);
    m_find->setClearButtonEnabled(true);
    // The style sheet knows no colour for the placeholder alone.
    const auto showHint = [this] { m_find->setProperty("hint", m_find->text().isEmpty()); };
    connect(m_find, &QLineEdit::textChanged, this, showHint);
    showHint();
    connect(m_find, &QLineEdit::textChanged, this, &ScpiLog::filter);
    m_errors = newSwitch("log_errors");
    m_polls = newSwitch("log_polls");
    connect(m_errors, &QAbstractButton::toggled, this, &ScpiLog::filter);
    connect(m_polls, &QAbstractButton::toggled, this, &ScpiLog::filter);
    m_pause = newSwitch("log_pause");
    connect(m_pause, &QAbstractButton::toggled, this, &ScpiLog::follow);
    m_clear = newButton("log_clear");
    connect(m_clear, &QAbstractButton::clicked, &m_session.log(), &ExchangeLog::clear);
    m_save = newButton("log_save");
    connect(m_save, &QAbstractButton::clicked, this, &ScpiLog::save);
    layout->addWidget(m_find, 1);
    for (QWidget* button : {m_errors, m_polls, m_pause, m_clear, m_save})
        layout->addWidget(button);
    return row;
}

QWidget* ScpiLog::makeFoot()
{
    auto* foot = new QWidget(this);
    auto* rows = new QVBoxLayout(foot);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(spacing / 2);
    m_prompt = new QLabel(foot);
    m_entry = new CommandEntry(m_settings, foot);
    m_prompt->setBuddy(m_entry);
    connect(m_entry, &QLineEdit::returnPressed, this, &ScpiLog::send);
    connect(m_entry, &QLineEdit::textEdited, this, [this] { say({}); });
    auto* entryRow = new QHBoxLayout;
    entryRow->setSpacing(spacing);
    entryRow->addWidget(m_prompt);
    entryRow->addWidget(m_entry, 1);
    m_note = new QLabel(foot);
    m_note->setObjectName(QStringLiteral("log_note"));
    m_note->setTextFormat(Qt::PlainText);
    // A long text is cut; it does not widen the window.
    m_note->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_dropped = new QLabel(foot);
    m_dropped->setObjectName(QStringLiteral("log_dropped"));
    auto* grip = new QSizeGrip(foot);
    auto* noteRow = new QHBoxLayout;
    noteRow->addWidget(m_note, 1);
    noteRow->addWidget(m_dropped);
    noteRow->addWidget(grip, 0, Qt::AlignBottom);
    rows->addLayout(entryRow);
    rows->addLayout(noteRow);
    return foot;
}

QPushButton* ScpiLog::newButton(const char* name)
{
    auto* button = new QPushButton(this);
    button->setObjectName(QLatin1String(name));
    return button;
}

QPushButton* ScpiLog::newSwitch(const char* name)
{
    QPushButton* button = newButton(name);
    button->setCheckable(true);
    return button;
}

void ScpiLog::open()
{
    show();
    raise();
    activateWindow();
    m_entry->setFocus(Qt::ShortcutFocusReason);
}

void ScpiLog::filter()
{
    LogFilter filter = m_model.filter();
    const bool isFound = filter.find(m_find->text());
    filter.showFailuresOnly(m_errors->isChecked());
    filter.showPolling(m_polls->isChecked());
    m_model.setFilter(filter);
    say(
        isFound ? StatusWords() : [] { return tr("Not a regular expression yet"); }, !isFound);
}

void ScpiLog::follow()
{
    m_model.follow(isVisible() && !m_pause->isChecked());
}

void ScpiLog::send()
{
    const QString text = m_entry->text();
    if (text.trimmed().isEmpty() || !m_hand->send(text))
        return;
    m_entry->remember(text);
    m_entry->clear();
}

void ScpiLog::save()
{
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH-mm"));
    askFileToSave(this,
                  {tr("Save the log"), madeUserFolder(),
                   tr("Text (*.txt);;Spreadsheet (*.csv);;Python script for PyVISA (*.py)"),
                   tr("SCPI log %1").arg(stamp)},
                  [this](const QString& path) { write(path); });
}

/// The selected rows, or all; as what the suffix says.
void ScpiLog::write(const QString& path)
{
    const std::vector<int> selected = m_table->selectedRows();
    const std::vector<Exchange> exchanges =
        selected.size() > 1 ? m_model.exchanges(selected) : m_model.exchanges();
    QByteArray bytes;
    if (path.endsWith(scriptSuffix, Qt::CaseInsensitive))
        bytes = pythonScript(exchanges, m_session.log().instrument());
    else if (path.endsWith(csvSuffix, Qt::CaseInsensitive))
        bytes = logValues(exchanges);
    else
        bytes = logLines(exchanges);
    const FileOutcome outcome = writeBeside(this, path, bytes);
    if (outcome.fault == FileFault::None)
        say([path] { return tr("Saved: %1").arg(path); });
    else if (outcome.fault != FileFault::Cancelled)
        emit errorMessage(tr("%1 could not be saved: %2").arg(path, outcome.detail()));
}

void ScpiLog::say(const StatusWords& words, bool isWarning)
{
    m_words = words;
    m_note->setProperty("warning", isWarning);
    m_note->setText(words ? words() : QString());
}

void ScpiLog::showDropped()
{
    m_dropped->setText(m_session.log().hasDropped() ? tr("Older lines have been dropped")
                                                    : QString());
}

void ScpiLog::retranslate()
{
    const auto word = [](QPushButton* button, const QString& caption, const QString& toolTip) {
        button->setText(caption);
        describe(button, QString(caption).remove(QLatin1Char('&')), toolTip);
    };
    setWindowTitle(tr("SCPI log"));
    setAccessibleName(windowTitle());
    m_title->setText(windowTitle());
    describe(m_close, tr("Close"), tr("Close the log; it goes on being recorded (Esc)"));
    m_find->setPlaceholderText(tr("Find text or /expression/"));
    describe(m_find, tr("Find in the log"),
             tr("Shows the lines with this text, or what a regular expression between slashes "
                "finds (Ctrl+F)"));
    word(m_errors, tr("&Failures"), tr("Show only what failed"));
    word(m_polls, tr("&Polling"),
         tr("Show also the error queue found empty, and the temperature read by itself"));
    word(m_pause, tr("P&ause"), tr("Hold the lines shown; the log goes on being recorded"));
    word(m_clear, tr("&Clear"), tr("Forget all lines"));
    word(m_save, tr("&Save..."),
         tr("Save the lines shown, or those selected, as text, as a "
            "spreadsheet or as a Python script"));
    m_prompt->setText(tr("SCPI co&mmand"));
    describe(m_entry, tr("SCPI command"),
             tr("Sends the command as it stands (Enter). One with a question mark is asked, and "
                "its answer shown. Up and Down: commands entered before."));
    m_table->retranslate();
    say(m_words, m_note->property("warning").toBool());
    showDropped();
}

void ScpiLog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void ScpiLog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else if (event->matches(QKeySequence::Find))
        m_find->setFocus(Qt::ShortcutFocusReason);
    else
        QWidget::keyPressEvent(event);
}

void ScpiLog::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    follow();
}

void ScpiLog::hideEvent(QHideEvent* event)
{
    m_settings.setValue(geometryKey, saveGeometry());
    QWidget::hideEvent(event);
    follow();
}
