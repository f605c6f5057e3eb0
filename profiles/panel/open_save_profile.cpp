#include "profiles/panel/open_save_profile.h"

#include "profiles/open_save_xml_file.h"
#include "profiles/panel/quick_profile_row.h"
#include "profiles/profile_folder.h"
#include "ui/describe.h"
#include "ui/named.h"
#include "ui/question.h"

#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <QVariant>

#include <algorithm>

namespace
{
constexpr int spacing = 8;
constexpr int sectionSpacing = 16;
constexpr int rowHeight = 32;
constexpr int leastRowsInSight = 6;
/// More than fit on a screen; with thousands of profiles, creating every row would take long.
constexpr int rowsAtOnce = 50;
/// Files that change together are handled once.
constexpr int changesMs = 100;
} // namespace

openSaveProfile::openSaveProfile(openSave_XML_FILE& profiles, QWidget* parent)
    : SidePanel(QStringLiteral("openSaveProfile"), parent), m_profiles(profiles),
      m_heading(new QLabel(this)), m_none(new QLabel(this)), m_scroll(new QScrollArea(this)),
      m_nameCaption(new QLabel(this)), m_name(named("profile_name", new QLineEdit(this))),
      m_save(named("save_quick", new QPushButton(this))),
      m_open(named("open_profile", new QPushButton(this))),
      m_saveFile(named("save_profile", new QPushButton(this)))
{
    build();
    wire();
    for (int number = 1; number <= quickProfileKeys; ++number) {
        connect(new QShortcut(quickProfileKey(number), parent), &QShortcut::activated, this,
                [this, number] { applyNumber(number); });
    }
    openSaveProfile::retranslate();
    showRows();
    refresh();
}

void openSaveProfile::build()
{
    m_heading->setProperty("sectionTitle", true);
    m_none->setProperty("sectionSummary", true);
    m_none->setWordWrap(true);
    m_name->setMaxLength(nameLengthLimit);

    m_nameCaption->setBuddy(m_name);

    auto* rows = named("profile_rows", new QWidget(m_scroll));
    m_list = new QVBoxLayout(rows);
    m_list->setContentsMargins(0, 0, 0, 0);
    m_list->setSpacing(spacing);
    m_list->addStretch(1);
    m_scroll->setWidget(rows);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);
    // Its rows take the focus, and it follows them.
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setMinimumHeight(leastRowsInSight * (rowHeight + spacing) - spacing);

    auto* save = new QHBoxLayout;
    save->setSpacing(spacing);
    save->addWidget(m_nameCaption);
    save->addWidget(m_name, 1);
    save->addWidget(m_save);
    auto* files = new QHBoxLayout;
    files->setSpacing(spacing);
    files->addWidget(m_open, 1);
    files->addWidget(m_saveFile, 1);
    content()->addWidget(m_heading);
    content()->addWidget(m_none);
    content()->addWidget(m_scroll, 1);
    content()->addLayout(save);
    content()->addSpacing(sectionSpacing);
    content()->addLayout(files);
    growContent();
}

void openSaveProfile::wire()
{
    connect(m_save, &QAbstractButton::clicked, this, &openSaveProfile::saveNamed);
    connect(m_name, &QLineEdit::returnPressed, this, &openSaveProfile::saveNamed);
    connect(m_open, &QAbstractButton::clicked, &m_profiles, &openSave_XML_FILE::openProfile);
    connect(m_saveFile, &QAbstractButton::clicked, &m_profiles, &openSave_XML_FILE::saveProfile);
    // It has made the folder by now.
    connect(m_saveFile, &QAbstractButton::clicked, this, &openSaveProfile::watchFolder);
    connect(&m_profiles, &openSave_XML_FILE::sendQuickProfile, this, [this](const QString& path) {
        m_found << QuickProfile{path, m_profiles.nameOf(path), m_profiles.numberOf(path)};
    });
    connect(&m_profiles.recalled(), &RecalledProfile::changed, this,
            &openSaveProfile::showRecalled);
    connect(m_scroll->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &openSaveProfile::addRowsAhead);
    connect(m_scroll->verticalScrollBar(), &QScrollBar::rangeChanged, this,
            &openSaveProfile::addRowsAhead);
    m_changes.setSingleShot(true);
    m_changes.setInterval(changesMs);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_changes,
            QOverload<>::of(&QTimer::start));
    connect(&m_changes, &QTimer::timeout, this, &openSaveProfile::refresh);
}

void openSaveProfile::watchFolder()
{
    const QString& folder = m_profiles.folder();
    if (m_watcher.directories().isEmpty() && QFileInfo(folder).isDir())
        m_watcher.addPath(folder);
}

void openSaveProfile::refresh()
{
    watchFolder();
    m_found.clear();
    m_profiles.getQuickProfiles();
    // A row that is shown may be in use: a name may be being typed.
    if (m_found == m_shown)
        return;
    m_shown = m_found;
    showRows();
}

void openSaveProfile::showRows()
{
    int focused = -1;
    const int wanted = std::max(rowsAtOnce, m_rows.size());
    for (QuickProfileRow* row : qAsConst(m_rows)) {
        if (row->isAncestorOf(focusWidget()))
            focused = m_rows.indexOf(row);
        // Its name passes to its successor at once, but it may be the sender of the current signal.
        row->hide();
        row->setParent(nullptr);
        row->deleteLater();
    }
    m_rows.clear();
    addRows(wanted);
    m_none->setVisible(m_shown.isEmpty());
    if (focused >= 0 && !m_rows.isEmpty())
        m_rows.at(std::min(focused, m_rows.size() - 1))->apply()->setFocus();
}

void openSaveProfile::addRows(int count)
{
    const int end = std::min(m_rows.size() + count, m_shown.size());
    for (int i = m_rows.size(); i < end; ++i)
        addRow(m_shown.at(i));
    showRecalled();
}

/// Further rows come before the last one is seen.
void openSaveProfile::addRowsAhead()
{
    const QScrollBar& bar = *m_scroll->verticalScrollBar();
    if (bar.value() + bar.pageStep() >= bar.maximum())
        addRows(rowsAtOnce);
}

void openSaveProfile::addRow(const QuickProfile& profile)
{
    auto* row = new QuickProfileRow(profile.number, profile.name, m_scroll->widget());
    m_list->insertWidget(m_rows.size(), row);
    row->show();
    m_rows << row;
    connect(row, &QuickProfileRow::applyWanted, this,
            [this, profile] { m_profiles.open(profile.path); });
    connect(row, &QuickProfileRow::numberWanted, this,
            [this, profile](QWidget* at) { showNumbers(profile, at); });
    connect(row, &QuickProfileRow::renameWanted, this, [this, profile](const QString& name) {
        if (m_profiles.renameQuickProfile(profile.path, name))
            refresh();
    });
    connect(row, &QuickProfileRow::deleteWanted, this, [this, profile] { askToDelete(profile); });
}

void openSaveProfile::showRecalled()
{
    const RecalledProfile& recalled = m_profiles.recalled();
    for (int i = 0; i < m_rows.size(); ++i)
        m_rows.at(i)->showRecalled(m_shown.at(i).path == recalled.path(), recalled.differs());
}

/// The numbers that have a key, each with the profile that would get the other one in exchange.
void openSaveProfile::showNumbers(const QuickProfile& profile, QWidget* at)
{
    auto* menu = named("numbers", new QMenu(this));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int number = 1; number <= quickProfileKeys; ++number) {
        const auto* const holder =
            std::find_if(m_shown.cbegin(), m_shown.cend(),
                         [number](const QuickProfile& each) { return each.number == number; });
        const QString name = holder == m_shown.cend() ? QString() : holder->name;
        QAction* action = menu->addAction(
            QString(name).replace(QLatin1Char('&'), QStringLiteral("&&")) + QLatin1Char('\t') +
            quickProfileKey(number).toString(QKeySequence::NativeText));
        action->setObjectName(QStringLiteral("to_%1").arg(number));
        action->setCheckable(true);
        action->setChecked(number == profile.number);
        connect(action, &QAction::triggered, this, [this, path = profile.path, number] {
            m_profiles.exchangeNumber(path, number);
            refresh();
        });
    }
    menu->popup(at->mapToGlobal(at->rect().bottomLeft()));
}

void openSaveProfile::applyNumber(int number)
{
    for (QuickProfileRow* row : qAsConst(m_rows)) {
        if (row->number() == number) {
            row->apply()->click();
            return;
        }
    }
}

void openSaveProfile::saveNamed()
{
    const QString name = m_name->text().simplified();
    if (name.isEmpty()) {
        m_name->setFocus();
        return;
    }
    if (!isPossibleName(name) || !m_profiles.hasQuickProfile(name)) {
        saveAs(name);
        return;
    }
    askBefore(window(), tr("Profiles"),
              tr("Replace the quick profile \"%1\" by the current settings?").arg(name),
              tr("Replace"), [this, name] { saveAs(name); });
}

void openSaveProfile::saveAs(const QString& name)
{
    if (m_profiles.saveQuickProfile(name))
        m_name->clear();
    refresh();
}

void openSaveProfile::askToDelete(const QuickProfile& profile)
{
    askBefore(window(), tr("Profiles"), tr("Delete the quick profile \"%1\"?").arg(profile.name),
              tr("Delete"), [this, profile] {
                  m_profiles.choose(profile.path);
                  m_profiles.deleteProfile();
                  refresh();
              });
}

void openSaveProfile::showEvent(QShowEvent* event)
{
    refresh();
    SidePanel::showEvent(event);
}

void openSaveProfile::retranslate()
{
    SidePanel::retranslate();
    setTitle(tr("Profiles"));
    m_heading->setText(tr("Quick profiles"));
    m_none->setText(tr("None yet: give the current settings a name and save them."));
    m_nameCaption->setText(tr("Name"));
    m_save->setText(tr("Save"));
    m_open->setText(tr("Open file..."));
    m_saveFile->setText(tr("Save file..."));
    describe(m_name, tr("Name of a new quick profile"),
             tr("Name under which the current settings are saved; Return saves"));
    describe(m_save, tr("Save as quick profile"),
             tr("Save the current settings as a quick profile of this name"));
    describe(m_open, tr("Open file"), tr("Apply a profile from a file"));
    describe(m_saveFile, tr("Save file"), tr("Save the current settings to a file"));
    for (QuickProfileRow* row : qAsConst(m_rows))
        row->retranslate();
    showRecalled();
}
